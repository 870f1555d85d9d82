// Image files out of records, good and bad.
#include <gtest/gtest.h>

#include <QImageReader>
#include <QPainter>
#include <array>

#include "tests/support/PictureFiles.h"
#include "tests/support/QtTest.h"
#include "ui/list/DecodePicture.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

constexpr int kSide = 48;
constexpr QRgb kColour = 0xFF123456;

QImage Photo(const std::string& file) {
    return DecodePicture(file, kSide, true, 8);
}

class PictureTest : public QtTest {
  protected:
    static QString Format(const std::string& file) {
        QByteArray bytes = QByteArray::fromStdString(file);
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        return QString::fromLatin1(QImageReader::imageFormat(&buffer));
    }
};

// What is written little end first.
std::string Little(std::size_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text += static_cast<char>(value >> (8 * i));
    }
    return text;
}

TEST_F(PictureTest, EveryFormatOfPixelsIsRead) {
    for (const char* format :
         {"bmp", "ico", "jpeg", "pbm", "pgm", "png", "ppm", "tiff", "wbmp", "webp", "xbm", "xpm"}) {
        const std::string file = PictureFile(format, 100, 80, 0xFFFFFFFF);
        ASSERT_FALSE(file.empty()) << format;
        EXPECT_EQ(Photo(file).pixel(24, 24), 0xFFFFFFFFU) << format;
    }
}

TEST_F(PictureTest, ADrawingIsNoPicture) {
    EXPECT_TRUE(Photo("<svg xmlns='http://www.w3.org/2000/svg' width='48' height='48'>"
                      "<rect width='48' height='48' fill='black'/></svg>")
                    .isNull());
}

TEST_F(PictureTest, OfAnAnimatedGifTheFirstFrameIsShown) {
    const std::string_view frame("\x2C\0\0\0\0\1\0\1\0\0\2\2", 12);
    const std::string file = std::string("GIF89a\1\0\1\0\x80\0\0", 13) +
                             "\x12\x34\x56\xFF\xFF\xFF" +                       // two colours
                             std::string(frame) + std::string("\x44\1\0", 3) +  // the first
                             std::string(frame) + std::string("\x4C\1\0", 3) +  // the second
                             "\x3B";
    ASSERT_EQ(Format(file), QStringLiteral("gif"));
    EXPECT_EQ(Photo(file).pixel(24, 24), kColour);
}

TEST_F(PictureTest, OfAnAnimatedWebpTheFirstFrameIsShown) {
    constexpr int kLossless = 100;
    const auto chunk = [](std::string_view name, const std::string& body) {
        return std::string(name) + Little(body.size(), 4) + body +
               std::string(body.size() % 2, '\0');
    };
    const auto frame = [&](QRgb colour) {
        // Behind the file's own header stands the frame's chunk.
        const std::string still = PictureFile("webp", 8, 8, colour, kLossless).substr(12);
        return chunk("ANMF", std::string(6, '\0') + Little(7, 3) + Little(7, 3) + Little(100, 3) +
                                 std::string(1, '\0') + still);
    };
    const std::string body = "WEBP" + chunk("VP8X", Little(2, 4) + Little(7, 3) + Little(7, 3)) +
                             chunk("ANIM", std::string(6, '\0')) + frame(kColour) +
                             frame(0xFFFFFFFF);
    const std::string file = "RIFF" + Little(body.size(), 4) + body;
    ASSERT_EQ(Format(file), QStringLiteral("webp"));
    EXPECT_EQ(Photo(file).pixel(24, 24), kColour);
}

TEST_F(PictureTest, AFileIsReadUpToItsCapacity) {
    std::string file = Png(96, 96, kColour);
    file.resize(262'244);
    EXPECT_EQ(Photo(file).pixel(24, 24), kColour);
    file.resize(262'245);
    EXPECT_TRUE(Photo(file).isNull());
}

TEST_F(PictureTest, AHeaderBeyondTheLongestSideIsNotBelieved) {
    constexpr int kMost = kMostPictureSide;
    EXPECT_EQ(Photo(Png(kMost, 2, kColour)).pixel(24, 24), kColour);
    EXPECT_EQ(Photo(Png(2, kMost, kColour)).pixel(24, 24), kColour);
    // Whole files, that could be decoded.
    EXPECT_TRUE(Photo(Png(kMost + 1, 2, kColour)).isNull());
    EXPECT_TRUE(Photo(Png(2, kMost + 1, kColour)).isNull());
    EXPECT_TRUE(Photo(PngClaiming(60'000)).isNull());
    EXPECT_TRUE(Photo(PngClaiming(0x7FFFFFFF)).isNull());
}

TEST_F(PictureTest, AJpegOfManyScansIsNotWorkedThrough) {
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(kColour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(true);
    ASSERT_TRUE(writer.write(image));
    const std::string jpeg = bytes.toStdString();
    const std::size_t last = jpeg.rfind("\xFF\xDA");
    const std::string scan = jpeg.substr(last, jpeg.size() - 2 - last);
    const auto withScans = [&](int more) {
        std::string file = jpeg.substr(0, last);
        for (int i = 0; i <= more; ++i) {
            file += scan;
        }
        return file + "\xFF\xD9";
    };
    EXPECT_FALSE(Photo(withScans(0)).isNull());
    EXPECT_FALSE(Photo(withScans(50)).isNull());
    EXPECT_TRUE(Photo(withScans(200)).isNull());
}

TEST_F(PictureTest, ALongPhotoIsCroppedAndNotStretched) {
    QImage image(200, 100, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.fillRect(0, 0, 50, 100, look::color(look::Color::red));
    painter.fillRect(50, 0, 100, 100, look::color(look::Color::green));
    painter.fillRect(150, 0, 50, 100, look::color(look::Color::red));
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    const QImage shown = Photo(bytes.toStdString());
    EXPECT_EQ(shown.pixelColor(2, 24), look::color(look::Color::green));
    EXPECT_EQ(shown.pixelColor(45, 24), look::color(look::Color::green));
    EXPECT_EQ(qAlpha(shown.pixel(0, 0)), 0);  // the corner is round
}

TEST_F(PictureTest, AnIconIsFittedInAndKeepsItsCorners) {
    const QImage shown = DecodePicture(Png(64, 32, kColour), kSide, false, 0);
    EXPECT_EQ(shown.pixel(0, 24), kColour);
    EXPECT_EQ(shown.pixel(47, 24), kColour);
    EXPECT_EQ(qAlpha(shown.pixel(24, 2)), 0);
    EXPECT_EQ(qAlpha(shown.pixel(24, 45)), 0);
}

TEST_F(PictureTest, APhotoStandsUprightHoweverTheCameraWasHeld) {
    QImage image(64, 64, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.fillRect(0, 0, 64, 32, QColorConstants::Red);
    painter.fillRect(0, 32, 64, 32, QColorConstants::Green);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "jpeg");
    // Behind the start of the file: its upper edge belongs at the right.
    const std::string orientation(
        "\xFF\xE1\0\x22"                // a segment of 34 bytes
        "Exif\0\0"                      //
        "MM\0\x2A\0\0\0\x08"            // most significant byte first
        "\0\1"                          // one entry
        "\x01\x12\0\3\0\0\0\1\0\6\0\0"  // orientation: 6
        "\0\0\0\0",                     // no more
        36);
    const QImage shown = Photo(bytes.toStdString().insert(2, orientation));
    const QColor left = shown.pixelColor(4, 24);
    const QColor right = shown.pixelColor(43, 24);
    EXPECT_GT(left.green(), left.red());
    EXPECT_GT(right.red(), right.green());
}

}  // namespace
}  // namespace quorvi
