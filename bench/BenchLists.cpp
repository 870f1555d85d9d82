// What a list of the kit costs with 20,000 rows of 48-by-48 photos beside a plain QTableView with
// the same texts and no photos: to fill it and paint its first screen, and to scroll. Ends with
// status 1 when the first screen takes longer, a frame is slower, or more photos are decoded than
// may be.
#include <benchmark/benchmark.h>

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>
#include <type_traits>
#include <utility>
#include <vector>

#include "bench/Verdict.h"
#include "bench/WindowTurns.h"
#include "tests/ui/SampleList.h"
#include "ui/Look.h"

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

// The same texts for a view that knows nothing of the kit.
class PlainModel : public QAbstractTableModel {
  public:
    void Fill(std::vector<SampleRecord> records) {
        beginResetModel();
        records_ = std::move(records);
        endResetModel();
    }
    [[nodiscard]] int rowCount(const QModelIndex&) const override {
        return static_cast<int>(records_.size());
    }
    [[nodiscard]] int columnCount(const QModelIndex&) const override {
        return static_cast<int>(kSampleColumns.size());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole) {
            return {};
        }
        const SampleRecord& record = records_[static_cast<std::size_t>(index.row())];
        return index.column() == kSampleName ? record.name : record.number;
    }

  private:
    std::vector<SampleRecord> records_;
};

struct Plain {
    PlainModel model;
    QTableView view;

    Plain() {
        view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        view.verticalHeader()->setDefaultSectionSize(look::Metric::rowTall);
        view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        view.setModel(&model);
        view.setFixedSize(kViewSize);
        view.show();
    }
    void Fill() { model.Fill(Records()); }
};

struct Kit {
    SampleListCtrl view;

    Kit() {
        view.setFixedSize(kViewSize);
        view.show();
    }
    void Fill() { view.SetRecords(Records()); }
};

// The copy of the records is in both figures: it is what a hand-over costs at most.
template <typename Subject>
void FirstScreen(benchmark::State& state) {
    Subject subject;
    QApplication::processEvents();
    for (auto _ : state) {
        subject.Fill();
        subject.view.viewport()->repaint();
    }
    if constexpr (std::is_same_v<Subject, Kit>) {
        state.counters["decodes"] = benchmark::Counter(subject.view.Pictures().Decodes(),
                                                       benchmark::Counter::kAvgIterations);
        state.counters["visible"] = subject.view.rowAt(subject.view.viewport()->height() - 1) + 1;
    }
}

template <typename Subject>
void ScrollFrame(benchmark::State& state) {
    Subject subject;
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
    return quorvi::RunAndJudge(count, words, quorvi::Judge);
}
