#include "cli/ContactFormInput.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <span>
#include <utility>

#include "base/Json.h"
#include "base/Text.h"

namespace quorvi::cli {
namespace {

using Complaint = std::optional<FormComplaint>;

FormComplaint Complain(std::string_view member, std::u8string_view what) {
    // The name comes from the JSON, in UTF-8; complaints are ANSI.
    return {fmt::format("{}: {}", ToAnsi(member), Ansi(what))};
}

Complaint Read(const Json::Value& value, std::string_view member, std::string& field) {
    if (!value.isString()) {
        return Complain(member, u8"应为字符串");
    }
    field = ToAnsi(value.asString());
    return std::nullopt;
}

Complaint Read(const Json::Value& value, std::string_view member, bool& field) {
    if (!value.isBool()) {
        return Complain(member, u8"应为 true 或 false");
    }
    field = value.asBool();
    return std::nullopt;
}

Complaint Read(const Json::Value& value, std::string_view member, std::int32_t& field) {
    if (!value.isInt()) {
        return Complain(member, u8"应为整数");
    }
    field = value.asInt();
    return std::nullopt;
}

Complaint Read(const Json::Value& value, std::string_view member, ContactTypedField& field) {
    if (!value.isObject()) {
        return Complain(member, u8"应为对象");
    }
    for (const std::string& name : value.getMemberNames()) {
        const std::string path = fmt::format("{}.{}", member, name);
        Complaint complaint;
        if (name == "type") {
            complaint = Read(value[name], path, field.type);
        } else if (name == "text") {
            complaint = Read(value[name], path, field.text);
        } else {
            complaint = Complain(path, u8"没有这个成员");
        }
        if (complaint) {
            return complaint;
        }
    }
    return std::nullopt;
}

Complaint Read(const Json::Value& value, std::string_view member,
               std::array<ContactTypedField, kContactFormPhones>& fields) {
    if (!value.isArray() || value.size() > fields.size()) {
        return Complain(member, u8"应为最多三个对象的数组");
    }
    for (Json::ArrayIndex i = 0; i < value.size(); ++i) {
        if (auto complaint = Read(value[i], fmt::format("{}[{}]", member, i), fields[i])) {
            return complaint;
        }
    }
    return std::nullopt;
}

// One row a member of the form.
struct Member {
    std::string_view name;
    Complaint (*read)(const Json::Value& value, std::string_view name, ContactForm& form);
};

template <auto Field>
constexpr auto kInto = [](const Json::Value& value, std::string_view name, ContactForm& form) {
    return Read(value, name, form.*Field);
};

constexpr Member kMembers[] = {
    {"favourite", kInto<&ContactForm::favourite>},
    {"name", kInto<&ContactForm::name>},
    {"nickname", kInto<&ContactForm::nickname>},
    {"note", kInto<&ContactForm::note>},
    {"phones", kInto<&ContactForm::phones>},
    {"im", kInto<&ContactForm::im>},
    {"email", kInto<&ContactForm::email>},
    {"website", kInto<&ContactForm::website>},
    {"organisation", kInto<&ContactForm::organisation>},
    {"address", kInto<&ContactForm::address>},
};

bool LosesCharacters(const Json::Value& value) {
    if (value.isString()) {
        return !FitsCodePage(value.asString());
    }
    return std::any_of(value.begin(), value.end(), LosesCharacters);
}

}  // namespace

std::variant<ContactFormInput, FormComplaint> ReadContactForm(std::string_view utf8) {
    const auto document = ParseJson(utf8);
    if (!document || !document->isObject()) {
        return FormComplaint{Ansi(u8"标准输入应为一个 JSON 对象")};
    }
    ContactForm form;
    for (const std::string& name : document->getMemberNames()) {
        const auto member = std::ranges::find(kMembers, name, &Member::name);
        if (member == std::end(kMembers)) {
            return Complain(name, u8"没有这个成员");
        }
        if (auto complaint = member->read((*document)[name], name, form)) {
            return *std::move(complaint);
        }
    }
    return ContactFormInput{std::move(form), LosesCharacters(*document)};
}

}  // namespace quorvi::cli
