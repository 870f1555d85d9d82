// Photos and icons out of records, decoded once.
#pragma once

#include <QCache>
#include <QPixmap>
#include <cstdint>
#include <string_view>

namespace quorvi {

// Decodes image files by DecodePicture. What cannot be decoded gives a null pixmap; that too is
// remembered. The window's thread.
class PictureCache {
  public:
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

}  // namespace quorvi
