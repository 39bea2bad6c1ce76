// What drawing an hour of sound costs: 60 minutes of 44.1 kHz 16-bit stereo, about 635 MB. Prints each figure
// beside the time of one plain single-threaded minimum/maximum pass over every sample, taken in the same run.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <limits>
#include <vector>

#include "view/WaveLines.h"
#include "view/WavePicture.h"

namespace tembrel {
namespace {

constexpr std::int64_t kRate = 44100;
constexpr std::int64_t kHour = kRate * 3600;
constexpr int kRounds = 15;

std::optional<AudioClip> NoisyHour() {
  const std::size_t size = static_cast<std::size_t>(kHour) * 4;
  std::optional<MemoryBlock> block = MemoryBlock::Allocate(size);
  if (!block) {
    return std::nullopt;
  }
  std::uint32_t state = 1;
  for (std::size_t at = 0; at < size; at += 4) {
    state = state * 1664525U + 1013904223U;
    std::memcpy(block->Data() + at, &state, 4);
  }
  AudioClip clip;
  clip.format = {kPcmTag, 2, static_cast<std::uint32_t>(kRate), static_cast<std::uint32_t>(kRate * 4), 4, 16};
  clip.data = std::move(*block);
  clip.dataSize = static_cast<std::uint32_t>(size);
  return clip;
}

// The best of several rounds, in milliseconds: whatever else runs on the machine can only add to it.
double Milliseconds(const std::function<void()>& work) {
  double best = std::numeric_limits<double>::max();
  for (int round = 0; round < kRounds; ++round) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    best = std::min(best, taken.count());
  }
  return best;
}

// Keeps results alive so that the work is not optimised away.
volatile std::int64_t kept = 0;

void PlainPass(const AudioClip& clip) {
  const auto* samples = reinterpret_cast<const std::int16_t*>(clip.Bytes().data());
  const std::size_t count = clip.dataSize / 2;
  std::int16_t low = std::numeric_limits<std::int16_t>::max();
  std::int16_t high = std::numeric_limits<std::int16_t>::min();
  for (std::size_t i = 0; i < count; ++i) {
    low = std::min(low, samples[i]);
    high = std::max(high, samples[i]);
  }
  kept = kept + high - low;
}

void CountLines(const AudioClip& clip, std::int64_t first, std::int64_t frames) {
  kept = kept + static_cast<std::int64_t>(WaveLines(clip, {1600, 600}, first, frames).size());
}

void Report(const char* what, double milliseconds, double plain) {
  std::printf("%-44s %9.3f ms   %6.3f x plain pass\n", what, milliseconds, milliseconds / plain);
}

int Run() {
  const std::optional<AudioClip> hour = NoisyHour();
  if (!hour) {
    std::fputs("no memory for an hour of sound\n", stderr);
    return 1;
  }
  const AudioClip& clip = *hour;
  PlainPass(clip);
  const double plain = Milliseconds([&] { PlainPass(clip); });
  Report("plain min/max pass over every sample", plain, plain);
  Report("whole file, 1600 x 600 (target 0.7)", Milliseconds([&] { CountLines(clip, 0, kHour); }), plain);
  Report("half the file", Milliseconds([&] { CountLines(clip, kHour / 4, kHour / 2); }), plain);

  // Every view from one frame to ten seconds counts; the slowest one is told. Each starts elsewhere in the
  // file, so that its samples come from memory and not from a cache.
  double slowest = 0;
  std::int64_t slowestFrames = 0;
  for (std::int64_t frames = 1; frames <= 10 * kRate;
       frames = frames == 10 * kRate ? frames + 1 : std::min(frames * 5 / 4 + 1, 10 * kRate)) {
    std::int64_t first = 0;
    const double taken = Milliseconds([&] {
      first = (first + 97 * kRate) % (kHour - frames);
      CountLines(clip, first, frames);
    });
    if (taken > slowest) {
      slowest = taken;
      slowestFrames = frames;
    }
  }
  std::printf("slowest view up to 10 s (target 4 ms): %lld frames\n", static_cast<long long>(slowestFrames));
  Report("  its lines", slowest, plain);

  const PaintArea area{1920, 400};
  std::vector<Rgb> pixels(static_cast<std::size_t>(area.width) * static_cast<std::size_t>(area.height));
  const Raster raster{pixels, area.width, area.height, area.width};
  const std::vector<Line> lines = WaveLines(clip, area, 0, 10 * kRate);
  const Pen pen = PenOf(Layer::Wave, area, true);
  Report("painting 1920 x 400, full columns (3 ms)", Milliseconds([&] {
           for (const Line& line : lines) {
             DrawLine(raster, line, pen);
           }
         }),
         plain);
  Report("whole picture 1920 x 400, 1920 frames joined",
         Milliseconds([&] { PaintPicture(raster, &clip, area, 0, 1920); }), plain);
  Report("whole picture 1920 x 400 of 10 s",
         Milliseconds([&] { PaintPicture(raster, &clip, area, 0, 10 * kRate); }), plain);
  const PixelRect strip = CursorStrip(area, 960);
  Report("cursor", Milliseconds([&] { LayCursor(raster, strip); }), plain);
  return 0;
}

}  // namespace
}  // namespace tembrel

int main() {
  return tembrel::Run();
}
