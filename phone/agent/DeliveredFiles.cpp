// What a person's phone holds in files.
#include <fmt/format.h>

#include "base/Utf8.h"
#include "phone/agent/FileSystem.h"
#include "phone/agent/LocalTime.h"

namespace quorvi::phone {
namespace {

constexpr std::uint64_t kMinute = 60'000;
constexpr std::uint64_t kGigabyte = 1ULL << 30;

// How an entry differs from one that its owner may read and write.
enum Mode { open, readOnly, closed, hidden, closedHidden, writeOnly };

struct Item {
    std::u8string_view name;  // with '/' at its end: a folder
    std::uint64_t size = 0;
    std::string_view modified{};  // local; empty: not known
    Mode mode = open;
};

FileEntry EntryOf(const Item& item) {
    std::string name = Utf8(item.name);
    const bool isFolder = name.ends_with('/');
    if (isFolder) {
        name.pop_back();
    }
    const Mode mode = item.mode;
    return {.name = std::move(name),
            .isFolder = isFolder,
            .size = item.size,
            .modified = item.modified.empty() ? 0 : LocalMilliseconds(item.modified),
            .readable = mode != closed && mode != closedHidden && mode != writeOnly,
            .writable = mode == open || mode == hidden || mode == writeOnly,
            .hidden = mode == hidden || mode == closedHidden};
}

constexpr std::string_view kBoot = "2011-06-18 06:58:03";

constexpr Item kRootItems[] = {
    {u8"sdcard/", 0, "2011-06-18 09:40:12"},
    {u8"acct/", 0, kBoot, readOnly},
    {u8"cache/", 0, "2011-06-18 07:02:40", closed},
    {u8"config/", 0, kBoot, closed},
    {u8"data/", 0, "2011-03-02 19:20:00", closed},
    {u8"dev/", 0, kBoot, readOnly},
    {u8"etc/", 0, kBoot, readOnly},
    {u8"mnt/", 0, kBoot, readOnly},
    {u8"proc/", 0, "", readOnly},
    {u8"sbin/", 0, "", closed},
    {u8"sys/", 0, kBoot, readOnly},
    {u8"system/", 0, "2010-12-10 11:30:00", readOnly},
    {u8"default.prop", 118, "", readOnly},
    {u8"init", 94'348, "", closed},
    {u8"init.rc", 16'317, "", closed},
    {u8"logo.rle", 11'336, "", readOnly},
};

constexpr Item kSystemItems[] = {
    {u8"app/", 0, "2010-12-10 11:30:00", readOnly},
    {u8"bin/", 0, "2010-12-10 11:30:00", readOnly},
    {u8"fonts/", 0, "2010-12-10 11:30:00", readOnly},
    {u8"build.prop", 3'382, "2010-12-10 11:30:00", readOnly},
};
constexpr Item kFontItems[] = {
    {u8"DroidSans.ttf", 194'776, "2010-12-10 11:30:00", readOnly},
    {u8"DroidSans-Bold.ttf", 190'404, "2010-12-10 11:30:00", readOnly},
    {u8"DroidSansFallback.ttf", 3'838'588, "2010-12-10 11:30:00", readOnly},
};

constexpr Item kCardItems[] = {
    {u8"DCIM/", 0, "2011-06-17 20:11:04"},
    {u8"Download/", 0, "2011-06-18 09:40:12"},
    {u8"Music/", 0, "2011-05-02 10:15:33"},
    {u8"Movies/", 0, "2011-05-03 21:02:19"},
    {u8"电子书/", 0, "2011-04-30 11:08:52"},
    {u8"工作 2011.06/", 0, "2011-06-15 17:40:00"},
    {u8"Ringtones/", 0, "2011-03-02 19:24:10"},
    {u8"LOST.DIR/", 0, "", hidden},
    {u8".android_secure/", 0, "2011-03-02 19:20:11", closedHidden},
    {u8".thumbnails/", 0, "2011-06-17 20:11:05", hidden},
    {u8"空文件夹/", 0, "2011-03-20 14:00:00"},
    {u8"backup_0618.tar.gz", 19'503'513, "2011-06-18 07:02:40"},
    {u8"使用说明.html", 12'288, "2011-04-30 11:08:52", readOnly},
    {u8"徒步路线.txt", 3'482, "2011-06-03 22:10:16"},
    {u8"data", 655'360, "2011-04-22 09:50:00", readOnly},
    {u8".nomedia", 0, "2011-03-02 19:20:11", hidden},
    {u8".profile.v2", 264, "2011-03-02 19:20:12", closedHidden},
};

constexpr Item kDownloadItems[] = {
    {u8"com.example.weather.apk", 2'411'724, "2011-06-18 09:40:58"},
    {u8"com.example.bus_1.4.2.apk", 1'083'190, "2011-06-10 12:20:31"},
    {u8"公交线路图（2011.05 版）.pdf", 1'766'400, "2011-05-20 08:31:00"},
    {u8"太湖地图.zip", 38'404'096, "2011-06-02 19:05:44"},
    {u8"字体.7z", 5'242'881, "2011-05-11 23:00:01"},
    {u8"主页存档.mht", 640'512, "2011-04-09 21:12:13"},
    {u8"index.html.1", 9'117, "2011-04-09 21:10:00"},
    {u8"README", 1'024, "2011-04-09 21:10:02"},
    {u8"下载中.part", 7'340'032, "2011-06-18 09:40:12", writeOnly},
};

constexpr Item kMovieItems[] = {
    {u8"婚礼录像 2011.05.01.m2ts", 4 * kGigabyte + 524'288'000, "2011-05-03 20:11:30"},
    {u8"整卡镜像.img", 4 * kGigabyte, "2011-05-03 21:02:19"},
    {u8"VID_0604.3gp", 90'387'251, "2011-06-04 15:47:21"},
    {u8"动画片 第01集.mp4", 187'432'960, "2011-04-16 20:00:00"},
    {u8"动画片 第02集.mp4", 190'016'512, "2011-04-16 20:21:00"},
    {u8"网友分享.rmvb", 412'876'800, "2011-02-06 18:30:00"},
};

constexpr Item kWorkItems[] = {
    {u8"合同 v3 终稿.doc", 87'040, "2011-06-14 10:05:09"},
    {u8"工资条 2011.05.xls", 24'576, "2011-06-05 09:12:00"},
    {u8"会议纪要.6月13日.docx", 18'944, "2011-06-13 18:44:30"},
    {u8"产品介绍.ppt", 3'270'656, "2011-05-25 15:00:12"},
    {u8"扫描件/", 0, "2011-06-15 17:40:00"},
};

constexpr std::u8string_view kSongs[] = {
    u8"晨间练习", u8"茉莉花", u8"山里的雨", u8"小河淌水", u8"十五的月亮", u8"送别",
    u8"夜航",     u8"渔歌",   u8"春江",     u8"两只老虎", u8"生日快乐",   u8"远方",
};
constexpr std::u8string_view kBooks[] = {
    u8"三国演义", u8"红楼梦", u8"西游记", u8"水浒传", u8"聊斋志异", u8"老残游记",
};

class Filling {
  public:
    explicit Filling(FileSystem& files) : files_(files) {}

    template <std::size_t N>
    void Put(std::string_view folder, const Item (&items)[N]) {
        for (const Item& item : items) {
            files_.Add(folder, EntryOf(item));
        }
    }
    // `count` files, one every `minutes` from `first` on; `format` has their number in it.
    void Series(std::string_view folder, fmt::format_string<int> format, int count,
                std::uint64_t size, std::string_view first, int minutes) {
        for (int i = 0; i < count; ++i) {
            const auto nth = static_cast<std::uint64_t>(i);
            files_.Add(folder, {.name = fmt::format(format, i + 1),
                                .size = size + nth * 30'011 % 400'000,
                                .modified = LocalMilliseconds(first) +
                                            nth * static_cast<std::uint64_t>(minutes) * kMinute});
        }
    }
    void Folder(std::string_view folder, std::string_view name) {
        files_.Add(folder, {.name = std::string(name),
                            .isFolder = true,
                            .modified = LocalMilliseconds("2011-06-17 18:22:09")});
    }

  private:
    FileSystem& files_;
};

}  // namespace

FileSystem DeliveredFiles() {
    FileSystem files;
    Filling filling(files);
    filling.Put(FileSystem::kRoot, kRootItems);
    filling.Put("/system", kSystemItems);
    filling.Put("/system/fonts", kFontItems);
    filling.Put("/sdcard", kCardItems);
    filling.Put("/sdcard/Download", kDownloadItems);
    filling.Put("/sdcard/Movies", kMovieItems);
    filling.Put(Utf8(u8"/sdcard/工作 2011.06"), kWorkItems);
    filling.Series(Utf8(u8"/sdcard/工作 2011.06/扫描件"), "Scan.2011.06.{:02}.tiff", 14, 2'100'000,
                   "2011-06-01 10:00:00", 1440);
    filling.Folder("/sdcard/DCIM", "Camera");
    filling.Folder("/sdcard/DCIM", "Screenshots");
    filling.Folder("/sdcard/DCIM", "100MEDIA");
    filling.Series("/sdcard/DCIM/Camera", "IMG_201106{:03}.jpg", 96, 1'153'433,
                   "2011-06-01 08:12:45", 240);
    filling.Series("/sdcard/DCIM/Screenshots", "screen.{:02}.png", 18, 214'000,
                   "2011-05-01 21:00:00", 4000);
    filling.Series("/sdcard/DCIM/100MEDIA", "VIDEO{:04}.3gp", 11, 9'400'000, "2011-04-05 10:30:00",
                   3000);
    filling.Series("/sdcard/.thumbnails", "{}.jpg", 60, 9'000, "2011-06-01 08:12:46", 240);
    filling.Series("/sdcard/Ringtones", "ring.{}.ogg", 6, 96'000, "2011-03-02 19:24:10", 1);
    filling.Series("/sdcard/LOST.DIR", "{}", 4, 4'096, "2011-03-05 07:00:00", 10);
    std::uint64_t time = LocalMilliseconds("2011-05-01 06:30:00");
    for (const std::u8string_view song : kSongs) {
        files.Add(
            "/sdcard/Music",
            {.name = Utf8(song) + ".mp3", .size = 4'000'000 + time % 3'000'000, .modified = time});
        files.Add("/sdcard/Music", {.name = Utf8(song) + ".lrc", .size = 1'408, .modified = time});
        time += 97 * kMinute;
    }
    for (const std::u8string_view book : kBooks) {
        files.Add(
            Utf8(u8"/sdcard/电子书"),
            {.name = Utf8(book) + ".txt", .size = 1'800'000, .modified = time, .writable = false});
        files.Add(Utf8(u8"/sdcard/电子书"),
                  {.name = Utf8(book) + Utf8(u8".插图.epub"), .size = 6'300'000, .modified = time});
        time += 31 * kMinute;
    }
    return files;
}

}  // namespace quorvi::phone
