#include "cli/FormInput.h"

#include <fmt/format.h>

#include <iostream>
#include <iterator>

#include "base/Text.h"
#include "pages/kit/SavedText.h"

namespace quorvi::cli {

FormComplaint Complain(std::string_view member, std::u8string_view what) {
    return {fmt::format("{}: {}", ToAnsi(member), Ansi(what))};
}

FormComplaint NoObject() {
    return {Ansi(u8"标准输入应为一个 JSON 对象")};
}

MemberComplaint ReadMember(const Json::Value& value, std::string_view member, std::string& field) {
    if (!value.isString()) {
        return Complain(member, u8"应为字符串");
    }
    field = ToAnsi(value.asString());
    return std::nullopt;
}

MemberComplaint ReadMember(const Json::Value& value, std::string_view member, bool& field) {
    if (!value.isBool()) {
        return Complain(member, u8"应为 true 或 false");
    }
    field = value.asBool();
    return std::nullopt;
}

MemberComplaint ReadMember(const Json::Value& value, std::string_view member, std::int32_t& field) {
    if (!value.isInt()) {
        return Complain(member, u8"应为整数");
    }
    field = value.asInt();
    return std::nullopt;
}

MemberComplaint ReadCount(const Json::Value& value, std::string_view member, std::uint32_t most,
                          std::uint32_t& field) {
    if (!value.isUInt() || value.asUInt() > most) {
        return FormComplaint{fmt::format("{}: {}{}{}", ToAnsi(member), Ansi(u8"应为 0 到 "), most,
                                         Ansi(u8" 的整数"))};
    }
    field = value.asUInt();
    return std::nullopt;
}

bool LosesCharacters(const Json::Value& value) {
    if (value.isString()) {
        return !FitsCodePage(value.asString());
    }
    return std::any_of(value.begin(), value.end(), LosesCharacters);
}

std::string StandardInput() {
    return {std::istreambuf_iterator<char>(std::cin), {}};
}

void WarnOfLostCharacters(Output& output) {
    output.Complain(Ansi(kCharactersLost));
}

}  // namespace quorvi::cli
