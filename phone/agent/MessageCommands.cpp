// Messages: the conversations, one of them whole, sending, deleting.
#include <fmt/format.h>

#include <array>

#include "phone/agent/AgentData.h"
#include "phone/agent/Commands.h"
#include "phone/agent/LocalTime.h"

namespace quorvi::phone {
namespace {

// What the reserved words of the wire hold; no reader looks at them.
constexpr std::uint32_t kReserved = 0xFFFFFFFF;

void ListConversations(Exchange& exchange) {
    for (const Conversation* conversation : exchange.data.messages.NewestFirst()) {
        const Message& last = conversation->messages.back();
        exchange.reply.UInt64(conversation->id)
            .Text(exchange.data.book.NameOf(conversation->number).value_or(conversation->number))
            .Text(conversation->number)
            .UInt64(last.date)
            .UInt32(kReserved)
            .UInt32(kReserved)
            .Text(last.text);
    }
}

void ReadConversation(Exchange& exchange) {
    const std::uint32_t id = exchange.request.UInt32();
    exchange.note = fmt::format("conversation {}", id);
    const Conversation* conversation = exchange.data.messages.Find(id);
    if (!conversation) {
        return;
    }
    for (const Message& message : conversation->messages) {
        exchange.reply.UInt64(message.id)
            .UInt32(message.incoming ? 1 : 2)
            .Text(conversation->number)
            .UInt64(message.date)
            .UInt32(kReserved)
            .Text(message.text)
            .UInt32(kReserved);
    }
}

void SendMessage(Exchange& exchange) {
    exchange.reply.Word(1);
    std::vector<std::string> numbers;
    for (std::uint32_t i = 0; i < exchange.items && !exchange.request.Overran(); ++i) {
        numbers.push_back(exchange.request.Text());
    }
    const std::string text = exchange.request.Text();
    if (exchange.request.Overran()) {
        return;
    }
    if (numbers.empty()) {
        exchange.Deviate("a message to nobody");
    }
    exchange.note = fmt::format("to {}: {}", fmt::join(numbers, ","), text);
    // One message, sent at one moment to all.
    const std::uint64_t now = MillisecondsNow();
    for (const std::string& number : numbers) {
        exchange.data.messages.Send(number, text, now);
    }
}

void DeleteConversation(Exchange& exchange) {
    exchange.ExpectOneItem();
    exchange.reply.Word(1);
    const std::uint32_t id = exchange.request.UInt32();
    const bool removed = exchange.data.messages.Remove(id);
    exchange.note = fmt::format("conversation {}{}", id, removed ? "" : ", unknown");
}

constexpr std::array kRows{
    AgentCommandRow{AgentCommand::listConversations, "listConversations", RequestForm::bare,
                    ListConversations},
    AgentCommandRow{AgentCommand::readConversation, "readConversation", RequestForm::conversation,
                    ReadConversation},
    AgentCommandRow{AgentCommand::sendMessage, "sendMessage", RequestForm::framed, SendMessage},
    AgentCommandRow{AgentCommand::deleteConversation, "deleteConversation", RequestForm::framed,
                    DeleteConversation},
};

}  // namespace

std::span<const AgentCommandRow> MessageCommands() {
    return kRows;
}

}  // namespace quorvi::phone
