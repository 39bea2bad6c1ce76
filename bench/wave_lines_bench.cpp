// What drawing a long recording costs: an hour of 44.1 kHz 16-bit stereo, about 635 MB, or
// TEMBREL_BENCH_MINUTES minutes. Each figure is told beside one plain single-threaded minimum/maximum pass
// over every sample, taken right before it.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <optional>
#include <vector>

#include "bench/support/Figures.h"
#include "bench/support/NoisySound.h"
#include "bench/support/Rounds.h"
#include "view/WaveLines.h"
#include "view/WavePicture.h"

namespace tembrel {
namespace {

constexpr int kRounds = 15;
constexpr std::int64_t kTenSeconds = std::int64_t{10} * bench::kRate;
constexpr PaintArea kPictureArea{1920, 400};

void PlainPass(const AudioClip& clip) {
  const auto* samples = reinterpret_cast<const std::int16_t*>(clip.Bytes().data());
  const std::size_t count = clip.dataSize / 2;
  std::int16_t low = std::numeric_limits<std::int16_t>::max();
  std::int16_t high = std::numeric_limits<std::int16_t>::min();
  for (std::size_t i = 0; i < count; ++i) {
    low = std::min(low, samples[i]);
    high = std::max(high, samples[i]);
  }
  benchmark::DoNotOptimize(low);
  benchmark::DoNotOptimize(high);
}

double BestPass(const AudioClip& clip) {
  return bench::TakeRounds(kRounds, [&] { PlainPass(clip); }).Best();
}

void ComputeLines(const AudioClip& clip, std::int64_t first, std::int64_t frames) {
  benchmark::DoNotOptimize(WaveLines(clip, {1600, 600}, first, frames).size());
}

struct Targets {
  double ofPass = bench::kNoTarget;
  double milliseconds = bench::kNoTarget;
};

template <class Work>
void TimeWork(benchmark::State& state, const AudioClip& clip, const Targets& targets, const Work& work) {
  const double pass = BestPass(clip);
  const bench::Times times = bench::CountRounds(state, [&](const auto& count) { count(work); });
  bench::Report(state, {{"of_pass", times.Best() / pass, targets.ofPass},
                        {"best_ms", times.Best(), targets.milliseconds},
                        {"pass_ms", pass}});
}

// Every view from one frame to ten seconds counts; the slowest one is told.
void TimeShortViews(benchmark::State& state, const AudioClip& clip) {
  struct View {
    std::int64_t frames = 0;
    bench::Times times;
  };
  std::vector<View> views;
  for (std::int64_t frames = 1; frames < kTenSeconds; frames = frames * 5 / 4 + 1) {
    views.push_back({frames, {}});
  }
  views.push_back({kTenSeconds, {}});

  const double pass = BestPass(clip);
  // Each starts elsewhere in the file, so that its samples come from memory and not from a cache.
  std::int64_t first = 0;
  bench::CountRounds(state, [&](const auto& count) {
    count([&] {
      for (View& view : views) {
        first = (first + std::int64_t{97} * bench::kRate) % (clip.Frames() - view.frames);
        view.times.Take([&] { ComputeLines(clip, first, view.frames); });
      }
    });
  });
  const View& slowest =
      *std::ranges::max_element(views, {}, [](const View& view) { return view.times.Best(); });
  bench::Report(state, {{"slowest_ms", slowest.times.Best(), 4},
                        {"slowest_frames", static_cast<double>(slowest.frames)},
                        {"of_pass", slowest.times.Best() / pass},
                        {"pass_ms", pass},
                        {"views", static_cast<double>(views.size())}});
}

void RegisterLines(const AudioClip& clip) {
  const std::int64_t frames = clip.Frames();
  bench::Register("lines/whole_file", kRounds, [&clip, frames](benchmark::State& state) {
    TimeWork(state, clip, {.ofPass = 0.7}, [&] { ComputeLines(clip, 0, frames); });
  });
  bench::Register("lines/half_file", kRounds, [&clip, frames](benchmark::State& state) {
    TimeWork(state, clip, {}, [&] { ComputeLines(clip, frames / 4, frames / 2); });
  });
  bench::Register("lines/views_up_to_10_s", kRounds,
                  [&clip](benchmark::State& state) { TimeShortViews(state, clip); });
}

void RegisterPainting(const AudioClip& clip, const Raster& raster) {
  bench::Register("paint/full_columns", kRounds, [&clip, raster](benchmark::State& state) {
    const std::vector<Line> lines = WaveLines(clip, kPictureArea, 0, kTenSeconds);
    const Pen pen = PenOf(Layer::Wave, kPictureArea, true);
    TimeWork(state, clip, {.milliseconds = 3}, [&] {
      for (const Line& line : lines) {
        DrawLine(raster, line, ColumnPen(pen, line));
      }
    });
  });
  bench::Register("paint/picture_of_1920_joined_frames", kRounds, [&clip, raster](benchmark::State& state) {
    TimeWork(state, clip, {}, [&] { PaintPicture(raster, &clip, kPictureArea, 0, 1920); });
  });
  bench::Register("paint/picture_of_10_s", kRounds, [&clip, raster](benchmark::State& state) {
    TimeWork(state, clip, {}, [&] { PaintPicture(raster, &clip, kPictureArea, 0, kTenSeconds); });
  });
  bench::Register("paint/cursor", kRounds, [&clip, raster](benchmark::State& state) {
    const PixelRect strip = CursorStrip(kPictureArea, 960);
    TimeWork(state, clip, {}, [&] { LayCursor(raster, strip); });
  });
}

int Run() {
  const std::optional<AudioClip> clip = bench::NoisyClip(bench::SoundSeconds());
  if (!clip) {
    std::fputs("there is no memory for the sound\n", stderr);
    return 1;
  }
  std::vector<Rgb> pixels(static_cast<std::size_t>(kPictureArea.width * kPictureArea.height));
  RegisterLines(*clip);
  RegisterPainting(*clip, {pixels, kPictureArea.width, kPictureArea.height, kPictureArea.width});
  return bench::RunRegistered();
}

}  // namespace
}  // namespace tembrel

int main(int argc, char** argv) {
  return tembrel::bench::ReadFlags(argc, argv) ? tembrel::Run() : 1;
}
