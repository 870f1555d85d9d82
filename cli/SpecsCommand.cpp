#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <span>
#include <system_error>
#include <vector>

#include "base/Json.h"
#include "base/Places.h"
#include "base/Text.h"
#include "base/os/SmallFile.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "refdata/PhoneSpecs.h"

namespace quorvi::cli {
namespace {

constexpr std::string_view kElementEnd = "-device";

// "android" for the element android-device.
std::string NameOf(const SpecsPlatform& platform) {
    return std::string(platform.element.substr(0, platform.element.size() - kElementEnd.size()));
}

std::vector<std::string> PlatformNames() {
    std::vector<std::string> names;
    for (const SpecsPlatform& platform : kSpecsPlatforms) {
        names.push_back(NameOf(platform));
    }
    return names;
}

std::optional<std::size_t> PlaceOf(const std::string& name, std::span<const std::string> names,
                                   Output& output) {
    const auto found = std::find(names.begin(), names.end(), name);
    if (found == names.end()) {
        output.Complain(name + Ansi(u8": 手机参数里没有"));
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - names.begin());
}

void PrintNames(std::span<const std::string> names, Output& output) {
    Json::Value document(Json::arrayValue);
    for (const std::string& name : names) {
        document.append(JsonText(name));
        if (!output.Json()) {
            output.PrintLine(name);
        }
    }
    if (output.Json()) {
        output.PrintDocument(document);
    }
}

void PrintValues(std::span<const std::string> values, Output& output) {
    Json::Value document(Json::objectValue);
    Table table({u8"类型", u8"详细参数"});
    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::string caption = Ansi(kSpecCaptions.at(i));
        document[ToUtf8(caption)] = JsonText(values[i]);
        table.AddRow({caption, values[i]});
    }
    output.Json() ? output.PrintDocument(document) : output.PrintTable(table);
}

}  // namespace

Status RunSpecs(const Arguments& arguments, const Context&, Output& output) {
    std::vector<std::string> names;
    std::ranges::transform(arguments.operands, std::back_inserter(names), &ToAnsi);
    if (names.empty()) {
        PrintNames(PlatformNames(), output);
        return Status::done;
    }
    const auto file = ThePlaces().Delivered("Data/device.xml");
    SpecsChoice choice;
    // Each name leads to the list in which the next one is looked up.
    const auto platform = PlaceOf(names[0], PlatformNames(), output);
    if (!platform) {
        return Status::notFound;
    }
    choice.platform = *platform;
    auto lists = ReadSpecs(file, choice);
    for (std::size_t i = 1; lists && i < names.size(); ++i) {
        const auto place = PlaceOf(names[i], i == 1 ? lists->makers : lists->models, output);
        if (!place) {
            return Status::notFound;
        }
        (i == 1 ? choice.maker : choice.model) = *place;
        lists = ReadSpecs(file, choice);
    }
    if (!lists) {
        output.Complain(ToAnsi(file.native()) + Ansi(u8": 参数-xml文件存在问题"));
        return Status::notFound;
    }
    if (names.size() == 3) {
        PrintValues(lists->values, output);
    } else {
        PrintNames(names.size() == 1 ? lists->makers : lists->models, output);
    }
    return Status::done;
}

Status RunSpecsCheck(const Arguments& arguments, const Context&, Output& output) {
    const std::string& file = arguments.operands[0];
    const auto bytes = ReadSmallFile(file, kMostXmlBytes);
    std::error_code failed;
    const bool large =
        !bytes && std::filesystem::file_size(file, failed) > kMostXmlBytes && !failed;
    if (!bytes && !large) {
        output.Complain(ToAnsi(file) + Ansi(u8": 读不了这个文件"));
        return Status::notFound;
    }
    const std::vector<SpecsFinding> findings =
        CheckSpecs(large ? std::string(kMostXmlBytes + 1, ' ') : *bytes);
    Json::Value document(Json::arrayValue);
    for (const SpecsFinding& finding : findings) {
        Json::Value item;
        item["line"] = Json::Value::UInt64{finding.line};
        item["text"] = JsonText(finding.text);
        document.append(item);
        if (!output.Json()) {
            output.PrintLine(fmt::format("{}: {}", finding.line, finding.text));
        }
    }
    if (output.Json()) {
        output.PrintDocument(document);
    }
    return findings.empty() ? Status::done : Status::wrongUsage;
}

}  // namespace quorvi::cli
