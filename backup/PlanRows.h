// The plan of a restore as rows for people.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "backup/RestorePlan.h"

namespace quorvi {

// All texts are ANSI.
struct PlanRow {
    RestoreAction action{};
    std::string kind;
    std::string what;
    std::string why;        // in words, for every row
    std::size_t order = 0;  // of what is added or changed: the how manieth it is, from 0
};

// First what is impossible, then what is changed, added, and there already; in each as the plan
// has it.
[[nodiscard]] std::vector<PlanRow> PlanRowsOf(const RestorePlan& plan);

// What is called so of a row: 新增, or 已新增 for one that has been `done`.
[[nodiscard]] std::string ActionName(RestoreAction action, bool done = false);

}  // namespace quorvi
