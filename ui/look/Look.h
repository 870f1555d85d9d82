// The look of the suite: the one table of colours (ui/look/Colors.h), the one table of measures,
// the type scale, the icons, and the few strokes from which every control is painted. No colour and
// no measure stands in a paint routine outside these two headers.
//
// Everything here belongs to the window's thread. Lengths are logical pixels at scale 1.
#pragma once

#include <QFont>
#include <QPalette>
#include <QPixmap>
#include <QRectF>
#include <QString>
#include <array>
#include <cstddef>
#include <cstdint>

#include "ui/look/Colors.h"

class QPainter;

namespace quorvi::look {

// ---- measures ----------------------------------------------------------------------------------

struct Metric {
    // grid and corners
    static constexpr int gap1 = 4;
    static constexpr int gap2 = 8;
    static constexpr int gap3 = 12;
    static constexpr int gap4 = 16;
    static constexpr int gap5 = 20;
    static constexpr int hairline = 1;
    static constexpr int radius = 4;
    static constexpr int radiusSmall = 2;
    static constexpr int radiusTick = 3;
    static constexpr int radiusPanel = 8;
    static constexpr int radiusGroup = 10;
    // focus
    static constexpr int ringGap = 2;
    static constexpr int ringWidth = 2;
    // icons
    static constexpr int iconField = 16;
    static constexpr int iconButton = 18;
    static constexpr int iconTab = 20;
    static constexpr int iconNav = 24;
    static constexpr int iconMessage = 36;
    // buttons
    static constexpr int buttonHeight = 32;
    static constexpr int buttonMinWidth = 80;
    static constexpr int buttonPadding = 16;
    static constexpr int buttonIconGap = 6;
    static constexpr int commandWidth = 124;
    static constexpr int commandGap = 8;
    static constexpr int flatHeight = 30;
    static constexpr int flatPadding = 10;
    static constexpr int smallHeight = 28;
    static constexpr int smallPadding = 12;
    static constexpr int smallMinWidth = 64;
    // check, radio, toggle
    static constexpr int tick = 16;
    static constexpr int tickInRow = 13;
    static constexpr int tickGap = 8;
    static constexpr int hitHeight = 28;
    static constexpr int radioDotInset = 5;
    static constexpr int toggleWidth = 40;
    static constexpr int toggleHeight = 20;
    static constexpr int toggleCellWidth = 70;
    static constexpr int toggleText = 48;
    static constexpr int toggleMinWidth = 92;
    static constexpr int knob = 14;
    static constexpr int knobPressed = 17;
    static constexpr int knobInset = 3;
    // fields
    static constexpr int fieldHeight = 30;
    static constexpr int fieldPadding = 10;
    static constexpr int fieldAreaPadding = 5;
    static constexpr int fieldFocusLine = 2;
    static constexpr int comboArrowInset = 7;
    static constexpr int comboArrowSpace = 28;
    static constexpr int dropRow = 28;
    static constexpr int dropPadding = 4;
    static constexpr int searchWidth = 208;
    static constexpr int searchIconGap = 6;
    // window
    static constexpr int windowWidth = 960;
    static constexpr int windowHeight = 640;
    static constexpr int windowLeastWidth = 800;
    static constexpr int windowLeastHeight = 480;
    static constexpr int resizeEdge = 4;
    static constexpr int resizeCorner = 10;
    static constexpr int captionHeight = 50;
    static constexpr int captionLogo = 28;
    static constexpr int captionTitleX = 54;
    static constexpr int windowButtonWidth = 44;
    static constexpr int windowButtonHeight = 50;
    static constexpr int tabsHeight = 40;
    static constexpr int tabWidth = 120;
    static constexpr int tabsX = 8;
    static constexpr int tabBar = 3;
    static constexpr int tabBarInset = 16;
    static constexpr int tabIconGap = 8;
    static constexpr int tabPlateInset = 4;
    static constexpr int navWidth = 176;
    static constexpr int navItemWidth = 160;
    static constexpr int navItemHeight = 44;
    static constexpr int navPitch = 48;
    static constexpr int navTop = 10;
    static constexpr int navInset = 8;
    static constexpr int navIconX = 16;  // from the item's edge
    static constexpr int navTextX = 52;  // from the item's edge
    static constexpr int navBarWidth = 3;
    static constexpr int navBarHeight = 20;
    static constexpr int badge = 18;
    static constexpr int badgePadding = 5;
    static constexpr int badgeRight = 10;
    static constexpr int pageX = 188;
    static constexpr int pageWidth = 760;
    static constexpr int pageLeastWidth = 690;  // a list whose names give way
    static constexpr int contactList = 452;
    static constexpr int contactDetail = 300;
    static constexpr int commandsY = 100;
    static constexpr int contentY = 142;
    static constexpr int contentHeight = 462;
    static constexpr int statusHeight = 28;
    static constexpr int statusInset = 16;
    static constexpr int pageInset = 12;
    static constexpr int contentBottom = 8;
    // state label, banner
    static constexpr int dot = 8;
    static constexpr int dotGap = 6;
    static constexpr int stateHeight = 18;
    // group box, progress, panels
    static constexpr int groupCaption = 32;
    static constexpr int groupPadding = 16;
    static constexpr int groupFoot = 12;
    static constexpr int groupHead = 28;  // of a part of a group
    static constexpr int factGap = 48;    // between a value with its caption and the next one
    static constexpr int progressHeight = 18;
    // menu
    static constexpr int menuGutter = 32;
    static constexpr int menuItem = 30;
    static constexpr int menuImageCell = 24;
    static constexpr int menuImage = 20;
    static constexpr int menuImageX = 6;
    static constexpr int menuTextX = 44;
    static constexpr int menuPadding = 3;
    static constexpr int menuTextRight = 20;
    static constexpr int menuMinWidth = 168;
    static constexpr int menuSeparator = 7;
    // lists
    static constexpr int header = 30;
    static constexpr int findBar = 36;
    static constexpr int findField = 26;
    static constexpr int headerRuleInset = 8;
    static constexpr int rowTall = 60;
    static constexpr int rowCompact = 30;
    static constexpr int cellPadding = 8;
    static constexpr int cellLine = 20;
    static constexpr int rowPicture = 48;
    static constexpr int rowPictureInset = 6;
    static constexpr int rowPlate = 40;
    static constexpr int rowIcon = 18;
    static constexpr int rowIconLarge = 32;
    static constexpr int rowIconGap = 8;
    static constexpr int rowCaption = 88;  // what a captioned cell's value stands behind
    static constexpr int rowBar = 3;
    static constexpr int starCell = 18;
    static constexpr int ratingWidth = 120;
    static constexpr int ratingHeight = 24;
    static constexpr int linkPadding = 6;
    static constexpr int imageLinkInsetX = 14;
    static constexpr int imageLinkInsetY = 20;
    static constexpr int progressInset = 8;
    // scroll bar
    static constexpr int scrollGutter = 12;
    static constexpr int scrollThumb = 6;
    static constexpr int scrollInset = 3;
    static constexpr int scrollMinThumb = 24;
    // tree
    static constexpr int treeRow = 28;
    static constexpr int treeIndent = 22;
    static constexpr int treePadding = 4;
    static constexpr int treeCellPadding = 6;
    static constexpr int chevron = 16;
    // empty, loading, failed
    static constexpr int voidPictureWidth = 200;
    static constexpr int voidPictureHeight = 140;
    static constexpr int voidGap = 8;
    static constexpr int voidTitleLine = 22;
    static constexpr int voidLine = 20;
    static constexpr int loadBar = 2;
    static constexpr int loadBarPercent = 45;  // of the list's width
    static constexpr int loadBarFrom = 30;     // where its light is full, in percent
    static constexpr int loadBarTo = 60;
    static constexpr int loadBarRest = 50;
    static constexpr int loadRows = 4;
    static constexpr int skeletonLine = 10;
    static constexpr int skeletonRadius = 4;
    // tool tip
    static constexpr int tipPaddingX = 10;
    static constexpr int tipPaddingY = 4;
    // dialogs
    static constexpr int dialogCaption = 40;
    static constexpr int dialogPadding = 16;
    static constexpr int formPadding = 20;
    static constexpr int dialogFooter = 56;
    static constexpr int formCaption = 64;
    static constexpr int formGap = 10;
    static constexpr int deviceWidth = 632;
    static constexpr int deviceHeight = 388;
    static constexpr int deviceCombo = 180;
    static constexpr int editorWidth = 720;
    static constexpr int editorHeight = 404;
    static constexpr int editorCombo = 96;
    static constexpr int editorLeftField = 175;
    static constexpr int editorRightField = 237;
    static constexpr int questionWidth = 400;
    static constexpr int questionHeight = 196;
    static constexpr int questionPadding = 24;
    static constexpr int questionLine = 22;
    static constexpr int questionQuote = 76;
    static constexpr int groupsWidth = 632;
    static constexpr int groupsHeight = 420;
    static constexpr int groupEditWidth = 400;
    static constexpr int groupEditHeight = 158;
    static constexpr int alarmEditWidth = 560;
    static constexpr int alarmEditHeight = 326;
    static constexpr int alarmCombo = 80;
    static constexpr int bookmarkEditWidth = 480;
    static constexpr int bookmarkEditHeight = 392;
    static constexpr int bookmarkStore = 180;
    static constexpr int composerWidth = 760;
    static constexpr int composerHeight = 540;
    static constexpr int composerTree = 216;
    static constexpr int composerText = 72;
    static constexpr int recipientGap = 6;  // between a field and what is said of it
    static constexpr int chipHeight = 22;
    static constexpr int chipPadding = 8;
    static constexpr int chipIcon = 14;
    static constexpr int chipIconInset = 5;
    static constexpr int chipGap = 6;
    static constexpr int chipLineGap = 4;
    // announced feature, balloon inside the window, picture of the welcome tab
    static constexpr int placeholderWidth = 320;
    static constexpr int placeholderHeight = 220;
    static constexpr int headlineLine = 28;
    static constexpr int textLine = 20;
    static constexpr int balloonWidth = 312;
    static constexpr int balloonMaxWidth = 420;
    static constexpr int balloonPaddingY = 14;
    static constexpr int waveHeight = 120;
    // calendar
    static constexpr int calendarYearWidth = 92;
    static constexpr int calendarDayWidth = 76;
    static constexpr int calendarNumberLine = 24;
    static constexpr int calendarNoteLine = 18;
    static constexpr int calendarChosenLine = 2;  // of white, inside the chosen day's hairline
    static constexpr int calendarTodayInset = 6;
    static constexpr int calendarPanel = 64;
    static constexpr int calendarPanelRule = 28;
    // phone parameters
    static constexpr int specsPlatform = 196;
    static constexpr int specsMaker = 160;
    static constexpr int specsModel = 220;
    static constexpr int specsIcon = 44;
    static constexpr int specsCaption = 120;
    static constexpr int specsValue = 560;
    // versions
    static constexpr int newsPanel = 112;
    static constexpr int newsFactGap = 92;
    static constexpr int newsCheck = 124;
    static constexpr int newsHead = 38;
    static constexpr int newsHeadFoot = 6;
    static constexpr int newsIcon = 44;
    static constexpr int newsKind = 120;
    static constexpr int newsText = 560;
    // help and feedback
    static constexpr int helpLinks = 224;
    static constexpr int helpLink = 56;
    static constexpr int helpLinkText = 156;
    static constexpr int helpCaption = 112;
    static constexpr int helpSend = 110;
    // weather
    static constexpr int weatherToday = 240;
    static constexpr int weatherIcon = 64;
    static constexpr int forecastHeight = 212;
    static constexpr int forecastDay = 150;
    static constexpr int forecastDate = 140;
    static constexpr int forecastWeather = 160;
    static constexpr int forecastTemperature = 130;
    static constexpr int forecastWind = 140;
    static constexpr int cityWidth = 360;
    static constexpr int cityHeight = 206;
    // downloads
    static constexpr int taskTree = 176;
    static constexpr int duplicateWidth = 480;
    static constexpr int duplicateHeight = 264;
    static constexpr int duplicateFact = 24;
    static constexpr int downloadSettingsWidth = 480;
    static constexpr int downloadSettingsHeight = 256;
    // phone settings
    static constexpr int settingsGroup = 190;
    static constexpr int settingsRow = 44;
    static constexpr int settingsRows = 3;  // of a group
    static constexpr int settingsColumnGap = 56;
    static constexpr int settingsSound = 412;  // beside each other, and what is left in that ratio
    static constexpr int settingsDate = 336;
    static constexpr int settingsList = 180;
    static constexpr int settingsDateList = 164;
    // backup and restore
    static constexpr int backupPane = 342;
    static constexpr int backupPaneGap = 24;
    static constexpr int backupCaption = 44;
    static constexpr int backupKind = 26;  // the line of a kind
    static constexpr int deletedTime = 150;
    static constexpr int deletedKind = 96;
    static constexpr int deletedWhat = 276;
    static constexpr int deletedLeft = 80;
    static constexpr int deletedAction = 92;
    static constexpr int deletedRows = 4;  // in view
    static constexpr int planWidth = 680;
    static constexpr int planHeight = 500;
    static constexpr int planCounter = 52;
    static constexpr int planCounterInset = 14;
    static constexpr int planCounterGap = 9;
    static constexpr int planResult = 96;
    static constexpr int planKind = 96;
    static constexpr int planName = 140;
    static constexpr int planWhy = 280;
    static constexpr int planProgress = 420;
    // appearance
    static constexpr int themePictureWidth = 72;
    static constexpr int themePictureHeight = 48;
    static constexpr int textSizeCombo = 112;
    // screen capture
    static constexpr int screenGround = 512;
    static constexpr int screenPadding = 24;   // of the ground, around the picture
    static constexpr int screenOptions = 236;  // wide
    static constexpr int screenDragPart = 3;   // the part of its size in which a picture is dragged
    // shadows
    static constexpr int shadowMenuBlur = 16;
    static constexpr int shadowMenuDrop = 4;
    // motion, in milliseconds
    static constexpr int motionHover = 120;
    static constexpr int motionSwitch = 160;
    static constexpr int motionFade = 120;
    static constexpr int motionLoadBar = 1200;
};

// ---- type --------------------------------------------------------------------------------------

// The type scale, by height in pixels.
enum class Size : std::uint8_t {
    s11 = 11,  // badge, progress text
    s12 = 12,  // list cells, headers, status, tree, tool tips: the kit's nine-point size
    s13 = 13,  // buttons, fields, navigation, first lines of rows, menus
    s14 = 14,  // tabs, titles, the question of a dialog
    s16 = 16,  // page heading, contact name
    s18 = 18,  // day numbers, phone model
    s20 = 20,  // placeholder headline
};

[[nodiscard]] QFont font(Size size, bool bold = false);

// ---- pictures ----------------------------------------------------------------------------------

// The icon ":/icons/<name>.svg", `px` logical pixels square, in one colour, rendered at px times
// `dpr` and cached. A null pixmap when there is no such icon.
[[nodiscard]] QPixmap icon(QStringView name, int px, Color color, qreal dpr);
// The same in a plain colour value.
[[nodiscard]] QPixmap icon(QStringView name, int px, const QColor& color, qreal dpr);
// A many-coloured picture of the same folder, at `size` logical pixels, in the values of the theme.
[[nodiscard]] QPixmap picture(QStringView name, QSize size, qreal dpr);
// Draws a pixmap made for the painter's scale, centred in `rect`, on whole device pixels.
void drawCentred(QPainter& painter, const QRectF& rect, const QPixmap& pixmap);
// Draws icon `name` centred in `rect` at the painter's scale.
void drawIcon(QPainter& painter, const QRectF& rect, QStringView name, int px, const QColor& color);

// ---- strokes -----------------------------------------------------------------------------------

// The scale of the device behind a painter.
[[nodiscard]] qreal scaleOf(const QPainter& painter);
// Logical width of a hairline: round(scale) device pixels.
[[nodiscard]] qreal hairline(const QPainter& painter);
// `rect` with its edges moved to the nearest edges of device pixels.
[[nodiscard]] QRectF snapped(const QPainter& painter, const QRectF& rect);
// A filled plate with round corners and an outline of `lineWidth` logical pixels inside `rect`
// (1: a hairline). Edges lie on device pixels.
void plate(QPainter& painter, const QRectF& rect, qreal radius, const QColor& fill,
           const QColor& line, int lineWidth = Metric::hairline);
// A rectangle of one colour, its edges on device pixels.
void fill(QPainter& painter, const QRectF& rect, const QColor& color);
// Hairlines along one edge of `rect`, inside it.
void topLine(QPainter& painter, const QRectF& rect, const QColor& color);
void bottomLine(QPainter& painter, const QRectF& rect, const QColor& color);
void leftLine(QPainter& painter, const QRectF& rect, const QColor& color);
// The focus ring inside `rect`, 2 pixels.
void innerRing(QPainter& painter, const QRectF& rect, qreal radius = 0);
// The focus ring outside `rect`: 2 pixels of the surface's colour, then 2 of the ring's own.
void outerRing(QPainter& painter, const QRectF& rect, qreal radius);

// ---- buttons -----------------------------------------------------------------------------------

enum class ButtonKind : std::uint8_t {
    plain,        // and command: white with an outline
    primary,      // the affirmative
    erase,        // deletes something
    flat,         // flat image button
    link,         // text alone
    window,       // minimise, maximise
    windowClose,  // close
    count,
};

// What a button looks like at the moment. `stage` is the state of the press machine.
struct ButtonState {
    enum class Stage : std::uint8_t { normal, hover, pressed };
    Stage stage = Stage::normal;
    bool enabled = true;
    bool focused = false;  // with a ring of its own, where the kind has one inside
};

// The colours in which a button's text and icon go on its ground.
struct ButtonInk {
    QColor text;
    QColor icon;
    bool underline = false;
};

// Paints a button's ground in `rect` and says what to write on it with.
ButtonInk paintButton(QPainter& painter, const QRectF& rect, ButtonKind kind, ButtonState state);

enum class Tick : std::uint8_t { off, on, mixed };
// A tick box that fills `rect`.
void paintTick(QPainter& painter, const QRectF& rect, Tick tick, ButtonState state);
// A radio mark that fills `rect`.
void paintRadio(QPainter& painter, const QRectF& rect, bool on, ButtonState state);
// A switch that fills `rect`; `position` goes from 0 (off) to 1 (on).
void paintToggle(QPainter& painter, const QRectF& rect, bool on, qreal position, ButtonState state);
// The frame of a field or combo.
void paintField(QPainter& painter, const QRectF& rect, ButtonState state, bool bad = false);
// A progress bar with its text, "38 %".
void paintProgress(QPainter& painter, const QRectF& rect, int percent);

// ---- the application ---------------------------------------------------------------------------

// The colours of stock parts that the kit does not paint itself.
[[nodiscard]] QPalette palette();
// Whether the desktop asks for less motion: then nothing moves by itself.
[[nodiscard]] bool LessMotion();
void SetLessMotion(bool on);

}  // namespace quorvi::look
