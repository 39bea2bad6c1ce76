// How every benchmark takes its time: in rounds, of which the best or the median counts, because whatever
// else runs on the machine can only add to one. A ratio is that of two such figures whose rounds were taken
// close together. Google Benchmark's own columns show the mean of the rounds.
#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstddef>
#include <ctime>
#include <vector>

namespace tembrel::bench {

// What the rounds of one piece of work took, in milliseconds. Without a round every figure is 0.
class Times {
 public:
  // Does the work once more.
  template <class Work>
  void Take(const Work& work) {
    const std::clock_t before = std::clock();
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    const std::clock_t after = std::clock();
    clock.push_back(taken.count());
    processors.push_back(1000.0 * static_cast<double>(after - before) / CLOCKS_PER_SEC);
  }

  double Last() const { return clock.empty() ? 0 : clock.back(); }
  double Best() const { return clock.empty() ? 0 : std::ranges::min(clock); }
  double Worst() const { return clock.empty() ? 0 : std::ranges::max(clock); }
  double Median() const {
    std::vector<double> sorted = clock;
    std::ranges::sort(sorted);
    return sorted.empty() ? 0 : sorted[sorted.size() / 2];
  }
  // Of all processors together, which other programs disturb less.
  double BestOfProcessors() const { return processors.empty() ? 0 : std::ranges::min(processors); }

 private:
  std::vector<double> clock;
  std::vector<double> processors;
};

template <class Work>
Times TakeRounds(int rounds, const Work& work) {
  Times times;
  for (int round = 0; round < rounds; ++round) {
    times.Take(work);
  }
  return times;
}

// Registers a benchmark of so many rounds.
template <class Function>
void Register(const char* name, int rounds, const Function& function) {
  benchmark::RegisterBenchmark(name, function)
      ->Unit(benchmark::kMillisecond)
      ->MeasureProcessCPUTime()
      ->UseManualTime()
      ->Iterations(rounds);
}

// Calls round(count) for every round of the benchmark, until one has failed; count(work), to be called once,
// does the work that is timed. Nothing else in the round counts, neither on the clock nor on the processors.
// A failure is told by the round, never by the work.
template <class Round>
Times CountRounds(benchmark::State& state, const Round& round) {
  Times times;
  const auto count = [&](const auto& work) {
    state.ResumeTiming();
    times.Take(work);
    state.PauseTiming();
    state.SetIterationTime(times.Last() / 1000);
  };
  for ([[maybe_unused]] auto iteration : state) {
    state.PauseTiming();
    round(count);
    if (state.error_occurred()) {
      break;
    }
    state.ResumeTiming();
  }
  return times;
}

}  // namespace tembrel::bench
