#include "agent/AgentSession.h"
#include "base/Json.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/KeptDelete.h"
#include "cli/PhoneChange.h"
#include "pages/messages/Conversations.h"
#include "pages/messages/OutgoingMessage.h"
#include "refdata/NumberAttribution.h"

namespace quorvi::cli {
namespace {

constexpr std::u8string_view kNoConversationId = u8"不是会话的编号";

Json::Value DocumentOf(const Conversation& conversation) {
    Json::Value item(Json::objectValue);
    item["id"] = conversation.id;
    item["name"] = JsonText(conversation.name);
    item["number"] = JsonText(conversation.number);
    item["attribution"] = JsonText(conversation.attribution);
    item["date"] = JsonText(conversation.date);
    item["text"] = JsonText(conversation.text);
    return item;
}

Json::Value DocumentOf(const ConversationMessage& message) {
    Json::Value item(Json::objectValue);
    item["incoming"] = message.incoming;
    item["address"] = JsonText(message.address);
    item["date"] = JsonText(message.date);
    item["text"] = JsonText(message.text);
    return item;
}

// The numbers of --to: between commas, blanks around them taken away, empty ones left out.
std::vector<std::string> NumbersOf(std::string_view list) {
    std::vector<std::string> numbers;
    for (const std::string_view part : SplitAt(list, ',')) {
        if (const std::string_view number = Trim(part); !number.empty()) {
            numbers.emplace_back(number);
        }
    }
    return numbers;
}

}  // namespace

Status RunSmsList(const Arguments&, const Context& context, Output& output) {
    const auto [outcome, whole, conversations] =
        FetchConversations(AgentSession(context.agent), context.attribution);
    const Status status = output.Report(outcome);
    if (status != Status::done) {
        return status;
    }
    Json::Value document(Json::arrayValue);
    Table table{u8"编号", u8"联系人", u8"号码", u8"归属地", u8"时间", u8"内容"};
    for (const Conversation& conversation : conversations) {
        document.append(DocumentOf(conversation));
        table.AddRow({std::to_string(conversation.id), conversation.name, conversation.number,
                      conversation.attribution, conversation.date, conversation.text});
    }
    output.Json() ? output.PrintDocument(document) : output.PrintTable(table);
    return Status::done;
}

Status RunSmsShow(const Arguments& arguments, const Context& context, Output& output) {
    const auto ids = ReadIds(arguments.operands, kNoConversationId, output);
    if (!ids) {
        return Status::wrongUsage;
    }
    const auto [outcome, whole, messages] =
        FetchConversation(AgentSession(context.agent), ids->front());
    const Status status = output.Report(outcome);
    if (status != Status::done) {
        return status;
    }
    if (messages.empty()) {
        output.Complain(arguments.operands.front() + Ansi(u8": 没有这个会话"));
        return Status::notFound;
    }
    Json::Value document(Json::arrayValue);
    Table table{u8"方向", u8"对方", u8"时间", u8"内容"};
    for (const ConversationMessage& message : messages) {
        document.append(DocumentOf(message));
        table.AddRow({Ansi(message.incoming ? u8"收到" : u8"发出"), message.address, message.date,
                      message.text});
    }
    output.Json() ? output.PrintDocument(document) : output.PrintTable(table);
    return Status::done;
}

Status RunSmsDelete(const Arguments& arguments, const Context& context, Output& output) {
    const auto ids = ReadIds(arguments.operands, kNoConversationId, output);
    if (!ids) {
        return Status::wrongUsage;
    }
    if (ids->front() == kNoConversation) {  // this id means "no conversation"; it is never sent
        output.Complain(arguments.operands.front() + Ansi(u8": 没有这个会话"));
        return Status::notFound;
    }
    const std::uint32_t id = ids->front();
    const auto find = [id](AgentAddress agent) {
        ConversationListReply reply = FetchSurely(agent, AgentCommand::listConversations, [&] {
            return FetchConversations(AgentSession(agent), NoAttribution);
        });
        std::erase_if(reply.conversations, [id](const Conversation& one) { return one.id != id; });
        return Going{std::move(reply.conversations), WhyNotAll(reply.outcome, reply.whole),
                     reply.outcome};
    };
    return KeepAndTell(arguments, context, find, DeleteConversationRequest(id), "deleted",
                       JsonIds(*ids), output);
}

Status RunSmsSend(const Arguments& arguments, const Context& context, Output& output) {
    const std::vector<std::string> numbers = NumbersOf(arguments.Option("--to").value_or(""));
    const std::string typed = arguments.Option("--text").value_or("");
    const std::string text = ToAnsi(typed);
    if (numbers.empty() || text.empty()) {
        output.Complain(Ansi(numbers.empty() ? u8"没有收件人: --to 号码[,号码...]"
                                             : u8"没有内容: --text 短信内容"));
        return Status::wrongUsage;
    }
    if (!FitsCodePage(typed)) {
        output.Complain(Ansi(kMessageCharactersLost));
    }
    Json::Value sent(Json::arrayValue);
    for (const std::string& number : numbers) {
        sent.append(JsonText(ToAnsi(number)));
    }
    return SendAndTell(context, SendMessageRequest(numbers, text), "sent", sent, output);
}

}  // namespace quorvi::cli
