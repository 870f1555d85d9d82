// An adb of a test's own in front of the search path: prints what it is told.
#pragma once

#include <cstdlib>
#include <string>

#include "tests/support/EnvironmentVariable.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi::cli {

class ToldAdb {
  public:
    ToldAdb();

    // What `adb ARGUMENTS` prints on standard output, all its other runs printing nothing. Given in
    // UTF-8.
    void Print(const std::string& arguments, const std::string& text) const;

  private:
    TemporaryFolder folder_;
    EnvironmentVariable path_{"PATH", folder_.Path().string() + ":" + std::getenv("PATH")};
};

}  // namespace quorvi::cli
