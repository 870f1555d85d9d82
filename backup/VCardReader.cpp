#include "backup/VCardReader.h"

#include <utility>

#include "base/Text.h"

namespace quorvi {
namespace {

bool HasAnything(const ContactCard& card) {
    return RecordOf(card).has_value();
}

}  // namespace

VCardReader::VCardReader(TakeCard card, TakeFault fault)
    : card_(std::move(card)),
      fault_(std::move(fault)),
      lines_([this](std::string_view line, bool tooLong) { TakeLine(line, tooLong); }),
      pieces_([this](std::string_view text) { lines_.Feed(text); }) {}

void VCardReader::Feed(std::string_view bytes) {
    if (!refused_) {
        pieces_.Feed(bytes);
    }
}

void VCardReader::End() {
    if (refused_) {
        return;
    }
    pieces_.End();
    lines_.End();
    if (builder_) {
        Skip(CardFault::cut);
    }
}

void VCardReader::TakeLine(std::string_view line, bool tooLong) {
    if (refused_) {
        return;
    }
    const std::string_view trimmed = Trim(line);
    if (EqualsNoCase(trimmed, "BEGIN:VCARD")) {
        return BeginCard();
    }
    const bool wasAgent = std::exchange(agent_, false);
    if (!builder_) {
        return;
    }
    if (EqualsNoCase(trimmed, "END:VCARD")) {
        return EndCard();
    }
    if (nested_ > 0) {
        agent_ = wasAgent && trimmed.empty();
        if (EqualsNoCase(trimmed, "AGENT:")) {
            agent_ = true;
        }
        return;
    }
    const auto property = ReadVCardProperty(line);
    if (!property) {
        return;
    }
    if (tooLong || property->name == "AGENT") {
        agent_ = property->name == "AGENT";
        builder_->LeaveOut(property->name);
        return;
    }
    builder_->Add(*property, line.size());
    lines_.KeepBlanks(builder_->Version() == VCardVersion::v21);
}

void VCardReader::BeginCard() {
    if (std::exchange(agent_, false)) {
        ++nested_;
        refused_ = nested_ > kMostCardNesting;
        if (refused_) {
            builder_.reset();
        }
        return;
    }
    nested_ = 0;
    if (builder_) {
        EndCard();  // the end of the last one is missing
    }
    ++number_;
    builder_.emplace();
    lines_.KeepBlanks(false);
}

void VCardReader::EndCard() {
    if (nested_ > 0) {
        --nested_;
        return;
    }
    if (builder_->TooLarge()) {
        return Skip(CardFault::tooLarge);
    }
    ReadCard read = builder_->Take();
    builder_.reset();
    if (HasAnything(read.card)) {
        card_(std::move(read));
    } else {
        fault_({number_, {}, CardFault::nothingInIt});
    }
}

void VCardReader::Skip(CardFault fault) {
    fault_({number_, builder_->Take().card.name, fault});
    builder_.reset();
}

VCards ReadVCards(std::string_view file) {
    VCards read;
    VCardReader reader([&](ReadCard&& card) { read.cards.push_back(std::move(card)); },
                       [&](SkippedCard&& skipped) { read.skipped.push_back(std::move(skipped)); });
    reader.Feed(file);
    reader.End();
    read.refused = reader.Refused();
    return read;
}

}  // namespace quorvi
