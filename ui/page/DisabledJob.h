// Work during which the user can do nothing with some controls.
#pragma once

#include <utility>

#include "ui/page/FocusKeeper.h"
#include "ui/page/Job.h"

namespace quorvi {

// RunJob, with `controls` disabled until `done`, which has the keyboard back by then and is not
// called when they are gone. The window's thread.
template <typename Work, typename Done>
void RunDisabled(QWidget& controls, Work work, Done done) {
    const FocusKeeper focus(controls);
    controls.setEnabled(false);
    RunJob(&controls, std::move(work),
           [&controls, focus, done = std::move(done)](auto&& result) mutable {
               controls.setEnabled(true);
               focus.GiveBack();
               done(std::forward<decltype(result)>(result));
           });
}

}  // namespace quorvi
