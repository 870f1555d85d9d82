// What the contacts page costs with 10,000 contacts that have photos of 20 KB, beside a bare recv
// loop over the same bytes, in time until the rows are painted and in memory; and with 20,000
// contacts without photos. Ends with status 1 when the page costs more than it may, or scrolling
// from top to bottom decodes a photo twice.
#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QImage>
#include <QScrollBar>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/AgentProcess.h"
#include "bench/BareReceive.h"
#include "bench/PeakMemory.h"
#include "bench/Verdict.h"
#include "bench/WindowTurns.h"
#include "pages/contacts/ContactPage.h"
#include "tests/pages/contacts/ContactReplies.h"
#include "tests/support/FakeHost.h"
#include "tests/support/TestServices.h"
#include "ui/html/HtmlSite.h"
#include "ui/kit/ControlNumber.h"

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
    return ListPayload(contacts).Get();
}

AgentProcess AgentWith(int count, bool photos) {
    return AgentProcess([=] {
        return AnswerPayloads({{AgentCommand::listContacts, ListReply(count, photos)}});
    });
}

struct Agents {
    AgentProcess photographed = AgentWith(kPhotographed, true);
    AgentProcess photoless = AgentWith(kPhotoless, false);
    std::size_t replyBytes = BareReceive(photographed.Port());
};
const Agents* agents = nullptr;

// The contacts page, shown in a window of its own.
class Shown {
  public:
    explicit Shown(std::uint16_t port) : page_(host_, services_.At(port)) {
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
        RunWindowUntil(
            [this] {
                return host_.loadState.Value(CContactPage::kNumbers.loadKey) ==
                           PageLoadState::kEnded &&
                       List().RowCount() > 0;
            },
            [this] { page_.Load(); });
        List().viewport()->repaint();
    }
    static void Settle() { RunWindowFor(std::chrono::milliseconds(200)); }

  private:
    FakeHost host_;
    TestServices services_;
    CContactPage page_;
};

Shown& ThePage() {
    static auto* const page = new Shown(agents->photographed.Port());
    return *page;
}
Shown& ThePhotolessPage() {
    static auto* const page = new Shown(agents->photoless.Port());
    return *page;
}

void BareLoop(benchmark::State& state) {
    for (auto _ : state) {
        BareReceive(agents->photographed.Port());
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
        const auto reply = static_cast<double>(agents->replyBytes);
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
benchmark::internal::Benchmark* Register(const char* name, Function function) {
    return benchmark::RegisterBenchmark(name, function)
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1);
}

void Judge(const Figures& figures, Verdict& verdict) {
    verdict.AtMost("page / bare loop, time",
                   figures.Time("LoadPhotographed") / figures.Time("BareLoop"), kMostTime);
    verdict.AtMost("peak memory / reply", figures.MostOf("LoadPhotographed", "peak_per_reply"),
                   kMostMemory);
    verdict.AtMost("memory at the end / reply", figures.MostOf("LoadPhotographed", "end_per_reply"),
                   kMostMemory);
    verdict.AtMost("20,000 without photos, ms", figures.Time("LoadPhotoless"), kMostPhotoless);
    verdict.AtMost("decodes for each photo", figures.MostOf("Scroll", "decodes_per_photo"), 1.0);
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    const quorvi::Agents agents;
    quorvi::agents = &agents;
    quorvi::PrepareHtmlViews();
    const auto application = quorvi::MakeApplication(count, words);
    quorvi::Register("BareLoop", &quorvi::BareLoop);
    quorvi::Register("LoadPhotographed", &quorvi::LoadPhotographed);
    quorvi::Register("LoadPhotoless", &quorvi::LoadPhotoless);
    quorvi::Register("Scroll", &quorvi::Scroll)->Repetitions(1);
    std::_Exit(quorvi::RunAndJudge(count, words, quorvi::kRepetitions,
                                   quorvi::Judge));  // waits for no browser
}
