#include "backup/Manifest.h"

#include <algorithm>
#include <set>

#include "base/Json.h"
#include "base/Text.h"
#include "base/Version.h"

namespace quorvi {
namespace {

constexpr int kFormVersion = 1;
constexpr std::size_t kMostNameBytes = 64;
constexpr std::size_t kSumDigits = 64;

bool IsLowerOrDigit(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

bool IsSum(std::string_view text) {
    return text.size() == kSumDigits && std::ranges::all_of(text, [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
           });
}

Json::Value DocumentOf(const BackedUpKind& kind) {
    Json::Value document(Json::objectValue);
    document["kind"] = std::string(WordOf(kind.kind));
    document["count"] = kind.count;
    if (!kind.content.empty()) {
        document["content"] = kind.content;
    }
    Json::Value& files = document["files"] = Json::Value(Json::arrayValue);
    for (const BackedUpFile& file : kind.files) {
        Json::Value item(Json::objectValue);
        item["name"] = file.name;
        item["bytes"] = static_cast<Json::UInt64>(file.bytes);
        item["sha256"] = file.sha256;
        files.append(std::move(item));
    }
    return document;
}

// The reading of one manifest. Each step gives false, and says why, where it goes no further.
class Reading {
  public:
    [[nodiscard]] ManifestRead Read(std::string_view utf8) {
        ManifestRead read;
        if (Manifest manifest; Take(utf8, manifest)) {
            read.manifest = std::move(manifest);
        } else {
            read.why = std::move(why_);
        }
        return read;
    }

  private:
    bool Refuse(std::u8string_view why) {
        why_ = Ansi(why);
        return false;
    }

    bool Take(std::string_view utf8, Manifest& manifest) {
        if (utf8.size() > kMostManifestBytes) {
            return Refuse(u8"备份的清单太大");
        }
        const auto document = ParseJson(utf8);
        if (!document || !document->isObject()) {
            return Refuse(u8"备份的清单读不懂");
        }
        const Json::Value& version = (*document)["version"];
        if (!version.isInt() || version.asInt() != kFormVersion) {
            return Refuse(u8"备份的格式不是这个版本能读的，请换用新版本");
        }
        manifest.phone = TextMember(*document, "phone");
        const Json::Value& made = (*document)["made"];
        if (!made.isInt64()) {
            return Refuse(u8"备份的清单里没有日期");
        }
        manifest.made = made.asInt64();
        return TakeKinds((*document)["kinds"], manifest) && TakeSkipped(*document, manifest);
    }

    bool TakeKinds(const Json::Value& kinds, Manifest& manifest) {
        if (!kinds.isArray()) {
            return Refuse(u8"备份的清单里没有内容");
        }
        for (const Json::Value& item : kinds) {
            if (!item.isObject()) {
                return Refuse(u8"备份的清单读不懂");
            }
            BackedUpKind kind;
            const Json::Value& word = item["kind"];
            const auto known = word.isString() ? BackupKindOf(word.asString()) : std::nullopt;
            if (!known || manifest.Find(*known) != nullptr) {
                return Refuse(u8"备份的清单里有不认识的或重复的内容");
            }
            kind.kind = *known;
            const Json::Value& content = item["content"];
            if (!item["count"].isUInt() ||
                (!content.isNull() && (!content.isString() || !IsSum(content.asString())))) {
                return Refuse(u8"备份的清单读不懂");
            }
            kind.count = item["count"].asUInt();
            kind.content = content.asString();
            if (!TakeFiles(item["files"], kind)) {
                return false;
            }
            manifest.kinds.push_back(std::move(kind));
        }
        return true;
    }

    bool TakeFiles(const Json::Value& files, BackedUpKind& kind) {
        if (!files.isArray()) {
            return Refuse(u8"备份的清单读不懂");
        }
        for (const Json::Value& item : files) {
            if (!item.isObject() || !item["name"].isString() || !item["sha256"].isString() ||
                !item["bytes"].isUInt64()) {
                return Refuse(u8"备份的清单读不懂");
            }
            BackedUpFile file{item["name"].asString(), item["bytes"].asUInt64(),
                              item["sha256"].asString()};
            if (!IsBackupFileName(file.name) || file.name == kManifestName) {
                return Refuse(u8"备份的清单里有不能用的文件名");
            }
            if (!IsSum(file.sha256) || file.bytes > kMostBackupFileBytes) {
                return Refuse(u8"备份的清单读不懂");
            }
            if (!names_.insert(file.name).second || names_.size() > kMostBackupFiles) {
                return Refuse(u8"备份的清单里的文件重复或者太多");
            }
            kind.files.push_back(std::move(file));
        }
        return true;
    }

    bool TakeSkipped(const Json::Value& document, Manifest& manifest) {
        const Json::Value& count = document["skipped_count"];
        const Json::Value& skipped = document["skipped"];
        if (!count.isUInt() || !skipped.isArray() || skipped.size() > kMostSkippedNamed ||
            skipped.size() > count.asUInt()) {
            return Refuse(u8"备份的清单读不懂");
        }
        manifest.skippedCount = count.asUInt();
        for (const Json::Value& item : skipped) {
            const auto kind = BackupKindOf(ToUtf8(TextMember(item, "kind")));
            if (!kind) {
                return Refuse(u8"备份的清单读不懂");
            }
            manifest.skipped.push_back({*kind, TextMember(item, "what"), TextMember(item, "why")});
        }
        return true;
    }

    std::set<std::string> names_;
    std::string why_;
};

}  // namespace

std::string_view WordOf(BackupKind kind) {
    return std::ranges::find(kBackupKinds, kind, &BackupKindName::kind)->word;
}

std::string NameOf(BackupKind kind) {
    return Ansi(std::ranges::find(kBackupKinds, kind, &BackupKindName::kind)->name);
}

std::optional<BackupKind> BackupKindOf(std::string_view word) {
    const auto* found = std::ranges::find(kBackupKinds, word, &BackupKindName::word);
    return found == kBackupKinds.end() ? std::nullopt : std::optional(found->kind);
}

const BackedUpKind* Manifest::Find(BackupKind kind) const {
    const auto found = std::ranges::find(kinds, kind, &BackedUpKind::kind);
    return found == kinds.end() ? nullptr : &*found;
}

Json::Value SkippedDocument(const std::vector<SkippedItem>& items) {
    Json::Value skipped(Json::arrayValue);
    for (const SkippedItem& item : items) {
        Json::Value row(Json::objectValue);
        row["kind"] = std::string(WordOf(item.kind));
        row["what"] = JsonText(item.what);
        row["why"] = JsonText(item.why);
        skipped.append(std::move(row));
    }
    return skipped;
}

std::string WriteManifest(const Manifest& manifest) {
    Json::Value document(Json::objectValue);
    document["version"] = kFormVersion;
    document["program"] = "Quorvi " + std::string(ProductVersion());
    document["phone"] = JsonText(manifest.phone);
    document["made"] = static_cast<Json::Int64>(manifest.made);
    Json::Value& kinds = document["kinds"] = Json::Value(Json::arrayValue);
    for (const BackedUpKind& kind : manifest.kinds) {
        kinds.append(DocumentOf(kind));
    }
    document["skipped_count"] = manifest.skippedCount;
    document["skipped"] = SkippedDocument(manifest.skipped);
    return WriteJson(document, JsonForm::lines) + "\n";
}

ManifestRead ReadManifest(std::string_view utf8) {
    return Reading().Read(utf8);
}

bool IsBackupFileName(std::string_view name) {
    const auto dot = name.find('.');
    const auto isLetter = [](char c) { return IsLowerOrDigit(c) || c == '-'; };
    return name.size() <= kMostNameBytes && dot != std::string_view::npos && dot > 0 &&
           dot + 1 < name.size() && std::ranges::all_of(name.substr(0, dot), isLetter) &&
           std::ranges::all_of(name.substr(dot + 1), isLetter);
}

}  // namespace quorvi
