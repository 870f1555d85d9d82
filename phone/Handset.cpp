#include "phone/Handset.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

#include "base/ByteText.h"
#include "base/Utf8.h"
#include "phone/PackageManifest.h"
#include "phone/adb/Packet.h"

namespace quorvi::phone {
namespace {

constexpr std::string_view kZipStart = "PK\x03\x04";

constexpr std::uint64_t kAgentBytes = 214'016;

InstalledApp AgentApp(std::uint32_t version) {
    InstalledApp app = AppFromFile(std::string(kAgentPackage), kAgentBytes);
    app.name = Utf8(u8"奎维掌上工坊");
    app.version = fmt::format("1.0.{}", version);
    return app;
}

}  // namespace

Handset::Handset(Profile profile) : profile_(std::move(profile)) {
    SetApps(DeliveredApps());
    SetAgent(kDeliveredAgentVersion);
}

bool Handset::PutFile(const std::string& path, StoredFile file) {
    RemoveFile(path);
    if (file.bytes.size() > kMaxStoredBytes - storedBytes_) {
        return false;
    }
    storedBytes_ += file.bytes.size();
    files_[path] = std::move(file);
    return true;
}

const StoredFile* Handset::FindFile(const std::string& path) const {
    const auto found = files_.find(path);
    return found == files_.end() ? nullptr : &found->second;
}

bool Handset::IsDirectory(const std::string& path) const {
    constexpr std::array<std::string_view, 8> kDirectories{
        "/",    "/data",       "/data/local", "/data/local/tmp",
        "/mnt", "/mnt/sdcard", "/sdcard",     "/system"};
    const std::string_view trimmed = path.size() > 1 && path.back() == '/'
                                         ? std::string_view(path).substr(0, path.size() - 1)
                                         : std::string_view(path);
    for (const auto directory : kDirectories) {
        if (trimmed == directory) {
            return true;
        }
    }
    const auto inside = files_.lower_bound(std::string(trimmed) + "/");
    return inside != files_.end() && inside->first.starts_with(std::string(trimmed) + "/");
}

bool Handset::RemoveFile(const std::string& path) {
    const auto found = files_.find(path);
    if (found == files_.end()) {
        return false;
    }
    storedBytes_ -= found->second.bytes.size();
    files_.erase(found);
    return true;
}

std::string Handset::Install(const std::string& path, bool replace) {
    if (installResult_ && *installResult_ != "Success") {
        return fmt::format("Failure [{}]", *installResult_);
    }
    const StoredFile* file = FindFile(path);
    if (!file) {
        return "Failure [INSTALL_FAILED_INVALID_URI]";
    }
    if (!AsText(file->bytes).starts_with(kZipStart)) {
        return "Failure [INSTALL_PARSE_FAILED_NOT_APK]";
    }
    const auto manifest = ReadPackageManifest(file->bytes);
    const bool isAgent = manifest && manifest->package == kAgentPackage;
    std::string package = isAgent ? manifest->package : std::filesystem::path(path).stem().string();
    if (FindApp(package) && !replace) {
        return "Failure [INSTALL_FAILED_ALREADY_EXISTS]";
    }
    if (isAgent) {
        SetAgent(manifest->version);
    } else {
        PutApp(AppFromFile(std::move(package), file->bytes.size()));
    }
    return "Success";
}

bool Handset::Uninstall(const std::string& package) {
    const InstalledApp* app = FindApp(package);
    if (!app || app->system) {
        return false;
    }
    if (package == kAgentPackage) {
        SetAgent(std::nullopt);
    } else {
        EraseApp(package);
    }
    uninstalled_.Tell(package);
    return true;
}

const InstalledApp* Handset::FindApp(std::string_view package) const {
    const auto found = std::ranges::find(apps_, package, &InstalledApp::package);
    return found == apps_.end() ? nullptr : &*found;
}

void Handset::SetApps(std::vector<InstalledApp> apps) {
    if (const InstalledApp* agent = FindApp(kAgentPackage)) {
        apps.push_back(*agent);
    }
    apps_ = std::move(apps);
}

void Handset::PutApp(InstalledApp app) {
    const auto before = std::ranges::find(apps_, app.package, &InstalledApp::package);
    if (before == apps_.end()) {
        apps_.push_back(std::move(app));
    } else {
        // What replaces an application keeps its name and its place, and whether it can go.
        app.name = before->name;
        app.system = before->system;
        *before = std::move(app);
    }
}

void Handset::EraseApp(std::string_view package) {
    std::erase_if(apps_, [&](const InstalledApp& app) { return app.package == package; });
}

void Handset::SetAgent(std::optional<std::uint32_t> version) {
    agentVersion_ = version;
    agentRuns_ = false;
    EraseApp(kAgentPackage);
    if (version) {
        PutApp(AgentApp(*version));
    }
}

bool Handset::StartAgent() {
    ++agentStarts_;
    agentRuns_ = agentVersion_.has_value() && !agentCrashes_;
    return agentVersion_.has_value();
}

}  // namespace quorvi::phone
