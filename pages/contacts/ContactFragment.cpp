#include "pages/contacts/ContactFragment.h"

#include <fmt/format.h>

#include "base/Text.h"
#include "pages/contacts/ContactTypes.h"

namespace quorvi {
namespace {

// Enough for an ordinary contact.
constexpr std::size_t kFragmentReserve = 15000;

constexpr OwnMarkup kNoImage = u8"";
constexpr OwnMarkup kCallImage = u8"<img src='pim_call.gif'/>";
constexpr OwnMarkup kWebImage = u8"<img src='pim_web.gif'/>";
constexpr OwnMarkup kGroupImage = u8"<img src='pim_group.gif'/>";

// The lists that a section holds, each in the order in which its items are shown.
struct SectionList {
    ContactRecord::List items;
    const ContactTypeTable& types;
    OwnMarkup image;
};
const SectionList kContactWays[] = {
    {&ContactRecord::phones, kPhoneTypes, kCallImage},
    {&ContactRecord::emails, kEmailTypes, kNoImage},
    {&ContactRecord::ims, kImTypes, kWebImage},
};
const SectionList kOthers[] = {
    {&ContactRecord::addresses, kAddressTypes, kNoImage},
    {&ContactRecord::websites, kWebsiteTypes, kNoImage},
    {&ContactRecord::organisations, kOrganisationTypes, kNoImage},
};
const SectionList kGroups[] = {
    {&ContactRecord::groups, kGroupTypes, kGroupImage},
};

struct Section {
    std::string_view id;
    std::u8string_view title;
    std::span<const SectionList> lists;
};
const Section kSections[] = {
    {"pims", u8"联系方式", kContactWays},
    {"others", u8"其他信息", kOthers},
    {"groups", u8"分组信息", kGroups},
};

HtmlFragment Line(std::string_view label, OwnMarkup image, const HtmlFragment& value) {
    HtmlFragment line(u8"<div><p class='l w80 right c6'>");
    line.Text(label).Own(u8"</p><p class='entry'>").Own(image);
    line.Own(u8"&nbsp;</p><p class='l'>").Append(value);
    return line.Own(u8"</p><p class='clear'></p></div>");
}

HtmlFragment OwnText(std::string_view text) {
    return HtmlFragment().Text(text);
}

HtmlFragment Opening(std::string_view id, std::u8string_view title) {
    HtmlFragment opening(u8"<div id='");
    opening.Text(id).Own(u8"'><p class='category'><b>").Text(Ansi(title));
    return opening.Own(u8"</b></p>");
}

// Nothing for a section without an item.
HtmlFragment SectionText(const ContactRecord& record, const Section& section) {
    HtmlFragment text;
    for (const SectionList& list : section.lists) {
        for (const ContactItem& item : record.*list.items) {
            if (text.Html().empty()) {
                text.Append(Opening(section.id, section.title));
            }
            text.Append(
                Line(list.types.Label(item.type), list.image, HtmlFragment().Foreign(item.text)));
        }
    }
    return text.Html().empty() ? text : text.Own(u8"</div>");
}

HtmlFragment Head(const ContactRecord& record) {
    HtmlFragment head(
        u8"<div class='line'><div class='l'><div class='photo'><img src='avatar_photo.png' "
        u8"width='50' height='50'/></div></div><div class='name'><b>");
    head.Foreign(record.name.Shown()).Own(u8"</b></div><div class='nickname'>");
    head.Foreign(record.nickname.Shown());
    return head.Own(u8"</div><div class='clear'></div></div>");
}

// A tab stands in front of the second and third part, a blank in front of the fourth and the end.
HtmlFragment Summary(const ContactRecord& record) {
    // A signed number, as it is shown.
    const auto times = static_cast<std::int32_t>(record.timesContacted);
    const auto line = [](std::u8string_view label, std::string_view value) {
        return Line(Ansi(label), kNoImage, OwnText(value));
    };
    HtmlFragment summary(u8"<div class='p10 summary'>");
    summary.Append(Opening("generals", u8"基本信息")).Own(u8"\t");
    summary.Append(line(u8"收藏：", Ansi(record.favourite ? u8"【是】" : u8"否"))).Own(u8"\t");
    summary.Append(line(u8"联系次数：", fmt::format("{} {}", times, Ansi(u8"次")))).Own(u8" ");
    return summary.Append(line(u8"上次联系：", record.lastContact)).Own(u8" </div>");
}

HtmlFragment Note(const ContactRecord& record) {
    if (!record.note.present) {
        return {};
    }
    HtmlFragment note = Opening("notes", u8"备注");
    note.Own(u8"<p class='l w280  section  c6'>").Foreign(record.note.text);
    return note.Own(u8"</p></div>");
}

}  // namespace

HtmlFragment ContactFragment(const ContactRecord& record) {
    HtmlFragment fragment;
    fragment.Reserve(kFragmentReserve);
    fragment.Append(Head(record)).Append(Summary(record));
    for (const Section& section : kSections) {
        fragment.Append(SectionText(record, section));
    }
    return fragment.Append(Note(record));
}

}  // namespace quorvi
