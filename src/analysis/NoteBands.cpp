#include "analysis/NoteBands.h"

#include <charconv>
#include <cmath>
#include <string_view>

namespace tembrel {

namespace {

constexpr int kNotesInAnOctave = 12;
constexpr int kHighestNumber = 127;

float EdgeAt(long double note) {
  constexpr long double kTwelfth = 1.0L / kNotesInAnOctave;
  constexpr long double kConcertPitch = 440.0L;
  constexpr long double kConcertNote = 69.0L;
  return static_cast<float>(kConcertPitch * std::exp2((note - kConcertNote) * kTwelfth));
}

}  // namespace

NoteBands BuildNoteBands() {
  NoteBands bands{};
  for (std::size_t note = 1; note < bands.size(); ++note) {
    const auto middle = static_cast<long double>(note);
    bands.at(note) = {EdgeAt(middle - 0.5L), EdgeAt(middle + 0.5L)};
  }
  return bands;
}

int NoteForFrequency(const NoteBands& bands, double hertz) {
  for (std::size_t note = 1; note < bands.size(); ++note) {
    if (bands.at(note).lower < hertz && hertz < bands.at(note).upper) {
      return static_cast<int>(note);
    }
  }
  return kNoNote;
}

std::string WholeNumberText(double number) {
  std::array<char, 400> text{};
  const auto result =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, 0);
  return {text.data(), result.ptr};
}

NoteText TextOfNote(double hertz, int note) {
  constexpr std::array<std::string_view, kNotesInAnOctave> kNames{"C",  "C#", "D",  "Eb", "E",  "F",
                                                                  "F#", "G",  "G#", "A",  "Bb", "B"};
  NoteText text{WholeNumberText(hertz) + " Hz", {}};
  if (note == kNoNote) {
    text.note = "No Pitch";
  } else if (note >= 0 && note <= kHighestNumber) {
    text.note = std::string(kNames.at(static_cast<std::size_t>(note % kNotesInAnOctave))) +
                std::to_string(note / kNotesInAnOctave) + " (" + std::to_string(note) + ")";
  }
  return text;
}

}  // namespace tembrel
