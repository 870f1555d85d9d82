// What the deletes of a test have kept on the PC, which a test can make unable to keep anything.
#pragma once

#include <ctime>
#include <filesystem>
#include <fstream>
#include <vector>

#include "backup/DeletedItems.h"
#include "base/Places.h"

namespace quorvi {

// A member of a test: nothing is kept when it begins, and when it has ended.
class KeptDeletes {
  public:
    KeptDeletes() { Clear(); }
    ~KeptDeletes() { Clear(); }
    KeptDeletes(const KeptDeletes&) = delete;
    KeptDeletes& operator=(const KeptDeletes&) = delete;

    // The newest first.
    [[nodiscard]] std::vector<KeptDeletion> List() const {
        return DeletedItems(place_).List(std::time(nullptr));
    }
    // True when nothing is kept but one deletion, of so many records of a kind.
    [[nodiscard]] bool IsOne(BackupKind kind, std::uint32_t count) const {
        const auto kept = List();
        return kept.size() == 1 && !kept[0].manifest.kinds.empty() &&
               kept[0].manifest.kinds[0].kind == kind && kept[0].manifest.kinds[0].count == count;
    }
    // From now on nothing can be written: a file stands in the place of the folder.
    void Refuse() const {
        std::filesystem::create_directories(place_.parent_path());
        std::ofstream(place_) << "not a folder";
    }

  private:
    void Clear() const { std::filesystem::remove_all(place_); }

    std::filesystem::path place_ = ThePlaces().DeletedItems();
};

}  // namespace quorvi
