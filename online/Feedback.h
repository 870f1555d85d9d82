// What a user writes to the makers of the suite, and how it goes to the site.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/Deployment.h"
#include "online/HttpTransfer.h"

namespace quorvi {

enum class FeedbackPlatform { android, ophone };

// As it was typed. Texts are ANSI.
struct FeedbackForm {
    FeedbackPlatform platform = FeedbackPlatform::android;
    std::string model;
    std::string firmware;
    std::string content;
    std::string email;
    std::string qq;
};

enum class FeedbackOutcome { contentTooShort, firmwareTooShort, modelTooShort, failed, received };

// What the user reads of it. ANSI.
[[nodiscard]] std::string FeedbackText(FeedbackOutcome outcome);

// Whether a form was sent at all, which is what counts against kMostFeedbacks.
[[nodiscard]] constexpr bool WasSent(FeedbackOutcome outcome) {
    return outcome == FeedbackOutcome::failed || outcome == FeedbackOutcome::received;
}

// Forms that one run of the program sends.
inline constexpr int kMostFeedbacks = 5;

// The document in UTF-8. `client` is the version of the agent on the phone, 0 for none; `pc` the
// number of the system's release (KernelReleaseNumber), which SendFeedback takes.
[[nodiscard]] std::string FeedbackDocument(const FeedbackForm& form, std::int32_t client, int pc);

// Looks at content, firmware and model, in this order, and sends what is long enough: 4, 2 and 2
// characters. Waits.
[[nodiscard]] FeedbackOutcome SendFeedback(const Deployment& deployment, const FeedbackForm& form,
                                           std::int32_t client, const HttpLimits& limits = {});

// The version of Android that has this API level: "Android 2.2" for 8, "Android 16" for 36. Of a
// level that is not known: "API 99". The table is Android's own list of releases. ASCII.
[[nodiscard]] std::string AndroidVersionOf(std::int32_t api);

}  // namespace quorvi
