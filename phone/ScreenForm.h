// In what form a simulated phone sends its screen, and how it misbehaves at it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "phone/Profile.h"

namespace quorvi::phone {

// Longest side of a screen, in pixels.
inline constexpr int kMaxScreenSide = 4096;

enum class ScreenFault {
    none,
    size,    // the header claims `number` bytes
    width,   // the header claims so many pixels a line
    height,  // and so many lines
    cut,     // the stream ends after so many bytes, the header counted
    hang,    // nothing comes behind so many bytes
    refuse,  // the service is not opened
};

struct ScreenForm {
    int width = 480;
    int height = 800;
    int bits = 32;  // as the header says; 32 and 24 are sent as such, all else as RGB 565
    std::uint32_t version = 1;  // of the header; 2 has a colour space
    bool blueFirst = false;     // of 24 and 32 bits: blue, green, red instead of red, green, blue
    bool waits = false;         // the pixels wait for the byte with which clients ask for them
    bool ends = false;          // the phone ends the stream behind the pixels
    ScreenFault fault = ScreenFault::none;
    std::uint32_t number = 0;

    friend bool operator==(const ScreenForm&, const ScreenForm&) = default;
};

// That of a phone as delivered.
[[nodiscard]] ScreenForm FormOf(const Profile& profile);

// "480x800" or "480x800x16". False, with nothing changed, for what is no screen.
bool ReadScreenSize(const std::string& text, ScreenForm& form);

// Takes words like those of kScreenWords: pairs of a name and a value, or "fault" and what it is.
// False, with nothing changed, when they cannot be read.
bool ReadScreenWords(const std::vector<std::string>& words, ScreenForm& form);

inline constexpr std::string_view kScreenWords =
    "[size WxH[xBITS]] [version 1|2] [order rgb|bgr] [waits 0|1] [ends 0|1] "
    "[fault none|refuse|size N|width N|height N|cut N|hang N]";

}  // namespace quorvi::phone
