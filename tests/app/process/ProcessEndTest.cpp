// How the process ends when something is wrong with it.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>

#include "app/process/ProcessEnd.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

// Each test ends a child process, in whose place another program shows the apology: it writes down
// how it was called.
class AfterAFault : public testing::Test {
  protected:
    AfterAFault() {
        GTEST_FLAG_SET(death_test_style, "fast");
        std::ofstream(program_) << "#!/bin/sh\necho \"$@\" >'" << note_.string() << "'\n";
        std::filesystem::permissions(program_, std::filesystem::perms::owner_all);
    }

    // In the child.
    void Prepare() const {
        const rlimit noCore = {0, 0};
        ::setrlimit(RLIMIT_CORE, &noCore);
        InstallApology(program_);
    }
    // What the apology's program was called with. The child waited until it ran, so it may have to
    // be waited for until it has written, and no longer.
    [[nodiscard]] std::string Apology() const {
        std::string line;
        for (int turn = 0; turn < 3000 && line.empty(); ++turn) {
            std::ifstream note(note_);
            std::getline(note, line);
            ::usleep(10'000);
        }
        return line;
    }

    TemporaryFolder folder_;
    std::filesystem::path program_ = folder_.Path() / "program";
    std::filesystem::path note_ = folder_.Path() / "note";
};

TEST_F(AfterAFault, TheProcessDiesByTheSignalOfTheFault) {
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT}) {
        std::filesystem::remove(note_);
        EXPECT_EXIT(
            {
                Prepare();
                ::raise(signal);
            },
            testing::KilledBySignal(signal), "");
        EXPECT_EQ(Apology(), kApologyOption) << signal;
    }
}

// Nothing between here and the caller catches it.
void Fail() {
    throw std::out_of_range("invalid vector<T> subscript");
}

TEST_F(AfterAFault, AnExceptionThatNobodyCatchesEndsInAnAbort) {
    EXPECT_EXIT(
        {
            Prepare();
            std::thread(&Fail).join();
        },
        testing::KilledBySignal(SIGABRT), "");
    EXPECT_EQ(Apology(), kApologyOption);
}

TEST_F(AfterAFault, AProgramThatIsNotThereKeepsNobodyFromDying) {
    std::filesystem::remove(program_);
    EXPECT_EXIT(
        {
            Prepare();
            ::raise(SIGSEGV);
        },
        testing::KilledBySignal(SIGSEGV), "");
}

}  // namespace
}  // namespace quorvi
