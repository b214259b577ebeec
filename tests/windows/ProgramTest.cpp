// What an application on Windows looks like: the public headers, the library's DLL, nothing else.
#include <gtest/gtest.h>
#include <windows.h>

#include <regex>
#include <string>

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
    EXPECT_TRUE(!kmProfileItem::Check(message, L"s", L"wide") && !message.empty());
    ASSERT_TRUE(profile.SetItemValue(L"s", L"320x240"));
    std::int32_t width = 0, height = 0;
    EXPECT_TRUE(profile.GetSize(width, height) && width == 320);
    EXPECT_NE(profile.GetAvcString(true).find(L"-vcodec "), std::wstring::npos);
    EXPECT_EQ(kmProfileList::GetItemValue({&profile}, kmArgOption::GetOptionTitle(L"S")), L"320x240");
    EXPECT_EQ(profile.Save(profile.GetID(), true), PROFILE_ERROR_SYSTEM);
}

// What others see of the library is what its users may rely on.
TEST(WindowsProgram, LibraryExportsThePublicClassesAlone) {
    const auto* base = reinterpret_cast<const char*>(GetModuleHandleW(L"kmprofile.dll"));
    ASSERT_NE(base, nullptr);
    const auto at = [base](DWORD offset) { return static_cast<const void*>(base + offset); };
    const LONG start = static_cast<const IMAGE_DOS_HEADER*>(at(0))->e_lfanew;
    const auto* headers = static_cast<const IMAGE_NT_HEADERS*>(at(static_cast<DWORD>(start)));
    const DWORD offset = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT].VirtualAddress;
    const auto* exports = static_cast<const IMAGE_EXPORT_DIRECTORY*>(at(offset));
    const auto* names = static_cast<const DWORD*>(at(exports->AddressOfNames));
    const std::regex isPublic(
        "(_Z(TV|TI|TS)?N?K?[0-9]+|[?]+[A-Za-z0-9_]*@?)"
        "(kmArgOption|kmGroup|kmIconParser|kmManager|kmProfileInfo|kmProfileItem|kmProfileList|kmProfile|"
        "_MP3Limit|kmSetMessageHandler).*");
    ASSERT_GT(exports->NumberOfNames, 100u);
    for (DWORD i = 0; i < exports->NumberOfNames; ++i) {
        const std::string name = static_cast<const char*>(at(names[i]));
        EXPECT_TRUE(std::regex_match(name, isPublic)) << name;
    }
}

}  // namespace
