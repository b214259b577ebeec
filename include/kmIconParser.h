// SPDX-License-Identifier: MIT
// The icons of profiles and groups.
#pragma once

#include <cstdint>
#include <map>
#include <utility>

#include "kmExport.h"
#include "kmTypes.h"

struct IconNotes;

KM_CLASSES_BEGIN

// Which image file and which icon in it belong to a profile or a group; draws nothing and opens no image. One
// object a process, filled by InitParser. IDs are compared exactly; for one without an entry the entry
// "default" answers. In every operation `group` chooses the table: true for groups, false for profiles. One
// thread at a time.
class KM_EXPORT kmIconParser {
public:
    // The one object of the process.
    static kmIconParser& GetInstance();

    // Copies are tables of their own, which nothing refills but their own InitParser.
    kmIconParser(const kmIconParser& other) = default;
    kmIconParser& operator=(const kmIconParser& other) = default;

    // Reads "pficon.con" of the profiles folder, then "userpf.con" of its "user" subfolder. Both tables are
    // emptied first, whatever happens; settings that the file lacks stay. A null or empty `folder` only
    // empties.
    void InitParser(const kmChar* folder);

    // The icon's index, -1 when there is none; the image file's name as the file has it, empty when there is
    // none.
    std::int32_t GetIconIndex(const kmChar* id, bool group) const;
    kmString GetImageFileName(const kmChar* id, bool group) const;

    // The icons' size in pixels and the colour that is transparent in the images, as text.
    void GetIconInfo(std::int32_t& width, std::int32_t& height, kmString& transparentColor, bool group) const;

    // Whether all icons are in one image file. Exported with this spelling, which therefore stays.
    bool ProfileIconIsSignleImage() const { return m_profileSingleImage; }
    bool GroupIconIsSignleImage() const { return m_groupSingleImage; }

    // Gives profile `target` the icon of profile `source`, here and in "userpf.con". False when either is
    // null or empty, `source` has no icon, or the file cannot be read or written; a file that cannot be read
    // is left as it is.
    bool CopyIconFrom(const kmChar* target, const kmChar* source);

protected:
    // Without icons, and with the settings that hold until a file says otherwise: one image file for all,
    // icons of 16 x 16 pixels, "RGB(0, 0, 0)".
    kmIconParser();
    virtual ~kmIconParser();

private:
    friend class kmManager;

    using Icon = std::pair<kmString, std::int32_t>;
    using Table = std::map<kmString, Icon>;
    struct IconFile;

    void InitNoting(const kmChar* folder, IconNotes& notes);
    void ReadFiles(IconNotes& notes);

    void AddItem(const kmChar* id, const kmChar* image, std::int32_t index, bool group);
    kmString GetUserProfileIconfile() const;

    const Icon* FindIcon(const kmChar* id, bool group) const;
    bool ReplaceIcon(const kmString& target, const kmString& source, IconFile& file);
    bool AddIcon(const kmString& target, const kmString& source, IconFile& file);

    static kmIconParser m_signleInstance;  // exported with this spelling

    Table m_groupIcons;
    Table m_profileIcons;
    bool m_profileSingleImage = true;
    bool m_groupSingleImage = true;
    std::int32_t m_groupIconWidth = 16;
    std::int32_t m_groupIconHeight = 16;
    kmString m_groupTransColor = KM_TEXT("RGB(0, 0, 0)");
    std::int32_t m_profileIconWidth = 16;
    std::int32_t m_profileIconHeight = 16;
    kmString m_profileTransColor = KM_TEXT("RGB(0, 0, 0)");
    kmString m_profilesFolder;
};

KM_CLASSES_END
