#include "analysis/FrequencyPick.h"

#include <algorithm>
#include <limits>

#include "analysis/Spectrum.h"

namespace tembrel {

std::optional<float> BinUnderPointer(double x, int width, const SpectrumView& view) {
  if (x < 0 || x > width - 2) {
    return std::nullopt;
  }
  const auto visible = static_cast<float>(view.VisibleBins());
  return static_cast<float>(view.FirstBin()) + visible * static_cast<float>(x) / static_cast<float>(width);
}

FrequencyPick PickFrequency(std::uint32_t rate, double bin, const NoteBands& bands) {
  constexpr double kLimit = std::numeric_limits<std::int32_t>::max();
  const auto hertz = static_cast<std::int32_t>(std::clamp(BinFrequency(rate, bin), 0.0, kLimit));
  return {hertz, NoteForFrequency(bands, hertz)};
}

}  // namespace tembrel
