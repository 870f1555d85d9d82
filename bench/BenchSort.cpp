// What a click on the head of a list of 20,000 names costs until the sorted list is painted, beside
// a sort of the same names by their keys alone. The keys are worked out before, on a worker. Ends
// with status 1 when a click takes longer than a frame of the screen, or more than that sort.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>
#include <vector>

#include "bench/Verdict.h"
#include "bench/WindowTurns.h"
#include "find/NameOrder.h"
#include "find/RowOrder.h"
#include "tests/support/SampleList.h"
#include "ui/list/ListSort.h"

namespace quorvi {
namespace {

constexpr int kRows = 20'000;
constexpr QSize kViewSize(760, 462);
constexpr double kMostClick = 16;  // milliseconds
constexpr double kMostRatio = 1.5;

constexpr std::u16string_view kSurnames = u"王李张刘陈杨黄赵吴周徐孙马朱胡郭何林罗高曾单仇解吕";
constexpr std::u16string_view kGiven =
    u"远舟雨泽易之忆中英姿晓棠建国志强秀兰桂芳海燕长乐重阳行云思";

std::vector<SampleRecord> Records() {
    std::vector<SampleRecord> records(kRows);
    for (std::size_t i = 0; i < records.size(); ++i) {
        records[i].id = i + 1;
        records[i].name = QString(QChar(kSurnames[i % kSurnames.size()])) +
                          QChar(kGiven[i * 7 % kGiven.size()]) +
                          QChar(kGiven[i / kSurnames.size() % kGiven.size()]);
    }
    return records;
}

std::vector<std::string> Keys() {
    const NameOrder order;
    std::vector<std::string> keys;
    for (const SampleRecord& record : Records()) {
        keys.push_back(order.Key(record.name.toStdString()));
    }
    return keys;
}

void MakeKeys(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(Keys());
    }
}

void PlainSort(benchmark::State& state) {
    const std::vector<std::string> keys = Keys();
    for (auto _ : state) {
        std::vector<std::string> sorted = keys;
        std::ranges::sort(sorted);
        benchmark::DoNotOptimize(sorted.data());
    }
}

void Click(benchmark::State& state) {
    SampleListCtrl list;
    list.setFixedSize(kViewSize);
    list.EnableSort();
    list.show();
    list.SetRecords(Records());
    list.Sorting()->SetRanks({RanksOf(Keys())});
    QApplication::processEvents();
    for (auto _ : state) {
        list.Sorting()->Click(0);
        list.viewport()->repaint();
    }
}

void Judge(const Figures& figures, Verdict& verdict) {
    Verdict::Tell("  20,000 keys, ms", figures.Time("MakeKeys"));
    Verdict::Tell("  the keys sorted alone, ms", figures.Time("PlainSort"));
    verdict.AtMost("a click, ms", figures.Time("Click"), kMostClick);
    verdict.AtMost("a click beside the sort of the keys",
                   figures.Time("Click") / figures.Time("PlainSort"), kMostRatio);
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    using namespace quorvi;
    const auto application = MakeApplication(count, words);
    benchmark::RegisterBenchmark("MakeKeys", MakeKeys)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("PlainSort", PlainSort)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Click", Click)->Unit(benchmark::kMillisecond);
    return RunAndJudge(count, words, 3, Judge);
}
