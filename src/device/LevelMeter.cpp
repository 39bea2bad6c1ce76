#include "device/LevelMeter.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "audio/Riff.h"

namespace tembrel {

void Measure(std::span<const std::byte> frames, const FormatChoice& format, Levels& levels) {
  const std::size_t sampleBytes = format.bits / 8U;
  const int fullScale = format.bits == 8 ? 128 : 32768;
  std::array<int, 2> peaks{};
  for (std::size_t i = 0; (i + 1) * sampleBytes <= frames.size(); ++i) {
    const std::span<const std::byte> sample = frames.subspan(i * sampleBytes, sampleBytes);
    const int value = format.bits == 8 ? std::to_integer<int>(sample[0]) - fullScale
                                       : static_cast<std::int16_t>(LoadLe16(sample));
    int& peak = peaks[i % format.channels];
    peak = std::max(peak, std::abs(value));
    levels.clipped = levels.clipped || value == fullScale - 1 || value == -fullScale;
  }
  const auto scaled = [fullScale](int peak) { return static_cast<double>(peak) / fullScale; };
  levels.left = std::max(levels.left, scaled(peaks[0]));
  levels.right = format.channels == 1 ? levels.left : std::max(levels.right, scaled(peaks[1]));
}

}  // namespace tembrel
