// The messages on the phone, by conversation. Text is UTF-8, or whatever bytes were sent.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi::phone {

struct Message {
    std::uint64_t id = 0;
    bool incoming = true;
    std::uint64_t date = 0;  // milliseconds since 1970
    std::string text;
};

struct Conversation {
    std::uint64_t id = 0;
    std::string number;             // of the other party
    std::vector<Message> messages;  // the oldest first, never empty
};

class MessageStore {
  public:
    // The one with the newest message first.
    [[nodiscard]] std::vector<const Conversation*> NewestFirst() const;
    [[nodiscard]] const Conversation* Find(std::uint64_t id) const;
    // False when there is none.
    bool Remove(std::uint64_t id);

    Conversation& Add(std::uint64_t id, std::string number);
    void AddMessage(Conversation& conversation, bool incoming, std::uint64_t date,
                    std::string text);
    // Puts a message that goes out into the conversation with that number, a new one if there is
    // none; numbers are the same when their last eleven digits are.
    void Send(const std::string& number, std::string text, std::uint64_t now);

  private:
    std::vector<Conversation> conversations_;
    std::uint64_t lastConversation_ = 50;
    std::uint64_t lastMessage_ = 1000;
};

// What the owner of the phone has written and received.
[[nodiscard]] MessageStore DeliveredMessages();

// Messages that mean harm to whoever shows them.
void AddHostileMessages(MessageStore& store);

// So many conversations of one message each, the newest of which has `messages`.
[[nodiscard]] MessageStore LargeMessageStore(std::uint32_t conversations, std::uint32_t messages);

}  // namespace quorvi::phone
