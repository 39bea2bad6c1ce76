// Letters of names that the program looks for: A to Z alike in both cases, all other bytes only like
// themselves. The language of the user plays no part: by Turkish rules tolower('I') is no 'i'.
#pragma once

#include <algorithm>
#include <string_view>

namespace tembrel {

constexpr char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool SameInAnyCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, [](char x, char y) { return LowerAscii(x) == LowerAscii(y); });
}

}  // namespace tembrel
