// Turns the name of a package into a task: the site tells the title, the size and the address.
//
//   ResolvedPackage found = ResolvePackage(TheDeployment(), "com.quorvi.reader");
//   status = ResolveStatus(found);
//   if (found.outcome == ResolveOutcome::resolved) {
//       found.task.savePath = …;
//       store.InsertTask(found.task);
//   }
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/Deployment.h"
#include "download/DownloadTask.h"
#include "online/HttpTransfer.h"

namespace quorvi {

enum class ResolveOutcome {
    resolved,
    noPackageName,  // what was asked for, or what the site calls it, is no package's name
    noAnswer,       // the site gave no answer, or one that is no JSON object
    wrongAddress,   // the file's address is none that can be downloaded from: https is not
};

struct ResolvedPackage {
    ResolveOutcome outcome = ResolveOutcome::noAnswer;
    // Whole but for its folder, which the caller sets. Of the other outcomes it has the title and
    // the address at most.
    CDownloadTask task;
};

// The longest answer that is read, in bytes; of a longer one the end is missing, so it is none.
inline constexpr std::size_t kMostLinkAnswer = 64 << 10;

// Asks the site about a package. A name that is none of a package is not asked for. Waits.
[[nodiscard]] ResolvedPackage ResolvePackage(const Deployment& deployment, std::string_view package,
                                             const HttpLimits& limits = {});

// What ResolvePackage makes of the site's answer, in UTF-8. A member that is missing or no text is
// an empty text: an answer without a title makes a task without one, kept on purpose
// (LinkAnswerTest.WithoutATitleMakesATaskWithoutOne). `downloadRoot` stands in front of the
// address.
[[nodiscard]] ResolvedPackage ReadLinkAnswer(std::string_view answer,
                                             std::string_view downloadRoot);

// For the status line, in ANSI: what is being downloaded, or why there is no task. Empty where the
// site gave no answer, kept on purpose: the store's page shows by itself that the site is not there
// (ResolveStatusTest.ASiteThatDoesNotAnswerIsNotTold).
[[nodiscard]] std::string ResolveStatus(const ResolvedPackage& resolved);

}  // namespace quorvi
