// The first page of a pretended store, for the pictures of the store's page. All in it is made up.
#pragma once

#include <string_view>

namespace quorvi {

inline constexpr std::u8string_view kTourStore =
    u8R"html(<!DOCTYPE html>
<html lang="zh-CN"><head><meta charset="utf-8"><title>软件商城</title><style>
* { box-sizing: border-box; margin: 0; padding: 0; }
body { font: 13px/20px "Noto Sans CJK SC", sans-serif; color: #2B2131; background: #fff; }
a { color: #6A2A72; text-decoration: none; }
.top { padding: 26px 24px; background: linear-gradient(100deg, #EECAEF, #F6E3F6 60%, #FAF1FA); }
.top h1 { font-size: 20px; line-height: 28px; color: #4A1D51; }
.top p, li span { font-size: 12px; color: #5E5465; }
nav { display: flex; gap: 8px; padding: 12px 24px 0; }
nav a { padding: 0 14px; line-height: 28px; border-radius: 14px; font-size: 12px; background: #FAF1FA; }
nav a.on { background: #87368F; color: #fff; }
h2 { padding: 14px 24px 8px; font-size: 14px; line-height: 22px; }
ol { display: grid; grid-template-columns: repeat(3, 1fr); gap: 12px; padding: 0 24px 16px; list-style: none; }
li { padding: 12px; border: 1px solid #E8DEEA; border-radius: 8px; }
li div { display: flex; gap: 12px; align-items: center; }
li i { width: 48px; height: 48px; border-radius: 11px; font: 700 22px/48px "Noto Sans CJK SC", sans-serif; color: #fff; text-align: center; }
li b { display: block; font-weight: 400; }
li > a { display: block; margin-top: 10px; line-height: 28px; border-radius: 4px; text-align: center; font-size: 12px; background: #F6E3F6; }
</style></head><body>
<div class="top"><h1>夏日出行必备</h1><p>地图、天气、听书，六款小软件陪你上路</p></div>
<nav><a class="on">推荐</a><a>工具</a><a>生活</a><a>阅读</a><a>摄影</a><a>出行</a><a>游戏</a></nav>
<h2>本周推荐</h2><ol>
<li><div><i style="background:#4A6FCB">词</i><p><b>掌上词典</b><span>工具 · 5.8 MB</span></p></div><a href="qvh:com.example.dictionary.apk">下载到手机</a></li>
<li><div><i style="background:#CF8A1E">记</i><p><b>简记便签</b><span>效率 · 920 KB</span></p></div><a href="qvh:com.example.notes.apk">下载到手机</a></li>
<li><div><i style="background:#2F8FA8">星</i><p><b>星图天气</b><span>生活 · 2.3 MB</span></p></div><a href="qvh:com.example.weather.apk">下载到手机</a></li>
<li><div><i style="background:#9A4AA6">听</i><p><b>晨间听书</b><span>阅读 · 11.6 MB</span></p></div><a href="qvh:com.example.tingshu.apk">下载到手机</a></li>
<li><div><i style="background:#3F8F56">影</i><p><b>轻影相册</b><span>摄影 · 3.4 MB</span></p></div><a href="qvh:com.example.album.apk">下载到手机</a></li>
<li><div><i style="background:#2F8F6B">城</i><p><b>城铁地图</b><span>出行 · 7.2 MB</span></p></div><a href="qvh:com.example.metro.apk">下载到手机</a></li>
</ol></body></html>
)html";

}  // namespace quorvi
