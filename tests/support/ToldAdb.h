// An adb of a test's own in front of the search path: prints what it is told.
#pragma once

#include <filesystem>
#include <string>

namespace quorvi::cli {

class ToldAdb {
  public:
    ToldAdb();
    ~ToldAdb();
    ToldAdb(const ToldAdb&) = delete;
    ToldAdb& operator=(const ToldAdb&) = delete;

    // What `adb ARGUMENTS` prints on standard output, all its other runs printing nothing. Given in
    // UTF-8.
    void Print(const std::string& arguments, const std::string& text) const;

  private:
    std::filesystem::path directory_;
    std::string pathBefore_;
};

}  // namespace quorvi::cli
