#include "tour/TourSite.h"

#include <QTcpSocket>
#include <array>
#include <string_view>

#include "tour/TourStore.h"

namespace quorvi {
namespace {

constexpr std::u8string_view kNews =
    u8R"(<?xml version="1.0" encoding="UTF-8"?>
<root>
<item type="version"><v>1.2</v><a>2011 年 6 月版，共 412 款机型</a><b>新增端午与父亲节祝福 86 条</b>
<c>更新 37 款机型的讨论区地址</c></item>
<item type="detail">
<add>联系人支持按姓名首字母查找</add>
<add>截图可以批量保存，文件名带拍摄时间</add>
<update>一万条短信的列表打开时间缩短到一秒以内</update>
<update>下载中断后从断点继续，不再从头开始</update>
<fix>修复飞行模式打开后设置页显示旧状态的问题</fix>
<fix>修复带分号的姓名被拆成两个收件人的问题</fix>
</item>
</root>
)";

constexpr std::u8string_view kWeather =
    u8R"({"weatherinfo":{"city":"北京","fchh":"08",
"temp1":"29℃~21℃","temp2":"26℃~20℃","temp3":"24℃~19℃","temp4":"27℃~21℃","temp5":"28℃~22℃",
"temp6":"32℃~23℃","weather1":"多云转晴","weather2":"小雨","weather3":"中雨转大雨",
"weather4":"雷阵雨","weather5":"阴","weather6":"晴","wind1":"东南风3-4级","wind2":"东风3-4级",
"wind3":"东北风4-5级","wind4":"东南风3-4级","wind5":"微风","wind6":"南风3-4级","img1":"1",
"img3":"7","img5":"9","img7":"4","img9":"2","img11":"0","index":"热，短袖衬衫即可",
"index_co":"较舒适","index_uv":"中等","index48_uv":"弱","index_ls":"适宜",
"index_xc":"不宜，明天有雨","index_tr":"适宜","index_cl":"较适宜"}})";

constexpr std::u8string_view kRatings =
    u8R"([
{"pkg":"com.example.weather","level":"5","id":"101","category":"生活",
 "description":"六日预报与生活指数"},
{"pkg":"com.example.chat","level":"4","id":"102","category":"社交","description":"和家人聊天"},
{"pkg":"com.example.notes","level":"4","id":"103","category":"效率",
 "description":"随手记下每一个念头"},
{"pkg":"com.example.bus","level":"2","id":"104","category":"出行","description":"下一班还有几站"}])";

struct Page {
    std::string_view path;  // how it begins
    std::u8string_view text;
};
constexpr std::array<Page, 5> kPages{{
    {"/update.xml", kNews},
    {"/data/", kWeather},
    {"/feedback/apk_list.php", kRatings},
    {"/feedback/feedback.php", u8"ok"},
    {"/store/", kTourStore},
}};

QByteArray Response(std::string_view path) {
    for (const Page& page : kPages) {
        if (path.starts_with(page.path)) {
            const QByteArray text(reinterpret_cast<const char*>(page.text.data()),
                                  static_cast<qsizetype>(page.text.size()));
            return "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: " +
                   QByteArray::number(text.size()) + "\r\n\r\n" + text;
        }
    }
    return "HTTP/1.1 404 Not Found\r\nConnection: close\r\nContent-Length: 0\r\n\r\n";
}

}  // namespace

TourSite::TourSite() {
    connect(this, &QTcpServer::newConnection, this, &TourSite::Answer);
    listen(QHostAddress::LocalHost);
}

Deployment TourSite::Told() const {
    const std::string host = "127.0.0.1:" + std::to_string(serverPort());
    Deployment deployment = TheDeployment();
    deployment.siteRoot = "http://" + host + "/";
    deployment.storeRoot = "http://" + host + "/store/";
    deployment.weatherHost = host;
    return deployment;
}

void TourSite::Answer() {
    while (QTcpSocket* peer = nextPendingConnection()) {
        connect(peer, &QTcpSocket::readyRead, this, [this, peer] { Read(*peer); });
        connect(peer, &QTcpSocket::disconnected, peer, &QObject::deleteLater);
    }
}

// Answers once a request has come whole; what a form holds does not matter.
void TourSite::Read(QTcpSocket& peer) {
    const QByteArray request = peer.peek(peer.bytesAvailable());
    const qsizetype head = request.indexOf("\r\n\r\n");
    if (head < 0) {
        return;
    }
    constexpr std::string_view kLength = "Content-Length: ";
    const qsizetype length = request.indexOf(kLength.data());
    const qsizetype body = length < 0 || length > head
                               ? 0
                               : request.mid(length + static_cast<qsizetype>(kLength.size()))
                                     .split('\r')
                                     .at(0)
                                     .toLongLong();
    if (request.size() < head + 4 + body) {
        return;
    }
    const QByteArray path = request.split(' ').value(1);
    peer.write(Response({path.constData(), static_cast<std::size_t>(path.size())}));
    peer.disconnectFromHost();
}

}  // namespace quorvi
