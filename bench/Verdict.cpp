#include "bench/Verdict.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string_view>

namespace quorvi {
namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

std::string CounterKey(const std::string& benchmark, const std::string& counter) {
    return benchmark + "/" + counter;
}

double Median(std::vector<double> values) {
    if (values.empty()) {
        return kNone;
    }
    std::ranges::sort(values);
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

// Shows what the console shows, and keeps what each repetition came to.
class KeepingReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred) {
                continue;
            }
            const std::string& name = run.run_name.function_name;
            figures_.AddTime(name, run.GetAdjustedRealTime());
            for (const auto& [counter, value] : run.counters) {
                figures_.AddCounter(name, counter, value.value);
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    [[nodiscard]] const Figures& Kept() const { return figures_; }

  private:
    Figures figures_;
};

}  // namespace

void Figures::AddTime(const std::string& benchmark, double time) {
    values_[benchmark].push_back(time);
}

void Figures::AddCounter(const std::string& benchmark, const std::string& counter, double value) {
    values_[CounterKey(benchmark, counter)].push_back(value);
}

std::vector<double> Figures::Values(const std::string& key) const {
    const auto found = values_.find(key);
    return found == values_.end() ? std::vector<double>() : found->second;
}

double Figures::Time(const std::string& benchmark) const {
    return Median(Values(benchmark));
}

double Figures::Counter(const std::string& benchmark, const std::string& counter) const {
    return Median(Values(CounterKey(benchmark, counter)));
}

double Figures::MostOf(const std::string& benchmark, const std::string& counter) const {
    const std::vector<double> values = Values(CounterKey(benchmark, counter));
    return values.empty() ? kNone : std::ranges::max(values);
}

void Verdict::Hold(const char* what, double is, const char* bound, double limit, bool kept) {
    const bool measured = !std::isnan(is);
    status_ = std::max(status_, kept ? 0 : measured ? kBroken : kNotMeasured);
    std::printf("%-52s %9.3f, at %s %g%s\n", what, is, bound, limit, kept ? "" : "   BROKEN");
}

void Verdict::AtMost(const char* what, double is, double most) {
    Hold(what, is, "most", most, is <= most);
}

void Verdict::AtLeast(const char* what, double is, double least) {
    Hold(what, is, "least", least, is >= least);
}

void Verdict::Tell(const char* what, double is) {
    std::printf("%-52s %9.3f\n", what, is);
}

void RegisterTimed(const char* name, void (*function)(benchmark::State&)) {
    benchmark::RegisterBenchmark(name, function)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1);
}

bool IsShortRun(int count, char** words) {
    return std::any_of(words, words + count, [](const char* word) {
        return std::string_view(word).starts_with("--benchmark_min_time");
    });
}

int RunAndJudge(int count, char** words, int repetitions,
                const std::function<void(const Figures&, Verdict&)>& judge) {
    // What is compared takes turns, so that what else the machine does falls on all of it.
    std::vector<char*> arguments(words, words + count);
    std::string interleave = "--benchmark_enable_random_interleaving=true";
    std::string repeat = "--benchmark_repetitions=" + std::to_string(repetitions);
    arguments.insert(arguments.begin() + 1, {interleave.data(), repeat.data()});
    int given = static_cast<int>(arguments.size());
    benchmark::Initialize(&given, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(given, arguments.data())) {
        return Verdict::kNotMeasured;
    }
    KeepingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    Verdict verdict;
    std::printf("\n");
    judge(reporter.Kept(), verdict);
    std::fflush(stdout);
    return verdict.Status();
}

}  // namespace quorvi
