#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "device/RecordingSetup.h"
#include "tests/support/FakeMixer.h"

namespace tembrel::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr SetupLine kRecording = SetupLine::Recording;
constexpr SetupLine kSaving = SetupLine::Saving;

// Two mixers of three and two lines, and one between them that does not open.
FakeMixer ThreeMixers() {
  FakeMixer mixer;
  mixer.devices.push_back(RecordingDevice("Sound card", {{"CD", VolumeControl{0, 65535, 100}},
                                                         {"Line In", VolumeControl{0, 65535, 20000}},
                                                         {"Microphone", VolumeControl{0, 65535, 40000}}}));
  mixer.devices.push_back({"Broken", {}, false});
  mixer.devices.push_back(RecordingDevice(
      "Headset", {{"Left", VolumeControl{10, 110, 30}}, {"Right", VolumeControl{10, 110, 60}}}));
  return mixer;
}

Settings With(const RecordingSettings& recording, const FormatChoice& playback = kDefaultPlayback) {
  return {playback, recording};
}

RecordingSettings Lines(int recordingLine, int recordingVolume, int savingLine, int savingVolume) {
  RecordingSettings settings;
  settings.recordingLine = recordingLine;
  settings.recordingVolume = recordingVolume;
  settings.savingLine = savingLine;
  settings.savingVolume = savingVolume;
  return settings;
}

Settings Accepted(RecordingSetup& setup, const RecordingSettings& before) {
  Settings settings = With(before);
  setup.Accept(settings);
  return settings;
}

TEST(RecordingSetup, ListsTheMixersThatOpenAndSelectsTheStoredOne) {
  FakeMixer mixer = ThreeMixers();
  const RecordingSetup setup(mixer, With({}));
  EXPECT_THAT(setup.MixerNames(), ElementsAre("Sound card", "Headset"));
  EXPECT_EQ(setup.SelectedMixer(), 0);
  EXPECT_EQ(setup.Hint(), "");
}

TEST(RecordingSetup, AMixerWithoutANameIsLeftOut) {
  FakeMixer mixer = ThreeMixers();
  mixer.devices[0].name.reset();
  EXPECT_THAT(RecordingSetup(mixer, With({})).MixerNames(), ElementsAre("Headset"));
}

TEST(RecordingSetup, ListsTheLinesOfTheFirstDestinationThatRecords) {
  FakeMixer mixer = ThreeMixers();
  mixer.devices[0].destinations.push_back({true, {{"Second", VolumeControl{}}}, {}});
  const RecordingSetup setup(mixer, With(Lines(1, 500, 2, 600)));
  EXPECT_THAT(setup.LineNames(), ElementsAre("CD", "Line In", "Microphone"));
  EXPECT_EQ(setup.SelectedLine(kRecording), 1);
  EXPECT_EQ(setup.SelectedLine(kSaving), 2);
}

TEST(RecordingSetup, ALineWithoutANameKeepsItsPlace) {
  FakeMixer mixer = ThreeMixers();
  mixer.devices[0].destinations[1].lines[1].name.reset();
  EXPECT_THAT(RecordingSetup(mixer, With({})).LineNames(), ElementsAre("CD", "Line 2", "Microphone"));
}

TEST(RecordingSetup, AStoredLineThatIsNotThereSelectsNothing) {
  FakeMixer mixer = ThreeMixers();
  for (const int line : {3, 1000, -2}) {
    RecordingSetup setup(mixer, With(Lines(line, 500, line, 600)));
    EXPECT_EQ(setup.SelectedLine(kRecording), std::nullopt);
    EXPECT_EQ(setup.SelectedLine(kSaving), std::nullopt);
    EXPECT_FALSE(setup.Slider(kRecording).exists);
    const Settings stored = Accepted(setup, Lines(line, 500, line, 600));
    EXPECT_EQ(stored.recording.recordingLine, -1);
    EXPECT_EQ(stored.recording.savingLine, -1);
  }
}

TEST(RecordingSetup, ASliderSpansTheControlInTenPagesAndAHundredSteps) {
  FakeMixer mixer = ThreeMixers();
  const RecordingSetup setup(mixer, With(Lines(0, 500, 1, 600)));
  EXPECT_EQ(setup.Slider(kRecording), (VolumeSlider{true, 0, 65535, 500, 6553, 655}));
  EXPECT_EQ(setup.Slider(kSaving), (VolumeSlider{true, 0, 65535, 64935, 6553, 655}));
}

TEST(RecordingSetup, StepsOfASmallRangeStillMove) {
  FakeMixer mixer = ThreeMixers();
  mixer.devices[0].destinations[1].lines[0].volume = VolumeControl{0, 7, 3};
  const VolumeSlider slider = RecordingSetup(mixer, With(Lines(0, 2, -1, 0))).Slider(kRecording);
  EXPECT_EQ(slider.pageStep, 1);
  EXPECT_EQ(slider.lineStep, 1);
}

TEST(RecordingSetup, TheMinimumIsAddedToTheStoredVolume) {
  FakeMixer mixer = ThreeMixers();
  RecordingSettings settings = Lines(0, 40, 1, 40);
  mixer.devices.erase(mixer.devices.begin(), mixer.devices.begin() + 2);
  RecordingSetup setup(mixer, With(settings));
  EXPECT_EQ(setup.Slider(kRecording), (VolumeSlider{true, 10, 110, 50, 10, 1}));
  EXPECT_EQ(setup.Slider(kSaving), (VolumeSlider{true, 10, 110, 80, 10, 1}));
  // And once more when it is stored: only the second line gives back what it was given.
  const Settings stored = Accepted(setup, settings);
  EXPECT_EQ(stored.recording.recordingVolume, 60);
  EXPECT_EQ(stored.recording.savingVolume, 40);
}

TEST(RecordingSetup, AVolumeBeyondTheControlStandsAtItsEnd) {
  FakeMixer mixer = ThreeMixers();
  const RecordingSetup loud(mixer, With(Lines(0, 70000, 1, 70000)));
  EXPECT_EQ(loud.Slider(kRecording).position, 65535);
  EXPECT_EQ(loud.Slider(kSaving).position, 0);
  const RecordingSetup low(mixer, With(Lines(0, INT32_MIN, 1, INT32_MIN)));
  EXPECT_EQ(low.Slider(kRecording).position, 0);
  EXPECT_EQ(low.Slider(kSaving).position, 65535);
}

TEST(RecordingSetup, TheWidestControlDoesNotOverflow) {
  FakeMixer mixer = ThreeMixers();
  mixer.devices[0].destinations[1].lines[0].volume = VolumeControl{INT32_MIN, INT32_MAX, 0};
  RecordingSetup setup(mixer, With(Lines(0, 0, 0, 0)));
  EXPECT_EQ(setup.Slider(kRecording),
            (VolumeSlider{true, INT32_MIN, INT32_MAX, INT32_MIN, 429496729, 42949672}));
  EXPECT_EQ(Accepted(setup, {}).recording.recordingVolume, INT32_MIN);
}

TEST(RecordingSetup, AControlWithOneValueStandsAtNothing) {
  FakeMixer mixer = ThreeMixers();
  mixer.devices[0].destinations[1].lines[0].volume = VolumeControl{5, 5, 5};
  RecordingSetup setup(mixer, With(Lines(0, 7, 0, 7)));
  for (const SetupLine which : {kRecording, kSaving}) {
    EXPECT_TRUE(setup.Slider(which).exists);
    EXPECT_EQ(setup.Slider(which).position, 5);
    EXPECT_EQ(setup.Percent(which), 0);
    EXPECT_EQ(setup.Slider(which).pageStep, 1);
  }
}

TEST(RecordingSetup, AControlThatEndsBeforeItBeginsIsNone) {
  FakeMixer mixer = ThreeMixers();
  mixer.devices[0].destinations[1].lines[0].volume = VolumeControl{5, 4, 5};
  EXPECT_FALSE(RecordingSetup(mixer, With(Lines(0, 500, -1, 0))).Slider(kRecording).exists);
}

TEST(RecordingSetup, WithoutAStoredLineTheSlidersShowTheLineThatIsRecordedFromNow) {
  FakeMixer mixer = ThreeMixers();
  mixer.devices[0].destinations[1].selectors[SelectorKind::Multiplexer] = {true, false, false};
  RecordingSetup setup(mixer, With(Lines(-1, 32767, -1, 32767)));
  EXPECT_EQ(setup.SelectedLine(kRecording), std::nullopt);
  EXPECT_EQ(setup.Slider(kRecording).position, 40000);  // the microphone: items stand in reverse order
  EXPECT_EQ(setup.Slider(kSaving).position, 65535 - 40000);
  const Settings stored = Accepted(setup, Lines(-1, 32767, -1, 32767));
  EXPECT_EQ(stored.recording.recordingLine, -1);
  EXPECT_EQ(stored.recording.recordingVolume, 40000);
  EXPECT_EQ(stored.recording.savingVolume, 40000);
}

TEST(RecordingSetup, WithoutAStoredLineAndWithoutASelectorTheSlidersShowTheFirstLine) {
  FakeMixer mixer = ThreeMixers();
  mixer.devices[0].destinations[1].selectors.clear();
  const RecordingSetup setup(mixer, With({}));
  EXPECT_THAT(setup.LineNames(), ElementsAre("CD", "Line In", "Microphone"));
  EXPECT_EQ(setup.Slider(kRecording).position, 100);
}

TEST(RecordingSetup, ChoosingALineShowsItsPresentVolume) {
  FakeMixer mixer = ThreeMixers();
  RecordingSetup setup(mixer, With(Lines(0, 500, 0, 600)));
  setup.ChooseLine(kRecording, 2);
  setup.ChooseLine(kSaving, 1);
  EXPECT_EQ(setup.SelectedLine(kRecording), 2);
  EXPECT_EQ(setup.Slider(kRecording), (VolumeSlider{true, 0, 65535, 40000, 6553, 655}));
  EXPECT_EQ(setup.Slider(kSaving), (VolumeSlider{true, 0, 65535, 65535 - 20000, 6553, 655}));
  const Settings stored = Accepted(setup, {});
  EXPECT_EQ(stored.recording, Lines(2, 40000, 1, 20000));
}

TEST(RecordingSetup, ChoosingTheSameLineAgainKeepsItsSlider) {
  FakeMixer mixer = ThreeMixers();
  RecordingSetup setup(mixer, With(Lines(1, 500, -1, 0)));
  setup.MoveSlider(kRecording, 777);
  setup.ChooseLine(kRecording, 1);
  EXPECT_EQ(setup.Slider(kRecording).position, 777);
  setup.ChooseLine(kRecording, 0);
  setup.ChooseLine(kRecording, 1);
  EXPECT_EQ(setup.Slider(kRecording).position, 20000);
}

TEST(RecordingSetup, ALineThatIsNotInTheListCannotBeChosen) {
  FakeMixer mixer = ThreeMixers();
  RecordingSetup setup(mixer, With(Lines(1, 500, -1, 0)));
  for (const int entry : {-1, 3}) {
    setup.ChooseLine(kRecording, entry);
    EXPECT_EQ(setup.SelectedLine(kRecording), 1);
    EXPECT_EQ(setup.Slider(kRecording).position, 500);
  }
}

TEST(RecordingSetup, ALineWithoutAVolumeControlHasNoSliderAndKeepsTheStoredVolume) {
  FakeMixer mixer = ThreeMixers();
  mixer.devices[0].destinations[1].lines[2].volume.reset();
  RecordingSetup setup(mixer, With(Lines(0, 500, 1, 600)));
  setup.ChooseLine(kRecording, 2);
  EXPECT_EQ(setup.Slider(kRecording), VolumeSlider{});
  EXPECT_EQ(setup.Percent(kRecording), 0);
  setup.MoveSlider(kRecording, 100);
  EXPECT_EQ(setup.Slider(kRecording), VolumeSlider{});
  EXPECT_EQ(Accepted(setup, Lines(0, 500, 1, 600)).recording, Lines(2, 500, 1, 600));
}

TEST(RecordingSetup, AfterAChangeOfTheMixerTheListsSelectEachOthersLine) {
  FakeMixer mixer = ThreeMixers();
  mixer.devices.erase(mixer.devices.begin() + 1);
  RecordingSetup setup(mixer, With(Lines(0, 500, 1, 600)));
  setup.ChooseMixer(1);
  EXPECT_EQ(setup.SelectedMixer(), 1);
  EXPECT_THAT(setup.LineNames(), ElementsAre("Left", "Right"));
  EXPECT_EQ(setup.SelectedLine(kRecording), 1);
  EXPECT_EQ(setup.SelectedLine(kSaving), 0);
  // The sliders still stand where they stood.
  EXPECT_EQ(setup.Slider(kRecording), (VolumeSlider{true, 0, 65535, 500, 6553, 655}));
  RecordingSettings expected = Lines(1, 500, 0, 600);
  expected.mixer = 1;
  EXPECT_EQ(Accepted(setup, {}).recording, expected);
}

TEST(RecordingSetup, ASecondChangeOfTheMixerCrossesNoFurther) {
  FakeMixer mixer = ThreeMixers();
  mixer.devices.erase(mixer.devices.begin() + 1);
  RecordingSetup setup(mixer, With(Lines(0, 500, 1, 600)));
  setup.ChooseMixer(1);
  setup.ChooseMixer(0);
  EXPECT_EQ(setup.SelectedLine(kRecording), 1);
  EXPECT_EQ(setup.SelectedLine(kSaving), 0);
}

TEST(RecordingSetup, ALineOfTheOtherListThatTheNewMixerLacksSelectsNothing) {
  FakeMixer mixer = ThreeMixers();
  mixer.devices.erase(mixer.devices.begin() + 1);
  RecordingSetup setup(mixer, With(Lines(1, 500, 2, 600)));
  setup.ChooseMixer(1);
  EXPECT_EQ(setup.SelectedLine(kRecording), std::nullopt);
  EXPECT_EQ(setup.SelectedLine(kSaving), 1);
}

TEST(RecordingSetup, ChoosingTheShownLineOfANewMixerReadsItsVolume) {
  FakeMixer mixer = ThreeMixers();
  mixer.devices.erase(mixer.devices.begin() + 1);
  RecordingSetup setup(mixer, With(Lines(0, 500, 1, 600)));
  setup.ChooseMixer(1);
  setup.ChooseLine(kRecording, 1);
  EXPECT_EQ(setup.Slider(kRecording), (VolumeSlider{true, 10, 110, 70, 10, 1}));
}

TEST(RecordingSetup, ThePositionInTheListIsTakenForTheMixersNumber) {
  FakeMixer mixer = ThreeMixers();
  RecordingSetup setup(mixer, With({}));
  setup.ChooseMixer(1);  // "Headset" is listed second and is number 2; number 1 does not open
  EXPECT_THAT(setup.LineNames(), IsEmpty());
  EXPECT_EQ(setup.Hint(), "This mixer has no line to record from.");
  EXPECT_EQ(Accepted(setup, {}).recording.mixer, 1);
}

TEST(RecordingSetup, ChoosingTheSameMixerOrOneThatIsNotListedChangesNothing) {
  FakeMixer mixer = ThreeMixers();
  RecordingSetup setup(mixer, With(Lines(0, 500, 1, 600)));
  for (const int entry : {0, -1, 2}) {
    setup.ChooseMixer(entry);
    EXPECT_EQ(setup.SelectedMixer(), 0);
    EXPECT_EQ(setup.SelectedLine(kRecording), 0);
  }
}

TEST(RecordingSetup, AStoredMixerThatIsNotThereKeepsItsNumberAndLeavesTheListsEmpty) {
  FakeMixer mixer = ThreeMixers();
  for (const int number : {1, 7, -3}) {
    RecordingSettings settings = Lines(0, 500, 1, 600);
    settings.mixer = number;
    RecordingSetup setup(mixer, With(settings));
    EXPECT_THAT(setup.LineNames(), IsEmpty());
    const Settings stored = Accepted(setup, settings);
    EXPECT_EQ(stored.recording, settings);
  }
}

TEST(RecordingSetup, AMixerThatRecordsNothingLeavesTheListsEmpty) {
  FakeMixer mixer = ThreeMixers();
  mixer.devices[0].destinations[1].waveIn = false;
  const RecordingSetup setup(mixer, With(Lines(0, 500, 1, 600)));
  EXPECT_THAT(setup.LineNames(), IsEmpty());
  EXPECT_FALSE(setup.Slider(kRecording).exists);
  EXPECT_FALSE(setup.Slider(kSaving).exists);
}

TEST(RecordingSetup, WithoutMixersTheFormatCanStillBeChosen) {
  FakeMixer mixer;
  RecordingSetup setup(mixer, With(Lines(2, 500, 1, 600)));
  EXPECT_THAT(setup.MixerNames(), IsEmpty());
  EXPECT_EQ(setup.SelectedMixer(), std::nullopt);
  EXPECT_EQ(setup.Hint(), "No sound server was found. Only the format can be chosen.");
  setup.ChooseFormat({0, 0, 0});
  EXPECT_EQ(Accepted(setup, {}).playback, (FormatChoice{11025, 8, 1}));
}

TEST(RecordingSetup, OneThatHangsIsNotTakenForOneWithoutLines) {
  FakeMixer mixer = ThreeMixers();
  mixer.hangs = true;
  EXPECT_EQ(RecordingSetup(mixer, With({})).Hint(), "");
  mixer.devices[0].destinations[1].lines.clear();
  EXPECT_EQ(RecordingSetup(mixer, With({})).Hint(),
            "The sound server does not answer. Only the format can be chosen.");
  mixer.devices.clear();
  EXPECT_EQ(RecordingSetup(mixer, With({})).Hint(),
            "The sound server does not answer. Only the format can be chosen.");
}

TEST(RecordingSetup, WithoutMixersTheStoredLinesStay) {
  FakeMixer mixer;
  const RecordingSettings settings = Lines(2, 500, 1, 600);
  RecordingSetup setup(mixer, With(settings));
  EXPECT_EQ(Accepted(setup, settings).recording, settings);
}

TEST(RecordingSetup, LinesOfAnotherMixerDoNotStay) {
  FakeMixer mixer = ThreeMixers();
  const RecordingSettings settings = Lines(0, 500, 1, 600);
  RecordingSetup setup(mixer, With(settings));
  setup.ChooseMixer(1);  // does not open
  RecordingSettings expected = Lines(-1, 500, -1, 600);
  expected.mixer = 1;
  EXPECT_EQ(Accepted(setup, settings).recording, expected);
}

TEST(RecordingSetup, SelectsAndStoresEveryFormat) {
  FakeMixer mixer;
  for (const auto& [rate, rateEntry] : {std::pair{11025U, 0}, std::pair{22050U, 1}, std::pair{44100U, 2}}) {
    for (const std::uint16_t bits : {std::uint16_t{8}, std::uint16_t{16}}) {
      for (const std::uint16_t channels : {std::uint16_t{1}, std::uint16_t{2}}) {
        const FormatChoice playback{rate, bits, channels};
        RecordingSetup setup(mixer, With({}, playback));
        EXPECT_EQ(setup.Format(), (FormatSelections{rateEntry, bits == 16 ? 1 : 0, channels - 1}));
        setup.ChooseFormat(setup.Format());
        EXPECT_EQ(Accepted(setup, {}).playback, playback);
      }
    }
  }
}

TEST(RecordingSetup, StoresWhetherItShowsBeforeARecording) {
  FakeMixer mixer;
  for (const bool before : {true, false}) {
    RecordingSettings settings;
    settings.showDialog = before;
    RecordingSetup setup(mixer, With(settings));
    EXPECT_EQ(setup.ShowsBeforeRecording(), before);
    setup.ShowBeforeRecording(!before);
    EXPECT_EQ(Accepted(setup, settings).recording.showDialog, !before);
  }
}

TEST(RecordingSetup, SlidersMoveWithinTheirRangeAndTellTheShare) {
  FakeMixer mixer = ThreeMixers();
  RecordingSetup setup(mixer, With(Lines(0, 500, 1, 600)));
  setup.MoveSlider(kRecording, 70000);
  setup.MoveSlider(kSaving, -5);
  EXPECT_EQ(setup.Slider(kRecording).position, 65535);
  EXPECT_EQ(setup.Slider(kSaving).position, 0);
  EXPECT_EQ(setup.Percent(kRecording), 100);
  EXPECT_EQ(setup.Percent(kSaving), 100);
  setup.MoveSlider(kRecording, 16384);
  setup.MoveSlider(kSaving, 16384);
  EXPECT_EQ(setup.Percent(kRecording), 25);
  EXPECT_EQ(setup.Percent(kSaving), 75);
  EXPECT_EQ(Accepted(setup, {}).recording, Lines(0, 16384, 1, 65535 - 16384));
}

TEST(RecordingSetup, HoldsOneOpenMixerUntilItIsAcceptedOrGone) {
  FakeMixer mixer = ThreeMixers();
  mixer.devices.erase(mixer.devices.begin() + 1);
  {
    RecordingSetup setup(mixer, With({}));
    EXPECT_EQ(mixer.openDevices, 1);
    setup.ChooseMixer(1);
    EXPECT_EQ(mixer.openDevices, 1);
    Accepted(setup, {});
    EXPECT_EQ(mixer.openDevices, 0);
  }
  {
    const RecordingSetup cancelled(mixer, With({}));
    EXPECT_EQ(mixer.openDevices, 1);
  }
  EXPECT_EQ(mixer.openDevices, 0);
}

TEST(RecordingSetup, ChangesNothingInTheMixer) {
  FakeMixer mixer = ThreeMixers();
  RecordingSetup setup(mixer, With(Lines(0, 500, 1, 600)));
  setup.ChooseLine(kRecording, 2);
  setup.MoveSlider(kRecording, 5);
  Accepted(setup, {});
  EXPECT_THAT(mixer.changes, IsEmpty());
}

}  // namespace

}  // namespace tembrel::test
