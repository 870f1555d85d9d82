// A workbench for end-to-end tests: a real adb server with a home of its own, and simulated phones
// that it lists. Nothing of it is left when it goes, and nothing of the user's is touched.
//
//   PhoneRig rig(1);
//   rig.BringAgentUp(0);
//   const ProgramResult info = rig.Suite({"info", "--json"});
//
// A test program that uses it has a network of its own: the forward to the agent has one fixed
// port.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "phone/PhoneServer.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi::e2e {

class PhoneRig {
  public:
    // Phones as delivered, one after the other, in the first free ports that adb servers look at.
    explicit PhoneRig(std::size_t phoneCount);
    // Phones as given.
    explicit PhoneRig(std::vector<phone::PhoneOptions> phones);

    // Why the rig does not stand; empty when it does.
    [[nodiscard]] const std::string& Error() const { return error_; }

    [[nodiscard]] std::uint16_t AdbServerPort() const { return serverPort_; }
    [[nodiscard]] pid_t ServerProcess() const { return server_->Id(); }
    [[nodiscard]] std::size_t Count() const { return phones_->Count(); }
    // As `adb devices` names the phone.
    [[nodiscard]] std::string Serial(std::size_t index);

    // A line for the phone's control; its answer.
    std::string Control(std::size_t index, std::string_view line);

    // Forwards the agent's port to the phone and starts its agent, with no wait, as the suite does
    // with waits. Empty, or what went wrong.
    std::string BringAgentUp(std::size_t index);

    // Runs quorvictl, or adb, in the rig's environment.
    [[nodiscard]] ProgramResult Suite(std::vector<std::string> arguments,
                                      const std::string& input = {},
                                      std::chrono::milliseconds limit = std::chrono::seconds(20));
    [[nodiscard]] ProgramResult Adb(std::vector<std::string> arguments);

    // One request to the adb server: its answer behind OKAY, or nothing when it was not OKAY.
    [[nodiscard]] std::optional<std::string> AskServer(std::string_view service) const;

    // Until the server lists so many phones as ready; false when it takes too long.
    [[nodiscard]] bool WaitForDevices(std::size_t count) const;

  private:
    [[nodiscard]] bool WaitForServer() const;
    // Everything that the adb server says to one request.
    [[nodiscard]] std::string AnswerOf(std::string_view service) const;

    TemporaryFolder home_;
    std::uint16_t serverPort_;
    EnvironmentVariable homeVariable_;
    EnvironmentVariable portVariable_;
    EnvironmentVariable scanVariable_;
    std::unique_ptr<Process> server_;
    std::unique_ptr<phone::RunningPhones> phones_;
    std::string error_;
};

}  // namespace quorvi::e2e
