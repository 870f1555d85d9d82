// quorvictl link where no link comes about; over a phone it is tested end to end.
#include <gtest/gtest.h>

#include <vector>

#include "base/Json.h"
#include "base/Text.h"
#include "tests/support/BuildPlaces.h"
#include "tests/support/RunProgram.h"
#include "tests/support/ToldAdb.h"

namespace quorvi::cli {
namespace {

struct Banner {
    int state;
    std::string text;
    bool operator==(const Banner&) const = default;
};

// One document a line.
std::vector<Banner> Banners(const std::string& output) {
    std::vector<Banner> banners;
    for (const std::string_view line : SplitAt(TrimRight(output), '\n')) {
        const auto document = ParseJson(line);
        if (document && document->isObject()) {
            banners.push_back({(*document)["state"].asInt(), (*document)["text"].asString()});
        }
    }
    return banners;
}

TEST(LinkCommand, NoPhoneEndsInTheErrorStateWithStatusTwo) {
    const ToldAdb adb;
    adb.Print("devices", "List of devices attached\n\n");
    const Ended ended = Out("link --json");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(Banners(ended.output), (std::vector<Banner>{
                                         {0, "连接设备中..."},
                                         {1, "【错误】没有找到Android设备"},
                                     }));
}

TEST(LinkCommand, WithoutAdbItEndsInTheErrorState) {
    const Ended ended =
        RunLine("PATH=/nonexistent " QUORVI_BIN_DIR "/quorvictl link --json 2>/dev/null");
    EXPECT_EQ(ended.status, 2);
    // Kept on purpose: the window shows this text, with its bracket left open, too.
    EXPECT_EQ(Banners(ended.output), (std::vector<Banner>{
                                         {0, "连接设备中..."},
                                         {1, "【组件丢失，请重新安装"},
                                     }));
}

TEST(LinkCommand, OfSeveralPhonesNoneIsChosenUnlessASerialIsGiven) {
    const ToldAdb adb;
    adb.Print("devices", "List of devices attached\nA\tdevice\nB\tdevice\n\n");
    const Ended ended = Out("link --json");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(Banners(ended.output), (std::vector<Banner>{
                                         {0, "连接设备中..."},
                                         {1, "【错误】没有选择任何设备"},
                                     }));
    EXPECT_NE(Err("link --json").output.find("--serial"), std::string::npos);
}

TEST(LinkCommand, ASerialThatIsNotThereIsStatusThree) {
    const ToldAdb adb;
    adb.Print("devices", "List of devices attached\nA\tdevice\nB\tdevice\n\n");
    const Ended ended = Out("link --json --serial C");
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.output, "");
    EXPECT_NE(Err("link --serial C").output.find("C"), std::string::npos);
}

TEST(LinkCommand, AnInstallationBehindWhichNoLinkStandsIsStatusTwo) {
    const ToldAdb adb;
    adb.Print("devices", "List of devices attached\nA\tdevice\n\n");
    adb.Print("-s A install -r " QUORVI_BIN_DIR "/com.quorvi.Quorvi.apk", "Success\n");
    // The phone lists no package, so that each pass installs, and there is but one more.
    const Ended ended = Out("link --json");
    EXPECT_EQ(ended.status, 2);
    const std::vector<Banner> banners = Banners(ended.output);
    ASSERT_FALSE(banners.empty());
    EXPECT_EQ(banners.back().state, 2);
    EXPECT_NE(banners.back().text, "连接成功:)");
}

TEST(LinkCommand, ForPeopleItPrintsTheTextsAlone) {
    const ToldAdb adb;
    adb.Print("devices", "List of devices attached\n\n");
    EXPECT_EQ(Out("link").output, "连接设备中...\n【错误】没有找到Android设备\n");
}

TEST(LinkCommand, ASerialOptionWithoutASerialIsWrongUsage) {
    EXPECT_EQ(Out("link --serial").status, 1);
}

}  // namespace
}  // namespace quorvi::cli
