// SPDX-License-Identifier: MIT
#include <memory>
#include <stdexcept>

#include "bench/Comparison.h"
#include "kmProfileList.h"

namespace {

class Selection {
public:
    Selection(const ProfileFolder& folder, std::size_t count) : m_folder(folder), m_profiles(count) {
        Load();
    }

    void Load() {
        m_profiles.assign(m_profiles.size(), kmProfile());
        for (std::size_t i = 0; i < m_profiles.size(); ++i) {
            const ProfileFile& file = m_folder.files[i % m_folder.files.size()];
            m_profiles[i].SetID(file.id);
            if (!m_profiles[i].Load(file.textFolder)) throw std::runtime_error("a profile cannot be loaded");
        }
    }

    // As if an application had looked at all of them.
    void MakeLists() {
        for (kmProfile& profile : m_profiles) {
            for (kmProfileItem& item : profile.GetProfileItems()) {
                item.GetAdvCandidatesDisplay();
                item.GetSimpleCandidatesDisplay();
            }
        }
    }

    std::vector<kmProfile*> Pointers() {
        std::vector<kmProfile*> pointers;
        for (kmProfile& profile : m_profiles) pointers.push_back(&profile);
        return pointers;
    }

private:
    const ProfileFolder& m_folder;
    std::vector<kmProfile> m_profiles;
};

using GetItems = std::vector<kmProfileItem> (*)(const std::vector<kmProfile*>& profiles);

Contender Common(const char* title, const std::shared_ptr<Selection>& selection, std::size_t count,
                 GetItems get) {
    return Timed(title, count, [selection, get] {
        if (get(selection->Pointers()).empty())
            throw std::runtime_error("the profiles have nothing in common");
    });
}

}  // namespace

Comparison CommonItems(std::string title, const ProfileFolder& folder, std::size_t count) {
    const auto loaded = std::make_shared<Selection>(folder, count);
    const auto loadedAnew = std::make_shared<Selection>(folder, count);
    const auto lookedAt = std::make_shared<Selection>(folder, count);
    lookedAt->MakeLists();
    return {std::move(title),
            {Timed("kmProfile::Load", count, [loadedAnew] { loadedAnew->Load(); }),
             Common("GetSimpleItems", loaded, count, kmProfileList::GetSimpleItems),
             Common("GetAdvanceItems", loaded, count, kmProfileList::GetAdvanceItems),
             Common("GetSimpleItems, all lists asked for", lookedAt, count, kmProfileList::GetSimpleItems),
             Common("GetAdvanceItems, all lists asked for", lookedAt, count, kmProfileList::GetAdvanceItems)},
            {{1, 0, 0.5}, {2, 0, 0.5}, {3, 0, 0.5}, {4, 0, 0.5}}};
}
