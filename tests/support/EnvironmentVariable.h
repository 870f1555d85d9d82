// A variable of the environment for a while.
#pragma once

#include <stdlib.h>

#include <optional>
#include <string>
#include <utility>

namespace quorvi {

// Gives the variable back its value at the end.
class EnvironmentVariable {
  public:
    EnvironmentVariable(std::string name, const std::string& value) : name_(std::move(name)) {
        if (const char* before = getenv(name_.c_str())) {
            before_ = before;
        }
        setenv(name_.c_str(), value.c_str(), 1);
    }
    ~EnvironmentVariable() {
        before_ ? setenv(name_.c_str(), before_->c_str(), 1) : unsetenv(name_.c_str());
    }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

  private:
    std::string name_;
    std::optional<std::string> before_;
};

}  // namespace quorvi
