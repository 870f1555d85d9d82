// Whether what a window shows is still on its way.
#pragma once

#include <algorithm>

#include "ui/html/HtmlFrame.h"
#include "ui/kit/SkinDialog.h"
#include "ui/kit/SkinTree.h"
#include "ui/list/SkinListCtrl.h"

namespace quorvi {

namespace detail {
template <typename View, typename State>
bool AnyAtWork(const QWidget& top, State state) {
    const auto views = top.findChildren<View*>();
    return std::ranges::any_of(
        views, [&](View* view) { return view->isVisible() && state(*view) == ListState::loading; });
}
}  // namespace detail

// A dialog that speaks with the phone, or a list, tree or view that loads.
[[nodiscard]] inline bool AtWork(const QWidget& top) {
    const auto* dialog = qobject_cast<const SkinDialog*>(&top);
    return (dialog != nullptr && !dialog->Body()->isEnabled()) ||
           detail::AnyAtWork<CSkinListCtrl>(top, [](const auto& list) { return list.State(); }) ||
           detail::AnyAtWork<HtmlFrame>(top, [](const auto& frame) { return frame.State(); }) ||
           detail::AnyAtWork<CSkinTree>(top, [](auto& tree) { return tree.Status().Get(); }) ||
           detail::AnyAtWork<SkinTreeView>(top, [](auto& tree) { return tree.Status().Get(); });
}

}  // namespace quorvi
