#include "backup/VCardWriter.h"

#include <array>
#include <string_view>

#include "backup/Base64.h"
#include "backup/VCardTypes.h"
#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kFold = "\r\n ";

std::string Escaped(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char c : text) {
        if (c == '\n') {
            escaped += "\\n";
            continue;
        }
        if (c == '\\' || c == ',' || c == ';') {
            escaped += '\\';
        }
        escaped += c;
    }
    return escaped;
}

// Where the first piece of a line ends: within `most` octets, and not inside a character.
std::size_t EndOfPiece(std::string_view line, std::size_t most) {
    if (line.size() <= most) {
        return line.size();
    }
    std::size_t end = most;
    while (end > 1 && (static_cast<unsigned char>(line[end]) & 0xC0) == 0x80) {
        --end;
    }
    return end;
}

// Bytes of a card without its photo, but for few.
constexpr std::size_t kMostOfACard = 1024;

class Writer {
  public:
    // `expected` is about how many bytes it will become.
    explicit Writer(std::size_t expected) { text_.reserve(expected); }

    void Line(std::string_view line) {
        if (line.empty()) {
            return;
        }
        std::size_t end = EndOfPiece(line, kVCardLineOctets);
        text_.append(line.substr(0, end));
        for (line.remove_prefix(end); !line.empty(); line.remove_prefix(end)) {
            end = EndOfPiece(line, kVCardLineOctets - 1);
            text_.append(kFold).append(line.substr(0, end));
        }
        text_.append(kLineEnd);
    }

    // Photos are most of a file: straight from the bytes into folded lines of whole groups of four
    // digits.
    void Base64(std::string_view head, std::string_view bytes) {
        text_ += head;
        std::array<char, Base64Size(kVCardLineOctets)> piece{};
        std::size_t most = (kVCardLineOctets - head.size()) / 4 * 3;
        for (;;) {
            const std::string_view next = bytes.substr(0, most);
            text_.append(piece.data(), PutBase64(next, piece.data()));
            bytes.remove_prefix(next.size());
            if (bytes.empty()) {
                break;
            }
            text_ += kFold;
            most = (kVCardLineOctets - 1) / 4 * 3;
        }
        text_ += kLineEnd;
    }

    void Text(std::string_view property, std::string_view text) {
        Line(std::string(property).append(":").append(Escaped(text)));
    }

    void TextIfAny(std::string_view property, std::string_view text) {
        if (!text.empty()) {
            Text(property, text);
        }
    }

    // `value` is escaped.
    void Item(const VCardList& list, const CardItem& item, std::string_view value) {
        const std::string words = VCardWords(list, item.type);
        std::string label = item.label;
        if (label.empty() && !HasVCardWords(list, item.type)) {
            label = VCardLabel(list, item.type);
        }
        std::string line;
        if (!label.empty()) {
            line = "item" + std::to_string(++items_) + ".";
        }
        const std::string group = line;
        line += list.property;
        // Each word in a parameter of its own, since some readers know no lists.
        for (const std::string_view word : SplitAt(words, ',')) {
            if (!word.empty()) {
                line.append(";TYPE=").append(Upper(word));
            }
        }
        Line(line.append(":").append(value));
        if (!label.empty()) {
            Line(group + "X-ABLabel:" + Escaped(label));
        }
    }

    static std::string Upper(std::string_view word) {
        std::string upper;
        for (const char c : word) {
            upper += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        }
        return upper;
    }

    [[nodiscard]] std::string Take() { return std::move(text_); }

  private:
    std::string text_;
    int items_ = 0;
};

void WriteItems(Writer& writer, const ContactCard& card, const VCardList& list) {
    for (const CardItem& item : card.*list.items) {
        writer.Item(list, item, Escaped(item.text));
    }
}

void WriteMessengers(Writer& writer, const ContactCard& card) {
    for (const CardItem& item : card.ims) {
        std::string property;
        for (const VCardMessenger& messenger : VCardMessengers()) {
            if (messenger.code == item.type) {
                property = messenger.property;
            }
        }
        if (property.empty()) {
            property = kOtherMessenger;
            if (item.type != kOtherMessengerCode) {
                property.append(";TYPE=").append(Writer::Upper(OwnWordOf(item.type)));
            }
        }
        writer.Text(property, item.text);
    }
}

void WriteGroups(Writer& writer, const ContactCard& card) {
    if (card.groups.empty()) {
        return;
    }
    std::string line = "CATEGORIES:";
    for (std::size_t i = 0; i < card.groups.size(); ++i) {
        line.append(i == 0 ? "" : ",").append(Escaped(card.groups[i]));
    }
    writer.Line(line);
}

// Image files by their first bytes.
struct ImageFormat {
    std::string_view begins;
    std::string_view name;
};
constexpr std::array<ImageFormat, 4> kImageFormats{{
    {"\xFF\xD8\xFF", "JPEG"},
    {"\x89PNG", "PNG"},
    {"GIF8", "GIF"},
    {"BM", "BMP"},
}};

void WritePhoto(Writer& writer, const ContactCard& card) {
    if (card.photo.empty()) {
        return;
    }
    std::string line = "PHOTO;ENCODING=b";
    for (const ImageFormat& format : kImageFormats) {
        if (card.photo.starts_with(format.begins)) {
            line.append(";TYPE=").append(format.name);
        }
    }
    writer.Base64(line.append(":"), card.photo);
}

}  // namespace

std::string WriteVCard(const ContactCard& card) {
    Writer writer(kMostOfACard + card.photo.size() / 2 * 3);
    writer.Line("BEGIN:VCARD");
    writer.Line("VERSION:3.0");
    writer.Line("N:" + Escaped(card.name) + ";;;;");
    writer.Text("FN", card.name);
    writer.TextIfAny("NICKNAME", card.nickname);
    WriteItems(writer, card, kVCardPhones);
    WriteItems(writer, card, kVCardEmails);
    WriteMessengers(writer, card);
    WriteItems(writer, card, kVCardWebsites);
    for (const CardItem& item : card.addresses) {
        writer.Item(kVCardAddresses, item, ";;" + Escaped(item.text) + ";;;;");
    }
    WriteItems(writer, card, kVCardOrganisations);
    writer.TextIfAny("NOTE", card.note);
    WriteGroups(writer, card);
    if (card.favourite) {
        writer.Line("X-QUORVI-FAVOURITE:1");
    }
    WritePhoto(writer, card);
    writer.Line("END:VCARD");
    return writer.Take();
}

}  // namespace quorvi
