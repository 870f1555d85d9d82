// Every way in which the phone fails the window, what is left of a reply then, and a fixture that
// lets a page or dialog suffer it.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/Heartbeat.h"
#include "tests/support/PagesOnPhone.h"
#include "tests/support/ScriptedAgent.h"

namespace quorvi {

// What the window has of a reply.
enum class Left {
    whole,    // all of it, perhaps late
    nothing,  // no data, no reply, or one that broke: the reading ends early, without a word
    absent,   // the absent mark stands where the first text would
    blank,    // it ends within the first record behind its id: the other fields are empty
    over,     // a length points outside, or the first id is cut: not one record can be read
    some,     // one or two records can be read; of a reply with one record nothing
    refused,  // no connection: the only failure that the status label names
    cable,    // the phone is unplugged while it replies, and the link goes with it
};

enum class Means {
    fault,        // the agent misbehaves at the one command
    agentGone,    // the forward stands, but nobody behind it
    forwardGone,  // nobody listens on the port
    broken,       // who listens on the port breaks each connection off
};

struct FaultMode {
    const char* name;
    Means means;
    std::string_view words;  // of the fault, for the phone's control
    Left left;
    bool stalls = false;      // until it is released
    bool ofPayloads = false;  // means nothing to a reply of one word
};

// Half of the length's word comes: its upper half, which is zero but for a long reply.
inline constexpr std::string_view kCutInLength = "cut 2";

inline constexpr auto kFaultModes = std::to_array<FaultMode>({
    {"NoData", Means::fault, "nodata", Left::nothing},
    {"Absent", Means::fault, "absent", Left::absent},
    {"Closed", Means::fault, "close", Left::nothing},
    {"CutAt2", Means::fault, kCutInLength, Left::nothing},
    {"CutAt4", Means::fault, "cut 4", Left::over},
    {"CutAt9", Means::fault, "cut 9", Left::over},
    {"CutAt33", Means::fault, "cut 33", Left::blank},
    {"Reset", Means::fault, "reset", Left::nothing},
    {"ResetAt21", Means::fault, "reset 21", Left::blank},
    {"Trickle", Means::fault, "trickle 50 1", Left::whole},
    {"Delay", Means::fault, "delay 50", Left::whole},
    {"Stall", Means::fault, "stall", Left::whole, true},
    {"StallAt2", Means::fault, "stall 2", Left::whole, true},
    {"StallAt9", Means::fault, "stall 9", Left::whole, true, true},
    {"Length3000000000", Means::fault, "length 3000000000 10", Left::over},
    {"Length4294967295", Means::fault, "length 4294967295 10", Left::over},
    {"Length1", Means::fault, "length 1", Left::over},
    {"Length4", Means::fault, "length 4", Left::over},
    {"Length13", Means::fault, "length 13", Left::over},
    {"Length40", Means::fault, "length 40", Left::some},
    {"String0Of4294967295", Means::fault, "string 0 4294967295", Left::over},
    {"String0Of2147483647", Means::fault, "string 0 2147483647", Left::over},
    {"String1Of3000000000", Means::fault, "string 1 3000000000", Left::over},
    {"String2Of70000", Means::fault, "string 2 70000", Left::some},
    {"Word0", Means::fault, "word 0", Left::nothing},
    {"Unplugged", Means::fault, "unplug", Left::cable},
    {"UnpluggedAt9", Means::fault, "unplug 9", Left::cable, false, true},
    {"AgentGone", Means::agentGone, "", Left::nothing},
    {"ForwardGone", Means::forwardGone, "", Left::refused},
    {"Broken", Means::broken, "", Left::nothing},
});

inline void PrintTo(const FaultMode& mode, std::ostream* out) {
    *out << mode.name;
}

// "ListContacts_CutAt9" of a test's two parameters.
template <typename Info>
std::string NameOfCase(const Info& test) {
    return std::string(std::get<0>(test.param).name) + "_" + std::get<1>(test.param).name;
}

class WindowFaults : public PagesOnPhone {
  public:
    static void SetUpTestSuite();
    static void TearDownTestSuite();

  protected:
    void TearDown() override;

    // Does `act`, which has the phone asked `code`, under a fault, to the end of all that follows.
    // Expects that the window's thread stays alive, and that the status label says no more than it
    // should.
    void Suffer(const FaultMode& mode, AgentCommand code, const std::function<void()>& act);
    // What Suffer does besides while the phone holds its reply.
    void SetLook(std::function<void()> look) { look_ = std::move(look); }
    // The phone and its link as they should be, and nothing said.
    void Lift();
    // Expects that with the phone unplugged the status label names the failure after `refresh`.
    static void ExpectNoLink(const std::function<void()>& refresh);

    [[nodiscard]] static QString Ready() { return ToQString(u8"就绪"); }
    // What it says once a save or a message was not acknowledged.
    [[nodiscard]] static QString Unacknowledged() {
        return ToQString(u8"【X】手机没有确认，填写的内容保留在下次打开的窗口里");
    }
    [[nodiscard]] static QString ConnectError() { return ToQString(u8"【X】连接错误"); }
    [[nodiscard]] static std::size_t Asked(AgentCommand code) {
        return Requests(static_cast<int>(code)).size();
    }
    // The texts of a list's column of names, from the top.
    [[nodiscard]] static QStringList NamesIn(const CSkinListCtrl& list, int column);

  private:
    void Impose(const FaultMode& mode, AgentCommand code);
    // What the status label says behind a fault.
    [[nodiscard]] static QString StatusBehind(const FaultMode& mode, AgentCommand code);
    void ExpectAlive(AgentCommand code);

    static std::unique_ptr<Heartbeat> heart_;
    std::unique_ptr<ScriptedAgent> breaker_;  // listens in the forward's place
    std::function<void()> look_;
};

}  // namespace quorvi
