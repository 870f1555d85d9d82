#include "backup/RestorePlan.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "backup/ContactMatch.h"
#include "backup/Content.h"
#include "base/Text.h"
#include "pages/alarms/AlarmDays.h"

namespace quorvi {
namespace {

constexpr std::u8string_view kNoName = u8"没有姓名，也没有可以当作姓名的内容，手机不能新建";
constexpr std::u8string_view kOtherStays = u8"手机上的内容不同，保留手机上的";

// The records of a backup against those of the phone, each of which stands for one at most: first
// those that are the same altogether, then those of the same key. `keyOf` gives a text.
template <typename Record, typename KeyOf>
class Counterparts {
  public:
    Counterparts(const std::vector<Record>& onPhone, KeyOf keyOf) : keyOf_(keyOf) {
        for (const Record& record : onPhone) {
            ++contents_[ContentOf(record)];
            ++keys_[keyOf_(record)];
        }
    }

    // To be asked of all records of the backup before any Loose.
    [[nodiscard]] bool TakeSame(const Record& record) {
        const auto found = contents_.find(ContentOf(record));
        if (found == contents_.end() || found->second == 0) {
            return false;
        }
        --found->second;
        --keys_[keyOf_(record)];
        return true;
    }
    [[nodiscard]] bool TakeLoose(const Record& record) {
        const auto found = keys_.find(keyOf_(record));
        if (found == keys_.end() || found->second == 0) {
            return false;
        }
        --found->second;
        return true;
    }

  private:
    KeyOf keyOf_;
    std::map<std::string, std::size_t> contents_;
    std::map<std::string, std::size_t> keys_;
};

std::string AlarmKey(const AlarmSettings& alarm) {
    return fmt::format("{} {} {} {}", alarm.hour, alarm.minute, alarm.days, alarm.label);
}
std::string BookmarkKey(const BookmarkSettings& bookmark) {
    return bookmark.url;
}

std::string CalledAs(const AlarmSettings& alarm) {
    return AlarmTimeText(alarm.hour, alarm.minute) + " " + alarm.label;
}
std::string CalledAs(const BookmarkSettings& bookmark) {
    return !bookmark.title.empty() ? bookmark.title : bookmark.url;
}

bool IsPossible(const AlarmSettings& alarm) {
    return CanBeSent(alarm);
}
bool IsPossible(const BookmarkSettings&) {
    return true;
}

template <typename Record, typename KeyOf>
void PlanRecords(BackupKind kind, const std::vector<Record>& backup,
                 const std::vector<Record>& onPhone, KeyOf keyOf, std::u8string_view whyImpossible,
                 RestorePlan& plan) {
    Counterparts<Record, KeyOf> counterparts(onPhone, keyOf);
    std::vector<bool> same;
    same.reserve(backup.size());
    for (const Record& record : backup) {
        same.push_back(counterparts.TakeSame(record));
    }
    for (std::size_t i = 0; i < backup.size(); ++i) {
        RestoreItem item{kind, RestoreAction::there, CalledAs(backup[i]), {}, {}};
        if (!same[i] && !IsPossible(backup[i])) {
            item.action = RestoreAction::impossible;
            item.why = Ansi(whyImpossible);
        } else if (!same[i] && counterparts.TakeLoose(backup[i])) {
            item.why = Ansi(kOtherStays);
        } else if (!same[i]) {
            item.action = RestoreAction::add;
            item.step = backup[i];
        }
        plan.items.push_back(std::move(item));
    }
}

void PlanGroups(const RestoreContent& backup, const PhoneContent& phone, RestorePlan& plan) {
    std::map<std::string, std::size_t> there;
    for (const ContactGroup& group : phone.groups) {
        ++there[CardText(group.titleCame)];
    }
    for (const std::string& title : backup.groups) {
        RestoreItem item{BackupKind::groups, RestoreAction::there, ToAnsi(title), {}, {}};
        if (const auto found = there.find(title); found != there.end() && found->second > 0) {
            --found->second;
        } else {
            item.action = RestoreAction::add;
            item.step = GroupToAdd{title};
        }
        plan.items.push_back(std::move(item));
    }
}

// The titles of groups that the phone has or is going to have.
std::set<std::string> TitlesThen(const RestoreContent& backup, const PhoneContent& phone) {
    std::set<std::string> titles(backup.groups.begin(), backup.groups.end());
    for (const ContactGroup& group : phone.groups) {
        titles.insert(CardText(group.titleCame));
    }
    return titles;
}

void PlanCards(const RestoreContent& backup, const PhoneContent& phone, RestorePlan& plan) {
    const std::set<std::string> titles = TitlesThen(backup, phone);
    const auto matches = MatchCards(backup.cards, phone.cards, titles);
    std::size_t photos = 0;
    for (std::size_t i = 0; i < matches.size(); ++i) {
        const ContactCard& card = backup.cards[i];
        const CardMatch& match = matches[i];
        RestoreItem item{
            BackupKind::contacts, RestoreAction::there, ToAnsi(CalledOnPhone(card)), {}, {}};
        switch (match.action) {
            case CardMatch::Action::add:
                item.action = RestoreAction::add;
                item.step = CardToAdd{i};
                photos += backup.hadPhoto[i] ? 1 : 0;
                if (std::ranges::any_of(card.groups, [&](const std::string& title) {
                        return !titles.contains(title);
                    })) {
                    item.why = Ansi(u8"手机上没有它的分组，不加入那个分组");
                }
                break;
            case CardMatch::Action::complete:
                item.action = RestoreAction::change;
                item.step = CardToComplete{i, phone.contactIds[match.onPhone]};
                break;
            case CardMatch::Action::there:
                break;
            case CardMatch::Action::impossible:
                item.action = RestoreAction::impossible;
                item.why = Ansi(kNoName);
                break;
        }
        if (match.keepsOther) {
            item.why = Ansi(kOtherStays);
        }
        plan.items.push_back(std::move(item));
    }
    if (photos > 0) {
        plan.items.push_back({BackupKind::contacts,
                              RestoreAction::impossible,
                              fmt::format(fmt::runtime(Ansi(u8"{} 张头像")), photos),
                              Ansi(u8"手机不接收头像，新建的联系人没有头像"),
                              {}});
    }
    const auto planCards = [&plan](std::uint32_t count, std::u8string_view why) {
        if (count > 0) {
            plan.items.push_back({BackupKind::contacts,
                                  RestoreAction::impossible,
                                  fmt::format(fmt::runtime(Ansi(u8"{} 个联系人")), count),
                                  Ansi(why),
                                  {}});
        }
    };
    planCards(backup.emptyCards, kNoName);
    planCards(backup.unreadCards, u8"备份里的内容读不懂");
}

// What is in the backup for other programs and for the eye alone.
void PlanTheImpossible(const Manifest& manifest, const std::vector<BackupKind>& kinds,
                       RestorePlan& plan) {
    struct Impossible {
        BackupKind kind;
        std::u8string_view why;
    };
    constexpr std::array<Impossible, 4> kImpossible{{
        {BackupKind::messages, u8"手机不接收短信的恢复，可以在备份的文件里查看"},
        {BackupKind::calls, u8"手机不接收通话记录的恢复，可以在备份的文件里查看"},
        {BackupKind::phone, u8"只供查看"},
        {BackupKind::applications, u8"只供查看，请在手机上重新安装"},
    }};
    for (const auto& [kind, why] : kImpossible) {
        const BackedUpKind* found = manifest.Find(kind);
        if (found != nullptr && std::ranges::find(kinds, kind) != kinds.end()) {
            plan.items.push_back({kind,
                                  RestoreAction::impossible,
                                  NameOf(kind) + " " + std::to_string(found->count),
                                  Ansi(why),
                                  {}});
        }
    }
}

}  // namespace

std::size_t RestorePlan::Count(BackupKind kind, RestoreAction action) const {
    return static_cast<std::size_t>(std::ranges::count_if(items, [&](const RestoreItem& item) {
        return item.kind == kind && item.action == action;
    }));
}

std::size_t RestorePlan::Count(RestoreAction action) const {
    return static_cast<std::size_t>(std::ranges::count(items, action, &RestoreItem::action));
}

RestorePlan PlanRestore(const RestoreContent& backup, const PhoneContent& phone,
                        const Manifest& manifest, const std::vector<BackupKind>& kinds) {
    RestorePlan plan;
    PlanGroups(backup, phone, plan);
    PlanCards(backup, phone, plan);
    PlanRecords(BackupKind::alarms, backup.alarms, phone.alarms, AlarmKey,
                u8"没有标题或者铃声，手机不能新建", plan);
    PlanRecords(BackupKind::bookmarks, backup.bookmarks, phone.bookmarks, BookmarkKey, {}, plan);
    PlanTheImpossible(manifest, kinds, plan);
    return plan;
}

}  // namespace quorvi
