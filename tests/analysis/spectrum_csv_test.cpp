// The numbers of a spectrum as a table.
#include <cstdio>
#include <gtest/gtest.h>
#include <sstream>
#include <vector>

#include "analysis/SpectrumCsv.h"

namespace tembrel {
namespace {

std::vector<std::string> LinesOf(const Spectrum& spectrum) {
  std::istringstream text(SpectrumCsv(spectrum));
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) {
    lines.push_back(line);
  }
  return lines;
}

TEST(SpectrumCsv, HasAHeaderAndALineForEveryBin) {
  Spectrum spectrum{44100, SpectrumBins(kSpectrumPoints), {}};
  spectrum.bins[1] = {3, 4};
  spectrum.bins[2047] = {0.1, 0};
  const auto lines = LinesOf(spectrum);
  ASSERT_EQ(lines.size(), 2049U);
  EXPECT_EQ(lines[0], "bin,hz,power");
  EXPECT_EQ(lines[1], "0,0,0");
  EXPECT_EQ(lines[2], "1,21.533203125,25");
  EXPECT_EQ(lines[2048], "2047,44078.466796875,0.010000000000000002");
}

TEST(SpectrumCsv, HasAFourthColumnForBothChannels) {
  Spectrum spectrum{48000, SpectrumBins(kSpectrumPoints), SpectrumBins(kSpectrumPoints)};
  spectrum.bins[8] = 2;
  spectrum.right[8] = {0, 3};
  const auto lines = LinesOf(spectrum);
  ASSERT_EQ(lines.size(), 2049U);
  EXPECT_EQ(lines[0], "bin,hz,power,power_right");
  EXPECT_EQ(lines[9], "8,187.5,4,9");
}

TEST(SpectrumCsv, WritesNumbersAsPrintfDoes) {
  Spectrum spectrum{11025, SpectrumBins(kSpectrumPoints), {}};
  const std::vector<double> values{1e-30, 1.0 / 3, 12345.678, 9.99e20, 1e10, 3e-3};
  for (std::size_t i = 0; i < values.size(); ++i) {
    spectrum.bins[i] = values[i];
  }
  const auto lines = LinesOf(spectrum);
  for (std::size_t i = 0; i < values.size(); ++i) {
    std::array<char, 100> expected{};
    std::snprintf(expected.data(), expected.size(), "%zu,%.17g,%.17g", i,
                  11025 * static_cast<double>(i) / 2048, values[i] * values[i]);
    EXPECT_EQ(lines[i + 1], expected.data());
  }
}

}  // namespace
}  // namespace tembrel
