// The phone itself: what it is, which version the agent has, and all of its state in one record.
#include <fmt/format.h>

#include <array>
#include <string>

#include "phone/agent/AgentData.h"
#include "phone/agent/Commands.h"

namespace quorvi::phone {
namespace {

// What the agent answers as the kind of client it serves.
constexpr std::uint32_t kClientCode = 1;

constexpr std::uint32_t kMegabyte = 1024 * 1024;

void DeviceSummary(Exchange& exchange) {
    const Profile& profile = exchange.data.handset.Facts();
    exchange.reply.UInt32(kClientCode)
        .UInt32(static_cast<std::uint32_t>(profile.apiLevel))
        .Text(profile.fullModel);
}

void Version(Exchange& exchange) {
    exchange.reply.Word(exchange.data.handset.AgentVersion().value_or(0));
}

void SystemInformation(Exchange& exchange) {
    const Profile& profile = exchange.data.handset.Facts();
    const PhoneFacts& facts = exchange.data.facts;
    exchange.reply.Text(profile.fullModel)
        .UInt64(exchange.data.MillisecondsSinceBoot())
        .Text("Android " + profile.androidVersion)
        .Text(facts.imei)
        .Text(facts.imsi)
        .Text(fmt::format("{} x {}", profile.screenWidth, profile.screenHeight))
        .Text(std::to_string(profile.battery))
        .Text(facts.cpu)
        .Text(fmt::format("{} MB / {}", exchange.data.processes.freeMemory / kMegabyte, facts.ram))
        .Text(facts.rom)
        .Text(facts.sdCard)
        .UInt32(exchange.data.Setting(PhoneSetting::gps))
        .UInt32(exchange.data.Setting(PhoneSetting::bluetooth))
        .UInt32(exchange.data.Setting(PhoneSetting::wifi))
        .UInt32(exchange.data.Setting(PhoneSetting::gravity))
        .Text(facts.mobileNetwork)
        .Text(facts.wifiNetwork)
        .UInt32(facts.brightness);
}

constexpr std::array kRows{
    AgentCommandRow{AgentCommand::deviceSummary, "deviceSummary", RequestForm::bare, DeviceSummary},
    AgentCommandRow{AgentCommand::agentVersion, "agentVersion", RequestForm::bare, Version},
    AgentCommandRow{AgentCommand::systemInformation, "systemInformation", RequestForm::bare,
                    SystemInformation},
};

}  // namespace

std::span<const AgentCommandRow> PhoneCommands() {
    return kRows;
}

}  // namespace quorvi::phone
