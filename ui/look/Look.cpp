#include "ui/look/Look.h"

#include <QApplication>
#include <QPalette>
#include <QToolTip>
#include <QWidget>
#include <algorithm>

#include "ui/look/Theme.h"

namespace quorvi::look {
namespace {

// Who asks for readable inks, by reason.
std::array<bool, 2>& InkReasons() {
    static std::array<bool, 2> asked{};
    return asked;
}

Theme& TheTheme() {
    static Theme theme = Theme::light;
    return theme;
}

bool& LessMotionFlag() {
    static bool on = false;
    return on;
}

const ColorRow& RowOf(Color color) {
    return kColors[static_cast<std::size_t>(color)];
}

QColor ValueOf(const ColorRow& row, Theme theme) {
    const auto column = static_cast<std::size_t>(theme);
    QColor made = QColor::fromRgb(row.values[column]);
    if (const int percent = row.percent[column]; percent < 100) {
        made.setAlphaF(static_cast<float>(percent) / 100.0F);
    }
    return made;
}

void RepaintAll() {
    for (QWidget* widget : QApplication::allWidgets()) {
        widget->update();
    }
}

QStringList Families() {
    return {QStringLiteral("Noto Sans CJK SC"),    QStringLiteral("Source Han Sans SC"),
            QStringLiteral("Microsoft YaHei UI"),  QStringLiteral("PingFang SC"),
            QStringLiteral("WenQuanYi Micro Hei"), QStringLiteral("sans-serif")};
}

}  // namespace

void SetReadableInks(bool on, InkReason reason) {
    const bool before = ReadableInks();
    InkReasons()[static_cast<std::size_t>(reason)] = on;
    if (ReadableInks() == before) {
        return;
    }
    RepaintAll();
}

bool ReadableInks() {
    return std::ranges::find(InkReasons(), true) != InkReasons().end();
}

void ApplyPalette() {
    const QPalette made = palette();
    QApplication::setPalette(made);
    QToolTip::setPalette(made);  // a desktop's own colours for tips go before the application's
}

void SetTheme(Theme theme) {
    if (theme == CurrentTheme()) {
        return;
    }
    TheTheme() = theme;
    ApplyPalette();
    Q_EMIT TheThemeNotice().changed();
    RepaintAll();
}

Theme CurrentTheme() {
    return TheTheme();
}

QColor color(Color color) {
    const ColorRow& row = RowOf(color);
    return ValueOf(ReadableInks() ? RowOf(row.readable) : row, CurrentTheme());
}

QColor color(Color color, Theme theme) {
    return ValueOf(RowOf(color), theme);
}

QColor color(Color color, int percent) {
    QColor made = look::color(color);
    made.setAlphaF(static_cast<float>(percent) / 100.0F);
    return made;
}

QFont font(Size size, bool bold) {
    QFont made;
    made.setFamilies(Families());
    made.setPixelSize(static_cast<int>(size));
    made.setWeight(bold ? QFont::Bold : QFont::Normal);
    made.setStyleHint(QFont::SansSerif);
    made.setHintingPreference(QFont::PreferVerticalHinting);
    return made;
}

QPalette palette() {
    QPalette made;
    using Role = QPalette::ColorRole;
    struct Pair {
        Role role;
        Color color;
    };
    static constexpr std::array kRoles{
        Pair{Role::Window, Color::page},
        Pair{Role::WindowText, Color::ink},
        Pair{Role::Base, Color::surface},
        Pair{Role::AlternateBase, Color::rowLight},
        Pair{Role::Text, Color::ink},
        Pair{Role::Button, Color::surface},
        Pair{Role::ButtonText, Color::ink},
        Pair{Role::Highlight, Color::plum6},
        Pair{Role::HighlightedText, Color::onAccent},
        Pair{Role::Link, Color::plum7},
        Pair{Role::LinkVisited, Color::plum7},
        Pair{Role::ToolTipBase, Color::tip},
        Pair{Role::ToolTipText, Color::onAccent},
        Pair{Role::PlaceholderText, Color::ink2},
        Pair{Role::Light, Color::surface},
        Pair{Role::Mid, Color::line2},
        Pair{Role::Dark, Color::frame},
    };
    for (const Pair& pair : kRoles) {
        made.setColor(pair.role, color(pair.color));
    }
    for (const Role role :
         {Role::WindowText, Role::Text, Role::ButtonText, Role::PlaceholderText}) {
        made.setColor(QPalette::Disabled, role, color(Color::inkOff));
    }
    made.setColor(QPalette::Disabled, Role::Base, color(Color::fieldOff));
    return made;
}

bool LessMotion() {
    return LessMotionFlag();
}

void SetLessMotion(bool on) {
    LessMotionFlag() = on;
}

}  // namespace quorvi::look
