// The formats and qualities in which a picture of the screen is saved.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace quorvi {

// The indexes of the format list, and of the filters of the save dialog.
enum class SaveFormat : int { jpg = 0, gif = 1, png = 2, bmp = 3 };

struct SaveFormatRow {
    SaveFormat format;
    std::u8string_view caption;  // in the list
    std::u8string_view filter;   // in the save dialog
    std::string_view extension;
    std::string_view mimeType;
};

inline constexpr std::array<SaveFormatRow, 4> kSaveFormats{{
    {SaveFormat::jpg, u8"JPG (照片级)", u8"JPG图片 (*.jpg)", "jpg", "image/jpeg"},
    {SaveFormat::gif, u8"GIF (256 色)", u8"GIF图片 (*.gif)", "gif", "image/gif"},
    {SaveFormat::png, u8"PNG (真彩色)", u8"PNG图片 (*.png)", "png", "image/png"},
    {SaveFormat::bmp, u8"BMP (元位图)", u8"BMP图片 (*.bmp)", "bmp", "image/bmp"},
}};

struct SaveQualityRow {
    std::u8string_view caption;
    int quality;
};

inline constexpr std::array<SaveQualityRow, 7> kSaveQualities{{
    {u8"原始画质", 100},
    {u8"90% 画质", 90},
    {u8"85% 画质", 85},
    {u8"80% 画质", 80},
    {u8"70% 画质", 70},
    {u8"60% 画质", 60},
    {u8"50% 画质", 50},
}};

// What the lists show at first.
inline constexpr int kFirstFormat = 0;
inline constexpr int kFirstQuality = 1;

// The format of an index; of one that is out of range, jpg.
[[nodiscard]] SaveFormat FormatOf(int index);
// The quality of an index; of one that is out of range, 100.
[[nodiscard]] int QualityOf(int index);

[[nodiscard]] const SaveFormatRow& RowOf(SaveFormat format);

// The format that a file's name asks for by what stands behind its last dot, in any case of its
// letters; nothing for any other name. The name is in UTF-8, with or without folders.
[[nodiscard]] std::optional<SaveFormat> FormatOfName(std::string_view name);

}  // namespace quorvi
