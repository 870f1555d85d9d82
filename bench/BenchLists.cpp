// What a list of the kit costs with 20,000 rows of 48-by-48 photos beside a plain QTableView with
// the same texts and no photos: to fill it and paint its first screen, and to scroll. Ends with
// status 1 when the first screen takes longer, a frame is slower, or more photos are decoded than
// may be.
#include <benchmark/benchmark.h>

#include <QScrollBar>
#include <type_traits>
#include <vector>

#include "bench/PlainTable.h"
#include "bench/Verdict.h"
#include "bench/WindowTurns.h"
#include "tests/support/SampleList.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

constexpr int kRows = 20'000;
constexpr QSize kViewSize(760, 462);
constexpr int kScrollStep = 30;           // pixels a frame
constexpr double kMostFirstScreen = 100;  // milliseconds
constexpr double kMostFrame = 1000.0 / 60;

const std::vector<SampleRecord>& Records() {
    static const std::vector<SampleRecord> records = SampleRecords(kRows);
    return records;
}

// The same texts, and no photos.
class Plain : public PlainTable<SampleRecord> {
  public:
    Plain()
        : PlainTable(static_cast<int>(kSampleColumns.size()),
                     [](const SampleRecord& record, int column) {
                         return column == sampleName ? record.name : record.number;
                     }) {}
};

template <typename View>
struct Shown {
    View view;

    Shown() {
        view.setFixedSize(kViewSize);
        view.show();
    }
    void Fill() { view.SetRecords(Records()); }
};

using Kit = SampleListCtrl;

// The copy of the records is in both figures: it is what a hand-over costs at most.
template <typename View>
void FirstScreen(benchmark::State& state) {
    Shown<View> subject;
    QApplication::processEvents();
    for (auto _ : state) {
        subject.Fill();
        subject.view.viewport()->repaint();
    }
    if constexpr (std::is_same_v<View, Kit>) {
        state.counters["decodes"] = benchmark::Counter(subject.view.Pictures().Decodes(),
                                                       benchmark::Counter::kAvgIterations);
        state.counters["visible"] = subject.view.rowAt(subject.view.viewport()->height() - 1) + 1;
    }
}

template <typename View>
void ScrollFrame(benchmark::State& state) {
    Shown<View> subject;
    subject.Fill();
    QApplication::processEvents();
    QScrollBar* bar = subject.view.verticalScrollBar();
    int at = 0;
    for (auto _ : state) {
        at = (at + kScrollStep) % bar->maximum();
        bar->setValue(at);
        subject.view.viewport()->repaint();
    }
}

BENCHMARK(FirstScreen<Plain>)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(FirstScreen<Kit>)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(ScrollFrame<Plain>)->Unit(benchmark::kMillisecond)->Iterations(600);
BENCHMARK(ScrollFrame<Kit>)->Unit(benchmark::kMillisecond)->Iterations(600);

void Judge(const Figures& figures, Verdict& verdict) {
    const double fill = figures.Time("FirstScreen<Kit>");
    verdict.AtMost("fill and first screen, ms", fill, kMostFirstScreen);
    Verdict::Tell("  times a plain QTableView", fill / figures.Time("FirstScreen<Plain>"));
    const double frame = figures.Time("ScrollFrame<Kit>");
    verdict.AtMost("one frame of scrolling, ms", frame, kMostFrame);
    Verdict::Tell("  times a plain QTableView", frame / figures.Time("ScrollFrame<Plain>"));
    verdict.AtMost("photos decoded for a visible one",
                   figures.Counter("FirstScreen<Kit>", "decodes") /
                       figures.Counter("FirstScreen<Kit>", "visible"),
                   1);
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    const auto application = quorvi::MakeApplication(count, words);
    return quorvi::RunAndJudge(count, words, 1, quorvi::Judge);
}
