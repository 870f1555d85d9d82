#include "phone/Profile.h"

#include <fmt/format.h>

#include <array>

namespace quorvi::phone {

Profile DeliveredProfile(std::size_t index) {
    static const std::array<Profile, 3> phones{{
        {.serial = "AU20110618S2",
         .manufacturer = "Aurora",
         .brand = "aurora",
         .model = "S2",
         .fullModel = "Aurora S2",
         .androidVersion = "2.3.4",
         .apiLevel = 10,
         .screenWidth = 480,
         .screenHeight = 800,
         .screenBits = 32,
         .battery = 82},
        {.serial = "M52A7C0E93",
         .manufacturer = "motorola",
         .brand = "motorola",
         .model = "M52",
         .fullModel = "motorola M52",
         .androidVersion = "2.2",
         .apiLevel = 8,
         .screenWidth = 480,
         .screenHeight = 854,
         .screenBits = 16,
         .battery = 46},
        {.serial = "K9-00F31B",
         .manufacturer = "Kestrel",
         .brand = "kestrel",
         .model = "K9",
         .fullModel = "Kestrel K9",
         .androidVersion = "2.1",
         .apiLevel = 7,
         .screenWidth = 320,
         .screenHeight = 480,
         .screenBits = 16,
         .battery = 9},
    }};
    Profile profile = phones[index % phones.size()];
    if (index >= phones.size()) {
        profile.serial += fmt::format("-{}", index / phones.size() + 1);
    }
    return profile;
}

std::vector<std::pair<std::string, std::string>> PropertiesOf(const Profile& profile) {
    return {
        {"ro.secure", "1"},
        {"ro.debuggable", "0"},
        {"ro.serialno", profile.serial},
        {"ro.bootmode", "unknown"},
        {"ro.hardware", profile.model},
        {"ro.build.id", "GRJ22"},
        {"ro.build.display.id", fmt::format("{}.{}", profile.model, "GRJ22")},
        {"ro.build.version.incremental", "20110618.094210"},
        {"ro.build.version.sdk", std::to_string(profile.apiLevel)},
        {"ro.build.version.codename", "REL"},
        {"ro.build.version.release", profile.androidVersion},
        {"ro.build.type", "user"},
        {"ro.build.tags", "release-keys"},
        {"ro.product.model", profile.model},
        {"ro.product.brand", profile.brand},
        {"ro.product.name", profile.brand + "_" + profile.model},
        {"ro.product.device", profile.model},
        {"ro.product.board", profile.model},
        {"ro.product.cpu.abi", "armeabi-v7a"},
        {"ro.product.cpu.abi2", "armeabi"},
        {"ro.product.manufacturer", profile.manufacturer},
        {"ro.product.locale.language", "zh"},
        {"ro.product.locale.region", "CN"},
        {"ro.sf.lcd_density", profile.screenWidth < 480 ? "160" : "240"},
        {"ro.opengles.version", "131072"},
        {"dalvik.vm.heapsize", "32m"},
        {"persist.sys.timezone", "Asia/Shanghai"},
        {"persist.sys.country", "CN"},
        {"persist.sys.language", "zh"},
        {"gsm.operator.alpha", "CMCC"},
        {"gsm.operator.numeric", "46000"},
        {"gsm.sim.state", "READY"},
        {"init.svc.adbd", "running"},
        {"sys.boot_completed", "1"},
    };
}

}  // namespace quorvi::phone
