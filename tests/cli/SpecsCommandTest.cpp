// The phone parameters on the command line, from the file as it is delivered.
#include <gtest/gtest.h>

#include <fstream>

#include "base/Json.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "tests/support/BuildPlaces.h"
#include "tests/support/LoopbackPort.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi::cli {
namespace {

class SpecsCommand : public testing::Test {
  protected:
    using Function = Status (*)(const Arguments&, const Context&, Output&);
    Status Run(Function command, std::vector<std::string> operands) {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        Output output(true);
        const Status status = command({.operands = std::move(operands), .options = {}},
                                      {.agent = UnusedPort(), .attribution = {}}, output);
        said_ = ParseJson(testing::internal::GetCapturedStdout()).value_or(Json::Value());
        messages_ = testing::internal::GetCapturedStderr();
        return status;
    }
    // Of a file with this text.
    Status Check(std::string_view text) {
        const std::string file = folder_.Path() / "mine.xml";
        std::ofstream(file, std::ios::binary) << text;
        return Run(&RunSpecsCheck, {file});
    }

    TemporaryFolder folder_;
    Json::Value said_;
    std::string messages_;
};

TEST_F(SpecsCommand, ListsPlatformsMakersAndModels) {
    EXPECT_EQ(Run(&RunSpecs, {}), Status::done);
    ASSERT_EQ(said_.size(), 5U);
    EXPECT_EQ(said_[0].asString(), "android");
    EXPECT_EQ(Run(&RunSpecs, {"android"}), Status::done);
    EXPECT_EQ(said_[0].asString(), "青冥");
    EXPECT_EQ(Run(&RunSpecs, {"android", "云帆"}), Status::done);
    EXPECT_EQ(said_, ParseJson(R"(["Y5", "Y8"])"));
}

TEST_F(SpecsCommand, GivesTheParametersOfAModel) {
    EXPECT_EQ(Run(&RunSpecs, {"windowsphone", "南屿", "W7"}), Status::done);
    EXPECT_EQ(said_.size(), 18U);
    EXPECT_EQ(said_["手机型号"].asString(), "南屿 W7");
    EXPECT_EQ(said_["通话时间"].asString(), "约 6 小时");
}

TEST_F(SpecsCommand, WhatIsNotThereEndsWithThree) {
    EXPECT_EQ(Run(&RunSpecs, {"palm"}), Status::notFound);
    EXPECT_EQ(messages_, "quorvictl: palm: 手机参数里没有\n");
    EXPECT_EQ(Run(&RunSpecs, {"android", "nobody"}), Status::notFound);
    EXPECT_EQ(Run(&RunSpecs, {"android", "云帆", "Y9"}), Status::notFound);
    EXPECT_EQ(messages_, "quorvictl: Y9: 手机参数里没有\n");
}

TEST_F(SpecsCommand, AWholeFileHasNothingWrongWithIt) {
    EXPECT_EQ(Run(&RunSpecsCheck, {QUORVI_SOURCE_DIR "/Data/device.xml"}), Status::done);
    EXPECT_EQ(said_, Json::Value(Json::arrayValue));
}

TEST_F(SpecsCommand, SaysWhatIsWrongWithAFileLineByLine) {
    EXPECT_EQ(Check("<main>\n<android-device/><ophone-device/><symbian-device/>\n<apple-device/>"
                    "<windowsphone-device>\n<m/></windowsphone-device></main>"),
              Status::wrongUsage);
    ASSERT_EQ(said_.size(), 2U);
    EXPECT_EQ(said_[0]["line"].asInt(), 4);
    EXPECT_EQ(said_[0]["text"].asString(), "m: 缺少属性 manufacturer，厂商没有名称。");
}

TEST_F(SpecsCommand, SaysThatAFileIsTooLarge) {
    EXPECT_EQ(Check(std::string((4 << 20) + 1, ' ')), Status::wrongUsage);
    EXPECT_EQ(said_[0]["text"].asString(), "文件超过 4 MB。");
}

TEST_F(SpecsCommand, AFileThatCannotBeReadEndsWithThree) {
    EXPECT_EQ(Run(&RunSpecsCheck, {folder_.Path() / "none.xml"}), Status::notFound);
    EXPECT_EQ(Run(&RunSpecsCheck, {folder_.Path()}), Status::notFound);
    EXPECT_NE(messages_.find("读不了这个文件"), std::string::npos);
}

}  // namespace
}  // namespace quorvi::cli
