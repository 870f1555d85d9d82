#include "tests/support/SuiteDialogs.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>

#include "app/window/KeysDlg.h"
#include "base/Text.h"
#include "pages/alarms/AlarmEditDlg.h"
#include "pages/bookmarks/BookmarkEditDlg.h"
#include "pages/bookmarks/BookmarkSyncDlg.h"
#include "pages/contacts/ContactEditDlg.h"
#include "pages/contacts/ContactGroupDlg.h"
#include "pages/contacts/GroupEditDlg.h"
#include "pages/devices/DeviceManagerDlg.h"
#include "pages/downloads/DownloadSettingsDlg.h"
#include "pages/downloads/DuplicateTaskDlg.h"
#include "pages/messages/SmsComposeDlg.h"
#include "pages/numbers/NumberQueryDlg.h"
#include "pages/settings/DiagnosisDlg.h"
#include "pages/settings/RestorePlanDlg.h"
#include "pages/weather/WeatherCityDlg.h"
#include "tests/pages/contacts/ContactReplies.h"
#include "tests/pages/messages/MessageReplies.h"
#include "tests/support/AtWork.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QuestionDlg.h"

namespace quorvi {
namespace {

constexpr std::uint32_t kContact = 7;
constexpr std::uint32_t kConversation = 7;
constexpr std::uint32_t kGroup = 5;
constexpr std::uint32_t kAlarm = 7;
constexpr std::uint32_t kBookmark = 7;

constexpr const char* kAdbScript =
    "case \"$*\" in\n"
    "devices) printf 'List of devices attached\\none\\tdevice\\n\\n';;\n"
    "*) printf '[ro.build.version.sdk]: [10]\\n"
    "[ro.product.manufacturer]: [HTC]\\n[ro.product.model]: [HTC Desire]\\n';;\n"
    "esac";

}  // namespace

DialogGround::DialogGround() : adb(kAdbScript) {
    agent.AnswerPayload(AgentCommand::readContact, WholeContactPayload().Get());
    agent.AnswerPayload(AgentCommand::readConversation,
                        MessagesPayload({{}, {.incoming = 0, .text = "收到"}}).Get());
    agent.AnswerPayload(AgentCommand::listGroupNames,
                        WireBytes().U32(0).U64(kGroup).Text("朋友").Get());
    agent.AnswerPayload(
        AgentCommand::listGroupMembers,
        MembersPayload({{kGroup, "林远舟", "13861234567"}, {-1, "顾晓棠", "10010"}}).Get());
    agent.AnswerPayload(AgentCommand::listGroups,
                        WireBytes().U32(0).U64(kGroup).Text("朋友").Text("phone").U32(1).Get());
}

void PrintTo(const SuiteDialog& dialog, std::ostream* out) {
    *out << dialog.name;
}

std::vector<SuiteDialog> SuiteDialogs() {
    constexpr const char* kEditor =
        "1149 1152 1380 1150 1382 1151 1383 1240 1235 1236 1385 1242 1243 1244 1245 1381 "
        "1224 1020 1021";
    constexpr const char* kAlarmEditor =
        "1257 1231 1229 1268 1248 1249 1250 1251 1252 1253 1254 1368 1256 1255 1215 1021";
    constexpr const char* kBookmarkEditor = "1257 1261 1260 1262 1215 1021";
    return {
        {"AddContact", kEditor,
         [](DialogGround& g) { return new CContactEditDlg(g.host, &g.window, g.agent.Port()); }},
        {"UpdateContact", kEditor,
         [](DialogGround& g) {
             return new CContactEditDlg(g.host, kContact, &g.window, g.agent.Port());
         }},
        {"Groups", "1047 1154 1155 1049 1372 1215",
         [](DialogGround& g) { return new CContactGroupDlg(g.host, &g.window, g.agent.Port()); }},
        {"AddGroup", "1257 1215 1021",
         [](DialogGround& g) { return new CGroupEditDlg(g.host, &g.window, g.agent.Port()); }},
        {"RenameGroup", "1257 1215 1021",
         [](DialogGround& g) {
             return new CGroupEditDlg(g.host, {kGroup, "朋友", "phone", true}, &g.window,
                                      g.agent.Port());
         }},
        {"NewMessage", "1338 1359 1337 1271 1030 1021",
         [](DialogGround& g) {
             return new CSmsComposeDlg(g.host, kNoConversation, &g.window, g.agent.Port());
         }},
        {"Conversation", "1338 1359 1337 1271 1030 1021",
         [](DialogGround& g) {
             return new CSmsComposeDlg(g.host, kConversation, &g.window, g.agent.Port());
         }},
        {"AddAlarm", kAlarmEditor,
         [](DialogGround& g) { return new CAlarmEditDlg(g.host, &g.window, g.agent.Port()); }},
        {"UpdateAlarm", kAlarmEditor,
         [](DialogGround& g) {
             return new CAlarmEditDlg(g.host, kAlarm, {.days = 1, .label = "晨跑"}, &g.window,
                                      g.agent.Port());
         }},
        {"AddBookmark", kBookmarkEditor,
         [](DialogGround& g) { return new CBookmarkEditDlg(g.host, &g.window, g.agent.Port()); }},
        {"UpdateBookmark", kBookmarkEditor,
         [](DialogGround& g) {
             return new CBookmarkEditDlg(g.host, kBookmark, {"天气", "http://x.example/", "3"},
                                         &g.window, g.agent.Port());
         }},
        {"BookmarkSync", "1287 1021",
         [](DialogGround& g) { return new CBookmarkSyncDlg(&g.window); }},
        {"DeviceManager", "1073 1047 1214 1199 1215 10200",
         [](DialogGround& g) {
             return new CDeviceManagerDlg(
                 g.device, [](const QString&) {}, {}, &g.window, g.adb.Environment());
         }},
        {"NumberQuery", "1123 1124 1127",
         [](DialogGround& g) {
             auto* dialog = new NumberQueryDlg(
                 [&g] {
                     return CPhoneDb(g.scratch.Path(), DatabaseOf({{1391234, 145}}));
                 },
                 [](const QString&) {}, &g.window);
             FindControl<QLineEdit>(dialog, 1123)->setText(QStringLiteral("1391234"));
             FindControl<QAbstractButton>(dialog, 1124)->click();  // its place is a link
             return dialog;
         }},
        {"WeatherCity", "province city 1 2",
         [](DialogGround& g) { return new WeatherCityDlg({}, &g.window); }},
        {"RestorePlan", "planCounter0 planCounter1 planCounter2 planCounter3 1074 1215 1021",
         [](DialogGround& g) {
             return new RestorePlanDlg(g.agent.Port(), g.scratch.Path() / "none.zip", &g.window);
         }},
        {"Keys", "1074 1021", [](DialogGround& g) { return new KeysDlg(&g.window); }},
        {"Diagnosis", "3 1215 1021",
         [](DialogGround& g) {
             return new DiagnosisDlg(QStringLiteral("versions.txt"), &g.window);
         }},
        {"DownloadSettings", "1383 1216 1217 1215",
         [](DialogGround& g) {
             return new DownloadSettingsDlg(
                 g.host.Settings(),
                 [place = g.scratch.Path()] {
                     return std::vector<FixedDisk>{{.place = place, .freeBytes = 1ULL << 40}};
                 },
                 &g.window);
         }},
        {"DuplicateTask", "1215 1216 1021",
         [](DialogGround& g) {
             return new DuplicateTaskDlg({.found = FoundTask::Found::done,
                                          .file = "/save/com.example.a.apk",
                                          .title = Ansi(u8"星图天气"),
                                          .datetime = "2026-11-18 09:40:12",
                                          .id = 1},
                                         true, &g.window);
         }},
        {"DuplicateTaskWithoutItsFile", "1215 1021",
         [](DialogGround& g) {
             return new DuplicateTaskDlg({.found = FoundTask::Found::unfinished,
                                          .file = {},
                                          .title = Ansi(u8"星图天气"),
                                          .datetime = "2026-11-18 09:40:12",
                                          .id = 1},
                                         false, &g.window);
         }},
        {"ConfirmDelete", "1215 1021",
         [](DialogGround& g) { return new CConfirmDeleteDlg(QStringLiteral("?"), &g.window); }},
        {"NothingChecked", "1199 1215",
         [](DialogGround& g) { return new CNothingCheckedDlg(&g.window); }},
        {"Consent", "1 2",
         [](DialogGround& g) {
             return new ConsentDlg(QStringLiteral("?"), QStringLiteral("放弃"),
                                   QStringLiteral("返回"), look::ButtonKind::erase, &g.window);
         }},
        {"QuotedConsent", "3 1 2",
         [](DialogGround& g) {
             auto* dialog =
                 new ConsentDlg(QStringLiteral("?"), QStringLiteral("打开"),
                                QStringLiteral("不打开"), look::ButtonKind::plain, &g.window);
             dialog->Quote(QStringLiteral("file:///a"), QStringLiteral("网址"));
             return dialog;
         }},
    };
}

void EachDialog::SetUp() {
    ground_.window.resize(look::Metric::windowWidth, look::Metric::windowHeight);
    ground_.window.show();
    ground_.dialog = GetParam().make(ground_);
    ground_.dialog->Open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(ground_.dialog, kPatience));
    ASSERT_TRUE(WaitFor([&] { return !AtWork(*ground_.dialog) && RunningJobs() == 0; }));
    DrainWindow();
}

}  // namespace quorvi
