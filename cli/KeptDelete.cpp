#include "cli/KeptDelete.h"

#include <ctime>

#include "base/Places.h"
#include "base/Text.h"

namespace quorvi::cli {

Status KeepAndTell(const Arguments& arguments, const Context& context, const FindGoing& find,
                   const Bytes& request, const char* word, const Json::Value& what,
                   Output& output) {
    const DeletedItems items(ThePlaces().DeletedItems());
    items.ForgetOld(std::time(nullptr));
    DeleteStep step = KeepAndDelete(items, context.agent, find, request);
    if (!step.reply) {
        const bool answered =
            step.asked != SessionOutcome::noReply && step.asked != SessionOutcome::receiveFailed;
        if (!arguments.Has(kForce) && !answered) {
            return output.Report(step.asked);
        }
        output.Complain(Ansi(u8"要删除的内容没能先保存到电脑: ") + step.whyNotKept);
        if (!arguments.Has(kForce)) {
            if (step.backup) {
                static_cast<void>(items.Forget(*step.backup));
            }
            output.Complain(Ansi(u8"没有删除。加上 --force 就照样删除，以后找不回来"));
            return step.diskFailed ? Status::wrongUsage : Status::noLink;
        }
        step.reply = DeleteAllTheSame(items, context.agent, step, request);
    }
    return TellChange(step.reply->outcome, word, what, output);
}

}  // namespace quorvi::cli
