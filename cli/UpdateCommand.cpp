#include "base/Json.h"
#include "base/Text.h"
#include "base/Version.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "online/VersionNews.h"

namespace quorvi::cli {

Status RunUpdate(const Arguments&, const Context& context, Output& output) {
    const VersionNews news = FetchVersionNews(context.deployment, context.limits);
    if (news.broken) {
        output.Complain(Ansi(u8"网站没有给出更新日志，或者它的 xml文件存在问题，请稍后再试"));
        return Status::noLink;
    }
    Json::Value document;
    document["running"] = std::string(ProductVersion());
    document["newest"] = JsonText(news.newest);
    Json::Value& rows = document["rows"] = Json::Value(Json::arrayValue);
    Table table({u8"更新类型", u8"详细内容"});
    table.AddRow({Ansi(u8"当前版本"), std::string(ProductVersion())});
    table.AddRow({Ansi(u8"最新版本"), news.newest});
    for (const NewsRow& row : news.rows) {
        Json::Value item;
        item["type"] = JsonText(row.caption);
        item["text"] = JsonText(row.text);
        rows.append(item);
        table.AddRow({row.caption, row.text});
    }
    output.Json() ? output.PrintDocument(document) : output.PrintTable(table);
    return Status::done;
}

}  // namespace quorvi::cli
