// Where the adb tool is, and how the command lines that name it are cut.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

// Full path of "adb" in the directory of the program's own file if that file exists; otherwise the
// bare name, which the system looks up on the search path. Worked out at each call and kept
// nowhere. The result is not quoted, which is meant: in a command line, a program directory with a
// blank in its name is split there. Any thread.
[[nodiscard]] std::string AdbPath();

// The same for a given directory.
[[nodiscard]] std::string AdbPathIn(const std::filesystem::path& directory);

// The arguments of a command line: cut at runs of blanks outside double quotes, the quotes taken
// out. A quote that is never closed reaches to the end. No other character means anything.
[[nodiscard]] std::vector<std::string> SplitCommandLine(std::string_view command);

// `path`, in double quotes if it holds a blank.
[[nodiscard]] std::string QuoteBlanks(std::string_view path);

}  // namespace quorvi
