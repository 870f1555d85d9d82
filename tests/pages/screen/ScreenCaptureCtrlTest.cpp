// The control that shows the picture of the phone's screen.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QPaintEvent>
#include <QRegion>
#include <QSignalSpy>
#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "pages/screen/AccessiblePicture.h"
#include "pages/screen/ScreenCaptureCtrl.h"
#include "tests/pages/screen/FrameServer.h"
#include "tests/support/PrintQt.h"
#include "tests/support/WidgetTest.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;

constexpr QRgb kRed = qRgb(255, 0, 0);
constexpr QRgb kGreen = qRgb(0, 255, 0);
constexpr QRgb kBlue = qRgb(0, 0, 255);

ScreenFrame FrameOfBytes(int width, int height, PixelLayout layout, const Bytes& pixels) {
    auto bytes = std::make_shared<FrameBytes>(static_cast<std::uint32_t>(pixels.size()));
    std::ranges::copy(pixels, bytes->Room().begin());
    bytes->Commit(pixels.size());
    return {.width = width, .height = height, .layout = layout, .bytes = std::move(bytes)};
}

// A red screen whose first pixel, at the top left, is green.
ScreenFrame RedFrame(int width, int height) {
    Bytes pixels;
    for (int i = 0; i < width * height; ++i) {
        const Bytes pixel = i == 0 ? Pixel32(0, 255, 0) : Pixel32(255, 0, 0);
        pixels.insert(pixels.end(), pixel.begin(), pixel.end());
    }
    return FrameOfBytes(width, height, PixelLayout::bgrx32, pixels);
}

class ScreenCaptureControl : public WidgetTest {
  protected:
    void SetUp() override {
        control_.resize(512, 462);
        control_.SetReady();
    }
    void Show(int width, int height, Rotation rotation = Rotation::none) {
        control_.Show(PictureOf(RedFrame(width, height), rotation));
    }
    QImage Painted() {
        QImage image(control_.size(), QImage::Format_RGB32);
        control_.render(&image);
        return image;
    }
    [[nodiscard]] QRgb PaintedAt(const QPoint& at) { return Painted().pixel(at); }
    [[nodiscard]] static QRgb Ground() { return look::color(Color::fieldOff).rgb(); }

    ScreenCaptureCtrl control_;
};

// ---- its size ----------------------------------------------------------------------------------

TEST_F(ScreenCaptureControl, BeforeThePageIsReadyItShows210Wide) {
    ScreenCaptureCtrl early;
    EXPECT_EQ(early.Size(), (ShowSize{210, 310}));
    early.Show(PictureOf(RedFrame(48, 80), Rotation::none));
    EXPECT_EQ(early.Size(), (ShowSize{210, 350}));
}

TEST_F(ScreenCaptureControl, OnceThePageIsReadyItShows300Wide) {
    Show(48, 80);
    EXPECT_EQ(control_.Size(), (ShowSize{300, 500}));
    Show(7, 10);
    EXPECT_EQ(control_.Size(), (ShowSize{300, 428}));  // 428.57, cut off
}

TEST_F(ScreenCaptureControl, QuarterTurnsShow500By300) {
    Show(48, 80, Rotation::right90);
    EXPECT_EQ(control_.Size(), (ShowSize{500, 300}));
    Show(48, 80, Rotation::left90);
    EXPECT_EQ(control_.Size(), (ShowSize{500, 300}));
    Show(48, 80, Rotation::half);
    EXPECT_EQ(control_.Size(), (ShowSize{300, 500}));
}

TEST_F(ScreenCaptureControl, RemembersTheRotationBefore) {
    Show(4, 8, Rotation::right90);
    EXPECT_EQ(control_.ShownRotation(), Rotation::right90);
    EXPECT_EQ(control_.PreviousRotation(), Rotation::none);
    Show(4, 8, Rotation::half);
    EXPECT_EQ(control_.ShownRotation(), Rotation::half);
    EXPECT_EQ(control_.PreviousRotation(), Rotation::right90);
    Show(4, 8, Rotation::half);
    EXPECT_EQ(control_.PreviousRotation(), Rotation::half);
}

struct NotedSize : ScreenCaptureCtrl::Observer {
    explicit NotedSize(ScreenCaptureCtrl& of) : control(of) {}
    void OnScreenSize(int width, int height) override {
        sizes.emplace_back(width, height);
        picturesThen.push_back(control.Picture() ? control.Picture()->frame.width : 0);
    }
    ScreenCaptureCtrl& control;
    std::vector<QSize> sizes;
    std::vector<int> picturesThen;  // width of the picture on show when it was told
};

TEST_F(ScreenCaptureControl, TellsTheSizeOfTheScreenBeforeThePictureIsReplaced) {
    NotedSize noted(control_);
    control_.SetObserver(&noted);
    Show(48, 80, Rotation::right90);
    Show(6, 9);
    control_.SetObserver(nullptr);
    EXPECT_EQ(noted.sizes, (std::vector{QSize(48, 80), QSize(6, 9)}));  // before any turn
    EXPECT_EQ(noted.picturesThen, (std::vector{0, 48}));
}

// ---- the picture -------------------------------------------------------------------------------

TEST_F(ScreenCaptureControl, EveryLayoutHasItsColours) {
    const std::tuple<PixelLayout, Bytes, QRgb> layouts[] = {
        // blue, green, red, one that says nothing
        {PixelLayout::bgrx32, Bytes{std::byte{10}, std::byte{20}, std::byte{30}, std::byte{0}},
         qRgb(30, 20, 10)},
        // blue, green, red
        {PixelLayout::bgr24, Bytes{std::byte{10}, std::byte{20}, std::byte{30}}, qRgb(30, 20, 10)},
        // red 31, green 0, blue 31
        {PixelLayout::rgb565, Bytes{std::byte{0x1F}, std::byte{0xF8}}, qRgb(255, 0, 255)},
    };
    for (const auto& [layout, pixel, colour] : layouts) {
        control_.Show(PictureOf(FrameOfBytes(1, 1, layout, pixel), Rotation::none));
        EXPECT_EQ(PaintedAt(control_.PictureRect().center()), colour)
            << BytesPerPixel(layout) << " bytes a pixel";
    }
}

TEST_F(ScreenCaptureControl, AnOddNumberOfNarrowPixelsInALineIsNoGap) {
    // Two lines of three pixels of two bytes: red; then red, green, red.
    const std::byte redLow{0x00}, redHigh{0xF8}, greenLow{0xE0}, greenHigh{0x07};
    const Bytes pixels{redLow, redHigh, redLow,   redHigh,   redLow, redHigh,
                       redLow, redHigh, greenLow, greenHigh, redLow, redHigh};
    const ScreenPicture picture =
        PictureOf(FrameOfBytes(3, 2, PixelLayout::rgb565, pixels), Rotation::none);
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 3; ++x) {
            EXPECT_EQ(picture.image.pixel(x, y), x == 1 && y == 1 ? kGreen : kRed) << x << y;
        }
    }
}

TEST_F(ScreenCaptureControl, EachRotationTurnsThePicture) {
    const std::tuple<Rotation, QSize, QPoint> turns[] = {
        {Rotation::none, {2, 3}, {0, 0}},
        {Rotation::right90, {3, 2}, {2, 0}},
        {Rotation::left90, {3, 2}, {0, 1}},
        {Rotation::half, {2, 3}, {1, 2}},
    };
    for (const auto& [rotation, size, first] : turns) {
        const ScreenPicture picture = PictureOf(RedFrame(2, 3), rotation);
        EXPECT_EQ(picture.image.size(), size);
        EXPECT_EQ(picture.image.pixel(first), kGreen) << static_cast<int>(rotation);
        EXPECT_EQ(picture.frame.width, 2);
    }
}

TEST_F(ScreenCaptureControl, APictureThatIsNotTurnedLiesOverTheFramesOwnBytes) {
    ScreenFrame frame = RedFrame(2, 3);
    const std::weak_ptr<const FrameBytes> bytes = frame.bytes;
    const auto* const data = frame.bytes->Bytes().data();
    QImage image;
    {
        const ScreenPicture picture = PictureOf(std::move(frame), Rotation::none);
        image = picture.image;
        EXPECT_EQ(static_cast<const void*>(image.constBits()), data);
    }
    EXPECT_FALSE(bytes.expired());  // the copy needs them
    EXPECT_EQ(image.pixel(1, 2), kRed);
    image = {};
    EXPECT_TRUE(bytes.expired());
}

// The reduced picture of these tests is blue, so that one sees which of the two was painted.
TEST_F(ScreenCaptureControl, TheReducedPictureIsPaintedWhereItIsLargeEnough) {
    const auto blue = [](int width, int height) {
        return ReducedFrame{
            .width = width,
            .height = height,
            .pixels = std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), kBlue)};
    };
    Show(480, 800);
    const QRect place = control_.PictureRect();
    control_.Show(
        PictureOf(RedFrame(480, 800), Rotation::none, blue(place.width(), place.height())));
    EXPECT_EQ(PaintedAt(place.center()), kBlue);
    control_.Show(
        PictureOf(RedFrame(480, 800), Rotation::none, blue(place.width() - 1, place.height())));
    EXPECT_EQ(PaintedAt(place.center()), kRed);
}

TEST_F(ScreenCaptureControl, TheReducedPictureIsTurnedToo) {
    const ReducedFrame reduced{.width = 2, .height = 1, .pixels = {kBlue, kRed}};
    const ScreenPicture picture = PictureOf(RedFrame(4, 2), Rotation::right90, reduced);
    EXPECT_EQ(picture.reduced.size(), QSize(1, 2));
    EXPECT_EQ(picture.reduced.pixel(0, 0), kBlue);
    EXPECT_EQ(picture.reduced.pixel(0, 1), kRed);
}

TEST_F(ScreenCaptureControl, TheRoomOfAPictureIsTheGroundWithoutItsPadding) {
    const PaintRoom room = control_.RoomFor(Rotation::none);
    EXPECT_EQ(room.width, 512 - 2 * Metric::screenPadding);
    EXPECT_EQ(room.height, 462 - 2 * Metric::screenPadding);
    const PaintRoom turned = control_.RoomFor(Rotation::left90);
    EXPECT_EQ(turned.width, room.height);
    EXPECT_EQ(turned.height, room.width);
}

TEST_F(ScreenCaptureControl, APictureThatIsReplacedIsLetGo) {
    ScreenFrame frame = RedFrame(2, 3);
    const std::weak_ptr<const FrameBytes> bytes = frame.bytes;
    control_.Show(PictureOf(std::move(frame), Rotation::none));
    EXPECT_FALSE(bytes.expired());
    Show(4, 4);
    EXPECT_TRUE(bytes.expired());
}

// ---- painting ----------------------------------------------------------------------------------

TEST_F(ScreenCaptureControl, ThePictureStandsInTheMiddleAndIsScaledDownToFit) {
    Show(48, 80);
    const QRect place = control_.PictureRect();
    EXPECT_EQ(place.height(), 462 - 2 * Metric::screenPadding);
    EXPECT_EQ(place.width(), 300 * place.height() / 500);
    EXPECT_LE(std::abs(place.center().x() - control_.rect().center().x()), 1);
    EXPECT_LE(std::abs(place.center().y() - control_.rect().center().y()), 1);
    EXPECT_EQ(PaintedAt(place.center()), kRed);
    EXPECT_EQ(PaintedAt({Metric::screenPadding, 231}), Ground());
}

TEST_F(ScreenCaptureControl, ThePictureIsNeverScaledUp) {
    control_.resize(1200, 1000);
    Show(48, 80);
    EXPECT_EQ(control_.PictureRect().size(), QSize(300, 500));
}

TEST_F(ScreenCaptureControl, ALineOfOnePixelGoesAroundThePicture) {
    Show(48, 80);
    const QRgb line = look::color(Color::frame).rgb();
    EXPECT_EQ(line, qRgb(0xAC, 0xA8, 0x99));
    const QImage painted = Painted();
    const QRect place = control_.PictureRect();
    const QPoint middle = place.center();
    const std::tuple<QPoint, QPoint> edges[] = {
        // a pixel of the picture's edge, and the way out
        {{place.left(), middle.y()}, {-1, 0}},
        {{place.right(), middle.y()}, {1, 0}},
        {{middle.x(), place.top()}, {0, -1}},
        {{middle.x(), place.bottom()}, {0, 1}},
    };
    for (const auto& [edge, out] : edges) {
        EXPECT_EQ(painted.pixel(edge), kRed);
        EXPECT_EQ(painted.pixel(edge + out), line);
        EXPECT_EQ(painted.pixel(edge + 2 * out), Ground());
    }
}

TEST_F(ScreenCaptureControl, NothingIsLeftOfAPictureThatStoodTheOtherWay) {
    Show(48, 80);
    const QRect upright = control_.PictureRect();
    static_cast<void>(Painted());
    Show(48, 80, Rotation::right90);
    const QPoint above(upright.center().x(), upright.top() + 2);
    ASSERT_FALSE(control_.PictureRect().contains(above));
    EXPECT_EQ(PaintedAt(above), Ground());
}

TEST_F(ScreenCaptureControl, AScreenOfOnePixelInALineIsDrawn) {
    Show(1, 5000);
    EXPECT_EQ(control_.Size(), (ShowSize{300, 1'500'000}));
    EXPECT_GE(control_.PictureRect().width(), 1);
    EXPECT_EQ(PaintedAt(control_.PictureRect().center()), kRed);
    Show(5000, 1);
    EXPECT_EQ(control_.Size(), (ShowSize{300, 0}));
    EXPECT_EQ(PaintedAt(control_.PictureRect().center()), kRed);
}

TEST_F(ScreenCaptureControl, FollowsTheSpaceThatItHas) {
    Show(48, 80);
    static_cast<void>(Painted());
    control_.resize(300, 200);
    const QRect place = control_.PictureRect();
    EXPECT_EQ(place.height(), 200 - 2 * Metric::screenPadding);
    EXPECT_EQ(PaintedAt(place.center()), kRed);
    EXPECT_EQ(PaintedAt({place.right() + 3, place.center().y()}), Ground());
}

// ---- its states --------------------------------------------------------------------------------

// How many pixels of a line across the control are of the accent.
int Accents(const QImage& image, int y) {
    int count = 0;
    for (int x = 0; x < image.width(); ++x) {
        count += image.pixel(x, y) == look::color(Color::plum6).rgb();
    }
    return count;
}

TEST_F(ScreenCaptureControl, WhileItLoadsABarRunsAboveWhatIsThere) {
    look::SetLessMotion(true);  // the bar stands still
    for (const bool withPicture : {false, true}) {
        if (withPicture) {
            Show(48, 80);
        }
        control_.SetState(ListState::idle);
        EXPECT_EQ(Accents(Painted(), 0), 0);
        control_.SetState(ListState::loading);
        EXPECT_EQ(control_.State(), ListState::loading);
        EXPECT_TRUE(WaitFor([&] { return Accents(Painted(), 0) > 50; }));
    }
    EXPECT_EQ(PaintedAt(control_.PictureRect().center()), kRed);
    look::SetLessMotion(false);
}

// Where a widget is painted.
class PaintedPlaces : public QObject {
  public:
    explicit PaintedPlaces(QWidget& widget) { widget.installEventFilter(this); }
    [[nodiscard]] QRect Take() { return std::exchange(places_, {}).boundingRect(); }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            places_ += static_cast<const QPaintEvent*>(event)->region();
        }
        return false;
    }

  private:
    QRegion places_;
};

TEST_F(ScreenCaptureControl, ACaptureThatDoesNotLastPaintsThePictureAlone) {
    PaintedPlaces places(control_);
    control_.show();
    Show(48, 80);
    ASSERT_TRUE(WaitFor([&] { return places.Take() == control_.rect(); }));
    QCoreApplication::processEvents();
    static_cast<void>(places.Take());
    control_.SetState(ListState::loading);
    EXPECT_EQ(control_.State(), ListState::loading);
    Show(48, 80);
    control_.SetState(ListState::idle);
    QRect painted;
    ASSERT_TRUE(WaitFor([&] {
        painted |= places.Take();
        return !painted.isEmpty();
    }));
    EXPECT_EQ(painted, control_.PictureRect().adjusted(-1, -1, 1, 1));
    EXPECT_EQ(control_.State(), ListState::idle);
}

TEST_F(ScreenCaptureControl, WithoutAPictureItSaysSoAndThatItFailed) {
    const QImage empty = Painted();
    control_.SetFailedText(QStringLiteral("x"));
    control_.SetState(ListState::failed);
    const QImage failed = Painted();
    EXPECT_NE(empty, failed);
    control_.SetFailedText(QStringLiteral("y"));
    EXPECT_NE(Painted(), failed);
    Show(48, 80);
    EXPECT_EQ(PaintedAt(control_.PictureRect().center()), kRed);  // though the state is failed
}

TEST_F(ScreenCaptureControl, ItsAccessibleNameTellsTheSizeOfThePicture) {
    EXPECT_EQ(control_.accessibleName(), ToQString(u8"手机屏幕截图，还没有"));
    control_.SetState(ListState::failed);
    EXPECT_EQ(control_.accessibleName(), ToQString(u8"手机屏幕截图，没有截到"));
    Show(48, 80);
    EXPECT_EQ(control_.accessibleName(), ToQString(u8"手机屏幕截图，宽 48 像素，高 80 像素"));
    Show(48, 80, Rotation::right90);
    EXPECT_EQ(control_.accessibleName(), ToQString(u8"手机屏幕截图，宽 80 像素，高 48 像素"));
}

TEST_F(ScreenCaptureControl, AnAssistiveToolFindsAPictureThatItCanCopy) {
    QAccessibleInterface* picture = QAccessible::queryAccessibleInterface(&control_);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->role(), QAccessible::Graphic);
    QAccessibleActionInterface& actions = *picture->actionInterface();
    EXPECT_FALSE(actions.actionNames().contains(CopyPictureAction()));
    Show(4, 8);
    EXPECT_EQ(picture->text(QAccessible::Name), control_.accessibleName());
    ASSERT_TRUE(actions.actionNames().contains(CopyPictureAction()));
    QApplication::clipboard()->clear();
    actions.doAction(CopyPictureAction());
    EXPECT_EQ(QApplication::clipboard()->image().size(), QSize(4, 8));
}

// ---- auto refresh ------------------------------------------------------------------------------

TEST_F(ScreenCaptureControl, AutoRefreshAsksForTheNextPictureTurnedAsThisOne) {
    QSignalSpy due(&control_, &ScreenCaptureCtrl::refreshDue);
    control_.SetAutoRefresh(true);
    Show(4, 8, Rotation::left90);
    EXPECT_EQ(due.count(), 0);
    ASSERT_TRUE(WaitFor([&] { return due.count() == 1; }));
    EXPECT_EQ(due.at(0).at(0).value<Rotation>(), Rotation::left90);
    // Once for each picture: what would come too often comes before the next one's.
    Show(4, 8, Rotation::half);
    ASSERT_TRUE(WaitFor([&] { return due.count() >= 2; }));
    EXPECT_EQ(due.count(), 2);
    EXPECT_EQ(due.at(1).at(0).value<Rotation>(), Rotation::half);
}

TEST_F(ScreenCaptureControl, WithoutAutoRefreshNothingIsAskedFor) {
    ScreenCaptureCtrl other;
    QSignalSpy due(&control_, &ScreenCaptureCtrl::refreshDue);
    QSignalSpy otherDue(&other, &ScreenCaptureCtrl::refreshDue);
    Show(4, 8);
    other.SetAutoRefresh(true);
    other.Show(PictureOf(RedFrame(4, 8), Rotation::none));
    ASSERT_TRUE(WaitFor([&] { return otherDue.count() == 1; }));  // the time is over
    EXPECT_EQ(due.count(), 0);
}

// ---- copied, dragged ---------------------------------------------------------------------------

TEST_F(ScreenCaptureControl, ItIsCopiedAsItIsTurned) {
    QApplication::clipboard()->setText(QStringLiteral("before"));
    control_.Copy();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("before"));  // there is none
    Show(4, 8, Rotation::right90);
    control_.Copy();
    const QImage copied = QApplication::clipboard()->image();
    EXPECT_EQ(copied.size(), QSize(8, 4));
    EXPECT_EQ(copied.pixel(7, 0), kGreen);
    EXPECT_EQ(copied.pixel(0, 0), kRed);
}

TEST_F(ScreenCaptureControl, TheMouseDragsThePictureAndNothingBesideIt) {
    QSignalSpy dragged(&control_, &ScreenCaptureCtrl::dragged);
    const int far = QApplication::startDragDistance();
    const auto drag = [&](const QPoint& from, int by) {
        QTest::mousePress(&control_, Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, QPointF(from + QPoint(by, 0)),
                         QPointF(control_.mapToGlobal(from + QPoint(by, 0))), Qt::LeftButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&control_, &move);
        QTest::mouseRelease(&control_, Qt::LeftButton, {}, from + QPoint(by, 0));
    };
    drag(control_.rect().center(), far);
    EXPECT_EQ(dragged.count(), 0);  // there is none
    Show(48, 80);
    drag({2, 2}, far);
    EXPECT_EQ(dragged.count(), 0);
    drag(control_.PictureRect().center(), far - 1);
    EXPECT_EQ(dragged.count(), 0);
    drag(control_.PictureRect().center(), far);
    EXPECT_EQ(dragged.count(), 1);
}

TEST_F(ScreenCaptureControl, WhatFollowsTheMouseIsAThirdOfWhatIsShown) {
    Show(48, 80);
    static_cast<void>(Painted());
    EXPECT_EQ(control_.DragPixmap().height(), control_.PictureRect().height() / 3);
}

}  // namespace
}  // namespace quorvi
