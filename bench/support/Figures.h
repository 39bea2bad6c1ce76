// What a benchmark shows beside its time, the targets of that, and the exit status of the program: 1 when a
// target was missed or a benchmark failed.
#pragma once

#include <benchmark/benchmark.h>
#include <initializer_list>
#include <limits>
#include <string>

namespace tembrel::bench {

inline constexpr double kNoTarget = std::numeric_limits<double>::infinity();

struct Figure {
  const char* name;
  double value;
  double target = kNoTarget;  // the most that it may be
};

// Shows the figures as counters and their targets as the label, with "MISSED" behind those that are. Does
// nothing for a benchmark that has failed. To be called once, after the rounds.
void Report(benchmark::State& state, std::initializer_list<Figure> figures);

// The benchmark could not do its work.
void Fail(benchmark::State& state, const std::string& why);

// Takes Google Benchmark's flags. False, and a message is printed, when there are others.
bool ReadFlags(int& argc, char** argv);

// Runs what was registered and returns the exit status. To run nothing is a failure too.
int RunRegistered();

}  // namespace tembrel::bench
