// A person's messages: friends and family, the carrier, couriers, banks, a wrong number.
#include <initializer_list>
#include <string_view>

#include "base/Utf8.h"
#include "phone/agent/LocalTime.h"
#include "phone/agent/MessageStore.h"

namespace quorvi::phone {
namespace {

struct Line {
    bool incoming;
    std::string_view time;  // local
    std::u8string_view text;
};

constexpr bool kIn = true;
constexpr bool kOut = false;

void Add(MessageStore& store, std::uint64_t id, std::string_view number,
         std::initializer_list<Line> lines) {
    Conversation& conversation = store.Add(id, std::string(number));
    for (const auto& [incoming, time, text] : lines) {
        store.AddMessage(conversation, incoming, LocalMilliseconds(time), Utf8(text));
    }
}

void AddFriends(MessageStore& store) {
    Add(store, 12, "13861234567",
        {{kIn, "2011-06-17 20:58:02", u8"周六去不去爬山？天气预报说上午多云，下午可能有雨。"},
         {kOut, "2011-06-17 21:03:40", u8"去！几点出发？我带水和面包。"},
         {kIn, "2011-06-17 21:05:11", u8"原定八点，怕下雨的话可以再早一点。"},
         {kOut, "2011-06-17 21:06:27", u8"那就七点吧，早去早回。"},
         {kIn, "2011-06-18 09:42:10",
          u8"周六的徒步改到早上七点集合，地铁二号线终点站 B "
          u8"口见，记得带雨衣和充电宝，路上可能会有阵雨。"}});
    Add(store, 9, "13512340098",
        {{kOut, "2011-06-17 20:40:12", u8"照片传到你邮箱了，一共 36 张。"},
         {kIn, "2011-06-17 21:15:36", u8"照片收到了，拍得真好！我挑几张洗出来，下次见面带给你。"}});
    Add(store, 5, "+8613811112222",
        {{kIn, "2011-06-14 22:47:51", u8"到北京了，一路顺利。"},
         {kOut, "2011-06-14 22:50:08", u8"早点休息，晚安。"},
         {kIn, "2011-06-15 08:03:19", u8"早安，今天降温，多穿一件外套。"}});
    Add(store, 18, "13980012345",
        {{kOut, "2011-06-12 22:02:45", u8"《夜航西飞》看完了吗？"},
         {kIn, "2011-06-12 22:11:08", u8"那本书我读完了，借给你？"}});
    Add(store, 3, "13861112233",
        {{kIn, "2011-06-05 08:00:12", u8"粽子寄出去了，大概后天到，记得放冰箱。"},
         {kOut, "2011-06-07 19:22:40", u8"收到啦，肉粽最好吃！"},
         {kIn, "2011-06-12 19:30:00", u8"到家了吗？到了给我回个电话。"}});
    // The number has a name with a character that the code page lacks.
    Add(store, 21, "15012345678",
        {{kIn, "2011-05-28 13:14:15", u8"生日快乐🎂！𠮷𠮷上"},
         {kOut, "2011-05-28 13:20:00", u8"谢谢 ☺"}});
}

void AddWork(MessageStore& store) {
    Add(store, 27, "13758880001",
        {{kIn, "2011-06-16 14:50:30", u8"合同发你邮箱了，今天能看吗？"},
         {kOut, "2011-06-16 15:02:11", u8"在看，三点半前回复。"},
         {kIn, "2011-06-16 15:28:47",
          u8"合同我看过了，第三条的付款时间请再确认一下，其余没有问题。"}});
    Add(store, 22, "13812345678",
        {{kOut, "2011-06-10 17:20:00", u8"首页第二稿 <h1> 太大了，按钮 & 链接的间距 > 8px 才好。"},
         {kIn, "2011-06-10 17:31:45", u8"好的，周一给第三稿。"}});
    // A group of colleagues asked at once.
    Add(store, 23, "075586543210", {{kIn, "2011-06-09 12:00:01", u8"会议改到二号会议室。"}});
    // A message that went out with no answer.
    Add(store, 24, "13705710571",
        {{kOut, "2011-06-01 08:30:00", u8"王阿姨，六月房租已转，请查收。"}});
}

void AddServices(MessageStore& store) {
    Add(store, 31, "10086",
        {{kIn, "2011-05-31 18:00:02", u8"您好，您 5 月已使用上网流量 142.0MB，剩余 8.0MB。"},
         {kOut, "2011-06-17 17:59:40", u8"CXLL"},
         {kIn, "2011-06-17 18:00:02",
          u8"您好，您 6 月已使用上网流量 86.4MB，剩余 63.6MB。如需查询详情请回复 CXLL。"}});
    Add(store, 44, "13911345678",
        {{kIn, "2011-06-14 12:50:55",
          u8"您的快递已放在小区东门自提柜，取件码 6-2-4183，请于 24 小时内取走。"}});
    // An id past 31 bits, which shows as a negative number.
    Add(store, 0x8000002Du, "95588",
        {{kIn, "2011-06-03 10:24:36",
          u8"您尾号 0618 的卡 6 月 3 日支出 128.00 元，余额 3,471.52 元。"}});
    Add(store, 45, "10655020049551234",
        {{kIn, "2011-05-20 20:20:20", u8"验证码 402718，五分钟内有效，请勿告诉他人。"}});
    // The time was never set when this one came.
    Conversation& undated = store.Add(46, "1065502004955");
    store.AddMessage(undated, true, 0, Utf8(u8"欢迎使用本机。"));
}

}  // namespace

MessageStore DeliveredMessages() {
    MessageStore store;
    AddFriends(store);
    AddWork(store);
    AddServices(store);
    return store;
}

}  // namespace quorvi::phone
