#include "batch/AnalysisCommands.h"

#include <optional>

#include "analysis/NoteBands.h"
#include "analysis/Spectrum.h"
#include "analysis/SpectrumCsv.h"

namespace tembrel {

namespace {

constexpr double kHighestFrequency = 4294967295.0;  // hertz

Failure PrintSpectrum(BatchSession& session, const Arguments& /*arguments*/) {
  const BatchDocument& document = session.Current();
  const std::optional<Spectrum> spectrum =
      ComputeSpectrum(*document.Doc().Clip(), document.View().CursorFrame());
  if (!spectrum) {
    return "spectrum: it can be had of sound with 8 or 16 bits, mono or stereo";
  }
  session.Output() << SpectrumCsv(*spectrum);
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
