// make_command_guide MANUAL COMPLETION: writes the manual page of quorvictl and its completion.
#include <cstdio>
#include <fstream>

#include "base/Version.h"
#include "cli/CommandTable.h"
#include "cli/tool/CommandGuide.h"

namespace {

bool Write(const char* file, const std::string& text) {
    std::ofstream out(file, std::ios::binary);
    out << text;
    out.close();
    if (!out) {
        std::fprintf(stderr, "make_command_guide: cannot write %s\n", file);
    }
    return !out.fail();
}

}  // namespace

int main(int count, char** words) {
    using namespace quorvi;
    if (count != 3) {
        std::fprintf(stderr, "make_command_guide MANUAL COMPLETION\n");
        return 1;
    }
    const auto commands = cli::AllCommands();
    const bool written = Write(words[1], cli::ManualPage(commands, ProductVersion())) &&
                         Write(words[2], cli::BashCompletion(commands));
    return written ? 0 : 1;
}
