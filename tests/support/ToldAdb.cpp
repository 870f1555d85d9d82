#include "tests/support/ToldAdb.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

namespace quorvi::cli {
namespace {

// The text for arguments "-s X shell getprop" is in the file "-s_X_shell_getprop" beside it.
constexpr char kScript[] =
    "#!/bin/sh\n"
    "file=$(dirname \"$0\")/$(echo \"$*\" | tr ' /' '__')\n"
    "[ ! -f \"$file\" ] || cat \"$file\"\n";

}  // namespace

ToldAdb::ToldAdb() {
    std::string name = (std::filesystem::temp_directory_path() / "told-adb-XXXXXX").string();
    directory_ = mkdtemp(name.data());
    std::ofstream(directory_ / "adb") << kScript;
    std::filesystem::permissions(directory_ / "adb", std::filesystem::perms::owner_all);
    const char* path = std::getenv("PATH");
    pathBefore_ = path == nullptr ? "" : path;
    setenv("PATH", (directory_.string() + ":" + pathBefore_).c_str(), 1);
}

ToldAdb::~ToldAdb() {
    setenv("PATH", pathBefore_.c_str(), 1);
    std::error_code failed;
    std::filesystem::remove_all(directory_, failed);
}

void ToldAdb::Print(const std::string& arguments, const std::string& text) const {
    std::string name = arguments;
    std::replace(name.begin(), name.end(), ' ', '_');
    std::replace(name.begin(), name.end(), '/', '_');
    std::ofstream(directory_ / name) << text;
}

}  // namespace quorvi::cli
