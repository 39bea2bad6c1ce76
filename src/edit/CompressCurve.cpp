#include "edit/CompressCurve.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "edit/SampleLoads.h"
#include "platform/WideLoops.h"

namespace tembrel {

namespace {

struct Knees {
  std::int32_t quiet;
  std::int32_t loud;
};

constexpr Knees kKnees16{327, 24575};
constexpr Knees kKnees8{3, 95};

inline std::int32_t Bent(std::int32_t magnitude, const Knees& knees) {
  const std::int32_t quiet = std::min(magnitude, knees.quiet);
  const std::int32_t loud = std::max(magnitude, knees.loud) - knees.loud;
  return quiet / 2 + (magnitude - quiet - loud) + loud / 2;
}

TEMBREL_WIDE_LOOPS
void CompressAll(std::byte* samples, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const std::int32_t sample = LoadSample(samples + 2 * i);
    const std::int32_t bent = Bent(std::abs(sample), kKnees16);
    StoreSample(samples + 2 * i, sample < 0 ? -bent : bent);
  }
}

}  // namespace

void Compress16(std::span<std::byte> samples) {
  CompressAll(samples.data(), samples.size() / 2);
}

ByteTable CompressTable8() {
  ByteTable table{};
  for (int byte = 0; byte < 256; ++byte) {
    const int distance = Distance8(byte);
    const int bent = Bent(std::abs(distance), kKnees8);
    const int value = distance > 0 ? 127 - bent : 128 + bent;
    table.at(static_cast<std::size_t>(byte)) = static_cast<std::byte>(static_cast<unsigned>(value) & 0xFFU);
  }
  return table;
}

}  // namespace tembrel
