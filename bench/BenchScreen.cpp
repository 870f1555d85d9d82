// What a capture of a phone's screen of 1080 x 2400 x 32 bits through the real adb costs beside a
// bare client that reads the same bytes in the same run; what sixty of them leave behind; and what
// the palette of a GIF costs, and how far it is from the picture, beside ImageMagick's own without
// dithering. Ends with status 1 when one costs more than it may. On a busy machine `chrt --rr 1` in
// front gives figures as of a quiet one.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QEvent>
#include <QSize>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <string>

#include "bench/PeakMemory.h"
#include "bench/Verdict.h"
#include "bench/WindowTurns.h"
#include "pages/screen/OctreeQuantizer.h"
#include "pages/screen/RgbPicture.h"
#include "pages/screen/ScreenCapture.h"
#include "pages/screen/ScreenshotPage.h"
#include "tests/support/FakeHost.h"
#include "tests/support/PhoneRig.h"
#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestServices.h"

namespace quorvi {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kWidth = 1080;
constexpr int kHeight = 2400;
constexpr std::size_t kFrameBytes = std::size_t{4} * kWidth * kHeight;
constexpr QSize kPageSize(760, 462);
constexpr int kRepetitions = 31;
constexpr int kInARow = 60;
constexpr double kMostTime = 1.2;     // times that of the bare client
constexpr double kMostSwap = 5;       // milliseconds on top of that
constexpr double kMostOctree = 500;   // milliseconds
constexpr double kMostError = 1.2;    // times that of ImageMagick's colours
constexpr double kMostMemory = 10e6;  // bytes: less than one frame
constexpr const char* kRgb = "screen size 1080x2400x32 version 2 order rgb";
constexpr const char* kBgr = "screen size 1080x2400x32 version 2 order bgr";

e2e::PhoneRig* rig = nullptr;

void Require(bool held, const char* what) {
    if (!held) {
        std::fprintf(stderr, "%s\n", what);
        std::exit(Verdict::kNotMeasured);
    }
}

// Nothing but send and recv: the requests, the two words "OKAY", the header, the pixels.
std::size_t BareFrame() {
    constexpr std::size_t kHeader = 14 * 4;
    const AdbHostClient client(rig->AdbServerPort());
    const TcpSocket socket = client.Open(TcpSocket::Delay::keep);
    std::array<std::byte, kHeader> words{};
    const auto word = std::span(words).first(4);
    static_cast<void>(client.Send(socket, "host:transport:" + rig->Serial(0)));
    static_cast<void>(socket.ReceiveAll(word));
    static_cast<void>(client.Send(socket, "framebuffer:", LengthDigits::lowerCase));
    static_cast<void>(socket.ReceiveAll(word));
    static_cast<void>(socket.ReceiveAll(words));
    const auto buffer = std::make_unique_for_overwrite<std::byte[]>(kFrameBytes);
    std::size_t received = 0;
    while (received < kFrameBytes) {
        const std::ptrdiff_t count =
            socket.Receive({buffer.get() + received, kFrameBytes - received});
        if (count < 1) {
            break;
        }
        received += static_cast<std::size_t>(count);
    }
    benchmark::DoNotOptimize(buffer.get());
    return received;
}

Capture CaptureHere() {
    return CaptureScreen(AdbHostClient(rig->AdbServerPort()), rig->Serial(0));
}

template <typename Work>
void Time(benchmark::State& state, Work work) {
    const Clock::time_point start = Clock::now();
    work();
    state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
}

void Bare(benchmark::State& state) {
    rig->Control(0, kBgr);
    Require(BareFrame() == kFrameBytes, "the bare client gets no frame");
    for (auto _ : state) {
        Time(state, [] { BareFrame(); });
    }
}

// With the old picture still there, as on the page.
void CaptureOf(benchmark::State& state, const char* form) {
    rig->Control(0, form);
    Capture shown = CaptureHere();
    shown = CaptureHere();
    for (auto _ : state) {
        Time(state, [&] { shown = CaptureHere(); });
        Require(shown.frame.has_value(), "there is no picture");
    }
}

// Presses the refresh button and runs the window's events until a picture other than the one before
// has been painted.
class Refresher : public QObject {
  public:
    Refresher(CScreenshotPage& page, ScreenCaptureCtrl& control) : page_(page), control_(control) {
        control.installEventFilter(this);
    }
    void RefreshAndPaint() {
        page_.Refresh();
        const FrameBytes* const before = painted_;
        while (painted_ == before) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

  protected:
    bool eventFilter(QObject* /*control*/, QEvent* event) override {
        if (event->type() == QEvent::Paint && control_.Picture()) {
            painted_ = control_.Picture()->frame.bytes.get();
        }
        return false;
    }

  private:
    CScreenshotPage& page_;
    ScreenCaptureCtrl& control_;
    const FrameBytes* painted_ = nullptr;
};

// From the press of the refresh button until the picture is painted.
void OnThePage(benchmark::State& state, const char* form) {
    rig->Control(0, form);
    FakeHost host;
    TestServices services;
    services.device.SetSerial(rig->Serial(0));
    CScreenshotPage page(host, services.At(AgentAddress(0)),
                         {.adb = AdbHostClient(rig->AdbServerPort())});
    page.resize(kPageSize);
    page.show();
    auto& control = *page.findChild<ScreenCaptureCtrl*>();
    Refresher refresher(page, control);
    for (int i = 0; i < 2; ++i) {  // as on a page that has been used
        refresher.RefreshAndPaint();
        RunWindowUntil([&] { return !page.IsAtWork(); });
    }
    for (auto _ : state) {
        Time(state, [&] { refresher.RefreshAndPaint(); });
    }
}

void InARow(benchmark::State& state) {
    const auto entries = [](const char* folder) {
        return static_cast<double>(std::distance(std::filesystem::directory_iterator(folder), {}));
    };
    rig->Control(0, kRgb);
    // The picture on show, and the memory of the one before it.
    Capture shown = CaptureHere();
    shown = CaptureHere();
    for (auto _ : state) {
        const double descriptors = entries("/proc/self/fd");
        const double threads = entries("/proc/self/task");
        const auto memory = static_cast<double>(ResidentMemory());
        Time(state, [&] {
            for (int i = 0; i < kInARow; ++i) {
                shown = CaptureHere();
            }
        });
        state.counters["descriptors"] = entries("/proc/self/fd") - descriptors;
        state.counters["threads"] = entries("/proc/self/task") - threads;
        state.counters["memory"] = static_cast<double>(ResidentMemory()) - memory;
    }
}

// The phone's own screen.
const RgbPicture& Screen() {
    static const RgbPicture picture = [] {
        rig->Control(0, kRgb);
        return TurnedPicture(*CaptureHere().frame, Rotation::none);
    }();
    return picture;
}

// Soft colours without an end, with some grain, as of a photo.
const RgbPicture& Photo() {
    static const RgbPicture picture = [] {
        RgbPicture made{kWidth, kHeight, {}};
        std::mt19937 random(11);
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                for (const double turn : {0.0, 2.1, 4.2}) {
                    const double wave = std::sin(x / 190.0 + turn) + std::sin(y / 310.0 - turn) +
                                        std::sin((x + y) / 450.0 + 2 * turn);
                    const double grain = static_cast<double>(random() % 9);
                    made.bytes.push_back(static_cast<std::uint8_t>(124 + wave * 40 + grain - 4));
                }
            }
        }
        return made;
    }();
    return picture;
}

// The mean over all pixels of the distance between two colours.
template <typename ColourAt>
double ErrorOf(const RgbPicture& picture, ColourAt colourAt) {
    double sum = 0;
    const std::size_t pixels = picture.bytes.size() / RgbPicture::kPixelBytes;
    for (std::size_t i = 0; i < pixels; ++i) {
        const std::uint8_t* const is = colourAt(i);
        double square = 0;
        for (std::size_t part = 0; part < RgbPicture::kPixelBytes; ++part) {
            const double off = is[part] - picture.bytes[i * RgbPicture::kPixelBytes + part];
            square += off * off;
        }
        sum += std::sqrt(square);
    }
    return sum / static_cast<double>(pixels);
}

void Octree(benchmark::State& state, const RgbPicture& (*made)()) {
    const RgbPicture& picture = made();
    const auto quantizer = OctreeQuantizer::WithLimit(kMostPaletteColours);
    for (auto _ : state) {
        IndexedPicture indexed;
        Time(state, [&] { indexed = quantizer->Quantize(picture); });
        state.counters["error"] = ErrorOf(
            picture, [&](std::size_t i) { return indexed.palette[indexed.indexes[i]].data(); });
    }
}

void ImageMagick(benchmark::State& state, const RgbPicture& (*made)()) {
    const RgbPicture& picture = made();
    const TemporaryFolder folder;
    const std::string in = (folder.Path() / "in.rgb").string();
    const std::string out = (folder.Path() / "out.rgb").string();
    std::ofstream(in, std::ios::binary)
        .write(reinterpret_cast<const char*>(picture.bytes.data()),
               static_cast<std::streamsize>(picture.bytes.size()));
    for (auto _ : state) {
        Time(state, [&] {
            static_cast<void>(
                e2e::RunProgram({"convert", "-size", "1080x2400", "-depth", "8", "rgb:" + in,
                                 "-dither", "None", "-colors", "256", "-depth", "8", "rgb:" + out},
                                {}, std::chrono::minutes(1)));
        });
        std::ifstream file(out, std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        Require(bytes.size() == picture.bytes.size(), "ImageMagick gives no picture");
        const auto* const colours = reinterpret_cast<const std::uint8_t*>(bytes.data());
        state.counters["error"] =
            ErrorOf(picture, [&](std::size_t i) { return colours + i * RgbPicture::kPixelBytes; });
    }
}

template <typename Function>
benchmark::internal::Benchmark* Register(const char* name, Function function) {
    return benchmark::RegisterBenchmark(name, function)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1);
}

void Judge(const Figures& figures, Verdict& verdict) {
    const double bare = figures.Time("Bare");
    Verdict::Tell("a bare client, ms", bare);
    verdict.AtMost("a capture, ms", figures.Time("Capture"), kMostTime * bare);
    verdict.AtMost("a capture with red and blue swapped, ms", figures.Time("CaptureSwapped"),
                   kMostTime * bare + kMostSwap);
    verdict.AtMost("from the connect to the picture on the page, ms", figures.Time("OnThePage"),
                   kMostTime * bare);
    verdict.AtMost("  with red and blue swapped, ms", figures.Time("OnThePageSwapped"),
                   kMostTime * bare + kMostSwap);
    verdict.AtMost("60 captures leave descriptors", figures.MostOf("InARow", "descriptors"), 0);
    verdict.AtMost("60 captures leave threads", figures.MostOf("InARow", "threads"), 0);
    verdict.AtMost("60 captures leave bytes", figures.MostOf("InARow", "memory"), kMostMemory);
    for (const std::string picture : {"Screen", "Photo"}) {
        verdict.AtMost((picture + " to 256 colours, ms").c_str(), figures.Time("Octree" + picture),
                       kMostOctree);
        verdict.AtMost((picture + ": mean error").c_str(),
                       figures.Counter("Octree" + picture, "error"),
                       kMostError * figures.Counter("ImageMagick" + picture, "error"));
        Verdict::Tell("  that of ImageMagick", figures.Counter("ImageMagick" + picture, "error"));
    }
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    using namespace quorvi;
    const auto application = MakeApplication(count, words);
    e2e::PhoneRig theRig(1);
    rig = &theRig;
    Require(theRig.Error().empty(), theRig.Error().c_str());
    Register("Bare", Bare);
    Register("Capture", [](benchmark::State& state) { CaptureOf(state, kBgr); });
    Register("CaptureSwapped", [](benchmark::State& state) { CaptureOf(state, kRgb); });
    Register("OnThePage", [](benchmark::State& state) { OnThePage(state, kBgr); });
    Register("OnThePageSwapped", [](benchmark::State& state) { OnThePage(state, kRgb); });
    Register("InARow", InARow)->Repetitions(1);
    Register("OctreeScreen", [](benchmark::State& state) { Octree(state, Screen); });
    Register("OctreePhoto", [](benchmark::State& state) { Octree(state, Photo); });
    Register("ImageMagickScreen", [](benchmark::State& state) {
        ImageMagick(state, Screen);
    })->Repetitions(1);
    Register("ImageMagickPhoto", [](benchmark::State& state) {
        ImageMagick(state, Photo);
    })->Repetitions(1);
    return RunAndJudge(count, words, kRepetitions, Judge);
}
