// Saved pictures, read back by another program: ImageMagick.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <array>
#include <cmath>
#include <csignal>
#include <fstream>
#include <random>

#include "base/Deployment.h"
#include "base/Text.h"
#include "base/os/SmallFile.h"
#include "pages/screen/ModelProperty.h"
#include "pages/screen/PictureEncoders.h"
#include "pages/screen/PictureFile.h"
#include "tests/pages/screen/Frames.h"
#include "tests/support/RunProgram.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

constexpr int kWidth = 24;
constexpr int kHeight = 16;

// A square of a colour in each corner.
ScreenFrame Corners() {
    std::vector<int> values;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const bool right = x >= kWidth / 2;
            const bool low = y >= kHeight / 2;
            values.insert(values.end(), {right ? 200 : 0, low ? 200 : 0, 100, 0});
        }
    }
    return FrameOf(kWidth, kHeight, PixelLayout::bgrx32, values);
}

ScreenFrame Noise() {
    std::mt19937 random(5);
    std::vector<int> values(std::size_t{64} * 64 * 4);
    for (int& value : values) {
        value = static_cast<int>(random() % 256);
    }
    return FrameOf(64, 64, PixelLayout::bgrx32, values);
}

class PictureFile : public testing::Test {
  protected:
    [[nodiscard]] std::filesystem::path File(std::string_view name) const {
        return folder_.Path() / name;
    }
    // What ImageMagick says of a file.
    [[nodiscard]] std::string Identify(std::string_view name, const std::string& format) const {
        return cli::RunLine("identify -format '" + format + "' " + File(name).native()).output;
    }
    // The colours of its pixels: red, green, blue, line by line.
    [[nodiscard]] std::string Colours(std::string_view name) const {
        return cli::RunLine("convert " + File(name).native() + " -depth 8 rgb:-").output;
    }
    [[nodiscard]] std::ptrdiff_t Files() const {
        return std::distance(std::filesystem::directory_iterator(folder_.Path()), {});
    }

    TemporaryFolder folder_;
};

std::string ColoursOf(const ScreenFrame& frame, Rotation rotation) {
    const RgbPicture picture = TurnedPicture(frame, rotation);
    return {picture.bytes.begin(), picture.bytes.end()};
}

TEST_F(PictureFile, PngBmpAndGifKeepEachPixel) {
    for (const SaveFormat format : {SaveFormat::png, SaveFormat::bmp, SaveFormat::gif}) {
        const std::string name = "a." + std::string(RowOf(format).extension);
        ASSERT_TRUE(SavePicture(Corners(), Rotation::none, File(name), format, 90).saved);
        EXPECT_EQ(Identify(name, "%w %h"), "24 16");
        EXPECT_TRUE(Identify(name, "%m")
                        .starts_with(std::array{"JPEG", "GIF", "PNG", "BMP"}.at(
                            static_cast<std::size_t>(format))));
        EXPECT_TRUE(Colours(name) == ColoursOf(Corners(), Rotation::none)) << name;
    }
}

TEST_F(PictureFile, JpegIsClose) {
    ASSERT_TRUE(SavePicture(Corners(), Rotation::none, File("a.jpg"), SaveFormat::jpg, 100).saved);
    EXPECT_EQ(Identify("a.jpg", "%m %w %h"), "JPEG 24 16");
    const std::string is = Colours("a.jpg");
    const std::string was = ColoursOf(Corners(), Rotation::none);
    ASSERT_EQ(is.size(), was.size());
    for (std::size_t i = 0; i < is.size(); ++i) {
        ASSERT_LE(std::abs(static_cast<unsigned char>(is[i]) - static_cast<unsigned char>(was[i])),
                  4)
            << i;
    }
}

TEST_F(PictureFile, TurnedPictureIsSavedTurned) {
    ASSERT_TRUE(
        SavePicture(Corners(), Rotation::right90, File("a.png"), SaveFormat::png, 90).saved);
    EXPECT_EQ(Identify("a.png", "%w %h"), "16 24");
    EXPECT_TRUE(Colours("a.png") == ColoursOf(Corners(), Rotation::right90));
}

TEST_F(PictureFile, LinesOfABmpAreFilledUpToWholeWords) {
    const ScreenFrame frame = FrameOf(1, 2, PixelLayout::bgr24, {10, 20, 30, 40, 50, 60});
    ASSERT_TRUE(SavePicture(frame, Rotation::none, File("a.bmp"), SaveFormat::bmp, 90).saved);
    EXPECT_EQ(std::filesystem::file_size(File("a.bmp")), 54U + 2 * 4);
    EXPECT_TRUE(Colours("a.bmp") == ColoursOf(frame, Rotation::none));
}

TEST_F(PictureFile, JpegHonoursTheQuality) {
    for (const int quality : {50, 90, 100}) {
        ASSERT_TRUE(
            SavePicture(Noise(), Rotation::none, File("a.jpg"), SaveFormat::jpg, quality).saved);
        EXPECT_EQ(Identify("a.jpg", "%Q"), std::to_string(quality));
    }
}

TEST_F(PictureFile, QualityIsTakenForEachFormatAndChangesNoOther) {
    for (const SaveFormat format : {SaveFormat::png, SaveFormat::bmp, SaveFormat::gif}) {
        ASSERT_TRUE(SavePicture(Noise(), Rotation::none, File("a"), format, 50).saved);
        ASSERT_TRUE(SavePicture(Noise(), Rotation::none, File("b"), format, 100).saved);
        EXPECT_EQ(ReadSmallFile(File("a")), ReadSmallFile(File("b")));
    }
}

TEST_F(PictureFile, GifOfManyColoursHasTwoHundredAndFiftySixAtMost) {
    ASSERT_TRUE(SavePicture(Noise(), Rotation::none, File("a.gif"), SaveFormat::gif, 90).saved);
    const int colours = ToInt(Identify("a.gif", "%k"));
    EXPECT_LE(colours, 256);
    EXPECT_GT(colours, 32);
}

TEST_F(PictureFile, JpegNamesTheSiteAsTheCamerasModel) {
    ASSERT_TRUE(SavePicture(Corners(), Rotation::none, File("a.jpg"), SaveFormat::jpg, 90).saved);
    EXPECT_EQ(Identify("a.jpg", "%[EXIF:Model]"), SiteName(TheDeployment()));
}

// By its bytes, since ImageMagick does not look into this chunk.
TEST_F(PictureFile, PngNamesTheSiteAsTheCamerasModel) {
    ASSERT_TRUE(SavePicture(Corners(), Rotation::none, File("a.png"), SaveFormat::png, 90).saved);
    const std::string block = ModelProperty(SiteName(TheDeployment())).value_or("").substr(6);
    const std::string length{'\0', '\0', '\0', static_cast<char>(block.size())};
    EXPECT_NE(ReadSmallFile(File("a.png")).value_or("").find(length + "eXIf" + block),
              std::string::npos);
}

TEST_F(PictureFile, FileThatIsThereIsReplacedWhole) {
    std::ofstream(File("a.bmp")) << std::string(100'000, 'x');
    ASSERT_TRUE(SavePicture(Corners(), Rotation::none, File("a.bmp"), SaveFormat::bmp, 90).saved);
    EXPECT_EQ(std::filesystem::file_size(File("a.bmp")), 54U + kWidth * kHeight * 3);
    EXPECT_EQ(Files(), 1);
}

TEST_F(PictureFile, FolderThatIsNotThereIsSaidAndNotMade) {
    const SaveResult result =
        SavePicture(Corners(), Rotation::none, File("none") / "a.png", SaveFormat::png, 90);
    EXPECT_FALSE(result.saved);
    EXPECT_EQ(result.reason, Ansi(u8"文件夹不存在"));
    EXPECT_EQ(Files(), 0);
}

TEST_F(PictureFile, FolderOfTheFilesNameIsSaid) {
    std::filesystem::create_directory(File("a.png"));
    const SaveResult result =
        SavePicture(Corners(), Rotation::none, File("a.png"), SaveFormat::png, 90);
    EXPECT_FALSE(result.saved);
    EXPECT_EQ(result.reason, Ansi(u8"已经有同名的文件夹"));
    EXPECT_EQ(Files(), 1);
}

TEST_F(PictureFile, NameThatIsTooLongIsSaid) {
    const SaveResult result = SavePicture(
        Corners(), Rotation::none, File(std::string(300, 'a') + ".png"), SaveFormat::png, 90);
    EXPECT_EQ(result.reason, Ansi(u8"文件名太长"));
}

TEST_F(PictureFile, DiskThatIsFullLeavesTheFileThatWasThere) {
    std::ofstream(File("a.bmp")) << "old";
    // The process may write no more than this into a file, as if the disk ended there.
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto ignored = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit little{.rlim_cur = 100, .rlim_max = before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &little), 0);
    const SaveResult result =
        SavePicture(Corners(), Rotation::none, File("a.bmp"), SaveFormat::bmp, 90);
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, ignored);
    EXPECT_FALSE(result.saved);
    EXPECT_EQ(result.reason, Ansi(u8"文件太大，磁盘放不下"));
    EXPECT_EQ(ReadSmallFile(File("a.bmp")), "old");
    EXPECT_EQ(Files(), 1);
}

TEST(ModelProperty, IsTheHostOfTheSite) {
    Deployment deployment;
    EXPECT_EQ(SiteName(deployment), "www.quorvi.example");
    deployment.siteRoot = "https://quorvi.example:8080/a/";
    EXPECT_EQ(SiteName(deployment), "quorvi.example");
}

TEST(ModelProperty, IsOneEntryOfEighteenBytes) {
    const std::string block = ModelProperty("www.quorvi.example").value_or("");
    const std::string expected(
        "Exif\0\0"    // the mark
        "II\x2A\0"    // little-endian
        "\x08\0\0\0"  // where the first directory stands
        "\x01\0"      // its entries
        "\x10\x01"    // 272
        "\x02\0"      // ASCII
        "\x12\0\0\0"  // of 18 bytes
        "\x1A\0\0\0"  // that stand behind the directory
        "\0\0\0\0"    // no other directory
        "www.quorvi.example",
        50);
    EXPECT_EQ(block.substr(0, expected.size()), expected);
}

TEST(ModelProperty, ShorterNameIsFilledUpAndLongerOneIsCut) {
    const std::string shorter = ModelProperty("q.example").value_or("");
    EXPECT_NE(shorter.find(std::string("q.example\0\0\0\0\0\0\0\0\0", 18)), std::string::npos);
    const std::string longer = ModelProperty("www.quorvi.example.org").value_or("");
    EXPECT_NE(longer.find("www.quorvi.example"), std::string::npos);
    EXPECT_EQ(longer.find("www.quorvi.example."), std::string::npos);
}

}  // namespace
}  // namespace quorvi
