#include "ui/look/Theme.h"

#include <QWidget>

namespace quorvi::look {
namespace {

struct Wishes {
    std::optional<Theme> chosen;
    bool dark = false;
    bool contrast = false;
};

Wishes& TheWishes() {
    static Wishes wishes;
    return wishes;
}

void Settle() {
    const Wishes& wishes = TheWishes();
    const Theme desktop = wishes.contrast ? Theme::contrast
                          : wishes.dark   ? Theme::dark
                                          : Theme::light;
    SetTheme(wishes.chosen.value_or(desktop));
}

}  // namespace

ThemeNotice& TheThemeNotice() {
    // Lives as long as the process: widgets leave it as late as that.
    static auto* const notice = new ThemeNotice;
    return *notice;
}

void SetPaletteColor(QWidget& widget, QPalette::ColorRole role, Color color,
                     QPalette::ColorGroup group) {
    const auto set = [&widget, role, color, group] {
        QPalette palette = widget.palette();
        palette.setColor(group, role, look::color(color));
        widget.setPalette(palette);
    };
    set();
    QObject::connect(&TheThemeNotice(), &ThemeNotice::changed, &widget, set);
}

void ChooseTheme(std::optional<Theme> theme) {
    TheWishes().chosen = theme;
    Settle();
}

std::optional<Theme> ChosenTheme() {
    return TheWishes().chosen;
}

void SetDesktopDark(bool wished) {
    TheWishes().dark = wished;
    Settle();
}

void SetDesktopContrast(bool wished) {
    TheWishes().contrast = wished;
    Settle();
}

}  // namespace quorvi::look
