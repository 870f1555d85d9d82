// The end of every benchmark program: the figures of the run, the promises they are held against,
// and an exit status that says whether all were kept.
#pragma once

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

    [[nodiscard]] bool AllKept() const { return allKept_; }

  private:
    bool allKept_ = true;
};

// Runs the benchmarks that are registered and shows them as the library does; then `judge`. The
// program's exit status.
[[nodiscard]] int RunAndJudge(int count, char** words,
                              const std::function<void(const Figures&, Verdict&)>& judge);

}  // namespace quorvi
