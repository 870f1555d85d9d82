#include "link/LinkLog.h"

#include "log/EventLog.h"

namespace quorvi {
namespace {

LogWord WordOf(FindDeviceResult result) {
    switch (result) {
        case FindDeviceResult::found:
            return "found";
        case FindDeviceResult::noPipe:
            return "no-pipe";
        case FindDeviceResult::noAdb:
            return "no-adb";
        case FindDeviceResult::noDevice:
            return "no-device";
        case FindDeviceResult::noneChosen:
            return "none-chosen";
    }
    return "unknown";
}

LogWord WordOf(InstallResult result) {
    switch (result) {
        case InstallResult::success:
            return "success";
        case InstallResult::noProcess:
            return "no-process";
        case InstallResult::otherSignature:
            return "other-signature";
        case InstallResult::phoneFull:
            return "phone-full";
        case InstallResult::failed:
            return "failed";
    }
    return "unknown";
}

}  // namespace

void LogSearch(FindDeviceResult result, LogStart start) {
    LogEvent("link.search", {{"result", WordOf(result)}, {"ms", LogValue::Since(start)}});
}

void LogForward(bool stands) {
    LogEvent("link.forward", {{"stands", LogValue::Flag(stands)}});
}

void LogAgent(int version, bool linked) {
    LogEvent("link.agent",
             {{"version", LogValue::Count(version)}, {"linked", LogValue::Flag(linked)}});
}

void LogInstall(InstallResult result, LogStart start) {
    LogEvent("install", {{"result", WordOf(result)}, {"ms", LogValue::Since(start)}});
}

}  // namespace quorvi
