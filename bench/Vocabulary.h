// SPDX-License-Identifier: MIT
// What the sample profiles are made of: their settings in file order, and the words of their headers.
#pragma once

#include <string_view>

// One setting as profiles write it. Lists are separated by ","; an empty text stands for a missing attribute.
struct VocabularyItem {
    std::string_view id;
    std::string_view advName;
    std::string_view advGroup;
    std::string_view values;   // one of these becomes the value, unless there are candidates
    std::string_view display;  // of the candidates, as many as there are
    std::string_view candidates;
    std::string_view simpleName;
    std::string_view simpleDisplay;
    std::string_view simpleCandidates;
    bool isAlwaysThere;
};

inline constexpr VocabularyItem kVocabulary[] = {
    {"vcodec", "Video Codec", "Video", "", "XviD,MPEG-4,H.264,Motion JPEG", "xvid,mpeg4,h264,mjpeg",
     "Video Codec", "XviD,MPEG-4,H.264", "xvid,mpeg4,h264", true},
    {"s", "Video Size", "Video", "",
     "Auto,1920x1080,1280x720,720x576,720x480,800x480,640x480,480x272,352x288,320x240",
     "Auto,1920x1080,1280x720,720x576,720x480,800x480,640x480,480x272,352x288,320x240", "Video Size",
     "Auto,720x576,720x480,800x480,640x480,480x272,320x240",
     "Auto,720x576,720x480,800x480,640x480,480x272,320x240", true},
    {"b", "Video Bitrate", "Video", "",
     "Auto,384 kbps,512 kbps,768 kbps,1024 kbps,1500 kbps,2000 kbps,2500 kbps,3000 kbps,4000 kbps,6000 "
     "kbps,8000 kbps",
     "Auto,384,512,768,1024,1500,2000,2500,3000,4000,6000,8000", "Video Quality",
     "High Quality,Normal Quality,Low Quality", "2500,1500,768", true},
    {"r", "Frame Rate", "Video", "",
     "Auto,10 fps,12 fps,15 fps,20 fps,23.976 fps,24 fps,25 fps,29.97 fps,30 fps",
     "Auto,10,12,15,20,23.976,24,25,29.97,30", "", "", "", true},
    {"aspect", "Aspect Ratio", "Video", "", "Auto,4:3,16:9", "Auto,4:3,16:9", "", "", "", true},
    {"zoom", "Zoom Mode", "Video", "", "Letterbox,Medium,Pan and Scan,Full (Keep aspect ratio)", "0,1,2,3",
     "", "", "", true},
    {"level", "Encode Level", "Video", "13,21,30,41", "", "", "", "", "", false},
    {"maxrate", "Max Bitrate", "Rate Control", "1500,4000,6000", "", "", "", "", "", false},
    {"bufsize", "Buffer Size", "Rate Control", "1500,2000,3000", "", "", "", "", "", false},
    {"g", "GOP Size", "Expert", "12,15,250,300", "", "", "", "", "", false},
    {"bf", "B Frames", "Expert", "", "0,1,2,3", "0,1,2,3", "", "", "", false},
    {"qmin", "Min Quantiser", "Rate Control", "2,10", "", "", "", "", "", false},
    {"qmax", "Max Quantiser", "Rate Control", "31,51", "", "", "", "", "", false},
    {"qdiff", "Max Quantiser Difference", "Rate Control", "3,4", "", "", "", "", "", false},
    {"qcomp", "Quantiser Compression", "Rate Control", "0.5,0.6", "", "", "", "", "", false},
    {"i_qfactor", "I Frame Quantiser Factor", "Rate Control", "0.71,0.8", "", "", "", "", "", false},
    {"mbd", "Macroblock Decision", "Expert", "", "Simple,Fewest bits,Rate distortion", "0,1,2", "", "", "",
     false},
    {"coder", "Coder Type", "Expert", "", "VLC,Arithmetic", "0,1", "", "", "", false},
    {"me", "Motion Estimation", "Expert", "", "None,Fast,Normal,Full search", "zero,phods,epzs,full", "", "",
     "", false},
    {"me_range", "Motion Vector Range", "Expert", "16,32", "", "", "", "", "", false},
    {"cmp", "Fullpel Compare", "Expert", "0,2", "", "", "", "", "", false},
    {"trell", "Trellis Quantization", "Expert", "", "On,Off", "true,false", "", "", "", false},
    {"sc_threshold", "Scene Change Threshold", "Expert", "0,40", "", "", "", "", "", false},
    {"acodec", "Audio Codec", "Audio", "", "MP3,AC-3,AAC", "mp3,ac3,aac", "", "", "", true},
    {"ab", "Audio Bitrate", "Audio", "",
     "48 kbps,64 kbps,96 kbps,128 kbps,160 kbps,192 kbps,224 kbps,256 kbps,320 kbps",
     "48,64,96,128,160,192,224,256,320", "Audio Quality", "High Quality,Normal Quality,Low Quality",
     "320,192,128", true},
    {"ar", "Sample Rate", "Audio", "", "48000 Hz,44100 Hz,32000 Hz,24000 Hz,22050 Hz,16000 Hz",
     "48000,44100,32000,24000,22050,16000", "", "", "", true},
    {"ac", "Channels", "Audio", "", "2 (Stereo),1 (Mono)", "2,1", "", "", "", true},
    {"vol", "Volume", "Audio", "", "25%,50%,75%,100%,125%,150%,175%,200%,225%",
     "25%,50%,75%,100%,125%,150%,175%,200%,225%", "", "", "", true},
    {"an", "Disable Audio", "Audio", "", "Yes,No", "true,false", "", "", "", true},
    {"croptop", "Crop Top", "Crop and Pad", "0,8", "", "", "", "", "", false},
    {"cropbottom", "Crop Bottom", "Crop and Pad", "0,8", "", "", "", "", "", false},
    {"cropleft", "Crop Left", "Crop and Pad", "0,8", "", "", "", "", "", false},
    {"cropright", "Crop Right", "Crop and Pad", "0,8", "", "", "", "", "", false},
    {"ss", "Start Time", "General", "00:00:00", "", "", "", "", "", true},
    {"t", "Duration", "General", "Full", "", "", "", "", "", true},
    {"title", "Title", "Tag", "", "", "", "", "", "", false},
    {"author", "Author", "Tag", "", "", "", "", "", "", false},
    {"threads", "Thread Count", "General", "", "1,2,4", "1,2,4", "", "", "", true},
};

inline constexpr std::string_view kGroups[] = {
    "Common Video", "Common Audio",
    "Apple TV",     "HD Video",
    "iPod",         "iPhone",
    "Mobile Phone", "Portable Multimedia Device",
    "PS3",          "PSP",
    "Wii and DS",   "Xbox HD Video",
    "Zune",         "Lossless Audio",
    "Web Video",    "Digital Camcorder",
};

inline constexpr std::string_view kDevices[] = {"Apple TV", "iPod Video",   "iPhone Video", "PSP",
                                                "PS3",      "Mobile Phone", "PMP",          "Zune",
                                                "Xbox HD",  "AVI",          "MP4",          "FLV"};

inline constexpr std::string_view kCodecs[] = {"H264", "MPEG4", "WMV", "XviD", "MJPEG"};

inline constexpr std::string_view kSizes[] = {"320x240", "480x272", "640x480", "720x576", "1280x720"};

inline constexpr std::string_view kDescriptions[] = {
    "Video in the full width of the screen", "High quality video for personal archives",
    "Small files for the road &amp; the train", "Plays on every device of the family"};

inline constexpr std::string_view kExtensions[] = {"avi", "mp4", "wmv", "flv", "3gp"};
