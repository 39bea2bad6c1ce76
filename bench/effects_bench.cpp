// What the effects cost on 44.1 kHz 16-bit stereo in memory, an hour of it or TEMBREL_BENCH_MINUTES minutes,
// against one plain pass that increments every sample; and the transforms and the equaliser, each beside its
// plain form. One effect alone: --benchmark_filter=reverb
#include <algorithm>
#include <array>
#include <complex>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/FourierTransform.h"
#include "analysis/LaneTransform.h"
#include "bench/support/Figures.h"
#include "bench/support/NoisySound.h"
#include "bench/support/Rounds.h"
#include "edit/AudioUndo.h"
#include "edit/EffectTable.h"
#include "tests/support/LiteralEffects.h"

namespace tembrel {
namespace {

constexpr int kRounds = 5;

// Keeps no versions: an edit then costs what it does to the samples.
class NoVersions : public VersionKeeper {
 public:
  std::vector<ClipVersion*> Versions() const override { return {}; }
  bool ForgetOldest() override { return false; }
};

void IncrementAll(AudioClip& clip) {
  auto* const samples = reinterpret_cast<std::uint16_t*>(clip.data.Data());
  for (std::size_t i = 0; i < clip.dataSize / 2; ++i) {
    ++samples[i];
  }
}

enum class Sound { Noise, Steady };  // steady: all samples alike
enum class History { None, Undo };   // whether undo is paid for

struct Target {
  std::string_view word;
  double limit;  // of a plain pass
  Sound sound = Sound::Noise;
};

constexpr std::array<Target, 12> kTargets{{{"amplify", 3},
                                           {"silence", 3},
                                           {"fade-in", 3},
                                           {"fade-out", 3},
                                           {"compress", 3},
                                           {"normalize", 6},
                                           {"reverb", 12},
                                           {"reverb", 12, Sound::Steady},
                                           {"filter", bench::kNoTarget},
                                           {"cut-rumble", bench::kNoTarget},
                                           {"clean-spectrum", bench::kNoTarget},
                                           {"format", bench::kNoTarget}}};

// Every round has a fresh sound, not what the round before has left.
void TimeEffect(benchmark::State& state, AudioClip& clip, const Target& target, History history) {
  const EffectRow& row = *FindEffect(target.word);
  const EditStep step = row.make({0, clip.dataSize}, {120, 0, {bench::kRate / 2, 16, 2}});
  const EditMemory memory;
  bench::Times passes;
  const bench::Times times = bench::CountRounds(state, [&](const auto& count) {
    if (target.sound == Sound::Steady) {
      std::ranges::fill(clip.Bytes(), std::byte{0x66});
    } else {
      bench::FillWithNoise(clip);
    }
    passes.Take([&] { IncrementAll(clip); });
    AudioUndo undo;
    NoVersions none;
    if (history == History::Undo) {
      undo.Push(&clip);
    }
    // The one effect that makes another clip gets one of its own.
    const std::unique_ptr<AudioClip> copy = row.parameter == EffectParameter::Format ? clip.Copy() : nullptr;
    ClipEditor editor(copy ? *copy : clip,
                      history == History::Undo ? static_cast<VersionKeeper&>(undo) : none, memory);
    EditResult result;
    count([&] { result = step.change(editor); });
    if (!result.done) {
      bench::Fail(state, result.message);
    }
  });
  bench::Report(state, {{"of_pass", times.Best() / passes.Best(),
                         history == History::None ? target.limit : bench::kNoTarget},
                        {"processors_of_pass", times.BestOfProcessors() / passes.BestOfProcessors()},
                        {"best_ms", times.Best()},
                        {"processors_ms", times.BestOfProcessors()},
                        {"pass_ms", passes.Best()}});
}

void RegisterEffects(AudioClip& clip) {
  for (const Target& target : kTargets) {
    const std::string name = std::string(target.word) + (target.sound == Sound::Steady ? "/steady" : "");
    const int rounds = target.word == "clean-spectrum" ? 1 : kRounds;
    bench::Register(name.c_str(), rounds, [&clip, &target](benchmark::State& state) {
      TimeEffect(state, clip, target, History::None);
    });
    if (target.limit != bench::kNoTarget) {
      bench::Register((name + "/with_undo").c_str(), rounds, [&clip, &target](benchmark::State& state) {
        TimeEffect(state, clip, target, History::Undo);
      });
    }
  }
}

constexpr int kTransforms = 200;  // a round

void ReportTransforms(benchmark::State& state, const bench::Times& times, std::size_t blocks) {
  const double each = times.BestOfProcessors() / static_cast<double>(kTransforms * blocks);
  bench::Report(state, {{"us_each", each * 1000}});
}

void TimePlainTransform(benchmark::State& state) {
  constexpr std::array<std::size_t, 1> kDims{kBlockPoints};
  std::vector<std::complex<double>> values(kBlockPoints, {0.5, 0.25});
  const bench::Times times = bench::CountRounds(state, [&](const auto& count) {
    count([&] {
      for (int i = 0; i < kTransforms; ++i) {
        FourierTransform(values, kDims, i % 2 == 0 ? 1 : -1);
        values[0] /= 2048;
      }
    });
  });
  ReportTransforms(state, times, 1);
}

void TimeLaneTransform(benchmark::State& state) {
  const auto values = std::make_unique<LaneValues>();
  const auto bins = std::make_unique<LaneBins>();
  const auto gains = std::make_unique<BinGains>();
  gains->re.fill(1.0 / 2048);
  gains->im.fill(1.0 / 2048);
  const LaneTransform transform;
  const bench::Times times = bench::CountRounds(state, [&](const auto& count) {
    values->fill(0.5);
    count([&] {
      for (int i = 0; i < kTransforms; i += 2) {
        transform.Forward(*values, *bins);
        transform.Inverse(*bins, *gains, *values);
      }
    });
  });
  ReportTransforms(state, times, kLanes);
}

void TimePlainEqualiser(benchmark::State& state, const AudioClip& clip) {
  const bench::Times times = bench::CountRounds(state, [&](const auto& count) {
    test::LiteralClip sound{clip.format, {}};
    sound.data.assign(clip.Bytes().begin(), clip.Bytes().end());
    count([&] { test::LiteralEffects(sound).Filter(0, static_cast<std::int64_t>(clip.dataSize), 0); });
  });
  bench::Report(state, {{"best_ms", times.Best()}});
}

int Run() {
  std::optional<AudioClip> clip = bench::NoisyClip(bench::SoundSeconds());
  std::optional<AudioClip> minute = bench::NoisyClip(60);
  if (!clip || !minute) {
    std::fputs("there is no memory for the sound\n", stderr);
    return 1;
  }
  RegisterEffects(*clip);
  bench::Register("transform_of_2048/plain_form", kRounds, TimePlainTransform);
  bench::Register("transform_of_2048/four_at_a_time", kRounds, TimeLaneTransform);
  bench::Register("filter/one_minute", kRounds, [&](benchmark::State& state) {
    TimeEffect(state, *minute, {"filter", bench::kNoTarget}, History::None);
  });
  bench::Register("filter/one_minute/plain_form", 1,
                  [&](benchmark::State& state) { TimePlainEqualiser(state, *minute); });
  return bench::RunRegistered();
}

}  // namespace
}  // namespace tembrel

int main(int argc, char** argv) {
  return tembrel::bench::ReadFlags(argc, argv) ? tembrel::Run() : 1;
}
