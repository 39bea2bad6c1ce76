#include "dialogs/FormatLists.h"

#include <algorithm>
#include <cstdint>

namespace tembrel {

namespace {

constexpr std::array<std::uint32_t, kRateEntries.size()> kRates{11025, 22050, 44100};
constexpr std::array<std::uint16_t, kResolutionEntries.size()> kBits{8, 16};
constexpr std::array<std::uint16_t, kChannelEntries.size()> kChannels{1, 2};

template <class Values, class Value>
std::optional<int> IndexOf(const Values& values, Value value) {
  const auto* found = std::ranges::find(values, value);
  return found == values.end() ? std::nullopt : std::optional(static_cast<int>(found - values.begin()));
}

template <class Values, class Value>
Value ValueAt(const Values& values, int index, Value otherwise) {
  return index >= 0 && static_cast<std::size_t>(index) < values.size()
             ? values[static_cast<std::size_t>(index)]
             : otherwise;
}

}  // namespace

FormatSelections SelectionsOf(const FormatChoice& format) {
  return {IndexOf(kRates, format.rate), IndexOf(kBits, format.bits).value_or(0),
          IndexOf(kChannels, format.channels).value_or(0)};
}

FormatChoice ChoiceOf(const FormatSelections& selections, const FormatChoice& start) {
  return {ValueAt(kRates, selections.rate.value_or(-1), start.rate),
          ValueAt(kBits, selections.resolution, start.bits),
          ValueAt(kChannels, selections.channels, start.channels)};
}

}  // namespace tembrel
