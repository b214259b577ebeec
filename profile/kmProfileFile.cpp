// SPDX-License-Identifier: MIT
#include "kmProfileFile.h"

#include <utility>

#include "catalogue/DisplayName.h"
#include "document/Format.h"
#include "document/ProfileID.h"
#include "platform/FileFault.h"
#include "platform/Files.h"
#include "text/Folders.h"
#include "xml/XMLNode.h"

kmString kmFolderOf(const kmProfile& profile) { return profile.m_folder; }

kmProfileHeader kmHeaderOf(const kmProfile& profile) {
    kmProfileHeader header = profile.m_header;
    if (!header.isSystem) return header;
    header.name = StripLeadingCarets(header.name);
    header.desc = StripLeadingCarets(header.desc);
    return header;
}

// Into a new object: an old one would keep the header's texts that the file lacks.
bool kmReadFileOf(const kmProfile& profile, kmProfile& file) {
    if (profile.m_folder.empty()) return false;
    kmProfile read;
    read.m_id = profile.m_id;
    read.m_folder = profile.m_folder;
    const kmString path = ProfilePath(read.m_folder, read.m_id);
    if (!read.ReadDocument(XMLNode::OpenDocument(path.c_str(), format::kRoot))) return false;
    file = std::move(read);
    return true;
}

namespace {

kmString PathIn(kmString folder, const kmString& id) {
    NormalizeFolder(folder);
    return ProfilePath(folder, id);
}

}  // namespace

bool kmDeleteProfileFile(const kmString& folder, const kmString& id) {
    if (StaysInItsFolder(id)) return RemoveFile(PathIn(folder, id).c_str());
    NoteFault(FILE_FAULT_BAD_NAME);
    return false;
}

bool kmProfileFileExists(const kmString& folder, const kmString& id) {
    return EntryExists(PathIn(folder, id).c_str());
}
