#include "dialogs/PitchField.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "dialogs/TypedNumber.h"

namespace tembrel {

namespace {

constexpr int kNoChange = 240;
constexpr int kHighest = 480;

int PositionOf(float semitones) {
  const float position = semitones * 10.0F + static_cast<float>(kNoChange);
  return std::isnan(position) ? kNoChange
                              : static_cast<int>(std::clamp(position, 0.0F, static_cast<float>(kHighest)));
}

double SemitonesAt(int position) {
  return (position - kNoChange) * 0.1;
}

}  // namespace

PitchField::PitchField(float startSemitones) : SliderField(0, kHighest, PositionOf(startSemitones)) {
  Rewrite();
}

float PitchField::Semitones() const {
  return static_cast<float>(SemitonesAt(Position()));
}

std::string PitchField::TextOf(int shownPosition) const {
  std::array<char, 16> digits{};
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), SemitonesAt(shownPosition),
                                    std::chars_format::fixed, 1);
  return {digits.data(), result.ptr};
}

bool PitchField::Read(std::string_view typed) {
  const std::optional<double> semitones = ReadDecimal(typed);
  if (!semitones) {
    return false;
  }
  const double place = std::trunc(*semitones * 10.0 + kNoChange);
  if (!(place >= 0.0 && place <= kHighest)) {
    return false;
  }
  MoveTo(static_cast<int>(place));
  return true;
}

}  // namespace tembrel
