#include <gtest/gtest.h>

#include "kmManager.h"
#include "tests/support/Messages.h"
#include "tests/support/TemporaryFolder.h"

namespace {

struct TestManager : kmManager {
    // The IDs of all records, then the groups with theirs.
    std::string Loaded(const TemporaryFolder& folder) {
        std::string text = Load(folder.Path()) ? "" : "failed ";
        for (const kmProfileInfo& info : GetProfiles()) text += Utf8(info.GetID()) + " ";
        for (std::size_t i = 0; i <= GetSystemGroups().size(); ++i) {
            kmGroup& group = i < GetSystemGroups().size() ? GetSystemGroups()[i] : GetUserGroup();
            text += "| " + Utf8(group.GetOriginalName());
            for (const kmString& id : group.GetProfileIDs()) text += " " + Utf8(id);
        }
        return text;
    }
};

// Files stand between bars as name:content; Y is the mark of a system profile, (name) a group.
TEST(Loading, FilesBecomeRecordsAndGroups) {
    const CapturedMessages messages;
    // clang-format off
    const struct { const char *files, *expected; } rows[] = {
        {"a.pf:Y|b.pf:Y<Group/>", "a b | others a| User Defined"},
        {"a.pf:Y<Group><GroupName/><GroupName language=''/></Group>", "a |  a| User Defined"},
        {"a.pf:<Main><IsSysProfile>true</IsSysProfile></Main>(g)", "a | User Defined a"},
        {"a.b.PF:<Main/>", "a.b | User Defined a.b"},
        {"x/a.pf:<Main/>|.h.pf:<Main/>|a.pfx:<Main/>|b.pf:|c.pf:</x>|d.pf/x:<Main/>", "| User Defined"},
        {"a.pf:Y(g)|USER/a.pf:Y(g)<Group/>|USER/b.pf:<Main/>", "a a b | g a| User Defined b"},
        {"1.pf:Y(A)|2.pf:Y(others)|3.pf:Y(iPod)|4.pf:Y(X)|5.pf:Y(Common Video)",
         "1 2 3 4 5 | Common Video 5| iPod 3| A 1| X 4| others 2| User Defined"},
        {"1.pf:Y(^PSP)|2.pf:Y(zune)|3.pf:Y(Zune)", "1 2 3 | Zune 3| zune 2| ^PSP 1| User Defined"}};
    // clang-format on
    const std::string yes = "<Main><issysprofile>Yes</issysprofile></Main>";
    TestManager manager;  // the same for all: a load begins anew
    EXPECT_EQ(manager.GetIconParser(), nullptr);
    for (const auto& row : rows) {
        const TemporaryFolder folder;
        for (const kmString& piece : Pieces(row.files)) {
            const std::string file = Utf8(piece);
            std::string text;
            for (const char c : file.substr(file.find(':') + 1))
                text += c == 'Y'   ? yes
                        : c == '(' ? "<group><GroupName language='"
                        : c == ')' ? "'/></group>"
                                   : std::string(1, c);
            folder.WriteBytes(TextFromBytes(file.substr(0, file.find(':'))),
                              "<profiles>" + text + "</profiles>");
        }
        EXPECT_EQ(manager.Loaded(folder), row.expected) << row.files;
    }
}

}  // namespace
