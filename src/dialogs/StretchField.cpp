#include "dialogs/StretchField.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "dialogs/TypedNumber.h"

namespace tembrel {

namespace {

constexpr int kShortest = 25;
constexpr int kLongest = 400;

}  // namespace

StretchField::StretchField(int start) : SliderField(kShortest, kLongest, start) {
  Rewrite();
}

std::string StretchField::TextOf(int percent) const {
  return std::to_string(percent);
}

bool StretchField::Read(std::string_view typed) {
  const std::optional<std::uint32_t> number = ReadUnsigned(typed);
  if (!number) {
    return false;
  }
  MoveTo(static_cast<int>(std::clamp<std::uint32_t>(*number, kShortest, kLongest)));
  return true;
}

}  // namespace tembrel
