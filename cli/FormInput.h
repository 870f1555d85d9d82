// An editor's form as a JSON object on standard input.
//
//   constexpr FormMember<BookmarkForm> kMembers[] = {{"title", kInto<&BookmarkForm::title>}};
//   const auto form = FormOfInput(ReadForm<BookmarkForm>(kMembers, StandardInput()), output);
#pragma once

#include <json/value.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "base/Json.h"
#include "cli/Output.h"

namespace quorvi::cli {

// Why an object is no form, naming the member. ANSI.
struct FormComplaint {
    std::string text;
};

// `member` comes from the JSON, in UTF-8.
[[nodiscard]] FormComplaint Complain(std::string_view member, std::u8string_view what);
// Of an input that is no object at all.
[[nodiscard]] FormComplaint NoObject();

template <typename Form>
struct FormInput {
    Form form;
    // A text holds characters that the code page lacks: they are '?' in the form.
    bool charactersLost = false;
};

// A value into a field of its kind; a complaint when it is of another. Texts become ANSI.
using MemberComplaint = std::optional<FormComplaint>;
[[nodiscard]] MemberComplaint ReadMember(const Json::Value& value, std::string_view member,
                                         std::string& field);
[[nodiscard]] MemberComplaint ReadMember(const Json::Value& value, std::string_view member,
                                         bool& field);
[[nodiscard]] MemberComplaint ReadMember(const Json::Value& value, std::string_view member,
                                         std::int32_t& field);
// An integer from 0 to `most`.
[[nodiscard]] MemberComplaint ReadCount(const Json::Value& value, std::string_view member,
                                        std::uint32_t most, std::uint32_t& field);

// One row a member of the form.
template <typename Form>
struct FormMember {
    std::string_view name;
    MemberComplaint (*read)(const Json::Value& value, std::string_view name, Form& form);
};

// Reads a member into that field by the ReadMember of the field's type.
template <auto Field>
constexpr auto kInto = [](const Json::Value& value, std::string_view name, auto& form) {
    return ReadMember(value, name, form.*Field);
};
// Into a field that holds 0 to `Most`.
template <auto Field, std::uint32_t Most>
constexpr auto kCountInto = [](const Json::Value& value, std::string_view name, auto& form) {
    return ReadCount(value, name, Most, form.*Field);
};

[[nodiscard]] bool LosesCharacters(const Json::Value& value);

// The form in `utf8`, an object; a member left out is a field as the form begins. A member of
// another name or of another kind, and what is no object, is refused.
template <typename Form>
[[nodiscard]] std::variant<FormInput<Form>, FormComplaint> ReadForm(
    std::span<const FormMember<Form>> members, std::string_view utf8) {
    const auto document = ParseJson(utf8);
    if (!document || !document->isObject()) {
        return NoObject();
    }
    Form form;
    for (const std::string& name : document->getMemberNames()) {
        const auto member = std::ranges::find(members, name, &FormMember<Form>::name);
        if (member == members.end()) {
            return Complain(name, u8"没有这个成员");
        }
        if (auto complaint = member->read((*document)[name], name, form)) {
            return *std::move(complaint);
        }
    }
    return FormInput<Form>{std::move(form), LosesCharacters(*document)};
}

// All that comes on standard input.
[[nodiscard]] std::string StandardInput();

// Warns of characters that will be lost, as the editors do.
void WarnOfLostCharacters(Output& output);

// The form that was read; nothing, and its complaint, when it is none. Warns of lost characters.
template <typename Form>
[[nodiscard]] std::optional<Form> FormOfInput(std::variant<FormInput<Form>, FormComplaint> read,
                                              Output& output) {
    if (const auto* complaint = std::get_if<FormComplaint>(&read)) {
        output.Complain(complaint->text);
        return std::nullopt;
    }
    auto& [form, charactersLost] = std::get<FormInput<Form>>(read);
    if (charactersLost) {
        WarnOfLostCharacters(output);
    }
    return std::move(form);
}

}  // namespace quorvi::cli
