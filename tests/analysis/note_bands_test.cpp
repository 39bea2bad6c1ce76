#include <gtest/gtest.h>

#include "analysis/NoteBands.h"

namespace tembrel {
namespace {

class NoteBandsTest : public ::testing::Test {
 protected:
  int Note(double hertz) const { return NoteForFrequency(bands, hertz); }

  NoteBands bands = BuildNoteBands();
};

TEST_F(NoteBandsTest, ReachHalfASemitoneToBothSides) {
  EXPECT_NEAR(bands[69].lower, 427.474, 0.001);
  EXPECT_NEAR(bands[69].upper, 452.893, 0.001);
  EXPECT_NEAR(bands[108].upper, 4308.668, 0.001);
  EXPECT_NEAR(bands[1].lower, 8.4154, 0.001);
  for (std::size_t note = 1; note < 108; ++note) {
    EXPECT_EQ(bands.at(note).upper, bands.at(note + 1).lower) << note;
  }
}

TEST_F(NoteBandsTest, AFrequencyBelongsToTheBandAroundIt) {
  EXPECT_EQ(Note(440), 69);
  EXPECT_EQ(Note(428), 69);
  EXPECT_EQ(Note(427), 68);
  EXPECT_EQ(Note(453), 70);
  EXPECT_EQ(Note(9), 2);
  EXPECT_EQ(Note(4308), 108);
}

TEST_F(NoteBandsTest, AnEdgeAndWhatLiesOutsideBelongToNone) {
  EXPECT_EQ(Note(bands[69].lower), kNoNote);
  EXPECT_EQ(Note(bands[69].upper), kNoNote);
  EXPECT_EQ(Note(0), kNoNote);
  EXPECT_EQ(Note(8), kNoNote);
  EXPECT_EQ(Note(4309), kNoNote);
}

TEST(NoteTexts, NameFrequencyNoteOctaveAndNumber) {
  EXPECT_EQ(TextOfNote(440, 69).frequency, "440 Hz");
  EXPECT_EQ(TextOfNote(440, 69).note, "A5 (69)");
  EXPECT_EQ(TextOfNote(9, 2).note, "D0 (2)");
  EXPECT_EQ(TextOfNote(261, 60).note, "C5 (60)");
  EXPECT_EQ(TextOfNote(12543, 127).note, "G10 (127)");
  const std::array names{"C", "C#", "D", "Eb", "E", "F", "F#", "G", "G#", "A", "Bb", "B"};
  for (int note = 12; note < 24; ++note) {
    EXPECT_EQ(TextOfNote(0, note).note, std::string(names.at(static_cast<std::size_t>(note - 12))) + "1 (" +
                                            std::to_string(note) + ")");
  }
}

TEST(NoteTexts, SayNoPitchOrNothingForNumbersWithoutANote) {
  EXPECT_EQ(TextOfNote(5000, kNoNote).note, "No Pitch");
  EXPECT_EQ(TextOfNote(5000.4, kNoNote).frequency, "5000 Hz");
  EXPECT_EQ(TextOfNote(0, -1).note, "");
  EXPECT_EQ(TextOfNote(0, 128).note, "");
}

}  // namespace
}  // namespace tembrel
