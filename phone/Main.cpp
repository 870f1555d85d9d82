// quorvi-phone: simulated phones until interrupted.
#include <csignal>
#include <iostream>
#include <string>
#include <vector>

#include "phone/Options.h"

namespace {

quorvi::phone::PhoneServer* running = nullptr;

void Stop(int) {
    running->Stop();
}

void Describe(quorvi::phone::PhoneServer& server) {
    for (std::size_t i = 0; i < server.Count(); ++i) {
        quorvi::phone::Phone& phone = server.At(i);
        std::cout << "phone " << i + 1 << ": " << phone.TheHandset().Facts().fullModel;
        if (phone.IsPlugged()) {
            std::cout << ", adb " << phone.AdbSerial() << " on port " << phone.AdbPort();
        } else {
            std::cout << ", unplugged";
        }
        if (phone.AgentPort() != 0) {
            std::cout << ", agent on port " << phone.AgentPort();
        }
        std::cout << '\n';
    }
    if (server.ControlPort() != 0) {
        std::cout << "control on port " << server.ControlPort() << '\n';
    }
    std::cout << "ready" << std::endl;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace quorvi::phone;
    CommandLine line = ParseCommandLine({argv + 1, argv + argc});
    if (line.help) {
        std::cout << HelpText();
        return 0;
    }
    if (!line.error.empty()) {
        std::cerr << "quorvi-phone: " << line.error << "; see --help\n";
        return 1;
    }
    PhoneServer server(std::move(line.server));
    if (const std::string error = server.Start(); !error.empty()) {
        std::cerr << "quorvi-phone: " << error << '\n';
        return 1;
    }
    running = &server;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        std::signal(signal, Stop);
    }
    Describe(server);
    server.Run();
    return 0;
}
