// SPDX-License-Identifier: MIT
#include "Settings.h"

#include <cstddef>

#include "Failure.h"
#include "Printable.h"
#include "kmText.h"

Setting ReadSetting(const std::string& text, const std::string& where) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) {
        throw UsageFailure((where.empty() ? where : where + ": ") + Quoted(text) + " is not name=value");
    }
    return {kmTextFromUtf8(text.substr(0, equals)), kmTextFromUtf8(text.substr(equals + 1))};
}

void RequireAcceptable(const kmProfile& profile, const Setting& setting, const std::string& where) {
    const std::string name = kmUtf8FromText(setting.name);
    if (!profile.ItemExist(setting.name)) {
        const std::string owner = where.empty() ? QuotedID(profile.GetID()) : where + ": the profile";
        throw Failure(owner + " has no setting " + Quoted(name));
    }
    kmString message;
    if (kmProfileItem::Check(message, setting.name.c_str(), setting.value.c_str())) return;
    throw Failure((where.empty() ? where : where + ' ') + name + '=' + kmUtf8FromText(setting.value) + ": " +
                  kmUtf8FromText(message));
}

void ApplySetting(kmProfile& profile, const std::string& text, const std::string& where) {
    const Setting setting = ReadSetting(text, where);
    RequireAcceptable(profile, setting, where);
    profile.SetItemValue(setting.name.c_str(), setting.value.c_str());
}
