// The colours of the suite, in light, dark and high contrast: the one table of them. No colour
// stands anywhere else.
//
// Everything here belongs to the window's thread.
#pragma once

#include <QColor>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorvi::look {

// How everything is drawn.
enum class Theme : std::uint8_t { light, dark, contrast, count };

// One value for each theme, in their order.
template <typename Value>
using PerTheme = std::array<Value, static_cast<std::size_t>(Theme::count)>;

// Names of the colours. Those that begin with `stated` are values that the features give to the
// letter; they are drawn with that value until the readable inks are asked for.
enum class Color : std::uint8_t {
    ink,
    ink2,
    ink3,
    inkOff,
    onAccent,
    plum8,
    plum7,
    plum6,
    plum5,
    rowLight,
    rowHover,
    rowSelected,
    rowBorder,
    surface,
    page,
    chrome1,
    chrome2,
    field,
    fieldOff,
    fieldLine,
    line,
    line2,
    hair,
    frame,
    scroll,
    scrollHot,
    blueMark,
    redMark,
    greenMark,
    blue,
    red,
    green,
    amber,
    star,
    red5,
    red7,
    redSoft,
    menuGutter,
    menuSel,
    menuSelLine,
    comboSel,
    flatLine,
    flatLine2,
    flatHot,
    flatPress,
    flatFill,
    trackHot,
    searchLine,
    skeleton,
    tip,
    groove,
    redOff,
    plumOff,
    bar1,
    bar2,
    plumTint,
    statedBlue,
    statedRed,
    statedGreen,
    statedDarkGreen,
    statedLink,
    statedGrey,
    // what light says with one token and the other looks take apart
    ring,
    menu,
    dialog,
    sent,
    sentInk,
    sentNote,
    sentLine,
    // seen through
    scrim,
    shadow,
    knobShadow,
    windowEdge,
    tabPlate,
    count,
};

struct ColorRow {
    Color color;
    std::string_view token;  // the name in the style sheets of the HTML views, without its dashes
    PerTheme<QRgb> values;   // opaque
    PerTheme<int> percent;   // how much of it is drawn: 100, but for what is seen through
    Color readable;  // what is drawn when readable inks are asked for: itself for all but `stated…`
};

namespace detail {
using Rgb = PerTheme<unsigned>;
inline constexpr PerTheme<int> kOpaque{100, 100, 100};

constexpr PerTheme<QRgb> Opaque(const Rgb& rgb) {
    return {0xFF000000U | rgb[0], 0xFF000000U | rgb[1], 0xFF000000U | rgb[2]};
}
constexpr ColorRow Row(Color color, std::string_view token, const Rgb& rgb) {
    return {color, token, Opaque(rgb), kOpaque, color};
}
constexpr ColorRow Stated(Color color, std::string_view token, const Rgb& rgb, Color readable) {
    return {color, token, Opaque(rgb), kOpaque, readable};
}
constexpr ColorRow Veil(Color color, std::string_view token, const Rgb& rgb,
                        const PerTheme<int>& percent) {
    return {color, token, Opaque(rgb), percent, color};
}
}  // namespace detail

// Token, its values in light, dark and high contrast, and what it becomes when readable inks are
// asked for. Row i is colour i.
inline constexpr std::array<ColorRow, static_cast<std::size_t>(Color::count)> kColors = {{
    // ink
    detail::Row(Color::ink, "ink", {0x2B2131, 0xF1EAF3, 0xFFFFFF}),
    detail::Row(Color::ink2, "ink-2", {0x5E5465, 0xC2B5C8, 0xF7F0F8}),
    detail::Row(Color::ink3, "ink-3", {0x8A8091, 0x978A9E, 0xD9CCDD}),
    detail::Row(Color::inkOff, "ink-off", {0xA99FAE, 0x7A6D80, 0x9A8FA0}),
    detail::Row(Color::onAccent, "on-accent", {0xFFFFFF, 0x24102A, 0x000000}),
    // plum, the one accent
    detail::Row(Color::plum8, "plum-8", {0x4A1D51, 0xEED9F1, 0xFFFFFF}),
    detail::Row(Color::plum7, "plum-7", {0x6A2A72, 0xE4B7EA, 0xFEE0FF}),
    detail::Row(Color::plum6, "plum-6", {0x87368F, 0xC983D2, 0xF0A6FA}),
    detail::Row(Color::plum5, "plum-5", {0x9A46A2, 0xD79BDE, 0xF6BDFC}),
    // rows
    detail::Row(Color::rowLight, "row-light", {0xFAF1FA, 0x2A2130, 0x1C0B20}),
    detail::Row(Color::rowHover, "row-hover", {0xF6E3F6, 0x3A2840, 0x34113B}),
    detail::Row(Color::rowSelected, "row-selected", {0xEECAEF, 0x4F2B57, 0x5A1266}),
    detail::Row(Color::rowBorder, "row-border", {0xECC2ED, 0x73497C, 0xF0A6FA}),
    // surfaces
    detail::Row(Color::surface, "surface", {0xFFFFFF, 0x241C28, 0x000000}),
    detail::Row(Color::page, "page", {0xFCF9FD, 0x18131B, 0x000000}),
    detail::Row(Color::chrome1, "chrome-1", {0xF1E5F3, 0x382A41, 0x1E0B24}),
    detail::Row(Color::chrome2, "chrome-2", {0xF9F3FA, 0x2C2332, 0x120716}),
    detail::Row(Color::field, "field", {0xFFFFFF, 0x201924, 0x000000}),
    detail::Row(Color::fieldOff, "field-off", {0xF5F1F6, 0x29222D, 0x000000}),
    detail::Row(Color::fieldLine, "field-line", {0x8A8091, 0x978A9E, 0xFFFFFF}),
    // lines
    detail::Row(Color::line, "line", {0xE8DEEA, 0x3D3242, 0x6A5D6F}),
    detail::Row(Color::line2, "line-2", {0xD9CBDD, 0x53455C, 0x766979}),
    detail::Row(Color::hair, "hair", {0xF3EAF4, 0x352B39, 0x55495A}),
    detail::Row(Color::frame, "frame", {0xACA899, 0x635768, 0xFFFFFF}),
    detail::Row(Color::scroll, "scroll", {0xCDBFD1, 0x5E5164, 0x9A8FA0}),
    detail::Row(Color::scrollHot, "scroll-hot", {0xA78FAC, 0x84768B, 0xFFFFFF}),
    // meaning: the mark is a dot, the plain name is text
    detail::Row(Color::blueMark, "blue-mark", {0x0000FF, 0x5C8DFF, 0x6FA8FF}),
    detail::Row(Color::redMark, "red-mark", {0xFF0000, 0xFF4D55, 0xFF6B73}),
    detail::Row(Color::greenMark, "green-mark", {0x1D9014, 0x4FB84A, 0x3DDC3D}),
    detail::Row(Color::blue, "blue", {0x1B4FB0, 0x8FB6FF, 0xA9CCFF}),
    detail::Row(Color::red, "red", {0xB01228, 0xF88389, 0xFFB3B8}),
    detail::Row(Color::green, "green", {0x0B6B12, 0x6CC971, 0x7CF27C}),
    detail::Row(Color::amber, "amber", {0x8A5200, 0xF0B65A, 0xFFC247}),
    detail::Row(Color::star, "star", {0xE8A317, 0xF2B632, 0xFFD23F}),
    detail::Row(Color::red5, "red-5", {0xC42B3D, 0xE8636E, 0xFF8088}),
    detail::Row(Color::red7, "red-7", {0x8E0E20, 0xD9545F, 0xFF636C}),
    detail::Row(Color::redSoft, "red-soft", {0xF9E3E6, 0x47232B, 0x4A0F18}),
    // menu, drop list, flat image button
    detail::Row(Color::menuGutter, "menu-gutter", {0xE7E7E7, 0x413A44, 0x2A1A2E}),
    detail::Row(Color::menuSel, "menu-sel", {0xCEE7FF, 0x24405C, 0x003C78}),
    detail::Row(Color::menuSelLine, "menu-sel-line", {0x84A6C6, 0x5B89B5, 0x7FC1FF}),
    detail::Row(Color::comboSel, "combo-sel", {0x59B0DB, 0x1F5F85, 0x00528A}),
    detail::Row(Color::flatLine, "flat-line", {0xE0E0E0, 0x40363F, 0x75687A}),
    detail::Row(Color::flatLine2, "flat-line-2", {0xBDBDBD, 0x5E535D, 0xBFB2C3}),
    detail::Row(Color::flatHot, "flat-hot", {0x359AFF, 0x4DA3FF, 0x4DB2FF}),
    detail::Row(Color::flatPress, "flat-press", {0xFF9600, 0xFFA733, 0xFFB000}),
    detail::Row(Color::flatFill, "flat-fill", {0xE1F0FF, 0x1E3248, 0x002B55}),
    // seldom
    detail::Row(Color::trackHot, "track-hot", {0x766C7D, 0xA89BAF, 0xE6DCE9}),
    detail::Row(Color::searchLine, "search-line", {0xB9A9BD, 0x75677B, 0xFFFFFF}),
    detail::Row(Color::skeleton, "skeleton", {0xEFE4F1, 0x332A38, 0x3A2F3E}),
    detail::Row(Color::tip, "tip", {0x3A3040, 0xDCCDE1, 0xFFFFFF}),
    detail::Row(Color::groove, "groove", {0xEFE6F1, 0x45364B, 0x2E2432}),
    detail::Row(Color::redOff, "red-off", {0xE3D3D6, 0x4B3539, 0x4A3A3D}),
    detail::Row(Color::plumOff, "plum-off", {0xD3B8D6, 0x6A4C70, 0x7A5C80}),
    detail::Row(Color::bar1, "bar-1", {0xE3B0E6, 0x8F4A98, 0x8A1C9A}),
    detail::Row(Color::bar2, "bar-2", {0xD79ADB, 0x7A3B83, 0x7A128A}),
    detail::Row(Color::plumTint, "plum-tint", {0xE6BBE8, 0x5E3567, 0x701A7E}),
    // values that the features give to the letter
    detail::Stated(Color::statedBlue, "stated-blue", {0x0000FF, 0x7DA6FF, 0xA3C7FF}, Color::blue),
    detail::Stated(Color::statedRed, "stated-red", {0xFF0000, 0xFF8080, 0xFFB1B1}, Color::red),
    detail::Stated(Color::statedGreen, "stated-green", {0x1D9014, 0x5CC45A, 0x70EE6C},
                   Color::green),
    detail::Stated(Color::statedDarkGreen, "stated-dark-green", {0x008000, 0x4FBF4F, 0x62E862},
                   Color::green),
    detail::Stated(Color::statedLink, "stated-link", {0x2882FF, 0x6FB0FF, 0x99CBFF}, Color::blue),
    detail::Stated(Color::statedGrey, "stated-grey", {0x828282, 0xADA7B0, 0xDDD6DF}, Color::ink2),
    // what light says with one token
    detail::Row(Color::ring, "ring", {0x87368F, 0xEDC3F2, 0xFFE14A}),
    detail::Row(Color::menu, "menu", {0xFFFFFF, 0x342939, 0x000000}),
    detail::Row(Color::dialog, "dialog", {0xFCF9FD, 0x2A212E, 0x000000}),
    // the bubble of a message that was sent; of the views
    detail::Row(Color::sent, "sent", {0x87368F, 0x633569, 0x5A1266}),
    detail::Row(Color::sentInk, "sent-ink", {0xFFFFFF, 0xF5EDF6, 0xFFFFFF}),
    detail::Row(Color::sentNote, "sent-note", {0xF6E3F6, 0xDDBFE2, 0xFEE0FF}),
    detail::Veil(Color::sentLine, "sent-line", {0x87368F, 0x633569, 0xF0A6FA}, {0, 0, 100}),
    // over the window behind a dialog; below menus and balloons; below the knob of a switch; the
    // hairline round windows and dialogs; behind a hovered tab
    detail::Veil(Color::scrim, "scrim", {0x2B2131, 0x08050A, 0x000000}, {28, 56, 70}),
    detail::Veil(Color::shadow, "shadow", {0x4A1D51, 0x050306, 0x000000}, {16, 55, 0}),
    detail::Veil(Color::knobShadow, "knob", {0x2B2131, 0x000000, 0x000000}, {20, 30, 0}),
    detail::Veil(Color::windowEdge, "edge", {0x4A1D51, 0xEED9F1, 0xFFFFFF}, {18, 20, 100}),
    detail::Veil(Color::tabPlate, "plate", {0x87368F, 0xC983D2, 0xF0A6FA}, {8, 8, 16}),
}};

constexpr bool ColorRowsInOrder() {
    for (std::size_t i = 0; i < kColors.size(); ++i) {
        if (static_cast<std::size_t>(kColors[i].color) != i) {
            return false;
        }
    }
    return true;
}
static_assert(ColorRowsInOrder());

// Who asks for readable inks.
enum class InkReason : std::uint8_t {
    settings,  // the settings value `contrast` is 1
    desktop,   // the desktop asks for high contrast
};
// Text is drawn with inks of at least 4.5 to 1 on every ground instead of the stated values while
// anyone asks for them. Repaints every window.
void SetReadableInks(bool on, InkReason reason = InkReason::settings);
[[nodiscard]] bool ReadableInks();

// Draws everything in a theme: sets the application's palette, tells those who follow
// (ui/look/Theme.h), and repaints every window. Light until it is called.
void SetTheme(Theme theme);
[[nodiscard]] Theme CurrentTheme();

// The value drawn for a colour, at the moment.
[[nodiscard]] QColor color(Color color);
// The same with an opacity in percent.
[[nodiscard]] QColor color(Color color, int percent);
// The value of a colour in a theme.
[[nodiscard]] QColor color(Color color, Theme theme);

// ---- pictures of many colours ------------------------------------------------------------------

// What stands in the drawing, and what it is drawn with: the values of light are the drawing's own.
struct PictureColor {
    std::string_view drawing;  // the start of its name; empty: any
    PerTheme<unsigned> values;
};

// The first row that fits counts. A value that does not stand here is the same in each theme.
inline constexpr std::array<PictureColor, 17> kPictureColors = {{
    {"phone-", {0xFFFFFF, 0xFFFFFF, 0xFFFFFF}},
    {"phone-", {0x4A3F50, 0x5B4E63, 0x3A3040}},
    {"phone-", {0xEECAEF, 0xB98AC2, 0xF0A6FA}},
    {"phone-", {0xD9A6DC, 0x96639F, 0xB04FBE}},
    {"", {0xFFFFFF, 0x332938, 0x000000}},
    {"", {0xFAF1FA, 0x2A2130, 0x1C0B20}},
    {"", {0xF6E3F6, 0x3A2840, 0x34113B}},
    {"", {0xEECAEF, 0x5A3862, 0x5A1266}},
    {"", {0xD9A6DC, 0x74467C, 0x8A1C9A}},
    {"", {0xB9A2BC, 0x8A7790, 0xF3EAF5}},
    {"", {0xB468BC, 0xB06DB9, 0xF0A6FA}},
    {"", {0x87368F, 0xC983D2, 0xF0A6FA}},
    {"", {0xB01228, 0xF88389, 0xFFB3B8}},
    {"", {0xE3D0E6, 0x4D3854, 0x2E1634}},
    {"", {0x9A6BA1, 0xB287BA, 0xF0A6FA}},
    {"", {0xE6DCE8, 0x4A3F50, 0x706373}},
    {"", {0xE8A317, 0xF2B632, 0xFFD23F}},
}};

// Drawings that look alike in each theme, by the start of their names: what they show is always on
// its own ground.
inline constexpr std::array<std::string_view, 2> kUnchangedPictures = {"logo", "theme-"};

}  // namespace quorvi::look
