// The phone without its agent's data: files that were pushed, the applications that are installed,
// and whether the agent runs.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "agent/Request.h"
#include "base/Observers.h"
#include "phone/InstalledApps.h"
#include "phone/Profile.h"

namespace quorvi::phone {

inline constexpr std::string_view kAgentPackage = "com.quorvi.Quorvi";
inline constexpr std::string_view kAgentActivity = ".Quorvi";

// The agent's version in the package that is delivered beside the suite.
inline constexpr std::uint32_t kDeliveredAgentVersion = 20;

// Bytes that all pushed files may have together.
inline constexpr std::size_t kMaxStoredBytes = 512 * 1024 * 1024;

struct StoredFile {
    std::uint32_t mode = 0100644;  // as stat gives it
    std::uint32_t modified = 0;    // seconds since 1970
    Bytes bytes;
};

class Handset {
  public:
    explicit Handset(Profile profile);

    [[nodiscard]] const Profile& Facts() const { return profile_; }

    // Files by full path. Put is false when the storage is full.
    [[nodiscard]] bool PutFile(const std::string& path, StoredFile file);
    [[nodiscard]] const StoredFile* FindFile(const std::string& path) const;
    [[nodiscard]] bool IsDirectory(const std::string& path) const;
    bool RemoveFile(const std::string& path);
    [[nodiscard]] const std::map<std::string, StoredFile>& Files() const { return files_; }

    // What is installed, the agent included; each package once, in the order of installation.
    [[nodiscard]] const std::vector<InstalledApp>& Apps() const { return apps_; }
    // Nothing when no application of this package is installed.
    [[nodiscard]] const InstalledApp* FindApp(std::string_view package) const;
    // Installs these and removes all others, but leaves the agent as it is.
    void SetApps(std::vector<InstalledApp> apps);

    // Installs a pushed file; what pm prints: "Success", or "Failure [CODE]". A file that begins as
    // a zip archive does becomes a package named after the file; the agent's becomes the agent,
    // stopped, in the version that its manifest says.
    [[nodiscard]] std::string Install(const std::string& path, bool replace);
    [[nodiscard]] bool Uninstall(const std::string& package);
    // Told of the package of each application that was uninstalled.
    [[nodiscard]] Observers<std::string>& Uninstalled() { return uninstalled_; }
    // From now on pm prints this and installs nothing; without a value it installs again.
    void SetInstallResult(std::optional<std::string> result) { installResult_ = std::move(result); }

    // Without a value when the agent is not installed.
    [[nodiscard]] std::optional<std::uint32_t> AgentVersion() const { return agentVersion_; }
    void SetAgent(std::optional<std::uint32_t> version);
    [[nodiscard]] bool AgentRuns() const { return agentRuns_; }
    // False when the agent is not installed. An agent told to crash is stopped at once.
    bool StartAgent();
    // How often it was told to start, whatever came of it.
    [[nodiscard]] std::uint32_t AgentStarts() const { return agentStarts_; }
    void SetAgentCrashes(bool crashes) { agentCrashes_ = crashes; }
    void StopAgent() { agentRuns_ = false; }

  private:
    void PutApp(InstalledApp app);
    void EraseApp(std::string_view package);

    Profile profile_;
    std::map<std::string, StoredFile> files_;
    std::size_t storedBytes_ = 0;
    std::vector<InstalledApp> apps_;
    Observers<std::string> uninstalled_;
    std::optional<std::string> installResult_;
    std::optional<std::uint32_t> agentVersion_;
    bool agentRuns_ = false;
    std::uint32_t agentStarts_ = 0;
    bool agentCrashes_ = false;
};

}  // namespace quorvi::phone
