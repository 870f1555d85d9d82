// The built quorvictl in a folder of its own: what it keeps beside itself, the table of the
// downloads above all, belongs to the test.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace quorvi {

class OwnProgram {
  public:
    // Its deployment has this site for everything.
    explicit OwnProgram(std::string_view siteRoot);

    // A line that runs it, as Process and RunProgram take it.
    [[nodiscard]] std::vector<std::string> Line(std::vector<std::string> arguments) const;
    [[nodiscard]] std::filesystem::path Tasks() const { return folder_.Path() / "Config.db"; }

  private:
    TemporaryFolder folder_;
};

}  // namespace quorvi
