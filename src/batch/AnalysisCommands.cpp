#include "batch/AnalysisCommands.h"

#include <array>
#include <cstdio>
#include <optional>

#include "analysis/NoteBands.h"
#include "analysis/Spectrum.h"

namespace tembrel {

namespace {

constexpr double kHighestFrequency = 4294967295.0;  // hertz

// As many digits as tell every double from its neighbours.
std::string Exactly(double number) {
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%.17g", number);
  return text.data();
}

Failure PrintSpectrum(BatchSession& session, const Arguments& /*arguments*/) {
  const BatchDocument& document = session.Current();
  const std::optional<Spectrum> spectrum =
      ComputeSpectrum(*document.Doc().Clip(), document.View().CursorFrame());
  if (!spectrum) {
    return "spectrum: it can be had of sound with 8 or 16 bits, mono or stereo";
  }
  const bool both = !spectrum->right.empty();
  session.Output() << "bin,hz,power" << (both ? ",power_right" : "") << "\n";
  for (std::size_t bin = 0; bin < kSpectrumPoints; ++bin) {
    session.Output() << bin << "," << Exactly(BinFrequency(spectrum->rate, static_cast<double>(bin))) << ","
                     << Exactly(BinPower(spectrum->bins[bin]));
    if (both) {
      session.Output() << "," << Exactly(BinPower(spectrum->right[bin]));
    }
    session.Output() << "\n";
  }
  return kSucceeded;
}

Failure PrintNote(BatchSession& session, const Arguments& arguments) {
  const double hertz = arguments.Decimal(0);
  const NoteText text = TextOfNote(hertz, NoteForFrequency(BuildNoteBands(), hertz));
  session.Output() << text.frequency << "\n" << text.note << "\n";
  return kSucceeded;
}

}  // namespace

std::vector<BatchCommand> AnalysisCommands() {
  return {
      {"spectrum", {}, Needs::Document, PrintSpectrum},
      {"note", {{"HZ", ArgumentKind::Decimal, 0, kHighestFrequency}}, Needs::Nothing, PrintNote},
  };
}

}  // namespace tembrel
