// SPDX-License-Identifier: MIT
// One profile in memory.
#pragma once

#include <cstdint>
#include <vector>

#include "kmExport.h"
#include "kmProfileHeader.h"
#include "kmProfileItem.h"
#include "kmTypes.h"

class XMLNode;

KM_CLASSES_BEGIN

// The header and the settings of one encoding profile, the settings in file order. Owned by whoever creates
// it; owns its items by value; one thread at a time; failures are results, never exceptions. Items are found
// by their exact ID; a null ID finds none.
class KM_EXPORT kmProfile {
public:
    // A profile without ID, settings and folder. Copies own their items and keep the changed flag.
    kmProfile() = default;
    kmProfile(const kmProfile& other) = default;
    kmProfile(kmProfile&& other) noexcept = default;
    kmProfile& operator=(const kmProfile& other) = default;
    kmProfile& operator=(kmProfile&& other) noexcept = default;
    virtual ~kmProfile();

    // Like assignment, but the changed flag is cleared. Copying a profile from itself changes nothing.
    void CopyFrom(const kmProfile& other);

    // The ID: the name of the profile's file without ".pf". Loading reads the file of this ID and never
    // changes it.
    kmString GetID() const { return m_id; }
    void SetID(const kmString& id) { m_id = id; }

    // The short name.
    kmString GetSName() const { return m_header.sName; }
    void SetSName(const kmString& name) { m_header.sName = name; }

    // The output container format.
    kmString GetFormat() const { return m_header.format; }
    void SetFormat(const kmString& format) { m_header.format = format; }

    // The output file extension.
    kmString GetExtName() const { return m_header.extName; }
    void SetExtName(const kmString& extName) { m_header.extName = extName; }

    // Whether the file marks the profile as one of the system's, which are never overwritten.
    bool IsSystem() const { return m_header.isSystem; }

    // Set when a setting is changed below; loading leaves it alone.
    bool GetChangedFlag() const { return m_changedFlag; }
    void SetChangedFlag(bool changed) { m_changedFlag = changed; }

    // The settings themselves, in file order. References into the list live until it changes size, which a
    // load does.
    std::vector<kmProfileItem>& GetProfileItems() { return m_items; }
    const std::vector<kmProfileItem>& GetProfileItems() const { return m_items; }

    // The first item of that ID, or null. Valid as long as references into the list are.
    kmProfileItem* GetProfileItem(const kmChar* id);
    const kmProfileItem* GetProfileItem(const kmChar* id) const;

    // Whether there is an item of that ID.
    bool ItemExist(const kmString& id) const;

    // Reads the file of the current ID from `folder`, else from its "user" subfolder; an empty `folder` means
    // the default one, "Profiles" beside the running executable. Header fields that the file lacks keep their
    // values, items without a value take the option's default. After false the items are gone and the header
    // is as before.
    bool Load(const kmString& folder);

    // Load from the default folder.
    bool Reload();

    // Stores the profile as user profile `newID`; the object itself does not change. A system profile's copy
    // goes into the "user" subfolder of its folder, a user profile into the folder that it was loaded from.
    // Only with `overwrite` is another user profile replaced; a user profile's own file always is. The old
    // file stays whole until the new one is. The catalogue, its callbacks and the icons are told before the
    // call returns.
    // PROFILE_ERROR_SYSTEM and PROFILE_ERROR_EXIST: refused before any file was touched. PROFILE_ERROR_FILE,
    // with every file as before and nobody told: the profile was never loaded, the ID has a fault
    // (kmFindIDFault; the own ID may begin with "."), a name in the profile cannot stand in a file, or the
    // disk failed. Without `overwrite` only the catalogue is asked whether the ID is free: a file that it
    // does not know is replaced, on Windows also one whose name differs in the case of letters beyond ASCII;
    // kmSaveAsNew replaces nothing. After a load that failed there are no items, and that is what is saved.
    PROFILE_EERROR Save(const kmString& newID, bool overwrite);

    // Gives the file of a user profile, and this object, a new ID. The file is never put in the place of
    // another. Results as for Save; PROFILE_ERROR_EXIST also for the own ID, if the catalogue has it. A file
    // that cannot be read gets its new name all the same, with PROFILE_ERROR_FILE. Save and ReName use the
    // catalogue and the icons of the process, and so belong to one thread in it.
    PROFILE_EERROR ReName(const kmString& newID);

    // The value of a setting; empty when the profile lacks it.
    kmString GetItemValue(const kmChar* id) const;

    // Replaces the value and sets the changed flag. False, with nothing changed, without such an item or for
    // a null value. The value is not checked (kmProfileItem::Check does that).
    bool SetItemValue(const kmChar* id, const kmChar* value);

    // The value as a position in the item's simple candidates (kmProfileItem::GetSimpleItemIndex); -1 without
    // such an item.
    int GetSimpleItemValue(const kmChar* id) const;

    // Sets the value by its position. False without such an item; a position out of range gives false too,
    // but the changed flag is then set all the same.
    bool SetSimpleItemValue(const kmChar* id, int index);

    // Copies of the items that have a simple name, in the profile's order.
    std::vector<kmProfileItem> GetSimpleItems() const;

    // What the profile produces, told by which settings it has, whatever their values.
    PROFILE_TYPE GetType() const;

    // The output frame size in pixels; 0 x 0 with true stands for the source's size ("Auto"). False with 0 x
    // 0 when the size cannot be read, false with the arguments untouched when the profile has no size.
    bool GetSize(std::int32_t& width, std::int32_t& height) const;

    // The zoom mode's number; 0 when there is none. Its meaning is the application's.
    int GetZoom() const;

    // Width divided by height; 0.0 for the source's.
    double GetAspectratio() const;

    // Where the conversion starts and how long it lasts, in microseconds; a duration of 0 means the whole
    // input.
    std::int64_t GetStartTime() const;
    std::int64_t GetDuration() const;

    // The options for the encoder's command line, in the profile's order, each followed by a space. Start,
    // duration, frame size, frame rate, picture interval and zoom are held back; without `withAudio` audio
    // options are left out. Lowers a bit rate that MP3 does not allow ("ab") and sets the sample rate that
    // WMA needs at 320 kbit/s ("ar") in the profile first, which also sets the changed flag.
    kmString GetAvcString(bool withAudio);

    // Estimates the output's size in bytes, from the profile's own settings; of pictures when the profile
    // makes pictures. In all estimates durations are in microseconds, sizes in pixels and the source's bit
    // rates in bit/s; settings that are missing or no numbers count as 0. kmSizeEstimate.h tells what an
    // estimate is made of, and which 0 means that nobody knows.
    std::int64_t CalcOutputFileSize(std::int64_t duration, bool withAudio, int sourceWidth,
                                    int sourceHeight) const;

    // The estimate with the source's bit rates where the profile has none. `streams`: 1 counts video, 2
    // audio.
    std::int64_t CalcAVOutputFileSize(std::int64_t duration, int sourceAudioBitrate, int sourceVideoBitrate,
                                      int streams) const;

    // The estimate of pictures; 0 for a profile that makes none. The duration is not used.
    std::int64_t CalcImageOutputFileSize(std::int64_t duration, int sourceWidth, int sourceHeight) const;

    // The estimate of the video alone; without a bit rate the middle one of its advanced candidates counts.
    std::int64_t CalcP2VOutputFileSize(std::int64_t duration) const;

    // The frame size in pixels that the codec accepts: the nearest of five for "h263", 0 x 0 for a null or
    // empty codec; for any other the results are left as they were.
    void GetOutSizeForSpecialVcodec(int width, int height, int& outWidth, int& outHeight,
                                    const kmChar* codec) const;

protected:
    // Fills one item from its element.
    void GetValueFromFile(kmProfileItem& item, const XMLNode& element);

    // Writes the fields of one item into its element.
    void SetValueToFile(kmProfileItem& item, XMLNode& element);

    // Sets the attribute `name`, or removes it for what counts as empty: an empty text, 0, false, an empty
    // list.
    static void SetProfileItemValue(XMLNode& element, const kmString& value, const kmChar* name);
    static void SetProfileItemValue(XMLNode& element, int value, const kmChar* name);
    static void SetProfileItemValue(XMLNode& element, bool value, const kmChar* name);
    static void SetProfileItemValue(XMLNode& element, std::vector<kmString>& value, const kmChar* name);

private:
    const kmString& ValueOf(const kmChar* id) const;
    bool IsValue(const kmChar* id, const kmChar* value) const;
    std::int32_t IntegerOf(const kmChar* id) const;

    // Declared in kmProfileFile.h.
    friend KM_EXPORT kmString kmFolderOf(const kmProfile& profile);
    friend KM_EXPORT kmProfileHeader kmHeaderOf(const kmProfile& profile);
    friend KM_EXPORT bool kmReadFileOf(const kmProfile& profile, kmProfile& file);
    friend KM_EXPORT PROFILE_EERROR kmSaveAsNew(kmProfile& profile, const kmString& newID);

    friend class ProfileComparison;

    struct ItemMembers;
    struct ItemReader;
    class FileTexts;

    XMLNode OpenFile();
    bool ReadDocument(const XMLNode& root);
    void ReadItems(const XMLNode& parameter);

    PROFILE_EERROR FindSaveRefusal(const kmString& newID, bool overwrite) const;
    PROFILE_EERROR SaveUnder(const kmString& newID, bool overwrite, bool onlyNew);
    XMLNode BuildDocument(const kmString& newID);
    bool StoreUnder(const kmString& newID) const;

    void CorrectSettings();
    kmString JoinOptions(bool withAudio) const;

    kmString m_id;
    std::vector<kmProfileItem> m_items;
    kmProfileHeader m_header;
    kmString m_folder;
    bool m_changedFlag = false;
};

KM_CLASSES_END
