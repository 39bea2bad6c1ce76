// The percentages of amplifying (0 to kLargestGainPercent) and of the noise filter's strength (0 to 100),
// which waits for its effect.
#pragma once

#include "dialogs/SliderField.h"

namespace tembrel {

inline constexpr int kLargestStrength = 100;  // percent

// Of a typed number the low 16 bits are taken, and refused when they are above the maximum: 65636 is 100.
class PercentField final : public SliderField {
 public:
  // From 0 to `largest`, at most 65535.
  PercentField(int largest, int start);

  int Percent() const { return Position(); }

 private:
  std::string TextOf(int percent) const override;
  bool Read(std::string_view typed) override;
};

}  // namespace tembrel
