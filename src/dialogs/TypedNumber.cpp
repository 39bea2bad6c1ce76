#include "dialogs/TypedNumber.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace tembrel {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::size_t kLongestDecimal = 10;

std::string_view WithoutLeadingBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text;
}

bool BeginsNumber(std::string_view text) {
  return !text.empty() && (text.front() == '.' || (text.front() >= '0' && text.front() <= '9'));
}

}  // namespace

std::optional<std::uint32_t> ReadUnsigned(std::string_view text) {
  text = WithoutLeadingBlanks(text);
  text = text.substr(0, text.find_last_not_of(kBlanks) + 1);
  std::uint32_t number = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

std::optional<double> ReadDecimal(std::string_view text) {
  text = WithoutLeadingBlanks(text.substr(0, kLongestDecimal));
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) {
    text.remove_prefix(1);
  }
  double number = 0.0;
  if (BeginsNumber(text)) {
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec == std::errc::result_out_of_range) {
      return std::nullopt;
    }
  }
  return negative ? -number : number;
}

}  // namespace tembrel
