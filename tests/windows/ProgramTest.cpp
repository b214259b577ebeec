// SPDX-License-Identifier: MIT
// What an application on Windows looks like: the public headers, the library's DLL, nothing else.
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "kmArgOption.h"
#include "kmIconParser.h"
#include "kmManager.h"
#include "kmProfile.h"
#include "kmProfileList.h"

namespace {

TEST(WindowsProgram, UsesWideTextsAsTheyAre) {
    kmManager& manager = kmManager::GetInstance();
    ASSERT_TRUE(manager.Load(L""));  // "Profiles" beside the program
    ASSERT_EQ(manager.GetSystemGroups().at(0).GetName(), L"Common Video");
    EXPECT_TRUE(manager.ProfileExist(L"psp h264 480X272"));
    EXPECT_GE(manager.GetIconParser()->GetIconIndex(L"Common Video", true), 0);

    kmProfile profile;
    profile.SetID(L"PSP H264 480x272");
    ASSERT_TRUE(profile.Load({}));
    std::wstring message;
    EXPECT_FALSE(kmProfileItem::Check(message, L"s", L"wide"));
    EXPECT_NE(message, L"");
    ASSERT_TRUE(profile.SetItemValue(L"s", L"320x240"));
    std::int32_t width = 0, height = 0;
    EXPECT_TRUE(profile.GetSize(width, height));
    EXPECT_EQ(width, 320);
    EXPECT_NE(profile.GetAvcString(true).find(L"-vcodec "), std::wstring::npos);
    EXPECT_EQ(kmProfileList::GetItemValue({&profile}, kmArgOption::GetOptionTitle(L"S")), L"320x240");
    EXPECT_EQ(profile.Save(profile.GetID(), true), PROFILE_ERROR_SYSTEM);
}

// The names after KM_EXPORT in the public headers.
std::set<std::string> DeclaredNames() {
    const std::regex declaration("(?:(?:class|struct) KM_EXPORT|KM_EXPORT [^(]*?)\\s*(\\w+)(?: \\{|\\(.*)");
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(KM_SOURCE_DIR "/include")) {
        std::ifstream header(entry.path());
        std::smatch match;
        for (std::string line; std::getline(header, line);)
            if (std::regex_match(line, match, declaration)) names.insert(match[1]);
    }
    return names;
}

// The symbols that the library shows to others.
std::vector<std::string> ExportedSymbols() {
    const auto* base = reinterpret_cast<const char*>(GetModuleHandleW(L"kmprofile.dll"));
    const auto at = [base](DWORD offset) { return static_cast<const void*>(base + offset); };
    const LONG start = static_cast<const IMAGE_DOS_HEADER*>(at(0))->e_lfanew;
    const auto* headers = static_cast<const IMAGE_NT_HEADERS*>(at(static_cast<DWORD>(start)));
    const DWORD offset = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT].VirtualAddress;
    const auto* exports = static_cast<const IMAGE_EXPORT_DIRECTORY*>(at(offset));
    const auto* names = static_cast<const DWORD*>(at(exports->AddressOfNames));
    std::vector<std::string> symbols;
    for (DWORD i = 0; i < exports->NumberOfNames; ++i)
        symbols.emplace_back(static_cast<const char*>(at(names[i])));
    return symbols;
}

// What others see of the library is what its users may rely on.
TEST(WindowsProgram, LibraryExportsWhatItsHeadersDeclare) {
    const std::set<std::string> declared = DeclaredNames();
    std::set<std::string> missing = declared;
    const std::regex symbolStart("_Z(?:T[VIS])?N?K?([0-9]+)(.*)");
    for (const std::string& symbol : ExportedSymbols()) {
        std::smatch match;
        std::string name;
        if (std::regex_match(symbol, match, symbolStart)) name = match.str(2).substr(0, std::stoul(match[1]));
        EXPECT_TRUE(declared.contains(name)) << "exported without being declared: " << symbol;
        missing.erase(name);
    }
    EXPECT_EQ(missing, std::set<std::string>()) << "declared without being exported";
}

}  // namespace
