// Who follows the theme, and which theme it is: the user's choice goes before what the desktop
// wishes.
//
// Everything here belongs to the window's thread.
#pragma once

#include <QObject>
#include <QPalette>
#include <optional>

#include "ui/look/Colors.h"

class QWidget;

namespace quorvi::look {

// Tells of each change of the theme, after the application has its new palette.
class ThemeNotice : public QObject {
    Q_OBJECT
  Q_SIGNALS:
    void changed();
};

[[nodiscard]] ThemeNotice& TheThemeNotice();

// Gives one colour of a widget's palette a value of the table, in each theme its own.
void SetPaletteColor(QWidget& widget, QPalette::ColorRole role, Color color,
                     QPalette::ColorGroup group = QPalette::All);

// Gives the application the palette of the theme. Done at each change.
void ApplyPalette();

// The theme that the user has chosen; nothing: as the desktop wishes.
void ChooseTheme(std::optional<Theme> theme);
[[nodiscard]] std::optional<Theme> ChosenTheme();

// What the desktop wishes. More contrast goes before dark.
void SetDesktopDark(bool wished);
void SetDesktopContrast(bool wished);

}  // namespace quorvi::look
