#include "base/Json.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "link/AdbNames.h"
#include "link/DeviceList.h"

namespace quorvi::cli {
namespace {

Json::Value ToDocument(const DeviceRow& row) {
    Json::Value item;
    item["serial"] = JsonText(row.record.serial);
    item["manufacturer"] = JsonText(row.properties.manufacturer);
    item["model"] = JsonText(CleanModelName(row.properties.model));
    item["brand"] = JsonText(LocalBrandName(row.properties.manufacturer));
    item["api_level"] = row.properties.apiLevel;
    item["android_version"] = JsonText(row.record.androidVersion);
    item["brand_image"] = row.record.brandImage;
    return item;
}

}  // namespace

Status RunDevices(const Arguments&, const Context&, Output& output) {
    const DeviceList list = ListDevices();
    if (list.outcome != RunOutcome::started) {
        output.Complain(Ansi(u8"无法运行 adb"));
        return Status::noLink;
    }
    Json::Value document(Json::arrayValue);
    Table table{u8"序列号", u8"硬件信息", u8"系统版本", u8"API", u8"连接方式"};
    for (const DeviceRow& row : list.rows) {
        document.append(ToDocument(row));
        table.AddRow({row.record.serial, HardwareText(row.properties), row.record.androidVersion,
                      ApiLevelText(row.properties), ConnectionText(row.record)});
    }
    output.Json() ? output.PrintDocument(document) : output.PrintTable(table);
    return Status::done;
}

}  // namespace quorvi::cli
