#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Text.h"
#include "pages/downloads/DroppedPackages.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Paths = std::vector<std::filesystem::path>;

TEST(PackagesAmong, AreTheFilesThatEndInApkInAnyCase) {
    EXPECT_THAT(PackagesAmong(Paths{"/a/one.apk", "/a/two.APK", "/a/three.zip", "/a/apk"}),
                ElementsAre("/a/one.apk", "/a/two.APK"));
}

TEST(PackagesAmong, AFileThatComesTwiceIsOne) {
    EXPECT_THAT(PackagesAmong(Paths{"/a/one.apk", "/b/one.apk", "/a/one.apk"}),
                ElementsAre("/a/one.apk", "/b/one.apk"));
}

TEST(PackagesAmong, AnEndingAloneIsNoName) {
    EXPECT_THAT(PackagesAmong(Paths{"/a/.apk", ""}), IsEmpty());
}

TEST(DropStatus, CallsThePackageByItsFile) {
    EXPECT_EQ(ToUtf8(DropStatus("/home/me/听书.apk", InstallResult::success, true)),
              "安装成功：听书.apk");
    EXPECT_EQ(ToUtf8(DropStatus("/home/me/a.apk", InstallResult::failed, false)),
              "【错误】安装失败：a.apk，没有连接手机，请连接后重新安装");
}

}  // namespace
}  // namespace quorvi
