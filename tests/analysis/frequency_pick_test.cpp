// From the pointer to a frequency and its note.
#include <gtest/gtest.h>

#include "analysis/FrequencyPick.h"

namespace tembrel {
namespace {

TEST(FrequencyPick, ThePointerGivesAPlaceBetweenTheBins) {
  SpectrumView view;
  EXPECT_EQ(BinUnderPointer(0, 1000, view), 0.0F);
  EXPECT_EQ(BinUnderPointer(1, 1000, view), 256.0F / 1000.0F);
  EXPECT_EQ(BinUnderPointer(500, 1000, view), 128.0F);
  view.Scroll(SpectrumScroll::PageRight);
  EXPECT_EQ(BinUnderPointer(500, 1000, view), 384.0F);
  view.RunCommand(kSpectrumZoomIn);
  EXPECT_EQ(BinUnderPointer(500, 1000, view), 320.0F);
}

TEST(FrequencyPick, TheLastColumnAndWhatLiesOutsideGiveNothing) {
  const SpectrumView view;
  EXPECT_TRUE(BinUnderPointer(998, 1000, view));
  EXPECT_FALSE(BinUnderPointer(999, 1000, view));
  EXPECT_FALSE(BinUnderPointer(1000, 1000, view));
  EXPECT_FALSE(BinUnderPointer(-1, 1000, view));
  EXPECT_FALSE(BinUnderPointer(0, 0, view));
  EXPECT_FALSE(BinUnderPointer(0, 1, view));
  EXPECT_TRUE(BinUnderPointer(0, 2, view));
}

TEST(FrequencyPick, TheFrequencyIsCutToAWholeOneBeforeItsNoteIsLookedUp) {
  const NoteBands bands = BuildNoteBands();
  EXPECT_EQ(PickFrequency(44100, 20.44, bands), (FrequencyPick{440, 69}));
  EXPECT_EQ(PickFrequency(44100, 20.44F, bands), (FrequencyPick{440, 69}));
  // 427.9 Hz lies in the band of 69, which begins at 427.47; 427 does not.
  EXPECT_EQ(PickFrequency(44100, 427.9 * 2048 / 44100, bands), (FrequencyPick{427, 68}));
  EXPECT_EQ(PickFrequency(44100, 0, bands), (FrequencyPick{0, kNoNote}));
  EXPECT_EQ(PickFrequency(44100, 250, bands), (FrequencyPick{5383, kNoNote}));
  EXPECT_EQ(PickFrequency(8000, 1023, bands), (FrequencyPick{3996, 107}));
}

TEST(FrequencyPick, TheFastestRateStaysANumber) {
  EXPECT_EQ(PickFrequency(4294967295U, 1023, BuildNoteBands()), (FrequencyPick{2145386495, kNoNote}));
}

TEST(FrequencyPick, NothingPickedReadsAsZeros) {
  EXPECT_EQ(FrequencyPick(), (FrequencyPick{0, 0}));
  EXPECT_EQ(TextOfNote(0, 0).frequency, "0 Hz");
  EXPECT_EQ(TextOfNote(0, 0).note, "C0 (0)");
}

TEST(FrequencyPick, TheReadoutsRectangles) {
  EXPECT_EQ(kFrequencyTextBox, (PixelRect{5, 6, 55 - 5, 23 - 6}));
  EXPECT_EQ(kNoteTextBox, (PixelRect{70, 6, 135 - 70, 23 - 6}));
}

}  // namespace
}  // namespace tembrel
