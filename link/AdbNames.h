// What the screen shows for what a phone reports of itself. Texts in and out are ANSI. Any thread.
#pragma once

#include <string>
#include <string_view>

namespace quorvi {

// "Android 2.3.X" for level 10, and so on from 3 to 15; "未知版本" for any other level.
[[nodiscard]] std::string AndroidVersionName(int apiLevel);

// The image for phones whose maker has none of its own.
inline constexpr int kOtherBrandImage = 21004;

// Identifier of the maker's picture among the brand images: decided by the first word of the table
// that occurs anywhere in the text, whatever its case.
[[nodiscard]] int BrandImageId(std::string_view manufacturer);

// Name of the picture, among the suite's own, that stands for a brand image; that of
// kOtherBrandImage for a number that is none. ASCII.
[[nodiscard]] std::string_view BrandPicture(int brandImage);

// `model` without "meizu_".
[[nodiscard]] std::string CleanModelName(std::string_view model);

// `manufacturer` with "meizu" as "魅族", or else "motorola" as "摩托罗拉". Exact in case.
[[nodiscard]] std::string LocalBrandName(std::string_view manufacturer);

}  // namespace quorvi
