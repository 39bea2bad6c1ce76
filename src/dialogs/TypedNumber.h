// How the parameter dialogs read what is typed into their edit fields. A point is a point whatever the
// locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tembrel {

// Digits, with or without blanks around them, of a number below 2^32; nothing for any other text, a sign
// included.
std::optional<std::uint32_t> ReadUnsigned(std::string_view text);

// The decimal number that the text's first ten characters begin with; 0 when they begin with none, as in the
// middle of typing ("", "-", "."). Nothing when the number is beyond what a double holds.
std::optional<double> ReadDecimal(std::string_view text);

}  // namespace tembrel
