// Light, dark and high contrast: their tables, who chooses between them, and what follows a change.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDBusVariant>
#include <QFile>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <algorithm>
#include <map>
#include <vector>

#include "tests/support/BuildPlaces.h"
#include "tests/support/Contrast.h"
#include "tests/support/QtTest.h"
#include "ui/kit/FoundText.h"
#include "ui/kit/SkinDialog.h"
#include "ui/kit/SkinLabels.h"
#include "ui/look/DesktopWishes.h"
#include "ui/look/Look.h"
#include "ui/look/Theme.h"

namespace quorvi {
namespace {

using look::Color;
using look::Theme;
using enum look::Color;

using Colors = std::vector<Color>;

class ThemeTest : public QtTest {
  protected:
    void TearDown() override {
        look::ChooseTheme(std::nullopt);
        look::SetDesktopDark(false);
        look::SetDesktopContrast(false);
        look::SetReadableInks(false);
        look::SetReadableInks(false, look::InkReason::desktop);
    }
};

// ---- the tables --------------------------------------------------------------------------------

std::string NameOf(Color color) {
    return std::string(look::kColors[static_cast<std::size_t>(color)].token);
}

// Inks and the grounds on which the program writes or draws with them.
struct Pairs {
    Colors inks;
    Colors grounds;
};

const Colors kCells{surface, page, rowLight, rowHover, rowSelected};

// All that is text.
const std::vector<Pairs> kTexts{
    // lists, panels, dialogs
    {{ink, ink2, plum7, blue, red, green}, kCells},
    {{ink, ink2, plum7, red}, {dialog, chrome1, chrome2, field, menu}},
    {{plum8}, {chrome1}},
    {{plum5}, {surface, page, dialog}},
    // grounds of their own
    {{onAccent}, {plum5, plum6, plum7, red, red5, red7, tip}},
    {{red}, {redSoft}},
    {{plum7}, {plumTint}},
    {{ink}, {menuSel, comboSel, flatFill, groove, bar1, bar2, redSoft}},
    {{sentInk, sentNote}, {sent}},
};

// The values that the features give, which light draws to the letter unless its readable inks are
// asked for.
const std::vector<Pairs> kStatedTexts{
    {{statedBlue, statedRed, statedGreen, statedDarkGreen, statedLink, statedGrey}, kCells},
};

// Icons, marks and the outlines by which a control is seen.
const std::vector<Pairs> kMarks{
    {{plum6}, kCells},
    {{ink3}, {surface, page, rowLight}},
    {{plum6, ink3, fieldLine}, {dialog, field}},
    {{ring}, {surface, page, dialog, rowLight, rowHover, rowSelected, chrome1, chrome2}},
    {{redMark, greenMark, blueMark}, {page, surface, dialog, chrome2}},
    {{amber}, {dialog, surface}},
};

// A tick of a row that is hovered or selected: in light the tick's own ground sets it off.
const std::vector<Pairs> kTicksOfRows{{{ink3}, kCells}};

double ContrastIn(Theme theme, Color a, Color b) {
    return ContrastOf(look::color(a, theme), look::color(b, theme));
}

void ExpectContrast(Theme theme, const std::vector<Pairs>& all, double least) {
    for (const Pairs& pairs : all) {
        for (const Color text : pairs.inks) {
            for (const Color ground : pairs.grounds) {
                EXPECT_GE(ContrastIn(theme, text, ground), least)
                    << NameOf(text) << " on " << NameOf(ground);
            }
        }
    }
}

constexpr double kSeen = 3.0;
constexpr double kReadableAtOnce = 7.0;

TEST_F(ThemeTest, TextsOfTheLightThemeAreReadable) {
    ExpectContrast(Theme::light, kTexts, kReadable);
    ExpectContrast(Theme::light, kMarks, kSeen);
}

TEST_F(ThemeTest, ReadableInksOfEachThemeAreReadable) {
    for (const look::ColorRow& row : look::kColors) {
        if (row.readable != row.color) {
            for (const Color ground : kCells) {
                EXPECT_GE(ContrastIn(Theme::light, row.readable, ground), kReadable) << row.token;
                EXPECT_GE(ContrastIn(Theme::dark, row.readable, ground), kReadable) << row.token;
                EXPECT_GE(ContrastIn(Theme::contrast, row.readable, ground), kReadableAtOnce)
                    << row.token;
            }
        }
    }
}

TEST_F(ThemeTest, TextsOfTheDarkThemeAreReadable) {
    ExpectContrast(Theme::dark, kTexts, kReadable);
    ExpectContrast(Theme::dark, kStatedTexts, kReadable);
    ExpectContrast(Theme::dark, kMarks, kSeen);
    ExpectContrast(Theme::dark, kTicksOfRows, kSeen);
}

TEST_F(ThemeTest, TextsOfHighContrastAreReadAtOnce) {
    ExpectContrast(Theme::contrast, kTexts, kReadableAtOnce);
    ExpectContrast(Theme::contrast, kStatedTexts, kReadableAtOnce);
    ExpectContrast(Theme::contrast, kMarks, kSeen);
    ExpectContrast(Theme::contrast, kTicksOfRows, kSeen);
}

TEST_F(ThemeTest, OfTheDarkGroundsTheHigherIsTheLighter) {
    const Colors fromLow{page, field, surface, dialog, chrome2, menu, chrome1};
    for (std::size_t i = 1; i < fromLow.size(); ++i) {
        EXPECT_LT(Luminance(look::color(fromLow[i - 1], Theme::dark).rgb()),
                  Luminance(look::color(fromLow[i], Theme::dark).rgb()))
            << NameOf(fromLow[i]);
    }
}

// What a shared token says in light is taken apart in the other themes only.
TEST_F(ThemeTest, InLightWhatIsTakenApartIsDrawnAsItsSharedToken) {
    struct Shared {
        Color apart;
        Color token;
        int percent;
    };
    const std::vector<Shared> all{
        {ring, plum6, 100},      {menu, surface, 100},     {dialog, page, 100},
        {sent, plum6, 100},      {sentInk, onAccent, 100}, {sentNote, rowHover, 100},
        {scrim, ink, 28},        {shadow, plum8, 16},      {knobShadow, ink, 20},
        {windowEdge, plum8, 18}, {tabPlate, plum6, 8}};
    for (const Shared& row : all) {
        EXPECT_EQ(look::color(row.apart), look::color(row.token, row.percent)) << NameOf(row.apart);
    }
}

TEST_F(ThemeTest, VeilsAndShadowsGoWithTheTheme) {
    look::SetTheme(Theme::contrast);
    EXPECT_EQ(look::color(shadow).alpha(), 0);
    EXPECT_EQ(look::color(windowEdge).alpha(), 255);
    look::SetTheme(Theme::dark);
    EXPECT_EQ(look::color(scrim).alpha(), qRound(255 * 0.56));
}

// Each value of the sheet is that of the table, and none of the first sheet's colours is forgotten.
TEST_F(ThemeTest, TheSheetOfTheOtherThemesAgreesWithTheTable) {
    const auto read = [](const char* name) {
        QFile file(QStringLiteral(QUORVI_SOURCE_DIR "/res/views/") + QLatin1String(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    };
    const QRegularExpression declaration(
        QStringLiteral("--([a-z0-9-]+):\\s*(?:#([0-9A-Fa-f]{6})|transparent);"));
    std::map<std::string, Color> table;
    for (const look::ColorRow& row : look::kColors) {
        table[std::string(row.token)] = row.color;
    }
    const QString sheet = read("dark.css");
    for (const auto& [theme, name] :
         {std::pair{Theme::dark, "dark"}, std::pair{Theme::contrast, "contrast"}}) {
        const QRegularExpression block(
            QStringLiteral("data-look=\"%1\"\\] \\{([^}]*)\\}").arg(QLatin1String(name)));
        const QString body = block.match(sheet).captured(1);
        std::map<std::string, QColor> found;
        for (auto all = declaration.globalMatch(body); all.hasNext();) {
            const auto match = all.next();
            const std::string token = match.captured(1).toStdString();
            ASSERT_TRUE(table.contains(token)) << token;
            const QColor value = look::color(table[token], theme);
            if (match.captured(2).isEmpty()) {
                EXPECT_EQ(value.alpha(), 0) << token;
            } else {
                EXPECT_EQ(value.rgb(), 0xFF000000U | match.captured(2).toUInt(nullptr, 16))
                    << name << ' ' << token;
            }
            found[token] = value;
        }
        for (auto all = declaration.globalMatch(read("base.css")); all.hasNext();) {
            const std::string token = all.next().captured(1).toStdString();
            EXPECT_TRUE(found.contains(token)) << name << ' ' << token;
        }
    }
}

TEST_F(ThemeTest, EachTemplateWithTheSheetHasThatOfTheOtherThemesBehindIt) {
    const QString folder = QStringLiteral(QUORVI_SOURCE_DIR "/res/views/");
    for (const char* name :
         {"dashboard", "conversations", "conversation", "contact", "unreachable"}) {
        QFile file(folder + QLatin1String(name) + QStringLiteral(".html"));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        const QByteArray text = file.readAll();
        EXPECT_GT(text.indexOf("href=\"dark.css\""), text.indexOf("href=\"base.css\"")) << name;
        EXPECT_GT(text.indexOf("href=\"base.css\""), 0) << name;
    }
}

// ---- pictures ----------------------------------------------------------------------------------

// The pixels of this colour in a picture.
int Count(const QPixmap& picture, QRgb rgb) {
    const QImage image = picture.toImage();
    int found = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            found += image.pixel(x, y) == rgb ? 1 : 0;
        }
    }
    return found;
}

QPixmap PictureOf(QStringView name) {
    return look::picture(name, {200, 140}, 1.0);
}

TEST_F(ThemeTest, PicturesOfManyColoursAreDrawnForTheTheme) {
    constexpr QRgb kPaperInLight = 0xFFFFFFFF;
    constexpr QRgb kPaperInDark = 0xFF332938;
    EXPECT_GT(Count(PictureOf(u"empty-list"), kPaperInLight), 0);
    look::SetTheme(Theme::dark);
    EXPECT_EQ(Count(PictureOf(u"empty-list"), kPaperInLight), 0);
    EXPECT_GT(Count(PictureOf(u"empty-list"), kPaperInDark), 0);
    look::SetTheme(Theme::light);
    EXPECT_GT(Count(PictureOf(u"empty-list"), kPaperInLight), 0);
}

TEST_F(ThemeTest, APhonesBodyHasItsOwnValues) {
    constexpr QRgb kBodyInDark = 0xFF5B4E63;
    look::SetTheme(Theme::dark);
    EXPECT_GT(Count(PictureOf(u"phone-b"), kBodyInDark), 0);
}

TEST_F(ThemeTest, TheLogoLooksAlikeInEachTheme) {
    const QImage light = PictureOf(u"logo").toImage();
    look::SetTheme(Theme::dark);
    EXPECT_EQ(PictureOf(u"logo").toImage(), light);
}

// ---- who chooses -------------------------------------------------------------------------------

TEST_F(ThemeTest, TheDesktopsWishForDarkIsFollowed) {
    const QString group = QStringLiteral("org.freedesktop.appearance");
    const QString key = QStringLiteral("color-scheme");
    DesktopWishes::Take(group, key, QVariant::fromValue(QDBusVariant(QVariant::fromValue(1U))));
    EXPECT_EQ(look::CurrentTheme(), Theme::dark);
    DesktopWishes::Take(group, key, 2U);
    EXPECT_EQ(look::CurrentTheme(), Theme::light);
    DesktopWishes::Take(group, key, 0U);
    EXPECT_EQ(look::CurrentTheme(), Theme::light);
}

TEST_F(ThemeTest, TheDesktopsWishForContrastGoesBeforeThatForDark) {
    const QString group = QStringLiteral("org.freedesktop.appearance");
    DesktopWishes::Take(group, QStringLiteral("color-scheme"), 1U);
    DesktopWishes::Take(group, QStringLiteral("contrast"), 1U);
    EXPECT_EQ(look::CurrentTheme(), Theme::contrast);
    DesktopWishes::Take(group, QStringLiteral("contrast"), 0U);
    EXPECT_EQ(look::CurrentTheme(), Theme::dark);
}

TEST_F(ThemeTest, AChosenThemeGoesBeforeTheDesktopsWish) {
    look::SetDesktopDark(true);
    look::ChooseTheme(Theme::light);
    EXPECT_EQ(look::CurrentTheme(), Theme::light);
    look::SetDesktopContrast(true);
    EXPECT_EQ(look::CurrentTheme(), Theme::light);
    look::ChooseTheme(std::nullopt);
    EXPECT_EQ(look::CurrentTheme(), Theme::contrast);
}

// ---- what follows ------------------------------------------------------------------------------

TEST_F(ThemeTest, TheApplicationsPaletteFollows) {
    look::SetTheme(Theme::dark);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), look::color(page, Theme::dark));
    look::SetTheme(Theme::light);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), look::color(page, Theme::light));
}

TEST_F(ThemeTest, AWidgetWithAColourOfItsOwnFollows) {
    PlainLabel label(QStringLiteral("text"), look::Size::s12, ink2);
    look::SetTheme(Theme::dark);
    EXPECT_EQ(label.palette().color(QPalette::WindowText), look::color(ink2, Theme::dark));
    EXPECT_EQ(label.palette().color(QPalette::Window), look::color(page, Theme::dark));
    look::SetTheme(Theme::light);
    EXPECT_EQ(label.palette().color(QPalette::WindowText), look::color(ink2, Theme::light));
}

TEST_F(ThemeTest, AnOpenDialogIsDrawnAnew) {
    SkinDialog dialog(1, QStringLiteral("title"), nullptr);
    dialog.SetInnerSize({200, 160});
    dialog.show();
    const QPoint inTheBody(100, 120);
    EXPECT_EQ(dialog.grab().toImage().pixelColor(inTheBody).rgb(),
              look::color(Color::dialog, Theme::light).rgb());
    look::SetTheme(Theme::dark);
    EXPECT_EQ(dialog.grab().toImage().pixelColor(inTheBody).rgb(),
              look::color(Color::dialog, Theme::dark).rgb());
}

// The longest run of dots of one row that "iiii" leaves on the surface.
int LongestRunOfFoundText() {
    QImage image(80, 30, QImage::Format_ARGB32);
    image.fill(look::color(surface));
    QPainter painter(&image);
    painter.setPen(look::color(ink));
    DrawFoundText(painter, image.rect(), QStringLiteral("iiii"), look::font(look::Size::s16),
                  Qt::AlignLeft, {0, 4}, true);
    int longest = 0;
    for (int y = 0; y < image.height(); ++y) {
        int run = 0;
        for (int x = 0; x < image.width(); ++x) {
            run = image.pixelColor(x, y) == look::color(surface) ? 0 : run + 1;
            longest = std::max(longest, run);
        }
    }
    return longest;
}

// The inks of links and of text are nearly the same there.
TEST_F(ThemeTest, FoundTextIsUnderlinedInHighContrast) {
    const int width =
        QFontMetrics(look::font(look::Size::s16)).horizontalAdvance(QStringLiteral("iiii"));
    look::SetTheme(Theme::contrast);
    EXPECT_GE(LongestRunOfFoundText(), width);
    for (const Theme other : {Theme::light, Theme::dark}) {
        look::SetTheme(other);
        EXPECT_LT(LongestRunOfFoundText(), width / 2);
    }
}

// A widget that is gone is told of nothing.
TEST_F(ThemeTest, AWidgetThatIsGoneDoesNotFollow) {
    int told = 0;
    {
        QObject gone;
        QObject::connect(&look::TheThemeNotice(), &look::ThemeNotice::changed, &gone,
                         [&told] { ++told; });
        PlainLabel label(QStringLiteral("text"), look::Size::s12, ink2);
    }
    look::SetTheme(Theme::dark);
    EXPECT_EQ(told, 0);
}

}  // namespace
}  // namespace quorvi
