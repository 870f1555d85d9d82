#include "site/Catalogue.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <initializer_list>
#include <iterator>

#include "base/Text.h"
#include "base/Utf8.h"

namespace quorvi::site {
namespace {

constexpr StoreApp kApps[] = {
    {4786, 5'939, "com.example.dict", u8"掌上词典", Category::tools, 4, "2.4", "app_dict.svg",
     "#4C6FC9", u8"三万词条，不联网也能查",
     u8"输入几个字母就列出相近的词，每个词都有例句。查过的词自动记进生词本，晚上可以再复习一遍。"},
    {4790, 920, "com.example.memo", u8"简记便签", Category::tools, 5, "1.3.1", "app_note.svg",
     "#D08A1E", u8"一行字，一张便签",
     u8"打开就能写，写完自动保存。便签可以钉在桌面上，也可以定一个时间提醒自己。"},
    {4802, 2'355, "com.example.starsky", u8"星图天气", Category::life, 3, "3.0", "app_sky.svg",
     "#2F8FA8", u8"今晚看得见星星吗",
     u8"六天的天气之外，还告诉您夜里的云量和月相。出门看星星之前，先看一眼它。"},
    {4815, 11'878, "com.example.morningbooks", u8"晨间听书", Category::reading, 4, "1.6",
     "app_listen.svg", "#A04FA8", u8"上班路上听完一本书",
     u8"每天早上送来一段二十分钟的朗读，听到哪里记到哪里。可以定时停止，睡前听也放心。"},
    {4821, 3'482, "com.example.lightalbum", u8"轻影相册", Category::photo, 4, "2.0.2",
     "app_album.svg", "#3E8E5A", u8"照片按日子排好",
     u8"按拍摄的日子和地点整理照片，一千张也能一下子翻完。可以给相册加锁，只给自己看。"},
    {4839, 7'373, "com.example.metromap", u8"城铁地图", Category::travel, 5, "2011.06", "map.svg",
     "#2F8F6B", u8"十二座城市的地铁图",
     u8"点两个站名就知道怎么换乘、要坐多久、末班车几点。地图全部装在手机里，在地下也能查。"},
    {4833, 640, "com.example.quickcalc", u8"速算助手", Category::tools, 4, "1.1", "app_calc.svg",
     "#5B5170", u8"边写边算，算式留得下来",
     u8"像在草稿纸上一样写算式，改一个数后面跟着变。房贷、汇率、单位换算各有一页。"},
    {4844, 4'710, "com.example.homecooking", u8"家常菜谱", Category::life, 4, "1.8", "pot.svg",
     "#C4553B", u8"冰箱里有什么，就做什么",
     u8"选出手边的几样菜，列出能做的家常菜。每一步都有用时，炖汤的时候到点提醒您。"},
    {4850, 2'970, "com.example.bookstall", u8"旧书摊", Category::reading, 4, "0.9.5", "books.svg",
     "#8A6A3C", u8"老故事，慢慢读",
     u8"收了几百篇版权已经到期的老小说和散文。字大行宽，夜里可以换成深色的纸。"},
    {4857, 1'843, "com.example.stillcamera", u8"定格相机", Category::photo, 3, "1.2", "camera.svg",
     "#3F7FBF", u8"连拍几张，动起来给您看",
     u8"隔一会儿拍一张，拍完连成一段小动画。拍花开、拍做饭、拍孩子搭积木都合适。"},
    {4863, 780, "com.example.packinglist", u8"行李清单", Category::travel, 5, "1.0.4", "case.svg",
     "#2E8C8C", u8"出门前再看一眼",
     u8"按去几天、去哪里列出该带的东西，装一样勾一样。回程再勾一遍，什么都不落下。"},
    {4870, 3'174, "com.example.boxtown", u8"推箱小镇", Category::games, 4, "1.5", "box.svg",
     "#B5652B", u8"一百二十关，越推越绕",
     u8"把箱子推到门口就过关。走错了可以一步一步退回来，每一关都记下您最少的步数。"},
    {4876, 2'253, "com.example.starlines", u8"连线星座", Category::games, 4, "1.0", "stars.svg",
     "#3B4A8C", u8"一笔连出一个星座",
     u8"不抬手，把天上的星星连成一个星座。连对了，会讲一个它的故事。"},
    {4712, 1'382, "com.example.weather", u8"小区天气", Category::life, 5, "3.3", "estate.svg",
     "#D98A24", u8"六日预报与生活指数",
     u8"预报细到每个小区，还有穿衣、洗车、晨练的建议。3.3 版的桌面插件更省电。"},
    {4718, 9'850, "com.example.chat", u8"聊天小窝", Category::life, 4, "5.1.0", "chat.svg",
     "#3E9A6B", u8"和家人聊天",
     u8"一家人一个小窝，照片、语音和留言都在里面。老人也会用：只有三个大按钮。"},
    {4724, 96, "com.example.notes", u8"便笺", Category::tools, 4, "1.0", "slip.svg", "#6B7482",
     u8"随手记下每一个念头", u8"不到一百 KB 的小软件，只做一件事：记下来。可以按颜色分开放。"},
    {4731, 2'640, "com.example.bus", u8"公交到站", Category::travel, 2, "4.0.2", "bus.svg",
     "#2C7AC0", u8"下一班还有几站",
     u8"站牌上的每一路车现在到了哪里，一眼看清。4.0.2 版修正了夜班车的时刻。"},
    {4738, 734, "com.example.gomoku", u8"五子棋", Category::games, 5, "1.0.1", "gomoku.svg",
     "#5F5B45", u8"一个人也能下", u8"三种难度，下完可以一步一步看回去。两个人可以用一部手机对下。"},
};

struct CategoryRow {
    std::string_view word;
    std::u8string_view name;
};
// In the order of Category.
constexpr std::array<CategoryRow, 6> kCategories{{
    {"tools", u8"工具"},
    {"life", u8"生活"},
    {"reading", u8"阅读"},
    {"photo", u8"摄影"},
    {"travel", u8"出行"},
    {"games", u8"游戏"},
}};

std::vector<const StoreApp*> AppsOf(std::initializer_list<int> numbers) {
    std::vector<const StoreApp*> apps;
    for (const int number : numbers) {
        apps.push_back(AppOfNumber(number));
    }
    return apps;
}

template <typename Wanted>
std::vector<const StoreApp*> AppsThat(Wanted wanted) {
    std::vector<const StoreApp*> apps;
    for (const StoreApp& app : kApps) {
        if (wanted(app)) {
            apps.push_back(&app);
        }
    }
    return apps;
}

std::vector<Shelf> MakeShelves() {
    std::vector<Shelf> shelves{
        {"week", u8"推荐", u8"本周推荐", AppsOf({4786, 4790, 4802, 4815, 4821, 4839})}};
    for (std::size_t i = 0; i < kCategories.size(); ++i) {
        const CategoryRow& row = kCategories.at(i);
        shelves.push_back({row.word, row.name, row.name, AppsThat([i](const StoreApp& app) {
                               return static_cast<std::size_t>(app.category) == i;
                           })});
    }
    shelves.push_back({"new", u8"", u8"新上架", AppsOf({4844, 4850, 4857, 4863, 4870, 4876})});
    shelves.push_back(
        {"summer", u8"", u8"夏日出行必备", AppsOf({4839, 4802, 4815, 4863, 4857, 4731})});
    shelves.push_back({"all", u8"", u8"全部应用", AppsThat([](const StoreApp&) { return true; })});
    return shelves;
}

}  // namespace

std::span<const StoreApp> StoreApps() {
    return kApps;
}

const StoreApp* AppOfNumber(int number) {
    const auto found = std::ranges::find(kApps, number, &StoreApp::number);
    return found == std::end(kApps) ? nullptr : found;
}

const StoreApp* AppOfPackage(std::string_view package) {
    const auto found = std::ranges::find(kApps, package, &StoreApp::package);
    return found == std::end(kApps) ? nullptr : found;
}

std::u8string_view CategoryName(Category category) {
    return kCategories.at(static_cast<std::size_t>(category)).name;
}

std::string SizeText(const StoreApp& app) {
    constexpr std::uint32_t kKilobytesOfMegabyte = 1024;
    return app.kilobytes < kKilobytesOfMegabyte
               ? fmt::format("{} KB", app.kilobytes)
               : fmt::format("{:.1f} MB", app.kilobytes / double{kKilobytesOfMegabyte});
}

const std::vector<Shelf>& Shelves() {
    static const std::vector<Shelf> shelves = MakeShelves();
    return shelves;
}

const Shelf* ShelfOfWord(std::string_view word) {
    const auto found = std::ranges::find(Shelves(), word, &Shelf::word);
    return found == Shelves().end() ? nullptr : &*found;
}

std::vector<const StoreApp*> FindApps(std::string_view text) {
    if (text.empty()) {
        return {};
    }
    const std::string wanted = ToLower(text);
    return AppsThat([&](const StoreApp& app) {
        return Utf8(app.name).find(wanted) != std::string::npos ||
               Utf8(CategoryName(app.category)).find(wanted) != std::string::npos ||
               Utf8(app.summary).find(wanted) != std::string::npos ||
               app.package.find(wanted) != std::string_view::npos;
    });
}

}  // namespace quorvi::site
