// What the contacts page costs with 10,000 contacts that have photos of 20 KB, beside a bare recv
// loop over the same bytes, in time until the rows are painted and in memory; and with 20,000
// contacts without photos. Ends with status 1 when the page costs more than it may, or scrolling
// from top to bottom decodes a photo twice.
#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <netinet/in.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QScrollBar>
#include <QStandardPaths>
#include <QTest>
#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "bench/PeakMemory.h"
#include "pages/personal/ContactPage.h"
#include "tests/pages/PageTest.h"
#include "tests/pages/personal/ContactReplies.h"
#include "ui/ControlNumber.h"
#include "ui/HtmlSite.h"
#include "ui/Look.h"

namespace quorvi {
namespace {

constexpr int kPhotographed = 10'000;
constexpr std::size_t kPhotoBytes = 20'000;
constexpr int kPhotoless = 20'000;
constexpr int kRepetitions = 7;
constexpr double kMostTime = 1.5;       // times that of the bare loop
constexpr double kMostMemory = 1.15;    // times the reply
constexpr double kMostPhotoless = 300;  // milliseconds
constexpr int kList = 1067;
constexpr QSize kPageSize(760, 462);

// A JPEG that fills the photo's bytes, no two of them alike.
std::string Photo(int index) {
    QImage image(48, 48, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(index * 7 % 360, 160, 200));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPEG");
    std::string photo = bytes.toStdString();
    photo.resize(kPhotoBytes, '\0');
    return photo;
}

Bytes ListReply(int count, bool photos) {
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(count) * 2);
    std::vector<ListedContact> contacts;
    contacts.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const std::string& name = texts.emplace_back("联系人 " + std::to_string(i));
        const std::string& number = texts.emplace_back(std::to_string(13'000'000'000 + i * 997LL));
        contacts.push_back({.id = static_cast<std::uint64_t>(i) + 1,
                            .name = name,
                            .number = number,
                            .favourite = i % 3 == 0 ? 1U : 0U,
                            .photo = photos ? Photo(i) : std::string(),
                            .lastContact = 1'308'361'330'000 + static_cast<std::uint64_t>(i)});
    }
    const WireBytes payload = ListPayload(contacts);
    return WireBytes()
        .U32(static_cast<std::uint32_t>(payload.Get().size()))
        .Add(payload.Get())
        .Get();
}

// The agent, in a process of its own, so that the bytes it holds are not the page's.
class Sender {
  public:
    Sender(int count, bool photos) : listener_(::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* raw = reinterpret_cast<sockaddr*>(&address);
        if (bind(listener_.Descriptor(), raw, size) != 0 ||
            listen(listener_.Descriptor(), 16) != 0 ||
            getsockname(listener_.Descriptor(), raw, &size) != 0) {
            std::perror("bench_contacts");
            std::exit(1);
        }
        port_ = ntohs(address.sin_port);
        if (fork() == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            Serve(ListReply(count, photos));
        }
        // The answer to the first request says how long the reply is.
        const TcpSocket socket = TcpSocket::Connect(port_);
        socket.Send(BareRequest(AgentCommand::listContacts));
        std::array<std::byte, 4> word{};
        static_cast<void>(socket.ReceiveAll(word));
        replyBytes_ = ReadUInt32(word.data());
    }

    [[nodiscard]] std::uint16_t Port() const { return port_; }
    [[nodiscard]] std::size_t ReplyBytes() const { return replyBytes_; }

  private:
    [[noreturn]] void Serve(const Bytes& reply) const {
        for (;;) {
            const TcpSocket socket(accept(listener_.Descriptor(), nullptr, nullptr));
            std::array<std::byte, 64> request{};
            if (socket.Receive(request) == 4) {
                socket.Send(reply);  // blocks until all is sent
            } else {
                std::array<std::byte, 4> none{};
                PackUInt32(NoDataMark, none.data());
                socket.Send(none);
            }
        }
    }

    TcpSocket listener_;
    std::uint16_t port_ = 0;
    std::size_t replyBytes_ = 0;
};

// Made before any thread is.
struct Senders {
    Sender photographed{kPhotographed, true};
    Sender photoless{kPhotoless, false};
};
Senders* senders = nullptr;

// A page on the screen.
class Shown {
  public:
    explicit Shown(std::uint16_t port) : page_(host_, nullptr, port) {
        page_.resize(kPageSize);
        page_.show();
        Settle();
    }

    [[nodiscard]] CContactListCtrl& List() { return *FindControl<CContactListCtrl>(&page_, kList); }

    // Everything that follows a fill is over; the list is empty.
    void Clear() {
        Settle();
        List().Clear();
        Settle();
    }
    // Returns when the rows have been painted.
    void Load() {
        page_.Load();
        while (host_.loadState.Value(CContactPage::kLoadKey) != PageLoadState::kEnded ||
               List().RowCount() == 0) {
            QApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
        }
        List().viewport()->repaint();
    }
    static void Settle() { QTest::qWait(200); }

  private:
    FakeHost host_;
    CContactPage page_;
};

Shown& ThePage() {
    static auto* const page = new Shown(senders->photographed.Port());
    return *page;
}
Shown& ThePhotolessPage() {
    static auto* const page = new Shown(senders->photoless.Port());
    return *page;
}

void BareLoop(benchmark::State& state) {
    for (auto _ : state) {
        const TcpSocket socket = TcpSocket::Connect(senders->photographed.Port());
        socket.Send(BareRequest(AgentCommand::listContacts));
        std::array<std::byte, 4> word{};
        static_cast<void>(socket.ReceiveAll(word));
        const std::size_t length = ReadUInt32(word.data());
        const auto buffer = std::make_unique_for_overwrite<std::byte[]>(length);
        std::size_t received = 0;
        for (std::ptrdiff_t count = 1; count > 0 && received < length;
             received += static_cast<std::size_t>(count)) {
            count = socket.Receive({buffer.get() + received, length - received});
        }
        benchmark::DoNotOptimize(buffer.get());
    }
}

void LoadPhotographed(benchmark::State& state) {
    Shown& page = ThePage();
    double peak = 0;
    double end = 0;
    for (auto _ : state) {
        state.PauseTiming();
        page.Clear();
        const std::size_t before = ResidentMemory();
        ResetPeakMemory();
        state.ResumeTiming();
        page.Load();
        state.PauseTiming();
        Shown::Settle();
        const auto reply = static_cast<double>(senders->photographed.ReplyBytes());
        peak = std::max(peak,
                        (static_cast<double>(PeakMemory()) - static_cast<double>(before)) / reply);
        end = std::max(
            end, (static_cast<double>(ResidentMemory()) - static_cast<double>(before)) / reply);
        state.ResumeTiming();
    }
    state.counters["peak_per_reply"] = peak;
    state.counters["end_per_reply"] = end;
}

void LoadPhotoless(benchmark::State& state) {
    Shown& page = ThePhotolessPage();
    for (auto _ : state) {
        state.PauseTiming();
        page.Clear();
        state.ResumeTiming();
        page.Load();
    }
}

// From top to bottom, a screen at a time.
void Scroll(benchmark::State& state) {
    Shown& page = ThePage();
    page.Clear();
    page.Load();
    CContactListCtrl& list = page.List();
    const int before = list.Pictures().Decodes();
    for (auto _ : state) {
        QScrollBar* bar = list.verticalScrollBar();
        for (int at = 0; at <= bar->maximum(); at += list.viewport()->height()) {
            bar->setValue(at);
            list.viewport()->repaint();
        }
        bar->setValue(bar->maximum());
        list.viewport()->repaint();
    }
    state.counters["decodes_per_photo"] =
        static_cast<double>(list.Pictures().Decodes() - before) / kPhotographed;
}

template <typename Function>
void Register(const char* name, Function function, int repetitions) {
    benchmark::RegisterBenchmark(name, function)
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1)
        ->Repetitions(repetitions);
}

// Shows what the console shows, and keeps the medians of times and the highest of counters.
class KeepingReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            const std::string& name = run.run_name.function_name;
            if (run.run_type == Run::RT_Aggregate) {
                if (run.aggregate_name == "median") {
                    values_[name] = run.GetAdjustedRealTime();
                }
                continue;
            }
            values_.try_emplace(name, run.GetAdjustedRealTime());
            for (const auto& [counter, value] : run.counters) {
                double& highest = values_[counter];
                highest = std::max(highest, value.value);
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    [[nodiscard]] double Of(const std::string& name) { return values_[name]; }

  private:
    std::map<std::string, double> values_;
};

bool Within(const char* what, double is, double most) {
    std::printf("%-32s %8.3f, at most %g\n", what, is, most);
    return is > 0 && is <= most;
}

bool Compare(KeepingReporter& reporter) {
    std::printf("\n");
    bool all = Within("page / bare loop, time",
                      reporter.Of("LoadPhotographed") / reporter.Of("BareLoop"), kMostTime);
    all &= Within("peak memory / reply", reporter.Of("peak_per_reply"), kMostMemory);
    all &= Within("memory at the end / reply", reporter.Of("end_per_reply"), kMostMemory);
    all &= Within("20,000 without photos, ms", reporter.Of("LoadPhotoless"), kMostPhotoless);
    all &= Within("decodes for each photo", reporter.Of("decodes_per_photo"), 1.0);
    return all;
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    quorvi::Senders senders;
    quorvi::senders = &senders;
    benchmark::Initialize(&count, words);
    QStandardPaths::setTestModeEnabled(true);
    quorvi::PrepareHtmlViews();
    QApplication application(count, words);
    quorvi::look::Apply(application);
    quorvi::Register("BareLoop", &quorvi::BareLoop, quorvi::kRepetitions);
    quorvi::Register("LoadPhotographed", &quorvi::LoadPhotographed, quorvi::kRepetitions);
    quorvi::Register("LoadPhotoless", &quorvi::LoadPhotoless, quorvi::kRepetitions);
    quorvi::Register("Scroll", &quorvi::Scroll, 1);
    quorvi::KeepingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    std::fflush(stdout);
    const bool within = quorvi::Compare(reporter);
    std::fflush(stdout);
    std::_Exit(within ? 0 : 1);  // waits for no browser
}
