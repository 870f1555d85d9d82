#include "site/Forms.h"

#include <fmt/format.h>

#include <array>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/Json.h"
#include "base/Text.h"
#include "base/Utf8.h"
#include "online/CheckSum.h"
#include "online/ServiceRequest.h"
#include "site/Catalogue.h"

namespace quorvi::site {
namespace {

constexpr int kBadRequest = 400;
constexpr int kForbidden = 403;
constexpr int kNotFound = 404;

Answer Refusal(int status, std::u8string_view words) {
    return {.status = status, .type = kText, .body = Utf8(words) + "\n"};
}

Answer WrongCheckSum() {
    return Refusal(kForbidden, u8"校验和不对，请求没有处理");
}

// On one line, since the suite's form client puts a mark of its own behind each line.
Answer Document(const Json::Value& document) {
    return {.type = kJson, .body = WriteJson(document, JsonForm::oneLine)};
}

bool HasCheckSum(const Json::Value& request, std::string_view expected) {
    return TextMember(request, "CheckSum") == expected;
}

Answer AnswerStoreLink(const Json::Value& request) {
    const std::string package = TextMember(request, "PackageName");
    if (!HasCheckSum(request, StoreLinkCheckSum(package))) {
        return WrongCheckSum();
    }
    const StoreApp* app = AppOfPackage(package);
    if (app == nullptr) {
        return Refusal(kNotFound, u8"商城里没有这个应用");
    }
    Json::Value answer;
    answer["title"] = Utf8(app->name);
    answer["size"] = SizeText(*app);
    answer["pkg"] = std::string(app->package);
    answer["url"] = fmt::format("{}.apk", app->package);
    return Document(answer);
}

Answer AnswerStoreCheck(const Json::Value& request) {
    const Json::Value& names = request["PackageName"];
    if (!names.isArray()) {
        return Refusal(kBadRequest, u8"请求里没有应用的清单");
    }
    std::vector<std::string> packages;
    packages.reserve(names.size());
    for (const Json::Value& name : names) {
        packages.push_back(name.isString() ? ToAnsi(name.asString()) : std::string());
    }
    if (!HasCheckSum(request, StoreCheckCheckSum(packages))) {
        return WrongCheckSum();
    }
    const std::set<std::string_view> asked(packages.begin(), packages.end());
    Json::Value answer(Json::arrayValue);
    for (const StoreApp& app : StoreApps()) {
        if (asked.contains(app.package)) {
            Json::Value& known = answer.append(Json::objectValue);
            known["pkg"] = std::string(app.package);
            known["level"] = std::to_string(app.stars);
            known["id"] = std::to_string(app.number);
            known["category"] = Utf8(CategoryName(app.category));
            known["description"] = Utf8(app.summary);
        }
    }
    return Document(answer);
}

Answer AnswerFeedback(const Json::Value& request) {
    const std::string platform = ToUtf8(TextMember(request, "Platform"));
    const Json::Value& content = request["Content"];
    if (!content.isString() ||
        !HasCheckSum(request, FeedbackCheckSum(platform, content.asString()))) {
        return WrongCheckSum();
    }
    return {.type = kText, .body = "ok\n"};
}

struct FormService {
    Service service;
    Answer (*answer)(const Json::Value& request);
};
constexpr std::array<FormService, 3> kServices{{
    {kStoreLinkService, &AnswerStoreLink},
    {kStoreCheckService, &AnswerStoreCheck},
    {kFeedbackService, &AnswerFeedback},
}};

// The document in the form's one field. It is not encoded in any way, and what follows it does not
// matter.
std::optional<Json::Value> DocumentIn(std::string_view body, std::string_view field) {
    if (!body.starts_with(field) || !body.substr(field.size()).starts_with('=')) {
        return std::nullopt;
    }
    auto document = ParseFirstJson(body.substr(field.size() + 1));
    return document && document->isObject() ? document : std::nullopt;
}

}  // namespace

Answer AnswerForm(std::string_view service, std::string_view body) {
    for (const FormService& known : kServices) {
        if (known.service.name == service) {
            const auto request = DocumentIn(body, known.service.field);
            return request ? known.answer(*request)
                           : Refusal(kBadRequest, u8"表单里没有能读懂的内容");
        }
    }
    return Refusal(kNotFound, u8"没有这项服务");
}

}  // namespace quorvi::site
