// What adb says when it fails, and what the applications' page makes of it: the status tells it in
// words, the list is read again, and the next try works.
#include <fstream>

#include "tests/app/apps/AppsOnPhone.h"
#include "tests/support/FakeAdb.h"

namespace quorvi {
namespace {

struct AdbFault {
    const char* name;
    const char* says;
    std::u8string_view told;
};

void PrintTo(const AdbFault& fault, std::ostream* out) {
    *out << fault.name;
}

constexpr auto kAdbFaults = std::to_array<AdbFault>({
    {"Refuses", "Failure [DELETE_FAILED_INTERNAL_ERROR]\n",
     u8"手机不肯卸载，它可能是系统应用，请在手机的应用设置里停用"},
    {"DeviceAdmin", "Failure [DELETE_FAILED_DEVICE_POLICY_MANAGER]\n",
     u8"它是设备管理器，请先在手机的安全设置里停用它"},
    {"NotInstalled", "Failure [not installed for 0]\n", u8"手机上已经没有它了，请重新获取应用"},
    {"TwoPhones", "adb: more than one device/emulator\n",
     u8"电脑连着不止一部手机，请只留下一部再试"},
    {"NoPhone", "adb: no devices/emulators found\n", u8"没有找到手机，请检查数据线和 USB 调试"},
    {"Offline", "adb: device offline\n", u8"手机没有响应，请重新插拔数据线再试"},
    {"Unauthorized", "adb: device unauthorized.\nThis adb server's $ADB_VENDOR_KEYS is not set\n",
     u8"手机还没有允许 USB 调试，请在手机上点“允许”"},
    {"ServerGone", "adb: cannot connect to daemon at tcp:5037: Connection refused\n",
     u8"adb 服务没有启动，请稍后再试"},
    {"ServerBreaksOff", "adb: protocol fault (couldn't read status): Connection reset by peer\n",
     u8"和手机的连接断了，请重新插拔数据线再试"},
    {"ServerSaysFail", "adb: unknown host service\n", u8"adb 说：adb: unknown host service"},
    {"Nothing", "", u8"adb 没有说明原因，请再试一次"},
});

class AppAdb : public AppsOnPhone {
  public:
    static void SetUpTestSuite() {
        adb_ = std::make_unique<FakeAdb>("cat \"$dir/says\"");
        PageMakers makers = ThePageMakers();
        makers[kAppsPage.dialog] = [](PageHost& host, const Services& services, QWidget* parent) {
            Services told = services;
            told.deployment.siteRoot = "http://127.0.0.1:1/";  // nobody listens there
            return new CAppPage(host, told, parent, adb_->Environment());
        };
        StandUp(std::move(makers));
    }
    static void TearDownTestSuite() {
        AppsOnPhone::TearDownTestSuite();
        adb_.reset();
    }

  protected:
    void SetUp() override {
        AppsOnPhone::SetUp();
        OpenFresh(kApps);
        ASSERT_TRUE(WaitAllEnded());
        Tell("log clear");
    }
    // Uninstalls with an adb that says this, until the list was read again behind it.
    static void UninstallWith(const char* says) {
        std::ofstream(adb_->Directory() / "says") << says;
        const std::size_t before = Requests(870802).size();
        ThePage().Uninstall({{Ansi(u8"便笺"), "com.example.notes"}});
        ASSERT_TRUE(WaitFor([&] { return Requests(870802).size() == before + 1; }));
        ASSERT_TRUE(WaitAllEnded());
        EXPECT_EQ(List().RowCount(), kRows);
    }

    static std::unique_ptr<FakeAdb> adb_;
};

std::unique_ptr<FakeAdb> AppAdb::adb_;

class AppAdbFaults : public AppAdb, public testing::WithParamInterface<AdbFault> {};

TEST_P(AppAdbFaults, AreToldInWordsAndTheNextTryWorks) {
    UninstallWith(GetParam().says);
    EXPECT_EQ(Status(), ToQString(u8"【X】“便笺”没有卸载：") + ToQString(GetParam().told));
    EXPECT_TRUE(ThePage().isEnabled());
    UninstallWith("Success\n");
    EXPECT_EQ(Status(), ToQString(u8"已卸载 1 个应用"));
}

INSTANTIATE_TEST_SUITE_P(Each, AppAdbFaults, testing::ValuesIn(kAdbFaults),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace quorvi
