// The end of every benchmark program: the figures of the run, the promises they are held against,
// and an exit status that says whether all were kept.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace quorvi {

// What was measured, by benchmark. Not a number where it was not.
class Figures {
  public:
    void AddTime(const std::string& benchmark, double time);
    void AddCounter(const std::string& benchmark, const std::string& counter, double value);

    // The median of the repetitions, in the benchmark's own unit.
    [[nodiscard]] double Time(const std::string& benchmark) const;
    [[nodiscard]] double Counter(const std::string& benchmark, const std::string& counter) const;
    // The highest of the repetitions.
    [[nodiscard]] double MostOf(const std::string& benchmark, const std::string& counter) const;

  private:
    [[nodiscard]] std::vector<double> Values(const std::string& key) const;

    std::map<std::string, std::vector<double>> values_;
};

// Prints a line a promise.
class Verdict {
  public:
    void AtMost(const char* what, double is, double most);
    void AtLeast(const char* what, double is, double least);
    // A figure that nothing is promised of.
    static void Tell(const char* what, double is);

    // The program's exit status: 0 when all were kept, kBroken, or kNotMeasured.
    [[nodiscard]] int Status() const { return status_; }

    static constexpr int kBroken = 1;
    // A figure is missing: what measures it did not run, or failed.
    static constexpr int kNotMeasured = 2;

  private:
    void Hold(const char* what, double is, const char* bound, double limit, bool kept);

    int status_ = 0;
};

// Registers one that takes the time of each repetition itself, in milliseconds.
void RegisterTimed(const char* name, void (*function)(benchmark::State&));

// Whether the command line asks for a run that only shows that all still works, so that less will
// do.
[[nodiscard]] bool IsShortRun(int count, char** words);

// Runs the benchmarks that are registered, `repetitions` times unless the command line tells
// another number, and shows them as the library does; then `judge`. The program's exit status.
[[nodiscard]] int RunAndJudge(int count, char** words, int repetitions,
                              const std::function<void(const Figures&, Verdict&)>& judge);

}  // namespace quorvi
