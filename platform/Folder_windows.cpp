// The system finds a file by its full path as fast as by a handle to its folder.
#include "platform/Folder.h"

InputFolder::InputFolder(const kmString& path) : m_path(path) {}

InputFolder::~InputFolder() = default;

void InputFolder::List(kmStringView suffix, std::vector<kmString>& names) const {
    ListFiles(m_path, suffix, names);
}

bool InputFolder::OpenFile(const kmString& name, InputFile& file) const {
    return file.Open((m_path + name).c_str());
}
