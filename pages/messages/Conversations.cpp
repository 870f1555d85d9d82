#include "pages/messages/Conversations.h"

#include <utility>

#include "agent/Wire.h"
#include "base/Format.h"
#include "base/Text.h"
#include "pages/kit/ListReply.h"

namespace quorvi {
namespace {

// Reserved up front, so that a fragment of an ordinary phone is not copied as it grows. Bytes.
constexpr std::size_t kConversationsReserve = 30'000;
constexpr std::size_t kConversationReserve = 15'000;

constexpr std::string_view kViewLink = "vid=";
constexpr std::string_view kDeleteLink = "did=";

std::string TakeDate(ReplyCursor& cursor) {
    return FormatUnixTime(WholeSeconds(static_cast<std::int64_t>(cursor.TakeUInt64())));
}

// What is shown of a list: nothing of one that AbsentMark ended.
template <typename Row>
std::vector<Row> AllOrNothing(ReadList<Row> list) {
    return list.EndedByMark() ? std::vector<Row>() : std::move(list.rows);
}

std::string SignedText(std::uint32_t id) {
    return std::to_string(static_cast<std::int32_t>(id));
}

ReadList<Conversation> ReadConversations(const ReplyBuffer& reply,
                                         const AttributionOf& attribution) {
    const auto take = [&](ReplyCursor& cursor, Conversation& conversation) {
        conversation.id = cursor.TakeId();
        if (cursor.IsCut()) {
            return RecordEnd::cut;  // a cut id is the id of some other conversation
        }
        auto name = cursor.TakeText();
        if (!name) {
            return RecordEnd::mark;
        }
        conversation.name = std::move(*name);
        conversation.number = cursor.TakeTextOrEmpty();
        conversation.date = TakeDate(cursor);
        cursor.SkipBytes(2 * sizeof(std::uint32_t));  // reserved
        conversation.text = cursor.TakeTextOrEmpty();
        if (cursor.Overran()) {
            return RecordEnd::cut;
        }
        conversation.attribution = attribution(conversation.number);
        return RecordEnd::whole;
    };
    return ReadRun<Conversation>(reply, take);
}

ReadList<ConversationMessage> ReadMessages(const ReplyBuffer& reply) {
    const auto take = [](ReplyCursor& cursor, ConversationMessage& message) {
        cursor.SkipBytes(sizeof(std::uint64_t));  // message id
        message.incoming = cursor.TakeFlag();
        auto address = cursor.TakeText();
        if (!address) {
            return RecordEnd::mark;
        }
        if (cursor.IsCut()) {
            return RecordEnd::cut;  // a cut number belongs to somebody else
        }
        message.address = std::move(*address);
        message.date = TakeDate(cursor);
        cursor.SkipBytes(sizeof(std::uint32_t));  // reserved
        message.text = cursor.TakeTextOrEmpty();
        cursor.SkipBytes(sizeof(std::uint32_t));  // reserved
        return cursor.Overran() ? RecordEnd::cut : RecordEnd::whole;
    };
    return ReadRun<ConversationMessage>(reply, take);
}

template <typename Row>
bool IsWhole(const ReadList<Row>& list) {
    return !list.EndedByMark() && !list.cut;
}

}  // namespace

std::vector<Conversation> ParseConversations(const ReplyBuffer& reply,
                                             const AttributionOf& attribution) {
    return AllOrNothing(ReadConversations(reply, attribution));
}

ConversationListReply FetchConversations(const AgentSession& session,
                                         const AttributionOf& attribution,
                                         const AgentSession::Progress& progress) {
    const PayloadReply reply =
        session.RunPayload(BareRequest(AgentCommand::listConversations), progress);
    if (!reply.HasPayload()) {
        return {reply.outcome, false, {}};
    }
    auto list = ReadConversations(reply.buffer, attribution);
    const bool whole = IsWhole(list);
    return {reply.outcome, whole, AllOrNothing(std::move(list))};
}

HtmlFragment ConversationsFragment(std::span<const Conversation> conversations) {
    HtmlFragment html;
    html.Reserve(kConversationsReserve);
    for (const Conversation& conversation : conversations) {
        const std::string id = SignedText(conversation.id);
        html.Own(u8"<li><span class=tool><a href='qvh:did=").Text(id);
        html.Own(u8"'>删除</a> </span> <span class=sender><a href='qvh:vid=").Text(id).Own(u8"'>");
        html.Foreign(conversation.name);
        html.Own(u8"</a></span><span class=location>[").Text(conversation.attribution);
        html.Own(u8"]</span><span class='time'>").Text(conversation.date);
        html.Own(
            u8"</span><p class=text><span><a href='javascript:void(0)'><img src='s_checked.gif'>"
            u8"</a> </span><a href='qvh:vid=");
        html.Text(id).Own(u8"'>").Foreign(conversation.text).Own(u8"</a></p></li>");
    }
    return html;
}

std::optional<ConversationLink> ReadConversationLink(std::string_view text) {
    const std::string_view word = text.substr(0, kViewLink.size());
    if (word != kViewLink && word != kDeleteLink) {
        return std::nullopt;
    }
    const auto action =
        word == kViewLink ? ConversationLink::Action::view : ConversationLink::Action::remove;
    return ConversationLink{action, static_cast<std::uint32_t>(ToInt(ReplaceAll(text, word, {})))};
}

Bytes DeleteConversationRequest(std::uint32_t id) {
    return RequestBuilder(AgentCommand::deleteConversation).BeginItem().AddUInt32(id).Take();
}

Bytes ReadConversationRequest(std::uint32_t id) {
    Bytes request = BareRequest(AgentCommand::readConversation);
    const std::size_t at = request.size();
    request.resize(at + sizeof id);
    PackUInt32(id, request.data() + at);
    return request;
}

std::vector<ConversationMessage> ParseConversationMessages(const ReplyBuffer& reply) {
    return AllOrNothing(ReadMessages(reply));
}

ConversationReply FetchConversation(const AgentSession& session, std::uint32_t id) {
    const PayloadReply reply = session.RunPayload(ReadConversationRequest(id));
    if (!reply.HasPayload()) {
        return {reply.outcome, false, {}};
    }
    auto list = ReadMessages(reply.buffer);
    const bool whole = IsWhole(list);
    return {reply.outcome, whole, AllOrNothing(std::move(list))};
}

HtmlFragment ConversationFragment(std::span<const ConversationMessage> messages) {
    HtmlFragment html;
    html.Reserve(kConversationReserve);
    for (const ConversationMessage& message : messages) {
        html.Own(u8"<div class='entry'><ul class='detail_ul'><li><strong>");
        if (message.incoming) {
            html.Foreign(message.address);
        } else {
            html.Own(u8"本机");
        }
        html.Own(u8"</strong><span>[").Text(message.date);
        if (message.incoming) {
            html.Own(u8"]</span></li><li><dl class='remote'><dd><span>对您说：</span>");
        } else {
            html.Own(u8"]</span></li><li><dl class='me'><dd><span>我说：</span>");
        }
        html.Foreign(message.text);
        html.Own(u8"<div></div></dd></dl></li></ul><div class='clear'></div></div>");
    }
    return html;
}

std::string ConversationParty(std::span<const ConversationMessage> messages) {
    return messages.empty() ? std::string() : messages.front().address;
}

}  // namespace quorvi
