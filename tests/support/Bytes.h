// Byte literals for the tests of the simulated phone.
#pragma once

#include <initializer_list>
#include <string_view>

#include "agent/Request.h"

namespace quorvi::phone {

// The pieces of a message, one after the other: numbers below 256, and texts.
class Piece {
  public:
    Piece(std::initializer_list<int> bytes) {
        for (const int value : bytes) {
            bytes_.push_back(static_cast<std::byte>(value));
        }
    }
    Piece(const char* text) {
        for (const char c : std::string_view(text)) {
            bytes_.push_back(static_cast<std::byte>(c));
        }
    }
    [[nodiscard]] const Bytes& Value() const { return bytes_; }

  private:
    Bytes bytes_;
};

[[nodiscard]] inline Bytes Join(std::initializer_list<Piece> pieces) {
    Bytes out;
    for (const Piece& piece : pieces) {
        out.insert(out.end(), piece.Value().begin(), piece.Value().end());
    }
    return out;
}

}  // namespace quorvi::phone
