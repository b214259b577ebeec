#include "kmProfileFile.h"

kmString kmFolderOf(const kmProfile& profile) { return profile.m_folder; }
