#include "tests/support/ToldAdb.h"

#include <algorithm>
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
    const std::filesystem::path adb = folder_.Path() / "adb";
    std::ofstream(adb) << kScript;
    std::filesystem::permissions(adb, std::filesystem::perms::owner_all);
}

void ToldAdb::Print(const std::string& arguments, const std::string& text) const {
    std::string name = arguments;
    std::replace(name.begin(), name.end(), ' ', '_');
    std::replace(name.begin(), name.end(), '/', '_');
    std::ofstream(folder_.Path() / name) << text;
}

}  // namespace quorvi::cli
