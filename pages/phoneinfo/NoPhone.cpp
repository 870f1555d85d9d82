#include "pages/phoneinfo/NoPhone.h"

#include "base/Text.h"
#include "link/LinkAdvice.h"

namespace quorvi {
namespace {

constexpr OwnMarkup kLinkToGuide =
    u8"<p class='guide'><a href='qvh:guide'>看图学会连接手机</a></p>";

}  // namespace

HtmlFragment NoPhoneFragment(LinkTrouble trouble) {
    HtmlFragment html;
    if (trouble == LinkTrouble::none) {
        html.Own(
            u8"<img src='no_phone.svg' alt=''>"
            u8"<h1>还没有连接手机</h1>"
            u8"<p>请用数据线连接手机，并在手机上打开“USB 调试”。<br>"
            u8"连接成功后，这里会显示手机的状态。</p>");
        html.Own(kLinkToGuide);
        return html;
    }
    const LinkAdvice& advice = AdviceOn(trouble);
    html.Own(u8"<div class='ask'>");
    if (trouble == LinkTrouble::unauthorized) {
        html.Own(u8"<img src='unauthorized.svg' alt=''>");
    } else {
        html.Own(u8"<img src='no_phone.svg' alt=''>");
    }
    html.Own(u8"<div><h1>").Text(Ansi(advice.headline)).Own(u8"</h1><ol class='steps'>");
    for (const std::u8string_view step : advice.steps) {
        html.Own(u8"<li>").Text(Ansi(step)).Own(u8"</li>");
    }
    html.Own(u8"</ol><p>").Text(Ansi(advice.remark)).Own(u8"</p>");
    html.Own(kLinkToGuide).Own(u8"</div></div>");
    return html;
}

}  // namespace quorvi
