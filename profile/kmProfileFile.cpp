// SPDX-License-Identifier: MIT
#include "kmProfileFile.h"

#include <utility>

#include "document/Format.h"
#include "document/ProfileID.h"
#include "xml/XMLNode.h"

kmString kmFolderOf(const kmProfile& profile) { return profile.m_folder; }

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
