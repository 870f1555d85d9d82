// Photos and icons out of records, decoded once.
#pragma once

#include <QCache>
#include <QPixmap>
#include <cstdint>
#include <string_view>

namespace quorvi {

// Decodes image files that a phone sent. What is no picture of a known format, or claims a size
// beyond kMaxSide, costs no more than a look at its header and gives a null pixmap; that too is
// remembered. The window's thread.
class PictureCache {
  public:
    // Longest side of a picture that is decoded, in pixels of the file.
    static constexpr int kMaxSide = 2048;
    // Longest image file, in bytes.
    static constexpr std::size_t kMaxBytes = 262'244;
    // Memory for decoded pictures, in bytes.
    static constexpr qsizetype kBudget = 16 * 1024 * 1024;

    PictureCache();

    // The picture of a record, `side` logical pixels square at scale `dpr`. `id` stands for the
    // bytes until Clear.
    [[nodiscard]] QPixmap Get(std::uint64_t id, std::string_view bytes, int side, bool rounded,
                              qreal dpr);
    // Forgets everything: other records come.
    void Clear() { pictures_.clear(); }
    // How often a picture was decoded.
    [[nodiscard]] int Decodes() const { return decodes_; }

  private:
    QCache<std::uint64_t, QPixmap> pictures_;
    qreal dpr_ = 0;
    int decodes_ = 0;
};

// Decodes an image file to a square of `pixels` device pixels; null when it cannot be.
[[nodiscard]] QImage DecodePicture(std::string_view bytes, int pixels, bool rounded,
                                   qreal cornerRadius);

}  // namespace quorvi
