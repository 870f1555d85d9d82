#include "base/Json.h"

#include <json/reader.h>
#include <json/writer.h>

#include <exception>
#include <memory>

#include "base/Text.h"

namespace quorvi {
namespace {

// Levels of arrays and objects; each costs the reader some stack.
constexpr int kDeepestNesting = 200;

std::optional<Json::Value> Parse(Json::CharReaderBuilder& builder, std::string_view utf8) {
    builder["stackLimit"] = kDeepestNesting;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    Json::Value document;
    try {
        if (reader->parse(utf8.data(), utf8.data() + utf8.size(), &document, nullptr)) {
            return document;
        }
    } catch (const std::exception&) {
        // JsonCpp's reader throws when a document is nested too deeply.
    }
    return std::nullopt;
}

const char* IndentationOf(JsonForm form) {
    switch (form) {
        case JsonForm::lines:
            return "  ";
        case JsonForm::styled:
            return "   ";
        case JsonForm::oneLine:
            break;
    }
    return "";
}

}  // namespace

Json::Value JsonText(std::string_view ansi) {
    return Json::Value(ToUtf8(ansi));
}

std::string TextMember(const Json::Value& object, const char* member) {
    if (!object.isObject() || !object[member].isString()) {
        return {};
    }
    return ToAnsi(object[member].asString());
}

std::optional<Json::Value> ParseJson(std::string_view utf8) {
    Json::CharReaderBuilder builder;
    builder["failIfExtra"] = true;
    builder["allowTrailingCommas"] = false;
    builder["rejectDupKeys"] = true;
    return Parse(builder, utf8);
}

std::optional<Json::Value> ParseFirstJson(std::string_view utf8) {
    Json::CharReaderBuilder builder;
    builder["failIfExtra"] = false;
    return Parse(builder, utf8);
}

std::string WriteJson(const Json::Value& document, JsonForm form) {
    Json::StreamWriterBuilder builder;
    builder["emitUTF8"] = true;
    builder["indentation"] = IndentationOf(form);
    if (form == JsonForm::styled) {
        builder["commentStyle"] = "None";  // room for comments would break every array into lines
    }
    std::string text = Json::writeString(builder, document);
    if (form == JsonForm::styled) {
        text += '\n';
    }
    return text;
}

}  // namespace quorvi
