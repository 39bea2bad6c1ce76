// What the effects cost on an hour of 16-bit stereo in memory, against one plain pass that increments every
// sample; the transforms and the equaliser, each against its plain form. effects_bench [minutes [effect]]
#include <algorithm>
#include <array>
#include <chrono>
#include <complex>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "analysis/FourierTransform.h"
#include "analysis/LaneTransform.h"
#include "edit/AudioUndo.h"
#include "edit/EffectTable.h"
#include "tests/support/LiteralEffects.h"

namespace tembrel {
namespace {

constexpr std::uint32_t kRate = 44100;
constexpr int kRounds = 5;

// Milliseconds: on the clock, and of all processors together, which other programs disturb less.
struct Timing {
  double wall = 1e12;
  double processors = 1e12;

  void TakeFaster(const Timing& other) {
    wall = std::min(wall, other.wall);
    processors = std::min(processors, other.processors);
  }
};

Timing TimeOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  const std::clock_t before = std::clock();
  work();
  const std::clock_t after = std::clock();
  const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
  return {taken.count(), 1000.0 * static_cast<double>(after - before) / CLOCKS_PER_SEC};
}

Timing Fastest(const std::function<void()>& work) {
  Timing fastest;
  for (int round = 0; round < kRounds; ++round) {
    fastest.TakeFaster(TimeOf(work));
  }
  return fastest;
}

// Keeps no versions: an edit then costs what it does to the samples.
class NoVersions : public VersionKeeper {
 public:
  std::vector<ClipVersion*> Versions() const override { return {}; }
  bool ForgetOldest() override { return false; }
};

void FillWithNoise(AudioClip& clip) {
  std::uint32_t state = 1;
  for (std::size_t at = 0; at < clip.dataSize; at += sizeof state) {
    state = state * 1664525U + 1013904223U;
    std::memcpy(clip.data.Data() + at, &state, sizeof state);
  }
}

AudioClip NoisyClip(int minutes) {
  AudioClip clip;
  clip.format = PcmFormat(kRate, 16, 2);
  clip.dataSize = BytesPerSecond(kRate, 16, 2) * 60U * static_cast<unsigned>(minutes);
  std::optional<MemoryBlock> block = MemoryBlock::Allocate(clip.dataSize);
  if (!block) {
    std::puts("there is no memory for the sound");
    std::exit(1);
  }
  clip.data = std::move(*block);
  FillWithNoise(clip);
  return clip;
}

void IncrementAll(AudioClip& clip) {
  auto* const samples = reinterpret_cast<std::uint16_t*>(clip.data.Data());
  for (std::size_t i = 0; i < clip.dataSize / 2; ++i) {
    ++samples[i];
  }
}

struct Target {
  const char* word;
  double limit;         // of a plain pass; 0: none is set
  bool steady = false;  // all samples alike, instead of noise
};

constexpr std::array<Target, 12> kTargets{{{"amplify", 3},
                                           {"silence", 3},
                                           {"fade-in", 3},
                                           {"fade-out", 3},
                                           {"compress", 3},
                                           {"normalize", 6},
                                           {"reverb", 12},
                                           {"reverb", 12, true},
                                           {"filter", 0},
                                           {"cut-rumble", 0},
                                           {"clean-spectrum", 0},
                                           {"format", 0}}};

// Times the row with the keeper, which tells whether undo is paid for.
Timing TimeEffect(const EffectRow& row, AudioClip& clip, bool withUndo) {
  const EditMemory memory;
  Timing fastest;
  const EffectParameters parameters{120, 0, {kRate / 2, 16, 2}};
  const EditStep step = row.make({0, clip.dataSize}, parameters);
  for (int round = 0; round < (row.word == "clean-spectrum" ? 1 : kRounds); ++round) {
    AudioUndo undo;
    NoVersions none;
    if (withUndo) {
      undo.Push(&clip);
    }
    VersionKeeper& keeper = withUndo ? static_cast<VersionKeeper&>(undo) : none;
    const bool replaces = row.parameter == EffectParameter::Format;
    AudioClip* edited = &clip;
    std::unique_ptr<AudioClip> copy;
    if (replaces) {
      copy = clip.Copy();
      edited = copy.get();
    }
    ClipEditor editor(*edited, keeper, memory);
    EditResult result;
    fastest.TakeFaster(TimeOf([&] { result = step.change(editor); }));
    if (!result.done) {
      std::printf("%s: %s\n", row.word.data(), result.message.c_str());
      std::exit(1);
    }
    edited->format = clip.format;
  }
  return fastest;
}

// All of them, or the one that is named.
bool TimeEffects(AudioClip& clip, std::string_view only) {
  bool met = true;
  for (const auto& [word, limit, steady] : kTargets) {
    if (!only.empty() && only != word) {
      continue;
    }
    // Not what the effect before has left, which may be silence.
    FillWithNoise(clip);
    if (steady) {
      std::ranges::fill(clip.data.Bytes(), std::byte{0x66});
    }
    const Timing plain = Fastest([&] { IncrementAll(clip); });
    const Timing bare = TimeEffect(*FindEffect(word), clip, false);
    std::printf("%-14s%s %8.1f ms, %6.2f of a pass (%.1f ms); processors %8.1f ms, %6.2f", word,
                steady ? " steady" : "", bare.wall, bare.wall / plain.wall, plain.wall, bare.processors,
                bare.processors / plain.processors);
    if (limit > 0) {
      const bool inTime = bare.wall <= limit * plain.wall;
      const Timing whole = TimeEffect(*FindEffect(word), clip, true);
      std::printf("; at most %2.0f%s; with undo %8.1f ms, %6.2f", limit, inTime ? "" : " MISSED", whole.wall,
                  whole.wall / plain.wall);
      met = met && inTime;
    }
    std::puts("");
  }
  return met;
}

void TimeTransforms() {
  constexpr int kTimes = 200;
  constexpr std::array<std::size_t, 1> kDims{kBlockPoints};
  std::vector<std::complex<double>> plain(kBlockPoints, {0.5, 0.25});
  const auto values = std::make_unique<LaneValues>();
  const auto bins = std::make_unique<LaneBins>();
  const auto gains = std::make_unique<BinGains>();
  const LaneTransform transform;
  const Timing literal = Fastest([&] {
    for (int i = 0; i < kTimes; ++i) {
      FourierTransform(plain, kDims, i % 2 == 0 ? 1 : -1);
      plain[0] /= 2048;
    }
  });
  const Timing fast = Fastest([&] {
    gains->re.fill(1.0 / 2048);
    gains->im.fill(1.0 / 2048);
    values->fill(0.5);
    for (int i = 0; i < kTimes; i += 2) {
      transform.Forward(*values, *bins);
      transform.Inverse(*bins, *gains, *values);
    }
  });
  std::printf("transform of 2048 points: plain form %.1f us, four at a time %.1f us each\n",
              literal.processors * 1000 / kTimes, fast.processors * 1000 / kTimes / kLanes);
}

void TimeEqualiser() {
  AudioClip clip = NoisyClip(1);
  const Timing fast = TimeEffect(*FindEffect("filter"), clip, false);
  test::LiteralClip sound{clip.format, {}};
  sound.data.assign(clip.Bytes().begin(), clip.Bytes().end());
  const Timing literal =
      TimeOf([&] { test::LiteralEffects(sound).Filter(0, static_cast<std::int64_t>(clip.dataSize), 0); });
  std::printf("equaliser over a minute: %.1f ms, the plain form %.1f ms\n", fast.wall, literal.wall);
}

}  // namespace
}  // namespace tembrel

int main(int argc, char** argv) {
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);  // a line at a time, into a pipe too
  const int minutes = argc > 1 ? std::clamp(std::atoi(argv[1]), 1, 400) : 60;
  tembrel::AudioClip clip = tembrel::NoisyClip(minutes);
  const bool met = tembrel::TimeEffects(clip, argc > 2 ? argv[2] : "");
  if (argc > 2) {
    return met ? 0 : 1;
  }
  tembrel::TimeTransforms();
  tembrel::TimeEqualiser();
  return met ? 0 : 1;
}
