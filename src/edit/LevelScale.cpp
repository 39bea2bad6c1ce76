#include "edit/LevelScale.h"

#include <algorithm>
#include <cmath>

#include "edit/SampleLoads.h"
#include "platform/WideLoops.h"

namespace tembrel {

namespace {

// Single precision times 16 bits is exact in double precision.
TEMBREL_WIDE_LOOPS
void ScaleAll16(std::byte* samples, std::size_t count, double gain) {
  for (std::size_t i = 0; i < count; ++i) {
    StoreSample(samples + 2 * i, static_cast<std::int32_t>(gain * LoadSample(samples + 2 * i)));
  }
}

TEMBREL_WIDE_LOOPS
std::int32_t Magnitude16(const std::byte* samples, std::size_t count) {
  std::int16_t lowest = 0;
  std::int16_t highest = 0;
  for (std::size_t i = 0; i < count; ++i) {
    lowest = std::min(lowest, LoadSample(samples + 2 * i));
    highest = std::max(highest, LoadSample(samples + 2 * i));
  }
  return std::max<std::int32_t>(-lowest, highest);
}

}  // namespace

ByteTable ScaleTable8(float gain) {
  ByteTable table{};
  for (int byte = 0; byte < 256; ++byte) {
    const float scaled = gain * static_cast<float>(Distance8(byte));
    const double value =
        byte <= 127 ? 127 - static_cast<double>(scaled) : -(static_cast<double>(scaled) + 128);
    table.at(static_cast<std::size_t>(byte)) =
        static_cast<std::byte>(static_cast<std::uint32_t>(static_cast<std::int32_t>(value)) & 0xFFU);
  }
  return table;
}

void MapBytes(std::span<std::byte> bytes, const ByteTable& table) {
  for (std::byte& byte : bytes) {
    byte = table[std::to_integer<std::size_t>(byte)];
  }
}

void Scale16(std::span<std::byte> samples, float gain) {
  ScaleAll16(samples.data(), samples.size() / 2, gain);
}

int LargestMagnitude8(std::span<const std::byte> bytes) {
  if (bytes.empty()) {
    return 0;
  }
  const auto [lowest, highest] = std::ranges::minmax(bytes);
  return std::max(std::abs(Distance8(std::to_integer<int>(lowest))),
                  std::abs(Distance8(std::to_integer<int>(highest))));
}

int LargestMagnitude16(std::span<const std::byte> samples) {
  return Magnitude16(samples.data(), samples.size() / 2);
}

float GainWithin(float gain, int magnitude, int fullScale, int reduced) {
  const auto scaled = static_cast<std::int32_t>(gain * static_cast<float>(magnitude));
  if (scaled < fullScale) {
    return gain;
  }
  return std::min(gain, static_cast<float>(static_cast<double>(reduced) * gain / scaled));
}

}  // namespace tembrel
