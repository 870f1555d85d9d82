#include "tests/support/RunProgram.h"

#include <sys/wait.h>

#include <cstdio>

#include "tests/support/BuildPlaces.h"

namespace quorvi::cli {

Ended RunLine(const std::string& line) {
    Ended ended;
    std::FILE* pipe = popen(line.c_str(), "r");
    if (pipe == nullptr) {
        return ended;
    }
    char piece[256];
    for (std::size_t count; (count = std::fread(piece, 1, sizeof piece, pipe)) > 0;) {
        ended.output.append(piece, count);
    }
    const int status = pclose(pipe);
    ended.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return ended;
}

Ended Out(const std::string& arguments) {
    return RunLine(QUORVI_BIN_DIR "/quorvictl " + arguments + " 2>/dev/null");
}

Ended Err(const std::string& arguments) {
    return RunLine(QUORVI_BIN_DIR "/quorvictl " + arguments + " 2>&1 >/dev/null");
}

}  // namespace quorvi::cli
