#include "bench/support/Figures.h"

#include <cstdio>
#include <sstream>

namespace tembrel::bench {
namespace {

bool missedOrFailed = false;

}  // namespace

void Report(benchmark::State& state, std::initializer_list<Figure> figures) {
  if (state.error_occurred()) {
    return;
  }
  std::ostringstream label;
  for (const auto& [name, value, target] : figures) {
    state.counters[name] = value;
    if (target == kNoTarget) {
      continue;
    }
    const bool missed = !(value <= target);
    label << (label.tellp() > 0 ? ", " : "") << name << " at most " << target << (missed ? " MISSED" : "");
    missedOrFailed = missedOrFailed || missed;
  }
  state.SetLabel(label.str());
}

void Fail(benchmark::State& state, const std::string& why) {
  state.SkipWithError(why.c_str());
  missedOrFailed = true;
}

bool ReadFlags(int& argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  return !benchmark::ReportUnrecognizedArguments(argc, argv);
}

int RunRegistered() {
  const bool ran = benchmark::RunSpecifiedBenchmarks() > 0;
  benchmark::Shutdown();
  if (missedOrFailed) {
    std::fputs("A target was missed, or a benchmark failed.\n", stderr);
  }
  return ran && !missedOrFailed ? 0 : 1;
}

}  // namespace tembrel::bench
