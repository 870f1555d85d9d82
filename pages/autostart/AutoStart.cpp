#include "pages/autostart/AutoStart.h"

#include <fmt/format.h>

#include <utility>

#include "base/Text.h"

namespace quorvi {

AutoStartList ParseAutoStart(const ReplyBuffer& reply) {
    AutoStartList list;
    ReplyCursor cursor(reply);
    do {
        const std::uint32_t event = cursor.TakeUInt32();
        if (cursor.IsCut()) {
            return list;  // a cut number is the number of some other event
        }
        auto name = cursor.TakeText();
        if (!name) {
            return {.groups = {}, .endedByMark = true};
        }
        AutoStartItem item{std::move(*name), cursor.TakeTextOrEmpty()};
        if (cursor.Overran()) {
            return list;
        }
        if (event >= kStartEvents) {
            list.unknownEvent = event;
            return list;
        }
        list.groups[static_cast<std::int32_t>(event)].push_back(std::move(item));
        cursor.SkipBytes(sizeof(std::uint32_t));  // reserved
    } while (!cursor.AtEnd());
    return list;
}

AutoStartReply FetchAutoStart(const AgentSession& session, const AgentSession::Progress& progress) {
    const PayloadReply reply =
        session.RunPayload(BareRequest(AgentCommand::listAutoStart), progress);
    return {reply.outcome, reply.HasPayload() ? ParseAutoStart(reply.buffer) : AutoStartList()};
}

std::string UnknownEventText(std::uint32_t event) {
    return fmt::format("{} {}{}", Ansi(u8"【X】未知的启动事件"), event,
                       Ansi(u8"，其后的启动项没有读取，请升级本软件"));
}

}  // namespace quorvi
