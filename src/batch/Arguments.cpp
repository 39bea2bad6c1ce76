#include "batch/Arguments.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <system_error>

namespace tembrel {

namespace {

template <class Number>
std::optional<Number> NumberIn(std::string_view text) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

std::string Shortest(double number) {
  std::array<char, 32> text{};
  const auto result = std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
  return {text.data(), result.ptr};
}

std::string Quoted(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

Failure RangeFailure(std::string_view text, const ArgumentRule& rule) {
  const std::string what = rule.kind == ArgumentKind::Whole ? "a whole number" : "a number";
  return std::string(rule.name) + " must be " + what + " from " + Shortest(rule.least) + " to " +
         Shortest(rule.most) + ", not " + Quoted(text);
}

bool IsChoice(std::string_view text, std::string_view choices) {
  while (!choices.empty()) {
    const std::size_t end = std::min(choices.find('|'), choices.size());
    if (choices.substr(0, end) == text) {
      return true;
    }
    choices.remove_prefix(std::min(end + 1, choices.size()));
  }
  return false;
}

}  // namespace

Failure Arguments::Check(std::size_t index, const ArgumentRule& rule) const {
  const std::string& text = words.at(index);
  std::optional<double> number;
  switch (rule.kind) {
    case ArgumentKind::Text:
      return kSucceeded;
    case ArgumentKind::Choice:
      return IsChoice(text, rule.name)
                 ? kSucceeded
                 : Failure("one of " + std::string(rule.name) + " is expected, not " + Quoted(text));
    case ArgumentKind::Whole:
      if (const auto whole = NumberIn<std::int64_t>(text)) {
        number = static_cast<double>(*whole);
      }
      break;
    case ArgumentKind::Decimal:
      number = NumberIn<double>(text);
      break;
  }
  const bool inRange = number && *number >= rule.least && *number <= rule.most;
  return inRange ? kSucceeded : RangeFailure(text, rule);
}

std::int64_t Arguments::Whole(std::size_t index) const {
  return NumberIn<std::int64_t>(words.at(index)).value_or(0);
}

double Arguments::Decimal(std::size_t index) const {
  return NumberIn<double>(words.at(index)).value_or(0.0) + 0.0;  // "-0" is 0
}

}  // namespace tembrel
