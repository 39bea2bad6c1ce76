#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "device/RecordingSource.h"
#include "tests/support/FakeMixer.h"

namespace tembrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

FakeMixer FiveLines(SelectorKind kind, const std::vector<bool>& items) {
  FakeMixer mixer;
  mixer.devices.push_back(
      RecordingDevice("Card", std::vector<FakeLine>(5, FakeLine{"Line", VolumeControl{}})));
  auto& selectors = mixer.devices[0].destinations[1].selectors;
  selectors.clear();
  selectors[kind] = items;
  return mixer;
}

TEST(RecordingSource, OfFiveLinesTheFirstIsTheLastItem) {
  FakeMixer mixer = FiveLines(SelectorKind::Multiplexer, {false, false, false, false, true});
  EXPECT_EQ(CurrentRecordingSource(mixer, 0), 0);
  mixer = FiveLines(SelectorKind::Multiplexer, {true, false, false, false, false});
  EXPECT_EQ(CurrentRecordingSource(mixer, 0), 4);
}

TEST(RecordingSource, OfFiveLinesTheSecondIsTheItemBeforeTheLast) {
  FakeMixer mixer = FiveLines(SelectorKind::Multiplexer, {true, true, false, false, true});
  EXPECT_EQ(SelectRecordingSource(mixer, 0, 1), 0);
  EXPECT_THAT(mixer.changes, ElementsAre("0.1 items 00010"));
  EXPECT_EQ(CurrentRecordingSource(mixer, 0), 1);
  EXPECT_EQ(mixer.openDevices, 0);
}

TEST(RecordingSource, TheFirstItemSetCounts) {
  FakeMixer mixer = FiveLines(SelectorKind::Multiplexer, {false, true, false, true, false});
  EXPECT_EQ(CurrentRecordingSource(mixer, 0), 3);
}

TEST(RecordingSource, AMixerControlSelectsWhereThereIsNoMultiplexer) {
  FakeMixer mixer = FiveLines(SelectorKind::Mixer, {false, false, true, false, false});
  EXPECT_EQ(CurrentRecordingSource(mixer, 0), 2);
  EXPECT_EQ(SelectRecordingSource(mixer, 0, 0), 0);
  EXPECT_THAT(mixer.changes, ElementsAre("0.1 items 00001"));
}

TEST(RecordingSource, TheMultiplexerComesBeforeTheMixerControl) {
  FakeMixer mixer = FiveLines(SelectorKind::Multiplexer, {false, false, false, false, true});
  auto& selectors = mixer.devices[0].destinations[1].selectors;
  selectors[SelectorKind::Mixer] = {true, false, false, false, false};
  EXPECT_EQ(CurrentRecordingSource(mixer, 0), 0);
  SelectRecordingSource(mixer, 0, 2);
  EXPECT_EQ(selectors[SelectorKind::Mixer], (std::vector<bool>{true, false, false, false, false}));
  EXPECT_EQ(selectors[SelectorKind::Multiplexer], (std::vector<bool>{false, false, true, false, false}));
}

TEST(RecordingSource, WithNoItemSetItIsTheFirstLine) {
  FakeMixer mixer = FiveLines(SelectorKind::Multiplexer, std::vector<bool>(5));
  EXPECT_EQ(CurrentRecordingSource(mixer, 0), 0);
}

TEST(RecordingSource, ALineThatIsNotThereIsNotSelected) {
  FakeMixer mixer = FiveLines(SelectorKind::Multiplexer, {true, false, false, false, false});
  for (const int line : {-1, 5, 1000}) {
    EXPECT_EQ(SelectRecordingSource(mixer, 0, line), kMixerFailure);
    EXPECT_EQ(GetLineVolume(mixer, 0, line), kMixerFailure);
    EXPECT_EQ(SetLineVolume(mixer, 0, line, 5), kMixerFailure);
  }
  EXPECT_THAT(mixer.changes, IsEmpty());
}

TEST(RecordingSource, WithoutASelectorItFails) {
  FakeMixer mixer = FiveLines(SelectorKind::Multiplexer, {true, false, false, false, false});
  mixer.devices[0].destinations[1].selectors.clear();
  EXPECT_EQ(CurrentRecordingSource(mixer, 0), 0);
  EXPECT_EQ(SelectRecordingSource(mixer, 0, 0), kMixerFailure);
}

TEST(RecordingSource, WithoutADestinationThatRecordsItFails) {
  FakeMixer mixer = FiveLines(SelectorKind::Multiplexer, {true, false, false, false, false});
  mixer.devices[0].destinations[1].waveIn = false;
  EXPECT_EQ(CurrentRecordingSource(mixer, 0), 0);
  EXPECT_EQ(SelectRecordingSource(mixer, 0, 0), kMixerFailure);
  EXPECT_EQ(GetLineVolume(mixer, 0, 0), kMixerFailure);
  EXPECT_EQ(SetLineVolume(mixer, 0, 0, 5), kMixerFailure);
}

TEST(RecordingSource, AMixerThatDoesNotOpenFails) {
  FakeMixer mixer = FiveLines(SelectorKind::Multiplexer, {true, false, false, false, false});
  mixer.devices[0].opens = false;
  for (const int device : {0, 1, -1}) {
    EXPECT_EQ(CurrentRecordingSource(mixer, device), 0);
    EXPECT_EQ(SelectRecordingSource(mixer, device, 0), kMixerFailure);
    EXPECT_EQ(GetLineVolume(mixer, device, 0), kMixerFailure);
    EXPECT_EQ(SetLineVolume(mixer, device, 0, 5), kMixerFailure);
  }
}

TEST(RecordingSource, TheFirstOfTwoDestinationsThatRecordCounts) {
  FakeMixer mixer = FiveLines(SelectorKind::Multiplexer, {false, false, false, false, true});
  FakeDestination second = mixer.devices[0].destinations[1];
  second.selectors[SelectorKind::Multiplexer] = {true, false, false, false, false};
  mixer.devices[0].destinations.push_back(second);
  EXPECT_EQ(FindWaveIn(*mixer.Open(0)), 1);
  EXPECT_EQ(CurrentRecordingSource(mixer, 0), 0);
}

TEST(RecordingSource, AVolumeIsReadAndSetForOneLine) {
  FakeMixer mixer = FiveLines(SelectorKind::Multiplexer, std::vector<bool>(5));
  mixer.devices[0].destinations[1].lines[2].volume = VolumeControl{0, 65535, 1234};
  EXPECT_EQ(GetLineVolume(mixer, 0, 2), 1234);
  EXPECT_EQ(SetLineVolume(mixer, 0, 2, 4321), 0);
  EXPECT_EQ(GetLineVolume(mixer, 0, 2), 4321);
  EXPECT_THAT(mixer.changes, ElementsAre("0.1.2 volume 4321"));
  mixer.devices[0].destinations[1].lines[2].volume.reset();
  EXPECT_EQ(GetLineVolume(mixer, 0, 2), kMixerFailure);
  EXPECT_EQ(SetLineVolume(mixer, 0, 2, 5), kMixerFailure);
}

}  // namespace
}  // namespace tembrel::test
