#include "dialogs/PercentField.h"

#include <cstdint>
#include <optional>

#include "dialogs/TypedNumber.h"

namespace tembrel {

PercentField::PercentField(int largest, int start) : SliderField(0, largest, start) {
  Rewrite();
}

std::string PercentField::TextOf(int percent) const {
  return std::to_string(percent);
}

bool PercentField::Read(std::string_view typed) {
  constexpr std::uint32_t kKeptBits = 0xFFFF;
  const std::optional<std::uint32_t> number = ReadUnsigned(typed);
  if (!number) {
    return false;
  }
  const int percent = static_cast<int>(*number & kKeptBits);
  if (percent > Maximum()) {
    return false;
  }
  MoveTo(percent);
  return true;
}

}  // namespace tembrel
