// The token table is the only place of colours, and every icon can be drawn from it.
#include <gtest/gtest.h>

#include <QDBusVariant>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <map>
#include <set>

#include "tests/support/BuildPlaces.h"
#include "tests/support/Contrast.h"
#include "tests/support/QtTest.h"
#include "ui/look/DesktopWishes.h"
#include "ui/look/Look.h"
#include "ui/look/Theme.h"

namespace quorvi {
namespace {

using look::Color;

const QString kSource = QStringLiteral(QUORVI_SOURCE_DIR);

QString ReadAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

class LookTest : public QtTest {
  protected:
    void TearDown() override {
        look::SetReadableInks(false);
        look::SetReadableInks(false, look::InkReason::desktop);
        look::SetLessMotion(false);
        look::SetDesktopContrast(false);
        look::SetDesktopDark(false);
    }
};

TEST_F(LookTest, ColoursGivenAsValuesAreDrawnWithThem) {
    EXPECT_EQ(look::color(Color::statedGrey).rgb(), 0xFF828282U);
    EXPECT_EQ(look::color(Color::statedLink).rgb(), 0xFF2882FFU);
    EXPECT_EQ(look::color(Color::statedBlue).rgb(), 0xFF0000FFU);
    EXPECT_EQ(look::color(Color::statedRed).rgb(), 0xFFFF0000U);
    EXPECT_EQ(look::color(Color::statedGreen).rgb(), 0xFF1D9014U);
    EXPECT_EQ(look::color(Color::statedDarkGreen).rgb(), 0xFF008000U);
}

TEST_F(LookTest, ReadableInksReplaceEveryStatedValue) {
    look::SetReadableInks(true);
    EXPECT_EQ(look::color(Color::statedGrey), look::color(Color::ink2));
    EXPECT_EQ(look::color(Color::statedLink), look::color(Color::blue));
    EXPECT_EQ(look::color(Color::statedBlue), look::color(Color::blue));
    EXPECT_EQ(look::color(Color::statedRed), look::color(Color::red));
    EXPECT_EQ(look::color(Color::statedGreen), look::color(Color::green));
    EXPECT_EQ(look::color(Color::statedDarkGreen), look::color(Color::green));
}

TEST_F(LookTest, ReadableInksLeaveAllOtherColoursAlone) {
    std::map<std::string, QRgb> before;
    for (const look::ColorRow& row : look::kColors) {
        before[std::string(row.token)] = look::color(row.color).rgb();
    }
    look::SetReadableInks(true);
    for (const look::ColorRow& row : look::kColors) {
        if (row.readable == row.color) {
            EXPECT_EQ(look::color(row.color).rgb(), before[std::string(row.token)]) << row.token;
        }
    }
}

TEST_F(LookTest, ReadableInksStayWhileAnyoneAsksForThem) {
    look::SetReadableInks(true, look::InkReason::settings);
    look::SetReadableInks(true, look::InkReason::desktop);
    look::SetReadableInks(false, look::InkReason::desktop);
    EXPECT_TRUE(look::ReadableInks());
    look::SetReadableInks(false, look::InkReason::settings);
    EXPECT_FALSE(look::ReadableInks());
}

TEST_F(LookTest, TheDesktopAsksForHighContrast) {
    const QString group = QStringLiteral("org.freedesktop.appearance");
    const QString key = QStringLiteral("contrast");
    // The portal hands the value over in a variant within a variant.
    DesktopWishes::Take(group, key, QVariant::fromValue(QDBusVariant(QVariant::fromValue(1U))));
    EXPECT_TRUE(look::ReadableInks());
    DesktopWishes::Take(group, key, 0U);
    EXPECT_FALSE(look::ReadableInks());
    DesktopWishes::Take(group, QStringLiteral("color-scheme"), 1U);
    EXPECT_FALSE(look::ReadableInks());
}

TEST_F(LookTest, TheDesktopAsksForLessMotion) {
    const QString group = QStringLiteral("org.gnome.desktop.interface");
    DesktopWishes::Take(group, QStringLiteral("enable-animations"), false);
    EXPECT_TRUE(look::LessMotion());
    DesktopWishes::Take(group, QStringLiteral("enable-animations"), true);
    EXPECT_FALSE(look::LessMotion());
}

TEST_F(LookTest, RowColoursAreTheStatedOnes) {
    EXPECT_EQ(look::color(Color::rowBorder).rgb(), 0xFFECC2EDU);
    EXPECT_EQ(look::color(Color::rowLight).rgb(), 0xFFFAF1FAU);
    EXPECT_EQ(look::color(Color::rowHover).rgb(), 0xFFF6E3F6U);
    EXPECT_EQ(look::color(Color::rowSelected).rgb(), 0xFFEECAEFU);
    EXPECT_EQ(look::color(Color::frame).rgb(), 0xFFACA899U);
    EXPECT_EQ(look::color(Color::comboSel).rgb(), 0xFF59B0DBU);
    EXPECT_EQ(look::color(Color::menuGutter).rgb(), 0xFFE7E7E7U);
    EXPECT_EQ(look::color(Color::menuSelLine).rgb(), 0xFF84A6C6U);
    EXPECT_EQ(look::color(Color::menuSel).rgb(), 0xFFCEE7FFU);
    EXPECT_EQ(look::color(Color::flatHot).rgb(), 0xFF359AFFU);
    EXPECT_EQ(look::color(Color::flatPress).rgb(), 0xFFFF9600U);
    EXPECT_EQ(look::color(Color::flatFill).rgb(), 0xFFE1F0FFU);
}

TEST_F(LookTest, InksOfOurChoiceReadOnEveryGround) {
    using enum Color;
    for (const Color text : {ink, ink2, plum7, blue, red, green}) {
        for (const Color ground :
             {surface, page, rowLight, rowHover, rowSelected, chrome1, chrome2}) {
            EXPECT_GE(Contrast(text, ground), kReadable)
                << look::kColors[static_cast<std::size_t>(text)].token << " on "
                << look::kColors[static_cast<std::size_t>(ground)].token;
        }
    }
    for (const Color ground : {plum5, plum6, plum7, red, red5, red7, tip}) {
        EXPECT_GE(Contrast(onAccent, ground), kReadable)
            << look::kColors[static_cast<std::size_t>(ground)].token;
    }
}

// Colours of paint code stand in the table only.
TEST_F(LookTest, NoColourStandsOutsideTheTable) {
    const QRegularExpression literal(
        QStringLiteral("\"#[0-9A-Fa-f]{3,8}\"|#[0-9A-Fa-f]{6}\\b|QColor\\(|qRgba?\\(|"
                       "Qt::(white|black|red|green|blue|gray|darkGray|lightGray|cyan|magenta|"
                       "yellow)\\b"));
    int files = 0;
    for (const char* room : {"ui", "app", "link", "pages", "download", "online"}) {
        QDirIterator each(kSource + QLatin1Char('/') + QLatin1String(room),
                          {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                          QDirIterator::Subdirectories);
        while (each.hasNext()) {
            const QString path = each.next();
            if (path.endsWith(QStringLiteral("/ui/look/Colors.h"))) {
                continue;
            }
            ++files;
            const QStringList lines = ReadAll(path).split(QLatin1Char('\n'));
            for (qsizetype i = 0; i < lines.size(); ++i) {
                EXPECT_FALSE(literal.match(lines[i]).hasMatch())
                    << path.toStdString() << ':' << i + 1 << ": " << lines[i].toStdString();
            }
        }
    }
    EXPECT_GT(files, 0);
}

// Expects the colours that a style sheet declares to be those of the table in a theme, and more of
// them than a few.
void ExpectColorsOfTheTable(const QString& sheet, look::Theme theme) {
    std::map<std::string, QRgb> table;
    for (const look::ColorRow& row : look::kColors) {
        table[std::string(row.token)] = look::color(row.color, theme).rgb();
    }
    const QRegularExpression declaration(QStringLiteral("--([a-z0-9-]+):\\s*#([0-9A-Fa-f]{6})"));
    int found = 0;
    for (auto matches = declaration.globalMatch(sheet); matches.hasNext();) {
        const auto match = matches.next();
        const std::string token = match.captured(1).toStdString();
        ASSERT_TRUE(table.contains(token)) << token;
        EXPECT_EQ(0xFF000000U | match.captured(2).toUInt(nullptr, 16), table[token]) << token;
        ++found;
    }
    EXPECT_GT(found, 10);
}

// The style sheet of the HTML views holds a subset of the table, value for value.
TEST_F(LookTest, StyleSheetOfTheViewsAgreesWithTheTable) {
    ExpectColorsOfTheTable(ReadAll(kSource + QStringLiteral("/res/views/base.css")),
                           look::Theme::light);
}

// The guide's, in the three looks that a browser may wish.
TEST_F(LookTest, StyleSheetOfTheGuideAgreesWithTheTable) {
    const QString guide = ReadAll(kSource + QStringLiteral("/Data/guide.html"));
    const qsizetype dark = guide.indexOf(QStringLiteral("@media (prefers-color-scheme: dark)"));
    const qsizetype contrast = guide.indexOf(QStringLiteral("@media (prefers-contrast: more)"));
    ASSERT_GT(dark, 0);
    ASSERT_GT(contrast, dark);
    ExpectColorsOfTheTable(guide.left(dark), look::Theme::light);
    ExpectColorsOfTheTable(guide.mid(dark, contrast - dark), look::Theme::dark);
    ExpectColorsOfTheTable(guide.mid(contrast), look::Theme::contrast);
}

TEST_F(LookTest, EveryIconRendersAtEveryScale) {
    const QStringList names =
        QDir(kSource + QStringLiteral("/res/icons")).entryList({QStringLiteral("*.svg")});
    ASSERT_GE(names.size(), 177);
    for (const QString& file : names) {
        const QString name = file.chopped(4);
        for (const qreal scale : {1.0, 1.25, 1.5, 2.0}) {
            const QPixmap pixmap = look::icon(name, 24, Color::plum6, scale);
            ASSERT_FALSE(pixmap.isNull()) << name.toStdString();
            EXPECT_EQ(pixmap.width(), qRound(24 * scale)) << name.toStdString();
            const QImage image = pixmap.toImage();
            bool drawn = false;
            for (int y = 0; y < image.height() && !drawn; ++y) {
                for (int x = 0; x < image.width() && !drawn; ++x) {
                    drawn = qAlpha(image.pixel(x, y)) != 0;
                }
            }
            EXPECT_TRUE(drawn) << name.toStdString() << " at " << scale;
        }
    }
}

TEST_F(LookTest, AnIconTakesTheColourAskedFor) {
    const QImage image = look::icon(u"stop", 24, Color::plum6, 1.0).toImage();
    int pure = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            pure += image.pixel(x, y) == look::color(Color::plum6).rgb() ? 1 : 0;
        }
    }
    EXPECT_GT(pure, 0);
}

// Both pictures are of 64 device pixels.
TEST_F(LookTest, AnIconThatIsShownAsAPictureHasAThinnerStroke) {
    const auto ink = [](const QPixmap& pixmap) {
        const QImage image = pixmap.toImage();
        qint64 sum = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                sum += image.pixelColor(x, y).alpha();
            }
        }
        return sum;
    };
    const auto large = ink(look::icon(u"weather-0", 64, Color::plum6, 1));
    const auto usual = ink(look::icon(u"weather-0", 32, Color::plum6, 2));
    EXPECT_GT(large, 0);
    EXPECT_LT(large, usual * 9 / 10);
}

TEST_F(LookTest, AnIconThatIsMissingIsNull) {
    EXPECT_TRUE(look::icon(u"no-such-icon", 24, Color::ink, 1.0).isNull());
}

TEST_F(LookTest, EveryIconOfTheFolderIsInTheResource) {
    const QStringList names =
        QDir(kSource + QStringLiteral("/res/icons")).entryList({QStringLiteral("*.svg")});
    const QString resource = ReadAll(kSource + QStringLiteral("/res/icons.qrc"));
    for (const QString& name : names) {
        EXPECT_TRUE(resource.contains(QStringLiteral(">icons/%1<").arg(name)))
            << name.toStdString();
    }
}

}  // namespace
}  // namespace quorvi
