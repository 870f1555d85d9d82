#include "online/Feedback.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/Json.h"
#include "base/Text.h"
#include "base/os/KernelRelease.h"
#include "online/CheckSum.h"
#include "online/ServiceRequest.h"

namespace quorvi {
namespace {

constexpr std::size_t kShortestContent = 4;
constexpr std::size_t kShortestFirmware = 2;
constexpr std::size_t kShortestModel = 2;

// By API level, from 1 on.
constexpr std::array<std::string_view, 37> kAndroidVersions{
    "1.0", "1.1", "1.5", "1.6", "2.0",   "2.0.1", "2.1", "2.2", "2.3", "2.3.3",
    "3.0", "3.1", "3.2", "4.0", "4.0.3", "4.1",   "4.2", "4.3", "4.4", "4.4W",
    "5.0", "5.1", "6.0", "7.0", "7.1",   "8.0",   "8.1", "9",   "10",  "11",
    "12",  "12L", "13",  "14",  "15",    "16",    "17"};

std::string_view NameOf(FeedbackPlatform platform) {
    return platform == FeedbackPlatform::android ? "Android" : "Ophone";
}

// Characters, whatever number of bytes each takes.
std::size_t LengthOf(std::string_view ansi) {
    const std::string utf8 = ToUtf8(ansi);
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
    }));
}

}  // namespace

std::string FeedbackText(FeedbackOutcome outcome) {
    switch (outcome) {
        case FeedbackOutcome::contentTooShort:
            return Ansi(u8"您的反馈内容过少");
        case FeedbackOutcome::firmwareTooShort:
            return Ansi(u8"请输入有效的固件版本");
        case FeedbackOutcome::modelTooShort:
            return Ansi(u8"请输入有效的机型");
        case FeedbackOutcome::failed:
            return Ansi(u8"提交失败，请稍后再试 :(");
        case FeedbackOutcome::received:
            return Ansi(u8"感谢您的支持，反馈信息我们已收到 :)");
    }
    return {};
}

std::string FeedbackDocument(const FeedbackForm& form, std::int32_t client, int pc) {
    const std::string platform(NameOf(form.platform));
    Json::Value document;
    document["CheckSum"] = FeedbackCheckSum(platform, ToUtf8(form.content));
    document["Client"] = client;
    document["Platform"] = platform;
    document["Model"] = JsonText(form.model);
    document["Rom"] = JsonText(form.firmware);
    document["Pc"] = pc;
    document["Content"] = JsonText(form.content);
    document["QQ"] = JsonText(form.qq);
    document["Email"] = JsonText(form.email);
    return WriteJson(document, JsonForm::styled);
}

FeedbackOutcome SendFeedback(const Deployment& deployment, const FeedbackForm& form,
                             std::int32_t client, const HttpLimits& limits) {
    if (LengthOf(form.content) < kShortestContent) {
        return FeedbackOutcome::contentTooShort;
    }
    if (LengthOf(form.firmware) < kShortestFirmware) {
        return FeedbackOutcome::firmwareTooShort;
    }
    if (LengthOf(form.model) < kShortestModel) {
        return FeedbackOutcome::modelTooShort;
    }
    const std::string reply =
        AskService(deployment, kFeedbackService,
                   FeedbackDocument(form, client, KernelReleaseNumber()), limits);
    return reply.find("ok") == std::string::npos ? FeedbackOutcome::failed
                                                 : FeedbackOutcome::received;
}

std::string AndroidVersionOf(std::int32_t api) {
    const auto index = static_cast<std::size_t>(api) - 1;
    return index < kAndroidVersions.size() ? fmt::format("Android {}", kAndroidVersions.at(index))
                                           : fmt::format("API {}", api);
}

}  // namespace quorvi
