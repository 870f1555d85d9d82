#include <charconv>
#include <optional>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/SerialOption.h"
#include "link/AdbHostClient.h"
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

// The phone of the picture; nothing, and a complaint, when it is not known.
std::optional<std::string> SerialOfPhone(Output& output) {
    const ChosenPhone phone = ChoosePhone();
    switch (phone.choice) {
        case PhoneChoice::made:
            return phone.serial;
        case PhoneChoice::noServer:
            output.Complain(CaptureFaultText(CaptureFault::noServer));
            break;
        case PhoneChoice::noPhone:
            output.Complain(CaptureFaultText(CaptureFault::noPhone));
            break;
        case PhoneChoice::several:
            output.Complain(Ansi(u8"有多个设备，请先用 link --serial 连接其中一个"));
            break;
    }
    return std::nullopt;
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
