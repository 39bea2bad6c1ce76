#include "analysis/SpectrumCsv.h"

#include <array>
#include <charconv>

namespace tembrel {

namespace {

// As printf's "%.17g".
void Append(std::string& text, double number) {
  constexpr int kDigits = 17;
  std::array<char, 40> digits{};
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                    std::chars_format::general, kDigits);
  text.append(digits.data(), result.ptr);
}

}  // namespace

std::string SpectrumCsv(const Spectrum& spectrum) {
  const bool both = !spectrum.right.empty();
  std::string text = both ? "bin,hz,power,power_right\n" : "bin,hz,power\n";
  for (std::size_t bin = 0; bin < spectrum.bins.size(); ++bin) {
    text += std::to_string(bin) + ",";
    Append(text, BinFrequency(spectrum.rate, static_cast<double>(bin)));
    text += ",";
    Append(text, BinPower(spectrum.bins[bin]));
    if (both) {
      text += ",";
      Append(text, BinPower(spectrum.right[bin]));
    }
    text += "\n";
  }
  return text;
}

}  // namespace tembrel
