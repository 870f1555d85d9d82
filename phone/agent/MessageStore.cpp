#include "phone/agent/MessageStore.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/Utf8.h"
#include "phone/agent/AddressBook.h"
#include "phone/agent/LocalTime.h"

namespace quorvi::phone {
namespace {

constexpr std::uint64_t kMinute = 60'000;
constexpr std::size_t kMegabyte = 1024 * 1024;

}  // namespace

std::vector<const Conversation*> MessageStore::NewestFirst() const {
    std::vector<const Conversation*> sorted;
    for (const Conversation& conversation : conversations_) {
        sorted.push_back(&conversation);
    }
    std::stable_sort(sorted.begin(), sorted.end(), [](const auto* a, const auto* b) {
        return a->messages.back().date > b->messages.back().date;
    });
    return sorted;
}

const Conversation* MessageStore::Find(std::uint64_t id) const {
    const auto found = std::find_if(conversations_.begin(), conversations_.end(),
                                    [&](const Conversation& c) { return c.id == id; });
    return found == conversations_.end() ? nullptr : &*found;
}

bool MessageStore::Remove(std::uint64_t id) {
    return std::erase_if(conversations_, [&](const Conversation& c) { return c.id == id; }) > 0;
}

Conversation& MessageStore::Add(std::uint64_t id, std::string number) {
    return conversations_.emplace_back(Conversation{id, std::move(number), {}});
}

void MessageStore::AddMessage(Conversation& conversation, bool incoming, std::uint64_t date,
                              std::string text) {
    conversation.messages.push_back({++lastMessage_, incoming, date, std::move(text)});
}

void MessageStore::Send(const std::string& number, std::string text, std::uint64_t now) {
    auto found =
        std::find_if(conversations_.begin(), conversations_.end(),
                     [&](const Conversation& c) { return IsSameNumber(c.number, number); });
    Conversation& conversation =
        found == conversations_.end() ? Add(++lastConversation_, number) : *found;
    AddMessage(conversation, false, now, std::move(text));
}

MessageStore LargeMessageStore(std::uint32_t conversations, std::uint32_t messages) {
    MessageStore store;
    std::uint64_t date = LocalMilliseconds("2011-06-18 09:42:10");
    for (std::uint32_t i = 0; i < conversations; ++i) {
        Conversation& conversation =
            store.Add(i + 1, fmt::format("138{:08}", i * 7919ull % 100'000'000));
        const std::uint32_t count = i == 0 ? std::max(messages, 1u) : 1;
        for (std::uint32_t j = 0; j < count; ++j) {
            store.AddMessage(conversation, j % 2 == 0, date - (count - 1 - j) * kMinute,
                             Utf8(u8"第 ") + std::to_string(i + 1) + Utf8(u8" 个会话，第 ") +
                                 std::to_string(j + 1) + Utf8(u8" 条：路上有点堵，晚十分钟到。"));
        }
        date -= kMinute;
    }
    return store;
}

void AddHostileMessages(MessageStore& store) {
    const std::string harms[] = {
        "<script>document.title='owned'</script>",
        "<img src='http://example.com/x.png' onerror='alert(1)'>",
        "<form action='http://example.com/'><input name=q><input type=submit></form>",
        "<iframe src='http://example.com/'></iframe><object data='http://example.com/'></object>",
        "<a href='http://example.com/'>http</a> <a href='file:///etc/passwd'>file</a> "
        "<a href='javascript:alert(1)'>js</a> <a href='data:text/html,x'>data</a> "
        "<a href='about:blank'>blank</a> <a href='qvh:did=12'>qvh</a> "
        "<a href='tel:110' target=_blank>tel</a>",
        "<meta http-equiv=refresh content='0;url=http://example.com/'><base href='http://x/'>",
        "<style>*{display:none}</style><link rel=stylesheet href='http://example.com/x.css'>",
        "</p></li></ul></div></body></html>",
        std::string("zero \0 inside \x01\x1b[2J", 19),
        "\xff\xfe broken \xe4\xb8",
        std::string(kMegabyte, 'x'),
    };
    std::uint64_t date = LocalMilliseconds("2011-06-19 00:00:00");
    Conversation& conversation = store.Add(666, "<b>13800000000</b>");
    for (const std::string& harm : harms) {
        store.AddMessage(conversation, true, date += kMinute, harm);
    }
    for (std::uint64_t id = 667; const std::string& harm : harms) {
        Conversation& one = store.Add(id, fmt::format("1380000{:04}", id));
        store.AddMessage(one, true, date += kMinute, harm);
        ++id;
    }
}

}  // namespace quorvi::phone
