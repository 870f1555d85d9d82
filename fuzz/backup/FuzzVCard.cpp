// vCards of any writer, in one piece and in several: whatever is read, writing it as a vCard and
// reading it again gives the same.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "backup/VCardReader.h"
#include "backup/VCardWriter.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvi;
    const std::string_view file(reinterpret_cast<const char*>(data), size);
    const VCards read = ReadVCards(file);

    std::vector<ReadCard> cards;
    VCardReader pieces([&](ReadCard&& card) { cards.push_back(std::move(card)); },
                       [](SkippedCard&&) {});
    constexpr std::size_t kPiece = 7;
    for (std::size_t i = 0; i < size; i += kPiece) {
        pieces.Feed(file.substr(i, kPiece));
    }
    pieces.End();
    if (cards != read.cards || pieces.Refused() != read.refused) {
        std::abort();
    }

    for (const ReadCard& card : read.cards) {
        const VCards again = ReadVCards(WriteVCard(card.card));
        if (again.cards.size() != 1 || again.cards.front().card != card.card) {
            std::abort();
        }
    }
    return 0;
}
