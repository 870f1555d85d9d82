#include "cli/CommandTable.h"

#include <algorithm>

#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/KeptDelete.h"

namespace quorvi::cli {
namespace {

// One row a command, in the order of the help.
constexpr Command kCommands[] = {
    {.words = "devices", .summary = u8"adb 列出的手机", .run = RunDevices},
    {.words = "link",
     .synopsis = "[--serial S]",
     .summary = u8"连接手机，逐行给出状态",
     .options = {"--serial"},
     .run = RunLink},
    {.words = "info", .synopsis = "", .summary = u8"手机的系统信息", .run = RunInfo},
    {.words = "contacts list", .summary = u8"手机上的联系人", .run = RunContactsList},
    {.words = "contacts show",
     .synopsis = "ID",
     .summary = u8"一个联系人的全部资料",
     .fewest = 1,
     .most = 1,
     .run = RunContactsShow},
    {.words = "contacts add",
     .summary = u8"添加联系人，标准输入为编辑框内容的 JSON",
     .run = RunContactsAdd},
    {.words = "contacts update",
     .synopsis = "ID",
     .summary = u8"修改联系人，标准输入为编辑框内容的 JSON；没有写出的成员，手机上的那一栏会被删除",
     .fewest = 1,
     .most = 1,
     .run = RunContactsUpdate},
    {.words = "contacts delete",
     .synopsis = "ID [ID...] [--force]",
     .summary = u8"删除联系人，先在电脑里留一份，保留 30 天",
     .fewest = 1,
     .most = kAnyNumber,
     .flags = {kForce},
     .run = RunContactsDelete},
    {.words = "groups list", .summary = u8"联系人分组", .run = RunGroupsList},
    {.words = "groups add",
     .synopsis = "TITLE",
     .summary = u8"新建分组",
     .fewest = 1,
     .most = 1,
     .run = RunGroupsAdd},
    {.words = "groups rename",
     .synopsis = "ID TITLE",
     .summary = u8"修改分组的标题",
     .fewest = 2,
     .most = 2,
     .run = RunGroupsRename},
    {.words = "groups delete",
     .synopsis = "ID [ID...] [--force]",
     .summary = u8"删除分组，先在电脑里留一份，保留 30 天",
     .fewest = 1,
     .most = kAnyNumber,
     .flags = {kForce},
     .run = RunGroupsDelete},
    {.words = "sms list", .summary = u8"短信会话", .run = RunSmsList},
    {.words = "sms show",
     .synopsis = "ID",
     .summary = u8"一个会话的短信",
     .fewest = 1,
     .most = 1,
     .run = RunSmsShow},
    {.words = "sms delete",
     .synopsis = "ID [--force]",
     .summary = u8"删除会话，不再询问，先在电脑里留一份，保留 30 天",
     .fewest = 1,
     .most = 1,
     .flags = {kForce},
     .run = RunSmsDelete},
    {.words = "sms send",
     .synopsis = "--to NUMBER[,NUMBER...] --text TEXT",
     .summary = u8"用手机发送短信",
     .options = {"--to", "--text"},
     .run = RunSmsSend},
    {.words = "calls list", .summary = u8"通话记录", .run = RunCallsList},
    {.words = "calls delete",
     .synopsis = "ID [ID...] [--force]",
     .summary = u8"删除通话记录，先在电脑里留一份，保留 30 天",
     .fewest = 1,
     .most = kAnyNumber,
     .flags = {kForce},
     .run = RunCallsDelete},
    {.words = "calls clear",
     .synopsis = "[--force]",
     .summary = u8"删除全部通话记录，先在电脑里留一份，保留 30 天",
     .flags = {kForce},
     .run = RunCallsClear},
    {.words = "alarms list", .summary = u8"手机时钟的闹铃", .run = RunAlarmsList},
    {.words = "alarms add",
     .summary = u8"添加闹铃，标准输入为编辑框内容的 JSON",
     .run = RunAlarmsAdd},
    {.words = "alarms update",
     .synopsis = "ID",
     .summary = u8"修改闹铃，标准输入为编辑框内容的 JSON；没有写出的成员，会改成新建闹铃时的内容",
     .fewest = 1,
     .most = 1,
     .run = RunAlarmsUpdate},
    {.words = "alarms delete",
     .synopsis = "ID [ID...] [--force]",
     .summary = u8"删除闹铃，先在电脑里留一份，保留 30 天",
     .fewest = 1,
     .most = kAnyNumber,
     .flags = {kForce},
     .run = RunAlarmsDelete},
    {.words = "bookmarks list", .summary = u8"手机浏览器的书签", .run = RunBookmarksList},
    {.words = "bookmarks add",
     .summary = u8"添加书签，标准输入为编辑框内容的 JSON",
     .run = RunBookmarksAdd},
    {.words = "bookmarks update",
     .synopsis = "ID",
     .summary = u8"修改书签，标准输入为编辑框内容的 JSON；没有写出的成员，会改成空白",
     .fewest = 1,
     .most = 1,
     .run = RunBookmarksUpdate},
    {.words = "bookmarks delete",
     .synopsis = "ID [ID...] [--force]",
     .summary = u8"删除书签，先在电脑里留一份，保留 30 天",
     .fewest = 1,
     .most = kAnyNumber,
     .flags = {kForce},
     .run = RunBookmarksDelete},
    {.words = "export",
     .synopsis = "contacts|messages|calls|bookmarks FILE [--conversation ID]",
     .summary = u8"导出到文件，格式按扩展名: 联系人 vcf、csv，短信 txt、csv、html、json，"
                u8"通话记录 csv、json，书签 html",
     .fewest = 2,
     .most = 2,
     .options = {"--conversation"},
     .run = RunExport},
    {.words = "import",
     .synopsis = "contacts|bookmarks FILE [--dry-run]",
     .summary = u8"把文件里的联系人 (vcf、csv) 或书签 (html) 添加到手机，已有的不重复；"
                u8"--dry-run 只说明会添加什么",
     .fewest = 2,
     .most = 2,
     .flags = {"--dry-run"},
     .run = RunImport},
    {.words = "files list",
     .synopsis = "[PATH]",
     .summary = u8"手机上一个文件夹里的文件，不写路径时为根目录",
     .most = 1,
     .run = RunFilesList},
    {.words = "apps list",
     .synopsis = "[--site]",
     .summary = u8"手机上的应用，--site 向网站查询评级和分类",
     .flags = {"--site"},
     .run = RunAppsList},
    {.words = "apps run",
     .synopsis = "PACKAGE",
     .summary = u8"在手机上启动应用",
     .fewest = 1,
     .most = 1,
     .run = RunAppsRun},
    {.words = "apps uninstall",
     .synopsis = "[--serial S] PACKAGE [PACKAGE...]",
     .summary = u8"用 adb 逐个卸载应用，不再询问",
     .fewest = 1,
     .most = kAnyNumber,
     .options = {"--serial"},
     .run = RunAppsUninstall},
    {.words = "processes list", .summary = u8"手机上运行的进程", .run = RunProcessesList},
    {.words = "processes end",
     .synopsis = "PACKAGE [PACKAGE...]",
     .summary = u8"结束这些应用的进程，不再询问",
     .fewest = 1,
     .most = kAnyNumber,
     .run = RunProcessesEnd},
    {.words = "processes memory", .summary = u8"手机的剩余运行内存", .run = RunProcessesMemory},
    {.words = "cleaner scan", .summary = u8"手机上可以清理的项目和应用缓存", .run = RunCleanerScan},
    {.words = "cleaner clean",
     .synopsis = "[--browser-searches] [--browser-history] [--market-searches] [PACKAGE...]",
     .summary = u8"清理这些项目和这些应用的缓存，不再询问",
     .most = kAnyNumber,
     .flags = {"--browser-searches", "--browser-history", "--market-searches"},
     .run = RunCleanerClean},
    {.words = "autostart list", .summary = u8"哪些应用随哪个事件启动", .run = RunAutoStartList},
    {.words = "settings read", .summary = u8"手机的设置", .run = RunSettingsRead},
    {.words = "settings write",
     .synopsis = "NAME VALUE",
     .summary = u8"修改手机的一项设置，名称和值同 settings read 给出的一样",
     .fewest = 2,
     .most = 2,
     .run = RunSettingsWrite},
    {.words = "screenshot",
     .synopsis = "FILE [--rotate 0...3] [--quality 50...100]",
     .summary = u8"把手机屏幕保存为图片，格式按扩展名 jpg、gif、png 或 bmp；"
                u8"--rotate 1 右转，2 左转，3 倒转",
     .fewest = 1,
     .most = 1,
     .options = {"--rotate", "--quality"},
     .run = RunScreenshot},
    {.words = "downloads add",
     .synopsis = "PACKAGE [PACKAGE...] [--to DIR]",
     .summary = u8"向网站查询应用并添加下载任务，不写目录时保存在窗口里设置的目录",
     .fewest = 1,
     .most = kAnyNumber,
     .options = {"--to"},
     .run = RunDownloadsAdd},
    {.words = "downloads list",
     .synopsis = "[--filter 0...4]",
     .summary = u8"下载任务；--filter 1 未完成，2 正在下载，3 安装，4 已完成",
     .options = {"--filter"},
     .run = RunDownloadsList},
    {.words = "downloads run",
     .synopsis = "[--serial S]",
     .summary = u8"下载并安装所有等待的任务，逐行给出进展；Ctrl+C 停止，再次运行时继续",
     .options = {"--serial"},
     .run = RunDownloadsRun},
    {.words = "downloads pause",
     .synopsis = "ID [ID...]",
     .summary = u8"暂停下载任务，正在下载的也会停止",
     .fewest = 1,
     .most = kAnyNumber,
     .run = RunDownloadsPause},
    {.words = "downloads resume",
     .synopsis = "ID [ID...]",
     .summary = u8"继续下载任务，由 downloads run 或窗口处理",
     .fewest = 1,
     .most = kAnyNumber,
     .run = RunDownloadsResume},
    {.words = "downloads reinstall",
     .synopsis = "ID [ID...]",
     .summary = u8"重新下载并安装任务，由 downloads run 或窗口处理",
     .fewest = 1,
     .most = kAnyNumber,
     .run = RunDownloadsReinstall},
    {.words = "downloads remove",
     .synopsis = "ID [ID...]",
     .summary = u8"删除下载任务，不再询问，文件保留",
     .fewest = 1,
     .most = kAnyNumber,
     .run = RunDownloadsRemove},
    {.words = "backup",
     .synopsis = "TO [--only KIND[,KIND...]]",
     .summary = u8"备份手机到文件夹，或者名称以 .zip 结尾的文件；--only 只备份 "
                u8"groups、contacts、alarms、bookmarks、messages、calls、phone 或 applications",
     .fewest = 1,
     .most = 1,
     .options = {"--only"},
     .run = RunBackup},
    {.words = "restore",
     .synopsis = "FROM [--dry-run] [--only KIND[,KIND...]]",
     .summary = u8"把备份里的联系人、分组、闹铃和书签恢复到手机，只补充，不删除；"
                u8"--dry-run 只列出要做什么",
     .fewest = 1,
     .most = 1,
     .options = {"--only"},
     .flags = {"--dry-run"},
     .run = RunRestore},
    {.words = "verify",
     .synopsis = "BACKUP",
     .summary = u8"检查备份是否完好",
     .fewest = 1,
     .most = 1,
     .run = RunVerify},
    {.words = "report",
     .synopsis = "FILE",
     .summary = u8"把日志、版本和 adb 的状态保存到一个 .zip 文件，供排查问题；先列出里面有什么，"
                u8"没有姓名、号码和短信内容",
     .fewest = 1,
     .most = 1,
     .run = RunReport},
    {.words = "update", .summary = u8"网站上的最新版本和更新日志", .run = RunUpdate},
    {.words = "feedback",
     .synopsis = "--model M --firmware F --content TEXT [--platform android|ophone] [--email E] "
                 "[--qq Q]",
     .summary = u8"把意见发给网站",
     .options = {"--model", "--firmware", "--content", "--platform", "--email", "--qq"},
     .run = RunFeedback},
    {.words = "weather",
     .synopsis = "[--city NAME]",
     .summary = u8"城市今天和后五天的天气，不写城市时为窗口里选择的城市",
     .options = {"--city"},
     .run = RunWeather},
    {.words = "specs check",
     .synopsis = "FILE",
     .summary = u8"逐行检查手机参数文件",
     .fewest = 1,
     .most = 1,
     .run = RunSpecsCheck},
    {.words = "specs",
     .synopsis = "[PLATFORM [MAKER [MODEL]]]",
     .summary = u8"手机参数: 平台、厂商、机型，或者一个机型的参数",
     .most = 3,
     .run = RunSpecs},
    {.words = "number",
     .synopsis = "NUMBER... | -",
     .summary = u8"号码的归属地或类别，- 从标准输入逐行读取",
     .fewest = 1,
     .most = kAnyNumber,
     .run = RunNumber},
    {.words = "lunar",
     .synopsis = "DATE... | -",
     .summary = u8"公历日期的农历、节气和节日，- 从标准输入逐行读取",
     .fewest = 1,
     .most = kAnyNumber,
     .run = RunLunar},
};

// Of the calls beside which the help has its summaries.
constexpr std::size_t kWidestCall = 48;

std::string CallOf(const Command& command) {
    return std::string(command.words).append(" ").append(command.synopsis);
}

}  // namespace

std::span<const Command> AllCommands() {
    return kCommands;
}

std::string UsageOf(const Command& command) {
    std::string usage = Ansi(u8"用法: quorvictl ");
    usage.append(command.words);
    if (!command.synopsis.empty()) {
        usage.append(" ").append(command.synopsis);
    }
    return usage.append(" [--json]");
}

std::string HelpText() {
    std::string help = Ansi(
        u8"用法: quorvictl 命令 [参数…] [--json]\n"
        u8"      quorvictl --help | --version\n\n");
    std::size_t widest = 0;
    for (const Command& command : kCommands) {
        if (const std::size_t width = CallOf(command).size(); width <= kWidestCall) {
            widest = std::max(widest, width);
        }
    }
    for (const Command& command : kCommands) {
        std::string call = CallOf(command);
        if (call.size() > widest) {  // its summary stands on a line of its own
            help.append("  ").append(call).append("\n");
            call.clear();
        }
        call.resize(widest, ' ');
        help.append("  ").append(call).append("  ").append(Ansi(command.summary)).append("\n");
    }
    help += Ansi(
        u8"\n--json 在标准输出上给出 UTF-8 的 JSON；提示写到标准错误。\n"
        u8"--force 没能先在电脑里留一份时照样删除；留下的可以在窗口的设置里恢复。\n"
        u8"状态: 0 完成，1 用法错误，2 没有连接，手机没有回答或拒绝了，3 没有找到。\n");
    return help;
}

}  // namespace quorvi::cli
