#include <fmt/format.h>

#include <charconv>
#include <optional>
#include <string>
#include <string_view>

#include "agent/Wire.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "link/AdbCapture.h"
#include "link/AdbCommand.h"
#include "link/AdbHostClient.h"
#include "link/DeviceList.h"
#include "pages/screen/PictureFile.h"
#include "pages/screen/ScreenCapture.h"

namespace quorvi::cli {
namespace {

constexpr int kLeastQuality = 50;
constexpr int kMostQuality = 100;

// What the command line asks for.
struct Wanted {
    std::filesystem::path file;
    SaveFormat format = SaveFormat::jpg;
    Rotation rotation = Rotation::none;
    int quality = QualityOf(kFirstQuality);
};

// The number of an option, or what holds without it; nothing for any other text.
std::optional<int> NumberOf(const Arguments& arguments, std::string_view option, int least,
                            int most, int otherwise) {
    const std::optional<std::string> text = arguments.Option(option);
    if (!text) {
        return otherwise;
    }
    int number = 0;
    const char* const end = text->data() + text->size();
    const auto [rest, failed] = std::from_chars(text->data(), end, number);
    const bool is = failed == std::errc() && rest == end && number >= least && number <= most;
    return is ? std::optional(number) : std::nullopt;
}

std::optional<Wanted> ReadWanted(const Arguments& arguments, Output& output) {
    const std::string& file = arguments.operands[0];
    const auto format = FormatOfName(file);
    const auto rotation = NumberOf(arguments, "--rotate", 0, static_cast<int>(Rotation::half), 0);
    const auto quality =
        NumberOf(arguments, "--quality", kLeastQuality, kMostQuality, QualityOf(kFirstQuality));
    if (!format) {
        output.Complain(ToAnsi(file) + Ansi(u8": 扩展名不是 jpg、gif、png 或 bmp"));
    } else if (!rotation) {
        output.Complain(Ansi(u8"--rotate 的值应为 0 到 3"));
    } else if (!quality) {
        output.Complain(Ansi(u8"--quality 的值应为 50 到 100"));
    } else {
        return Wanted{file, *format, RotationOf(*rotation), *quality};
    }
    return std::nullopt;
}

// Of the phone to which the link forwards the agent's port; nothing when there is none.
std::optional<std::string> LinkedSerial() {
    const AdbCapture list = RunAdbCapture(ForwardListCommand({}));
    const std::string here = fmt::format("tcp:{}", AgentPort);
    for (const std::string_view line : SplitAt(list.text, '\n')) {
        const auto words = SplitAt(line, ' ');
        if (words.size() > 1 && words[1] == here) {
            return std::string(words[0]);
        }
    }
    return std::nullopt;
}

// The only phone, or of several the linked one; nothing, and a complaint, when it is not known.
std::optional<std::string> SerialOfPhone(Output& output) {
    const SerialList list = ListSerials();
    if (list.outcome != RunOutcome::started) {
        output.Complain(CaptureFaultText(CaptureFault::noServer));
        return std::nullopt;
    }
    if (list.serials.empty()) {
        output.Complain(CaptureFaultText(CaptureFault::noPhone));
        return std::nullopt;
    }
    if (list.serials.size() == 1) {
        return list.serials.front();
    }
    auto linked = LinkedSerial();
    if (!linked) {
        output.Complain(Ansi(u8"有多个设备，请先用 link --serial 连接其中一个"));
    }
    return linked;
}

}  // namespace

Status RunScreenshot(const Arguments& arguments, const Context&, Output& output) {
    const auto wanted = ReadWanted(arguments, output);
    if (!wanted) {
        return Status::wrongUsage;
    }
    const auto serial = SerialOfPhone(output);
    if (!serial) {
        return Status::noLink;
    }
    const Capture capture = CaptureScreen(AdbHostClient(), *serial);
    if (!capture.frame) {
        output.Complain(CaptureFaultText(capture.fault));
        return Status::noLink;
    }
    const SaveResult saved = SavePicture(*capture.frame, wanted->rotation, wanted->file,
                                         wanted->format, wanted->quality);
    if (!saved.saved) {
        output.Complain(ToAnsi(wanted->file.native()) + Ansi(u8": 没有保存，") + saved.reason);
        return Status::wrongUsage;
    }
    if (output.Json()) {
        Json::Value document(Json::objectValue);
        document["width"] = capture.frame->width;
        document["height"] = capture.frame->height;
        output.PrintDocument(document);
    }
    return Status::done;
}

}  // namespace quorvi::cli
