#include "scripts/demo/PluckedString.h"

#include <cmath>
#include <cstddef>
#include <numeric>

namespace tembrel {

namespace {

// A little under one: the string loses energy beyond what the smoothing takes.
constexpr double kKept = 0.997;
// The first rounds are too sharp to hear: a soft finger.
constexpr std::size_t kUnheardRounds = 12;

// One period of the string, with its middle at rest, or it would sound with an offset. The standard library's
// distributions differ between implementations; this is the same sound everywhere.
std::vector<double> Pluck(std::size_t period, std::uint32_t seed) {
  std::vector<double> string(period);
  std::uint32_t state = seed;
  for (double& sample : string) {
    state = state * 1664525U + 1013904223U;
    sample = static_cast<double>(state >> 8) / static_cast<double>(1U << 23) - 1.0;
  }
  const double middle =
      std::accumulate(string.begin(), string.end(), 0.0) / static_cast<double>(string.size());
  for (double& sample : string) {
    sample -= middle;
  }
  return string;
}

}  // namespace

std::vector<double> PluckString(double pitch, double rate, std::size_t frames, std::uint32_t seed) {
  if (!(pitch > 0.0 && pitch <= rate / 2.0)) {
    return {};
  }
  // Smoothing with the sample that comes next shortens the way round by half a sample.
  std::vector<double> string = Pluck(static_cast<std::size_t>(std::lround(rate / pitch + 0.5)), seed);
  std::size_t at = 0;
  const auto play = [&] {
    const std::size_t next = (at + 1) % string.size();
    const double sample = string[at];
    string[at] = kKept * 0.5 * (sample + string[next]);
    at = next;
    return sample;
  };
  for (std::size_t i = 0; i < kUnheardRounds * string.size(); ++i) {
    play();
  }
  std::vector<double> sound(frames);
  for (double& sample : sound) {
    sample = play();
  }
  return sound;
}

}  // namespace tembrel
