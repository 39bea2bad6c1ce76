#include "view/CounterText.h"

#include <array>
#include <charconv>

namespace tembrel {

std::string CounterFrameText(std::int64_t frame) {
  return std::to_string(frame);
}

std::string CounterTimeText(std::int64_t frame, std::int64_t rate) {
  const double seconds = rate > 0 ? static_cast<double>(frame) / static_cast<double>(rate) : 0.0;
  std::array<char, 64> text{};
  const auto result =
      std::to_chars(text.data(), text.data() + text.size(), seconds, std::chars_format::fixed, 3);
  return {text.data(), result.ptr};
}

}  // namespace tembrel
