// What the effects cost on an hour of 16-bit stereo in memory, against one plain pass that increments every
// sample; the transforms and the equaliser, each against its plain form. effects_bench [minutes]
#include <algorithm>
#include <array>
#include <chrono>
#include <complex>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <span>
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

double Milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
  return taken.count();
}

double Fastest(const std::function<void()>& work) {
  double fastest = Milliseconds(work);
  for (int round = 1; round < kRounds; ++round) {
    fastest = std::min(fastest, Milliseconds(work));
  }
  return fastest;
}

// Keeps no versions: an edit then costs what it does to the samples.
class NoVersions : public VersionKeeper {
 public:
  std::vector<ClipVersion*> Versions() const override { return {}; }
  bool ForgetOldest() override { return false; }
};

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
  std::uint32_t state = 1;
  for (std::size_t at = 0; at < clip.dataSize; at += sizeof state) {
    state = state * 1664525U + 1013904223U;
    std::memcpy(clip.data.Data() + at, &state, sizeof state);
  }
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
  double limit;  // of a plain pass; 0: none is set
};

constexpr std::array<Target, 11> kTargets{{{"amplify", 3},
                                           {"silence", 3},
                                           {"fade-in", 3},
                                           {"fade-out", 3},
                                           {"compress", 3},
                                           {"normalize", 6},
                                           {"reverb", 12},
                                           {"filter", 0},
                                           {"cut-rumble", 0},
                                           {"clean-spectrum", 0},
                                           {"format", 0}}};

// Times the row with the keeper, which tells whether undo is paid for.
double TimeEffect(const EffectRow& row, AudioClip& clip, bool withUndo) {
  const EditMemory memory;
  double fastest = 1e12;
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
    fastest = std::min(fastest, Milliseconds([&] { result = step.change(editor); }));
    if (!result.done) {
      std::printf("%s: %s\n", row.word.data(), result.message.c_str());
      std::exit(1);
    }
    edited->format = clip.format;
  }
  return fastest;
}

bool TimeEffects(AudioClip& clip) {
  bool met = true;
  for (const auto& [word, limit] : kTargets) {
    const double plain = Fastest([&] { IncrementAll(clip); });
    const double bare = TimeEffect(*FindEffect(word), clip, false);
    const double whole = limit > 0 ? TimeEffect(*FindEffect(word), clip, true) : 0;
    std::printf("%-16s %9.1f ms %7.2f of a pass (%.1f ms)", word, bare, bare / plain, plain);
    if (limit > 0) {
      std::printf(", at most %2.0f%s; with its undo %9.1f ms %7.2f", limit,
                  bare > limit * plain ? " MISSED" : "", whole, whole / plain);
      met = met && bare <= limit * plain;
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
  const double literal = Fastest([&] {
    for (int i = 0; i < kTimes; ++i) {
      FourierTransform(plain, kDims, i % 2 == 0 ? 1 : -1);
      plain[0] /= 2048;
    }
  });
  const double fast = Fastest([&] {
    gains->re.fill(1.0 / 2048);
    gains->im.fill(1.0 / 2048);
    values->fill(0.5);
    for (int i = 0; i < kTimes; i += 2) {
      transform.Forward(*values, *bins);
      transform.Inverse(*bins, *gains, *values);
    }
  });
  std::printf("transform of 2048 points: plain form %.1f us, four at a time %.1f us each\n",
              literal * 1000 / kTimes, fast * 1000 / kTimes / kLanes);
}

void TimeEqualiser() {
  AudioClip clip = NoisyClip(1);
  const double fast = TimeEffect(*FindEffect("filter"), clip, false);
  test::LiteralClip sound{clip.format, {}};
  sound.data.assign(clip.Bytes().begin(), clip.Bytes().end());
  const double literal = Milliseconds(
      [&] { test::LiteralEffects(sound).Filter(0, static_cast<std::int64_t>(clip.dataSize), 0); });
  std::printf("equaliser over a minute: %.1f ms, the plain form %.1f ms\n", fast, literal);
}

}  // namespace
}  // namespace tembrel

int main(int argc, char** argv) {
  const int minutes = argc > 1 ? std::clamp(std::atoi(argv[1]), 1, 400) : 60;
  tembrel::AudioClip clip = tembrel::NoisyClip(minutes);
  const bool met = tembrel::TimeEffects(clip);
  tembrel::TimeTransforms();
  tembrel::TimeEqualiser();
  return met ? 0 : 1;
}
