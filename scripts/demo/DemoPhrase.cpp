#include "scripts/demo/DemoPhrase.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "scripts/demo/PluckedString.h"

namespace tembrel {

namespace {

constexpr double kBeatSeconds = 0.3;
constexpr double kEndSeconds = 6.0;
constexpr double kFadeSeconds = 0.4;
constexpr double kPeak = 0.8 * 32767.0;

struct Note {
  double beat;
  int key;      // semitones above A at 440 Hz
  double loud;  // 0 to 1
  double pan;   // 0 left to 1 right
};

constexpr std::array kNotes{
    Note{0.0, -21, 0.9, 0.35}, Note{0.0, -5, 0.8, 0.6},   Note{1.0, -2, 0.7, 0.65},
    Note{2.0, 2, 0.75, 0.7},   Note{3.0, 7, 0.9, 0.75},   Note{4.0, -17, 0.9, 0.3},
    Note{4.0, 5, 0.8, 0.7},    Note{5.0, 2, 0.6, 0.65},   Note{6.0, -2, 0.6, 0.6},
    Note{7.0, 0, 0.7, 0.6},    Note{8.0, -24, 1.0, 0.35}, Note{8.0, 2, 0.85, 0.7},
    Note{9.5, 0, 0.5, 0.65},   Note{10.0, -2, 0.6, 0.6},  Note{11.0, -4, 0.55, 0.55},
    Note{12.0, -21, 1.0, 0.4}, Note{12.0, -5, 0.8, 0.55}, Note{12.25, -2, 0.5, 0.6},
    Note{12.5, 2, 0.5, 0.65},  Note{12.75, 7, 0.6, 0.7},
};

std::size_t FramesIn(double seconds) {
  return static_cast<std::size_t>(std::lround(seconds * kDemoRate));
}

void AddNote(const Note& note, std::uint32_t seed, std::vector<double>& mix) {
  const std::size_t frames = mix.size() / kDemoChannels;
  const std::size_t start = std::min(FramesIn(note.beat * kBeatSeconds), frames);
  const double pitch = 440.0 * std::pow(2.0, note.key / 12.0);
  const std::vector<double> sound = PluckString(pitch, kDemoRate, frames - start, seed);
  const double left = note.loud * std::cos(note.pan * std::numbers::pi / 2.0);
  const double right = note.loud * std::sin(note.pan * std::numbers::pi / 2.0);
  for (std::size_t i = 0; i < sound.size(); ++i) {
    mix[(start + i) * kDemoChannels] += left * sound[i];
    mix[(start + i) * kDemoChannels + 1] += right * sound[i];
  }
}

// From 1 down to 0 over the last frames, so that the end does not click.
double FadeAt(std::size_t frame, std::size_t frames) {
  return std::min(1.0, static_cast<double>(frames - 1 - frame) / static_cast<double>(FramesIn(kFadeSeconds)));
}

}  // namespace

std::vector<std::int16_t> DemoPhrase() {
  std::vector<double> mix(FramesIn(kEndSeconds) * kDemoChannels);
  std::uint32_t seed = 1;
  for (const Note& note : kNotes) {
    AddNote(note, seed, mix);
    ++seed;
  }
  double loudest = 0.0;
  for (const double sample : mix) {
    loudest = std::max(loudest, std::abs(sample));
  }
  std::vector<std::int16_t> samples(mix.size());
  for (std::size_t i = 0; i < mix.size(); ++i) {
    const double fade = FadeAt(i / kDemoChannels, mix.size() / kDemoChannels);
    samples[i] = static_cast<std::int16_t>(std::lround(mix[i] / loudest * kPeak * fade));
  }
  return samples;
}

}  // namespace tembrel
