#include <gtest/gtest.h>

#include "kmGroup.h"
#include "kmProfileInfo.h"
#include "tests/support/Text.h"

TEST(Records, SystemRecordsAreLockedAndShownWithoutCarets) {
    kmProfileInfo info;
    std::string seen;
    for (const kmChar* text : {KM_TEXT("^^a^"), KM_TEXT("^^b^"), KM_TEXT("c")}) {
        info.SetID(text);
        info.SetName(text);
        info.SetDesc(text);
        info.SetExtname(text);
        info.SetIsSystem(!info.IsSystem());
        kmProfileInfo copy;
        copy.SetIsSystem(true);
        copy = info;  // the lock is no matter for assignment
        seen += Utf8(copy.GetID() + copy.GetName() + copy.GetDesc() + copy.GetExtname()) + " ";
    }
    EXPECT_EQ(seen, "^^a^a^a^^^a^ ^^a^^^a^^^a^^^a^ cccc ");
    kmGroup group;
    group.SetName(KM_TEXT("^^others^"));
    kmGroup(group).GetProfileIDs().push_back(KM_TEXT("b"));
    EXPECT_TRUE(group.GetProfileIDs().empty()) << "the copy shares the list";
    EXPECT_EQ(Utf8(group.GetName() + group.GetOriginalName()), "others^^^others^");
}
