// A person's contacts: family, friends, colleagues, shops and services, with all that a contact can
// hold and with numbers of every kind.
#include <initializer_list>
#include <string_view>

#include "base/Utf8.h"
#include "phone/agent/AddressBook.h"
#include "phone/agent/LocalTime.h"
#include "phone/agent/Photos.h"

namespace quorvi::phone {
namespace {

// Groups, by their ids in order.
enum Group : std::int32_t {
    groupFamily = 1,
    groupFriends,
    groupColleagues,
    groupHikers,
    groupUniversity,
    groupServices
};

struct DeliveredGroup {
    std::u8string_view title;
    std::u8string_view account;
    std::uint32_t visible;
};

constexpr DeliveredGroup kGroups[] = {
    {u8"家人", u8"手机", 1},
    {u8"朋友", u8"手机", 1},
    {u8"同事", u8"office@example.com", 1},
    {u8"徒步小队", u8"手机", 1},
    {u8"大学同学", u8"office@example.com", 1},
    {u8"商家与服务", u8"手机", 1},
    {u8"读书会", u8"手机", 1},  // has no members yet
    {u8"系统分组: 星标", u8"office@example.com", 0},
};

struct Item {
    std::int32_t type;
    std::u8string_view text;
};

struct DeliveredContact {
    std::u8string_view name;
    std::initializer_list<Item> phones{};
    std::initializer_list<Group> groups{};
    bool favourite = false;
    std::uint64_t timesContacted = 0;
    std::string_view lastContact{};  // local time; empty: never
    std::string_view photo{};
    std::u8string_view nickname{};
    std::u8string_view note{};
    std::initializer_list<Item> emails{};
    std::initializer_list<Item> ims{};
    std::initializer_list<Item> websites{};
    std::initializer_list<Item> addresses{};
    std::initializer_list<Item> organisations{};
};

std::vector<ContactEntry> Rows(AddressBook& book, std::initializer_list<Item> items) {
    std::vector<ContactEntry> rows;
    for (const auto& [type, text] : items) {
        rows.push_back({book.NewRow(), type, Utf8(text)});
    }
    return rows;
}

std::optional<ContactText> TextRow(AddressBook& book, std::u8string_view text) {
    return text.empty() ? std::nullopt : std::optional(ContactText{book.NewRow(), Utf8(text)});
}

void Add(AddressBook& book, const DeliveredContact& entry) {
    Contact contact;
    contact.id = book.NewContactId();
    contact.favourite = entry.favourite;
    contact.timesContacted = entry.timesContacted;
    contact.lastContact = entry.lastContact.empty() ? 0 : LocalMilliseconds(entry.lastContact);
    if (!entry.photo.empty()) {
        contact.photo = PhotoFile(entry.photo);
        contact.photoRow = book.NewRow();
    }
    contact.structured = TextRow(book, entry.name);
    contact.name = TextRow(book, entry.name);
    contact.nickname = TextRow(book, entry.nickname);
    contact.note = TextRow(book, entry.note);
    contact.List(ContactList::phones) = Rows(book, entry.phones);
    for (const Group group : entry.groups) {
        contact.List(ContactList::groups).push_back({book.NewRow(), group, {}});
    }
    contact.List(ContactList::emails) = Rows(book, entry.emails);
    contact.List(ContactList::ims) = Rows(book, entry.ims);
    contact.List(ContactList::websites) = Rows(book, entry.websites);
    contact.List(ContactList::addresses) = Rows(book, entry.addresses);
    contact.List(ContactList::organisations) = Rows(book, entry.organisations);
    book.contacts.push_back(std::move(contact));
}

void AddPeople(AddressBook& book) {
    Add(book, {.name = u8"林远舟",
               .phones = {{2, u8"13861234567"}, {3, u8"0519-8812 3456"}},
               .groups = {groupFriends, groupHikers},
               .favourite = true,
               .timesContacted = 27,
               .lastContact = "2011-06-18 09:42:10",
               .photo = "hiker.jpg",
               .nickname = u8"阿舟",
               .note = u8"喜欢地图和老相机，十月生日。",
               .emails = {{1, u8"yuanzhou@example.com"}},
               .ims = {{4, u8"10240768"}},
               .websites = {{0, u8"http://yuanzhou.example.com"}},
               .addresses = {{1, u8"江苏省常州市天宁区青果巷 18 号"}},
               .organisations = {{1, u8"江南测绘研究院"}}});
    Add(book, {.name = u8"顾晓棠",
               .phones = {{2, u8"13512340098"}},
               .groups = {groupFriends},
               .favourite = true,
               .timesContacted = 41,
               .lastContact = "2011-06-17 21:15:36",
               .photo = "painter.jpg",
               .nickname = u8"棠棠",
               .note = u8"水彩课每周三晚上。",
               .emails = {{1, u8"xiaotang@example.com"}, {2, u8"gu@studio.example.com"}},
               .ims = {{4, u8"20480512"}, {1, u8"xiaotang@live.example.com"}},
               .websites = {{0, u8"http://t.example.com/xiaotang"}},
               .addresses = {{1, u8"广东省深圳市南山区海月路 6 号"}},
               .organisations = {{2, u8"半亩画室"}}});
    Add(book, {.name = u8"何思远",
               .phones = {{2, u8"13980012345"}, {1, u8"028-86123456"}},
               .groups = {groupUniversity, groupFriends},
               .timesContacted = 12,
               .lastContact = "2011-06-12 22:11:08",
               .photo = "runner.png",
               .emails = {{1, u8"siyuan@example.com"}},
               .ims = {{3, u8"siyuan.he"}}});
    Add(book, {.name = u8"沈一鸣",
               .phones = {{2, u8"13758880001"},
                          {3, u8"0571-88123456"},
                          {4, u8"0571-88123457"},
                          {6, u8"127-5566778"},
                          {7, u8"057188123458"}},
               .groups = {groupColleagues},
               .timesContacted = 88,
               .lastContact = "2011-06-16 15:28:47",
               .photo = "colleague.bmp",
               .note = u8"合同、付款、发票都找他。",
               .emails = {{2, u8"shen@office.example.com"}, {4, u8"13758880001@139.example.com"}},
               .addresses = {{2, u8"浙江省杭州市西湖区文三路 90 号 东楼 1502"}},
               .organisations = {{1, u8"西溪软件有限公司"}, {2, u8"杭州围棋协会"}}});
    Add(book, {.name = u8"许清和",
               .phones = {{1, u8"01065551234"}},
               .groups = {groupUniversity},
               .ims = {{-1, u8"自定义聊天: xqh"}, {9, u8"unknown-protocol"}}});
    Add(book, {.name = u8"叶知秋",
               .phones = {{2, u8"15951230456"}},
               .groups = {groupHikers, groupUniversity},
               .timesContacted = 5,
               .lastContact = "2011-05-30 11:02:19",
               .photo = "student.gif",
               .nickname = u8"秋秋"});
    Add(book, {.name = u8"周子衿",
               .phones = {{2, u8"13811112222"}, {5, u8"010-65551235"}},
               .groups = {groupFriends},
               .favourite = true,
               .timesContacted = 64,
               .lastContact = "2011-06-15 08:03:19",
               .photo = "sea.jpg",
               .note = u8"头像是去年在海边拍的。",
               .emails = {{0, u8"zijin@example.com"}, {9, u8"zijin@other.example.com"}}});
    Add(book,
        {.name = u8"陆星遥",
         .phones = {{2, u8"13651234567"}},
         .groups = {groupHikers},
         .timesContacted = 3,
         .lastContact = "2011-05-21 20:00:00",
         .websites = {{0, u8"http://xingyao.example.com"}, {0, u8"http://t.example.com/xingyao"}}});
    Add(book, {.name = u8"妈妈",
               .phones = {{2, u8"13861112233"}, {1, u8"051988765432"}},
               .groups = {groupFamily},
               .favourite = true,
               .timesContacted = 203,
               .lastContact = "2011-06-17 19:45:10",
               .photo = "mother.jpg",
               .addresses = {{1, u8"江苏省常州市钟楼区西直街 31 号 402"}}});
    Add(book, {.name = u8"爸爸",
               .phones = {{2, u8"13861113344"}},
               .groups = {groupFamily},
               .favourite = true,
               .timesContacted = 97,
               .lastContact = "2011-06-14 18:20:33",
               .photo = "father.jpg"});
    Add(book, {.name = u8"外婆",
               .phones = {{1, u8"025-8456789"}},
               .groups = {groupFamily},
               .timesContacted = 30,
               .lastContact = "2011-06-05 10:12:00"});
    Add(book, {.name = u8"表哥 江北",
               .phones = {{2, u8"+8613912345678"}},
               .groups = {groupFamily},
               .timesContacted = 9,
               .lastContact = "2011-02-03 09:00:00",
               .addresses = {{3, u8"重庆市江北区建新北路"}, {0, u8"重庆市渝中区解放碑"}}});
    Add(book, {.name = u8"方竹",
               .phones = {{2, u8"138-1234-5678"}},
               .groups = {groupColleagues},
               .timesContacted = 16,
               .lastContact = "2011-06-10 17:31:45",
               .emails = {{2, u8"fang@office.example.com"}},
               .organisations = {{1, u8"西溪软件有限公司 · 设计部"}}});
    Add(book, {.name = u8"欧阳明月",
               .phones = {{2, u8"18612345678"}, {3, u8"075586543210"}},
               .groups = {groupColleagues, groupUniversity},
               .timesContacted = 21,
               .lastContact = "2011-06-09 12:00:01",
               .emails = {{2, u8"ouyang@office.example.com"}}});
    Add(book, {.name = u8"老郑（修车）",
               .phones = {{2, u8"13300001111"}},
               .groups = {groupServices},
               .timesContacted = 2,
               .lastContact = "2011-04-02 16:40:00"});
    Add(book, {.name = u8"房东 王阿姨",
               .phones = {{2, u8"13705710571"}},
               .timesContacted = 18,
               .lastContact = "2011-06-01 08:30:00",
               .note = u8"每月一号交房租。\n水电另算，抄表在十五号。"});
}

// Names that a page has to find room for, and characters that its code page may not have.
void AddDifficultNames(AddressBook& book) {
    Add(book,
        {.name = u8"阿布都热依木·买买提明·艾尔肯江·吐尔逊（南疆运输队负责人，只在周一到周五"
                 u8"上午接电话）",
         .phones = {{2, u8"13999001122"}},
         .organisations = {{0, u8"南疆长途货物联运服务有限责任公司喀什分公司第三车队调度室"}}});
    Add(book, {.name = u8"Łukasz Żółw",
               .phones = {{2, u8"+48601234567"}},
               .note = u8"Spotkanie o 7:00 – nie spóźnij się ☺"});
    Add(book, {.name = u8"李𠮷 🎈", .phones = {{2, u8"15012345678"}}, .nickname = u8"𠮷𠮷"});
    Add(book, {.name = u8"สมชาย", .phones = {{7, u8"+66812345678"}}});
    Add(book, {.name = u8"AA 应急", .phones = {{2, u8"13800138000"}}, .groups = {groupFamily}});
    Add(book, {.name = u8"Tom & Jerry <友>",
               .phones = {{2, u8"13100000007"}},
               .note = u8"a < b && c > d \"引号\" 'x'"});
    Add(book, {.name = u8"只有名字"});
    Add(book, {.name = u8"", .phones = {{0, u8"13455667788"}}});
}

// Services and shops: between them their numbers have every length and form that tells something.
void AddServices(AddressBook& book) {
    struct Service {
        std::u8string_view name;
        std::u8string_view number;
    };
    constexpr Service kNumbers[] = {
        {u8"报警", u8"110"},
        {u8"医疗急救", u8"120"},
        {u8"号码百事通", u8"114"},
        {u8"移动客服", u8"10086"},
        {u8"工行客服", u8"95588"},
        {u8"快递 (邮政)", u8"11185"},
        {u8"移动自助", u8"100861"},
        {u8"物业", u8"88123456"},
        {u8"水站", u8"8812345"},
        {u8"订火车票", u8"95105105"},
        {u8"短信平台", u8"10655800"},
        {u8"旧区号 南京", u8"02512345"},
        {u8"旧区号 深圳", u8"075512345"},
        {u8"短信通道 9", u8"106558001"},
        {u8"必胜客宅急送", u8"4008123123"},
        {u8"客户热线", u8"4001234567"},
        {u8"深圳分店", u8"075586543210"},
        {u8"银行短信", u8"106550201234"},
        {u8"话吧 (17951)", u8"1795113700571234"},
        {u8"网络电话 (座机)", u8"17951075586543210"},
        {u8"验证码", u8"10655020049551234"},
        {u8"通知", u8"1065502004955"},
        {u8"没有记录的号段", u8"14012345678"},
        {u8"私有号码", u8"-2"},
    };
    for (const auto& [name, number] : kNumbers) {
        Add(book, {.name = name, .phones = {{7, number}}, .groups = {groupServices}});
    }
}

}  // namespace

AddressBook DeliveredAddressBook() {
    AddressBook book;
    for (const auto& [title, account, visible] : kGroups) {
        book.groups.push_back({book.NewGroupId(), Utf8(title), Utf8(account), visible});
    }
    AddPeople(book);
    AddDifficultNames(book);
    AddServices(book);
    return book;
}

}  // namespace quorvi::phone
