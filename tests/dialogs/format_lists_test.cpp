#include <gtest/gtest.h>

#include "dialogs/FormatLists.h"

namespace tembrel {
namespace {

TEST(FormatLists, HoldTheirEntriesInOrder) {
  EXPECT_EQ(kRateEntries, (std::array<std::string_view, 3>{"11025 Hz", "22050 Hz", "44100 Hz"}));
  EXPECT_EQ(kResolutionEntries, (std::array<std::string_view, 2>{"8 Bits", "16 Bits"}));
  EXPECT_EQ(kChannelEntries, (std::array<std::string_view, 2>{"Mono", "Stereo"}));
}

TEST(FormatLists, SelectTheEntriesOfTheFormat) {
  EXPECT_EQ(SelectionsOf({11025, 8, 1}), (FormatSelections{0, 0, 0}));
  EXPECT_EQ(SelectionsOf({22050, 16, 2}), (FormatSelections{1, 1, 1}));
  EXPECT_EQ(SelectionsOf({44100, 16, 1}), (FormatSelections{2, 1, 0}));
}

TEST(FormatLists, SelectNoRateForOneWithoutEntry) {
  EXPECT_EQ(SelectionsOf({48000, 16, 2}), (FormatSelections{std::nullopt, 1, 1}));
}

TEST(FormatLists, SelectTheFirstEntryForOtherBitsAndChannels) {
  EXPECT_EQ(SelectionsOf({44100, 24, 6}), (FormatSelections{2, 0, 0}));
}

TEST(FormatLists, GiveBackWhatIsSelected) {
  const FormatChoice start{8000, 16, 1};
  EXPECT_EQ(ChoiceOf({0, 0, 0}, start), (FormatChoice{11025, 8, 1}));
  EXPECT_EQ(ChoiceOf({1, 1, 1}, start), (FormatChoice{22050, 16, 2}));
  EXPECT_EQ(ChoiceOf({2, 0, 1}, start), (FormatChoice{44100, 8, 2}));
}

TEST(FormatLists, KeepTheRateOfTheSoundWhileNoneIsSelected) {
  EXPECT_EQ(ChoiceOf({std::nullopt, 0, 1}, {48000, 16, 1}), (FormatChoice{48000, 8, 2}));
  EXPECT_EQ(ChoiceOf({3, -1, 2}, {48000, 16, 1}), (FormatChoice{48000, 16, 1}));
}

}  // namespace
}  // namespace tembrel
