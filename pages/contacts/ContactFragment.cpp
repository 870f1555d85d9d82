#include "pages/contacts/ContactFragment.h"

#include <fmt/format.h>

#include "base/Text.h"
#include "pages/contacts/ContactTypes.h"

namespace quorvi {
namespace {

// Enough for an ordinary contact.
constexpr std::size_t kFragmentReserve = 15000;

constexpr std::string_view kCallImage = "<img src='pim_call.gif'/>";
constexpr std::string_view kWebImage = "<img src='pim_web.gif'/>";
constexpr std::string_view kGroupImage = "<img src='pim_group.gif'/>";

// The lists that a section holds, each in the order in which its items are shown.
struct SectionList {
    ContactRecord::List items;
    const ContactTypeTable& types;
    std::string_view image;
};
const SectionList kContactWays[] = {
    {&ContactRecord::phones, kPhoneTypes, kCallImage},
    {&ContactRecord::emails, kEmailTypes, {}},
    {&ContactRecord::ims, kImTypes, kWebImage},
};
const SectionList kOthers[] = {
    {&ContactRecord::addresses, kAddressTypes, {}},
    {&ContactRecord::websites, kWebsiteTypes, {}},
    {&ContactRecord::organisations, kOrganisationTypes, {}},
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

std::string Line(std::string_view label, std::string_view image, std::string_view text) {
    return fmt::format(
        "<div><p class='l w80 right c6'>{}</p><p class='entry'>{}&nbsp;</p><p class='l'>{}</p>"
        "<p class='clear'></p></div>",
        label, image, text);
}

std::string Opening(std::string_view id, std::u8string_view title) {
    return fmt::format("<div id='{}'><p class='category'><b>{}</b></p>", id, Ansi(title));
}

// Nothing for a section without an item.
std::string SectionText(const ContactRecord& record, const Section& section) {
    std::string lines;
    for (const SectionList& list : section.lists) {
        for (const ContactItem& item : record.*list.items) {
            lines += Line(list.types.Label(item.type), list.image, item.text);
        }
    }
    return lines.empty() ? lines : Opening(section.id, section.title) + lines + "</div>";
}

std::string Head(const ContactRecord& record) {
    return fmt::format(
        "<div class='line'><div class='l'><div class='photo'><img src='avatar_photo.png' "
        "width='50' height='50'/></div></div><div class='name'><b>{}</b></div>"
        "<div class='nickname'>{}</div><div class='clear'></div></div>",
        record.name.Shown(), record.nickname.Shown());
}

// A tab stands in front of the second and third part, a blank in front of the fourth and the end.
std::string Summary(const ContactRecord& record) {
    // A signed number, as it is shown.
    const auto times = static_cast<std::int32_t>(record.timesContacted);
    return "<div class='p10 summary'>" + Opening("generals", u8"基本信息") + "\t" +
           Line(Ansi(u8"收藏："), {}, Ansi(record.favourite ? u8"【是】" : u8"否")) + "\t" +
           Line(Ansi(u8"联系次数："), {}, fmt::format("{} {}", times, Ansi(u8"次"))) + " " +
           Line(Ansi(u8"上次联系："), {}, record.lastContact) + " </div>";
}

std::string Note(const ContactRecord& record) {
    if (!record.note.present) {
        return {};
    }
    return Opening("notes", u8"备注") + "<p class='l w280  section  c6'>" + record.note.text +
           "</p></div>";
}

}  // namespace

std::string ContactFragment(const ContactRecord& record) {
    std::string fragment;
    fragment.reserve(kFragmentReserve);
    fragment += Head(record);
    fragment += Summary(record);
    for (const Section& section : kSections) {
        fragment += SectionText(record, section);
    }
    return fragment += Note(record);
}

}  // namespace quorvi
