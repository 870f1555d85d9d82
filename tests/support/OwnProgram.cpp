#include "tests/support/OwnProgram.h"

#include <fmt/format.h>

#include <fstream>
#include <system_error>

#include "tests/support/BuildPlaces.h"

namespace quorvi {
namespace {

constexpr const char* kProgram = "quorvictl";

}  // namespace

OwnProgram::OwnProgram(std::string_view siteRoot) {
    const std::filesystem::path built = std::filesystem::path(QUORVI_BIN_DIR) / kProgram;
    std::error_code otherDisk;
    std::filesystem::create_hard_link(built, folder_.Path() / kProgram, otherDisk);
    if (otherDisk) {
        std::filesystem::copy_file(built, folder_.Path() / kProgram);
    }
    std::filesystem::create_directory(folder_.Path() / "Data");
    std::ofstream(folder_.Path() / "Data" / "deployment.json")
        << fmt::format(R"({{"site":"{0}","store":"{0}","download":"{0}"}})", siteRoot);
}

std::vector<std::string> OwnProgram::Line(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), (folder_.Path() / kProgram).native());
    return arguments;
}

}  // namespace quorvi
