#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Holds the estimates against the sizes of what the encoder makes of ten seconds.

    sizes.py TOOL PROFILES_FOLDER              checks the profiles whose bit rate or samples fix the size;
                                               exit status 77 without ffmpeg and ffprobe
    sizes.py TOOL PROFILES_FOLDER DOCUMENT     writes the table of every profile that makes video or audio
                                               into the document, between its two marks
"""
import sys
import tempfile
from pathlib import Path

import programs
import samples

SECONDS = 10

# The least and the most that a file may be of its estimate, and for which profiles: what Debian's ffmpeg gives and
# half as much again for the container, which no estimate counts. Noise, since nothing else uses all of a bit rate.
GROUPS = [
    # Samples after a header of less than 100 bytes; 250 bytes more where the profile rounds to 1411 kbit/s.
    (1.0, 1.0006, ['AIFF - PCM 16bit', 'AU - Telephone u-law', 'WAV - PCM 16bit Stereo']),
    # Frames of one size: the last one is filled up, MP3 begins with tags and a frame about the others.
    (1.0, 1.009, ['AC3 - Surround', 'MP2 - MPEG Layer 2', 'MP3 - High Quality', 'PMP MP3 Player', 'Car Radio MP3']),
    # Frames that are right on average, and an index of them.
    (0.99, 1.03, ['AAC - MPEG4 Audio', 'iPod Audio AAC']),
    # Video whose least bit rate is its highest, in packets of one size.
    (1.0, 1.03, ['MPEG1 - VCD NTSC']),
]
BOUNDS = {profile: (least, most) for least, most, profiles in GROUPS for profile in profiles}
MARKS = '<!-- sizes -->\n', '<!-- end of sizes -->\n'


def real_size(tool, profile, clip, folder):
    output, refusal = tool.convert(profile, clip, folder)
    if refusal:
        return None
    size = output.stat().st_size
    output.unlink()
    return size


def check(tool, profiles, clips, folder):
    bad = 0
    for profile in profiles:
        least, most = BOUNDS[profile.id]
        estimate = tool.estimate(profile, SECONDS)
        size = real_size(tool, profile, clips['noise'], folder)
        if not estimate or not size or not least <= size / estimate <= most:
            print(f'{profile.id}: {SECONDS} seconds of noise: expected {least} to {most} of the estimate '
                  f'{estimate}, got {size}')
            bad += 1
    print(f'{len(profiles)} profiles, {bad} outside their bounds')
    return 1 if bad or len(profiles) != len(BOUNDS) else 0


def cells(size, estimate):
    if size is None:
        return '– | –'
    return f'{size:,} | {size / estimate:.2f}' if estimate else f'{size:,} | –'


def write_table(document, tool, profiles, clips, folder):
    rows = ['| profile | estimate | noise | of the estimate | still | of the estimate |', '|---|--:|--:|--:|--:|--:|']
    for profile in profiles:
        estimate = tool.estimate(profile, SECONDS)
        sizes = [cells(real_size(tool, profile, clips[kind], folder), estimate) for kind in ('noise', 'still')]
        rows.append(f'| {profile.id} | {f"{estimate:,}" if estimate else "unknown"} | {" | ".join(sizes)} |')
    text = document.read_text()
    before, after = text.split(MARKS[0])[0], text.split(MARKS[1])[1]
    document.write_text(before + MARKS[0] + '\n'.join(rows) + '\n' + MARKS[1] + after)
    return 0


def main(tool_path, profiles_folder, document=None):
    programs.skip_without_encoder()
    tool = programs.Tool(tool_path, profiles_folder)
    profiles = [profile for profile in samples.read_all(Path(profiles_folder))
                if (profile.has_video or profile.has_audio) and (document or profile.id in BOUNDS)]
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        clips = {'noise': programs.make_clip(folder / 'noise.nut', SECONDS, sounds=programs.NOISE),
                 'still': programs.make_clip(folder / 'still.nut', SECONDS, programs.STILL, programs.TONES)}
        if document:
            return write_table(Path(document), tool, profiles, clips, folder)
        return check(tool, profiles, clips, folder)


if __name__ == '__main__':
    sys.exit(main(*sys.argv[1:]))
