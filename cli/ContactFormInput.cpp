#include "cli/ContactFormInput.h"

#include <fmt/format.h>

#include <array>
#include <optional>

namespace quorvi::cli {
namespace {

MemberComplaint ReadTyped(const Json::Value& value, std::string_view member,
                          ContactTypedField& field) {
    if (!value.isObject()) {
        return Complain(member, u8"应为对象");
    }
    for (const std::string& name : value.getMemberNames()) {
        const std::string path = fmt::format("{}.{}", member, name);
        MemberComplaint complaint;
        if (name == "type") {
            complaint = ReadMember(value[name], path, field.type);
        } else if (name == "text") {
            complaint = ReadMember(value[name], path, field.text);
        } else {
            complaint = Complain(path, u8"没有这个成员");
        }
        if (complaint) {
            return complaint;
        }
    }
    return std::nullopt;
}

MemberComplaint ReadTyped(const Json::Value& value, std::string_view member,
                          std::array<ContactTypedField, kContactFormPhones>& fields) {
    if (!value.isArray() || value.size() > fields.size()) {
        return Complain(member, u8"应为最多三个对象的数组");
    }
    for (Json::ArrayIndex i = 0; i < value.size(); ++i) {
        if (auto complaint = ReadTyped(value[i], fmt::format("{}[{}]", member, i), fields[i])) {
            return complaint;
        }
    }
    return std::nullopt;
}

// The reading of the fields that no other form has.
template <auto Field>
constexpr auto kTypedInto = [](const Json::Value& value, std::string_view name, ContactForm& form) {
    return ReadTyped(value, name, form.*Field);
};

constexpr FormMember<ContactForm> kMembers[] = {
    {"favourite", kInto<&ContactForm::favourite>},       {"name", kInto<&ContactForm::name>},
    {"nickname", kInto<&ContactForm::nickname>},         {"note", kInto<&ContactForm::note>},
    {"phones", kTypedInto<&ContactForm::phones>},        {"im", kTypedInto<&ContactForm::im>},
    {"email", kTypedInto<&ContactForm::email>},          {"website", kInto<&ContactForm::website>},
    {"organisation", kInto<&ContactForm::organisation>}, {"address", kInto<&ContactForm::address>},
};

}  // namespace

std::variant<ContactFormInput, FormComplaint> ReadContactForm(std::string_view utf8) {
    return ReadForm<ContactForm>(kMembers, utf8);
}

}  // namespace quorvi::cli
