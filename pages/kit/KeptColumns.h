// The widths to which a user has dragged the columns of a list, kept in the settings.
#pragma once

#include <memory>
#include <string>

#include "base/SettingsStore.h"
#include "ui/list/SkinListCtrl.h"

namespace quorvi {

// Restores the widths when the list is shown first, and keeps them whenever they are dragged, off
// the window's thread. `name` is the value's in the settings, which outlive the list; "columns_132"
// say, for the list of dialog 132. The window's thread.
void KeepColumns(CSkinListCtrl& list, SettingsStore& settings, std::string name);

// The same for every list of a page or dialog, each by a name of its own.
void KeepColumnsOf(const QWidget& dialog, SettingsStore& settings);

// The name for a list of a page or dialog, out of the numbers of both.
[[nodiscard]] std::string ColumnsName(const QWidget& dialog, const CSkinListCtrl& list);

}  // namespace quorvi
