// An adb that does what a test says: a script in a directory of its own.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "link/LinkEnvironment.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {

class FakeAdb {
  public:
    // `script`: the body of a shell script; "$*" are the arguments, "$dir" is a directory that the
    // script may write to, and `await NAME` waits for the file "$dir/NAME", though not for ever.
    explicit FakeAdb(std::string_view script);

    // The executable's path.
    [[nodiscard]] std::string Path() const { return (directory_.Path() / "adb").string(); }
    [[nodiscard]] const std::filesystem::path& Directory() const { return directory_.Path(); }

    // The argument lines of the runs so far, in their order.
    [[nodiscard]] std::vector<std::string> Runs() const;
    // The same with each argument by itself.
    [[nodiscard]] std::vector<std::vector<std::string>> Calls() const;

    // Whether a file of the script's directory is there, and making one.
    [[nodiscard]] bool Has(const char* file) const;
    void Put(const char* file) const;
    // Ends the process whose number the script wrote to a file; whether one of that number is there
    // and has not ended.
    void Kill(const char* file) const;
    [[nodiscard]] bool IsRunning(const char* file) const;

    // An environment with this adb in it, and with no server and no agent.
    [[nodiscard]] LinkEnvironment Environment() const;

  private:
    TemporaryFolder directory_;
};

// What this process holds now: descriptors, threads, children that ended and were not reaped.
[[nodiscard]] int OpenDescriptors();
[[nodiscard]] int RunningThreads();
// The same once it stands still: threads of what ran before are gone.
[[nodiscard]] int SettledThreads();
[[nodiscard]] int ZombieChildren();

}  // namespace quorvi
