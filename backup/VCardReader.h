// vCards of versions 2.1, 3.0 and 4.0 as phones, mail programs and address books write them.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "backup/CardBuilder.h"
#include "backup/TextPieces.h"
#include "backup/VCardLines.h"

namespace quorvi {

enum class CardFault {
    nothingInIt,  // neither a name nor anything else by which it could be called
    tooLarge,     // see kMostCardProperties, kMostCardBytes
    cut,          // the file ended inside of it
};

// A card that was not read.
struct SkippedCard {
    std::size_t number = 0;  // in the file, from 1
    std::string name;        // as far as it is known; UTF-8
    CardFault fault{};

    bool operator==(const SkippedCard&) const = default;
};

// Cards inside of cards (AGENT) are passed over. Deeper than this no program writes them, and a
// file that has them so is refused.
inline constexpr std::size_t kMostCardNesting = 8;

// Takes a file piece by piece, and gives its cards in order. It holds one card at a time: what a
// file costs does not grow with the number of its cards. What stands between cards is passed over.
class VCardReader {
  public:
    using TakeCard = std::function<void(ReadCard&&)>;
    using TakeFault = std::function<void(SkippedCard&&)>;
    VCardReader(TakeCard card, TakeFault fault);

    VCardReader(const VCardReader&) = delete;
    VCardReader& operator=(const VCardReader&) = delete;

    void Feed(std::string_view bytes);
    // The file has ended.
    void End();
    // True when cards are nested too deeply: the rest of the file is not read.
    [[nodiscard]] bool Refused() const { return refused_; }

  private:
    void TakeLine(std::string_view line, bool tooLong);
    void BeginCard();
    void EndCard();
    void Skip(CardFault fault);

    TakeCard card_;
    TakeFault fault_;
    VCardLines lines_;
    TextPieces pieces_;
    std::optional<CardBuilder> builder_;  // inside of a card
    std::size_t nested_ = 0;              // cards inside of it
    bool agent_ = false;                  // the last line was AGENT
    std::size_t number_ = 0;
    bool refused_ = false;
};

// A whole file.
struct VCards {
    std::vector<ReadCard> cards;
    std::vector<SkippedCard> skipped;
    bool refused = false;
};
[[nodiscard]] VCards ReadVCards(std::string_view file);

}  // namespace quorvi
