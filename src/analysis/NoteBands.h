// The notes of the equal-tempered scale as bands of frequencies, each half a semitone to both sides of its
// note. Note 69 is the A of 440 Hz.
#pragma once

#include <array>
#include <string>

namespace tembrel {

inline constexpr int kLastNote = 108;
inline constexpr int kNoNote = 109;

struct NoteBand {
  float lower = 0;  // hertz
  float upper = 0;
};

// The bands of notes 1 to 108, at their numbers; note 0 has none.
using NoteBands = std::array<NoteBand, kLastNote + 1>;
NoteBands BuildNoteBands();

// The first note whose band the frequency lies in; a frequency exactly on an edge lies in none. kNoNote when
// there is none.
int NoteForFrequency(const NoteBands& bands, double hertz);

// The number rounded to a whole one, as "%.0f".
std::string WholeNumberText(double number);

// The two lines of the readout.
struct NoteText {
  std::string frequency;  // "440 Hz"
  std::string note;       // "A5 (69)", "No Pitch" for kNoNote, empty for a number that is none of 0 to 127
};
NoteText TextOfNote(double hertz, int note);

}  // namespace tembrel
