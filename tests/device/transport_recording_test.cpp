#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <utility>

#include "tests/support/FileBytes.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/TransportStage.h"

namespace tembrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr TransportButtons kNoneDown{};
constexpr TransportButtons kRecordDown{.play = false, .pause = false, .record = true};

class TransportRecording : public TransportStage, public testing::Test {
 protected:
  TransportRecording() {
    device.onSave = [](const std::filesystem::path& path) { WriteText(path, "the take"); };
  }
  // Records and forgets what the device was told.
  void StartRecording() {
    transport.Record();
    device.TakeCalls();
  }
  void AnswerName(const std::string& name) { prompts.saveChoice = SaveChoice{folder / name, 1}; }

  ScratchFolder folder;
};

TEST_F(TransportRecording, OpensSetsTheFormatAndRecords) {
  settings.playback = {11025, 8, 1};
  transport.Record();
  EXPECT_THAT(device.calls, ElementsAre("close", "open recording", "format 11025 8 1", "record"));
  EXPECT_TRUE(transport.Recording());
  EXPECT_EQ(transport.Buttons(), kRecordDown);
  EXPECT_TRUE(host.metering);
  EXPECT_FALSE(host.ticking);
  EXPECT_THAT(host.order, IsEmpty());
}

TEST_F(TransportRecording, ShowsTheSetupFirstAndTakesWhatItSet) {
  settings.recording.showDialog = true;
  host.onSetup = [this] {
    EXPECT_THAT(device.calls, IsEmpty());
    EXPECT_FALSE(transport.Recording());
    settings.playback.rate = 22050;
    transport.Record();  // not twice
  };
  transport.Record();
  EXPECT_THAT(host.order, ElementsAre("setup"));
  EXPECT_THAT(device.calls, ElementsAre("close", "open recording", "format 22050 16 2", "record"));
}

TEST_F(TransportRecording, AnOpenThatFailsIsNotSaid) {
  device.openRecordingResult = 3;
  transport.Record();
  EXPECT_FALSE(transport.Recording());
  EXPECT_EQ(transport.Buttons(), kNoneDown);
  EXPECT_THAT(device.calls, ElementsAre("close", "open recording"));
  EXPECT_THAT(prompts.errors, IsEmpty());
  EXPECT_FALSE(host.metering);
}

TEST_F(TransportRecording, AFormatThatFailsIsIgnored) {
  device.formatResult = 3;
  transport.Record();
  EXPECT_TRUE(transport.Recording());
  EXPECT_THAT(prompts.errors, IsEmpty());
}

TEST_F(TransportRecording, AStartThatFailsIsSaidInTheDevicesWords) {
  device.recordResult = 3;
  transport.Record();
  EXPECT_FALSE(transport.Recording());
  EXPECT_EQ(transport.Buttons(), kNoneDown);
  EXPECT_THAT(device.calls,
              ElementsAre("close", "open recording", "format 44100 16 2", "record", "close recording"));
  EXPECT_THAT(prompts.errors, ElementsAre("The device is on fire."));
}

TEST_F(TransportRecording, AnErrorHasTwoHundredCharactersAtMost) {
  device.recordResult = 3;
  device.errorText = std::string(300, 'x');
  transport.Record();
  device.errorText = std::string(199, 'x') + "\xC3\xA4" + "yyy";  // a letter of two bytes across the end
  transport.Record();
  EXPECT_THAT(prompts.errors, ElementsAre(std::string(200, 'x'), std::string(199, 'x')));
}

TEST_F(TransportRecording, StopAsksForANameSavesAndOpensTheTake) {
  StartRecording();
  AnswerName("take.wav");
  transport.Stop();
  EXPECT_THAT(device.calls, ElementsAre("stop recording", "save take.WAV", "close recording"));
  EXPECT_FALSE(transport.Recording());
  EXPECT_EQ(transport.Buttons(), kNoneDown);
  EXPECT_FALSE(host.metering);
  EXPECT_THAT(host.opened, ElementsAre(folder / "take.WAV"));
  EXPECT_THAT(prompts.questions, IsEmpty());
  EXPECT_THAT(prompts.filtersShown, ElementsAre(FileFilter{"Wave files (*.wav)", {"*.wav"}}));
  EXPECT_EQ(prompts.startShown, std::filesystem::path());
  EXPECT_EQ(ReadText(folder / "take.WAV"), "the take");
}

TEST_F(TransportRecording, ALongSaveShowsHowFarItIsAndIsNotCancelled) {
  StartRecording();
  AnswerName("take.wav");
  std::vector<std::uint64_t> steps;
  prompts.onProgress = [&](std::uint64_t done, std::uint64_t total) {
    EXPECT_EQ(total, 2U);
    steps.push_back(done);
    return false;
  };
  transport.Stop();
  EXPECT_THAT(steps, ElementsAre(1));
  EXPECT_EQ(ReadText(folder / "take.WAV"), "the take");
}

TEST_F(TransportRecording, WithoutANameTheTakeIsLost) {
  StartRecording();
  transport.Stop();
  EXPECT_THAT(device.calls, ElementsAre("stop recording", "close recording"));
  EXPECT_FALSE(transport.Recording());
  EXPECT_THAT(host.opened, IsEmpty());
}

TEST_F(TransportRecording, AnotherExtensionIsSaidAndChanged) {
  StartRecording();
  AnswerName("take.mp3");
  prompts.answers = {Answer::Yes};
  transport.Stop();
  EXPECT_THAT(prompts.questions, ElementsAre("The given file extension will be changed to .WAV."));
  EXPECT_THAT(prompts.titles, ElementsAre("Save"));
  EXPECT_THAT(host.opened, ElementsAre(folder / "take.WAV"));
}

TEST_F(TransportRecording, CancelAtTheExtensionLosesTheTake) {
  StartRecording();
  AnswerName("take.mp3");
  prompts.answers = {Answer::Cancel};
  transport.Stop();
  EXPECT_THAT(device.calls, ElementsAre("stop recording", "close recording"));
  EXPECT_THAT(host.opened, IsEmpty());
}

TEST_F(TransportRecording, AnExistingFileIsAskedForAndReplaced) {
  WriteText(folder / "take.WAV", "old");
  StartRecording();
  AnswerName("take");
  prompts.answers = {Answer::Yes};
  transport.Stop();
  EXPECT_THAT(prompts.questions, ElementsAre((folder / "take.WAV").string() + " exists. Overwrite?"));
  EXPECT_EQ(ReadText(folder / "take.WAV"), "the take");
  EXPECT_THAT(folder.Names(), ElementsAre("take.WAV"));
  EXPECT_THAT(host.opened, ElementsAre(folder / "take.WAV"));
}

TEST_F(TransportRecording, TheDeviceSavesWhereNoFileIs) {
  WriteText(folder / "take.WAV", "old");
  StartRecording();
  AnswerName("take");
  prompts.answers = {Answer::Yes};
  bool wasThere = true;
  device.onSave = [&](const std::filesystem::path& path) { wasThere = std::filesystem::exists(path); };
  transport.Stop();
  EXPECT_FALSE(wasThere);
}

TEST_F(TransportRecording, ARefusedOverwriteLosesTheTakeAndChangesNoFile) {
  WriteText(folder / "take.WAV", "old");
  StartRecording();
  AnswerName("take.wav");
  prompts.answers = {Answer::No};
  transport.Stop();
  EXPECT_THAT(device.calls, ElementsAre("stop recording", "close recording", "close recording"));
  EXPECT_EQ(ReadText(folder / "take.WAV"), "old");
  EXPECT_THAT(folder.Names(), ElementsAre("take.WAV"));
  EXPECT_THAT(host.opened, IsEmpty());
  EXPECT_FALSE(transport.Recording());
}

TEST_F(TransportRecording, AFailedSaveIsSaidAndTheOldFileIsStillThere) {
  WriteText(folder / "take.WAV", "old");
  StartRecording();
  AnswerName("take.wav");
  prompts.answers = {Answer::Yes};
  device.saveResult = 4;
  transport.Stop();
  EXPECT_THAT(device.calls,
              ElementsAre("stop recording", "save take.WAV", "close recording", "close recording"));
  EXPECT_THAT(prompts.errors, ElementsAre("The device is on fire."));
  EXPECT_EQ(ReadText(folder / "take.WAV"), "old");
  EXPECT_THAT(folder.Names(), ElementsAre("take.WAV"));
  EXPECT_THAT(host.opened, IsEmpty());
  EXPECT_FALSE(transport.Recording());
}

TEST_F(TransportRecording, AFolderOfThatNameIsNotAskedFor) {
  std::filesystem::create_directory(folder / "take.WAV");
  StartRecording();
  AnswerName("take.wav");
  device.saveResult = 4;
  transport.Stop();
  EXPECT_THAT(prompts.questions, IsEmpty());
  EXPECT_THAT(device.calls,
              ElementsAre("stop recording", "save take.WAV", "close recording", "close recording"));
  EXPECT_THAT(prompts.errors, ElementsAre("The device is on fire."));
  EXPECT_TRUE(std::filesystem::is_directory(folder / "take.WAV"));
}

TEST_F(TransportRecording, AFolderThatMayNotBeChangedIsTheReasonThatIsSaid) {
  WriteText(folder / "take.WAV", "old");
  std::filesystem::permissions(folder.Path(), std::filesystem::perms(0555));
  StartRecording();
  AnswerName("take.wav");
  prompts.answers = {Answer::Yes};
  device.saveResult = 4;
  {
    const OrdinaryUser user;
    ASSERT_TRUE(user.Effective());
    transport.Stop();
  }
  std::filesystem::permissions(folder.Path(), std::filesystem::perms(0755));
  EXPECT_THAT(prompts.errors,
              ElementsAre("The recording could not be saved: Permission denied. It will be offered for "
                          "recovery when Tembrel starts again."));
  EXPECT_EQ(ReadText(folder / "take.WAV"), "old");
}

TEST_F(TransportRecording, ALinkStaysALink) {
  std::filesystem::create_directory(folder / "far");
  WriteText(folder / "far" / "kept.wav", "old");
  std::filesystem::create_symlink(folder / "far" / "kept.wav", folder / "take.WAV");
  StartRecording();
  AnswerName("take");
  prompts.answers = {Answer::Yes};
  transport.Stop();
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "take.WAV"));
  EXPECT_EQ(ReadText(folder / "far" / "kept.wav"), "the take");
}

TEST_F(TransportRecording, PauseChangesTheButtonOnly) {
  StartRecording();
  transport.Pause();
  EXPECT_TRUE(transport.Buttons().pause);
  EXPECT_FALSE(transport.Paused());
  EXPECT_TRUE(transport.Recording());
  EXPECT_THAT(device.calls, IsEmpty());
  transport.Pause();
  EXPECT_FALSE(transport.Buttons().pause);
  transport.Pause();
  transport.Stop();
  EXPECT_EQ(transport.Buttons(), kNoneDown);
}

TEST_F(TransportRecording, NothingPlaysMeanwhile) {
  StartRecording();
  transport.Play();
  transport.PlayFromCursor();
  transport.PlayScreen();
  EXPECT_FALSE(transport.Playing());
  EXPECT_TRUE(transport.Recording());
  EXPECT_THAT(device.calls, IsEmpty());
}

TEST_F(TransportRecording, RecordAgainKeepsTheTake) {
  StartRecording();
  transport.Record();
  EXPECT_THAT(device.calls, IsEmpty());
  EXPECT_TRUE(transport.Recording());
}

TEST_F(TransportRecording, EndsWhatPlays) {
  transport.Play();
  device.TakeCalls();
  transport.Record();
  EXPECT_FALSE(transport.Playing());
  EXPECT_FALSE(host.ticking);
  EXPECT_EQ(transport.Buttons(), kRecordDown);
  EXPECT_EQ(device.calls.front(), "stop");
  EXPECT_TRUE(transport.Recording());
}

TEST_F(TransportRecording, TheMeterIsShownWhatTheDeviceTells) {
  StartRecording();
  device.state = {1500, 0.5, 0.25, false, kDeviceSuccess};
  transport.OnMeter();
  ASSERT_EQ(host.shown.size(), 1U);
  EXPECT_EQ(host.shown[0].milliseconds, 1500);
  transport.Stop();
  transport.OnMeter();
  EXPECT_EQ(host.shown.size(), 1U);
}

TEST_F(TransportRecording, OneThatEndsByItselfIsSaidAndKept) {
  StartRecording();
  AnswerName("rest.wav");
  device.state = {1500, 0.5, 0.25, false, 7};
  device.stopRecordingResult = 7;
  device.errorText = "The disk is full.";
  transport.OnMeter();
  EXPECT_THAT(prompts.errors, ElementsAre("The disk is full."));
  EXPECT_THAT(device.calls, ElementsAre("stop recording", "save rest.WAV", "close recording"));
  EXPECT_THAT(host.opened, ElementsAre(folder / "rest.WAV"));
  EXPECT_FALSE(transport.Recording());
}

TEST_F(TransportRecording, OneThatFailsWhileItIsStoppedIsSaidAndKept) {
  device.stopRecordingResult = 7;
  device.errorText = "The disk is full.";
  for (const char* const name : {"one.wav", "two.wav"}) {
    StartRecording();
    AnswerName(name);
    bool saidBefore = false;
    device.onSave = [&](const std::filesystem::path&) { saidBefore = !prompts.errors.empty(); };
    transport.Stop();
    EXPECT_TRUE(saidBefore);
    EXPECT_THAT(std::exchange(prompts.errors, {}), ElementsAre("The disk is full."));
    EXPECT_FALSE(transport.Recording());
  }
  EXPECT_EQ(host.opened.size(), 2U);
}

TEST_F(TransportRecording, OneThatFailsWhileTheProgramEndsIsSaid) {
  StartRecording();
  AnswerName("take.wav");
  prompts.answers = {Answer::Yes};
  device.stopRecordingResult = 7;
  EXPECT_TRUE(transport.MayEnd());
  EXPECT_THAT(prompts.errors, ElementsAre("The device is on fire."));
  EXPECT_THAT(host.opened, ElementsAre(folder / "take.WAV"));
}

TEST_F(TransportRecording, TheRecordingLineIsSelectedAtItsVolume) {
  mixer.devices.push_back({"Other", {}, true});
  mixer.devices.push_back(RecordingDevice(
      "Card", {{"CD", VolumeControl{0, 65535, 100}}, {"Line", VolumeControl{0, 65535, 200}}}));
  mixer.devices[1].destinations[1].selectors[SelectorKind::Multiplexer] = {false, true};
  settings.recording.mixer = 1;
  settings.recording.recordingLine = 1;
  settings.recording.recordingVolume = 50000;
  transport.Record();
  EXPECT_THAT(mixer.changes, ElementsAre("1.1 items 10", "1.1.1 volume 50000"));
  EXPECT_EQ(transport.RememberedLine(), 0);
  EXPECT_EQ(transport.RememberedVolume(), 200);
  transport.Stop();
  EXPECT_EQ(mixer.changes.size(), 2U);
  EXPECT_EQ(mixer.openDevices, 0);
}

TEST_F(TransportRecording, WithoutARecordingLineTheMixerIsLeftAlone) {
  mixer.devices.push_back(RecordingDevice("Card", {{"CD", VolumeControl{}}, {"Line", VolumeControl{}}}));
  settings.recording.recordingLine = -1;
  transport.Record();
  EXPECT_TRUE(transport.Recording());
  EXPECT_THAT(mixer.changes, IsEmpty());
}

TEST_F(TransportRecording, TheMixerIsLeftAloneWhenRecordingDoesNotStart) {
  mixer.devices.push_back(RecordingDevice("Card", {{"CD", VolumeControl{}}}));
  settings.recording.recordingLine = 0;
  device.recordResult = 3;
  transport.Record();
  EXPECT_THAT(mixer.changes, IsEmpty());
}

TEST_F(TransportRecording, AMixerThatIsNotThereDoesNotStopIt) {
  settings.recording.mixer = 3;
  settings.recording.recordingLine = 0;
  transport.Record();
  EXPECT_TRUE(transport.Recording());
  EXPECT_THAT(prompts.errors, IsEmpty());
}

// ---- The program is to end

TEST_F(TransportRecording, WithoutOneTheProgramMayEndUnasked) {
  EXPECT_TRUE(transport.MayEnd());
  transport.Play();
  EXPECT_TRUE(transport.MayEnd());
  EXPECT_THAT(prompts.questions, IsEmpty());
}

TEST_F(TransportRecording, CancelLetsItRunOn) {
  StartRecording();
  prompts.answers = {Answer::Cancel};
  EXPECT_FALSE(transport.MayEnd());
  EXPECT_EQ(prompts.questions.size(), 1U);
  EXPECT_TRUE(transport.Recording());
  EXPECT_THAT(device.calls, IsEmpty());
  EXPECT_TRUE(host.metering);
}

TEST_F(TransportRecording, TheMeterRunsWhileItIsAskedAndAFailureWaits) {
  StartRecording();
  device.state.failure = 7;
  prompts.onQuestion = [this] {
    transport.OnMeter();
    EXPECT_EQ(host.shown.size(), 1U);
    EXPECT_TRUE(transport.Recording());
    EXPECT_THAT(prompts.errors, IsEmpty());
  };
  EXPECT_FALSE(transport.MayEnd());
  transport.OnMeter();
  EXPECT_EQ(prompts.errors.size(), 1U);
  EXPECT_FALSE(transport.Recording());
}

TEST_F(TransportRecording, AFailureWaitsForATaskThatIsAtWork) {
  StartRecording();
  AnswerName("rest.wav");
  device.state.failure = 7;
  prompts.showsProgress = true;
  for (int i = 0; i < 3; ++i) {
    transport.OnMeter();
  }
  EXPECT_EQ(host.shown.size(), 3U);
  EXPECT_TRUE(host.metering);
  EXPECT_TRUE(transport.Recording());
  EXPECT_THAT(prompts.errors, IsEmpty());
  EXPECT_THAT(device.calls, IsEmpty());
  prompts.showsProgress = false;
  transport.OnMeter();
  EXPECT_EQ(prompts.errors.size(), 1U);
  EXPECT_THAT(host.opened, ElementsAre(folder / "rest.WAV"));
}

TEST_F(TransportRecording, NothingElseBeginsWhileANameIsAsked) {
  StartRecording();
  prompts.onQuestion = [this] {
    const std::vector<std::string> before = device.calls;
    transport.Stop();
    transport.Record();
    transport.Play();
    EXPECT_FALSE(transport.MayEnd());
    EXPECT_EQ(device.calls, before);
  };
  AnswerName("take.mp3");
  transport.Stop();
  EXPECT_EQ(prompts.questions.size(), 1U);
  EXPECT_FALSE(transport.Recording());
}

TEST_F(TransportRecording, YesSavesItBeforeTheEnd) {
  StartRecording();
  AnswerName("take.wav");
  prompts.answers = {Answer::Yes};
  EXPECT_TRUE(transport.MayEnd());
  EXPECT_FALSE(transport.Recording());
  EXPECT_EQ(ReadText(folder / "take.WAV"), "the take");
}

TEST_F(TransportRecording, YesWithoutASavedFileKeepsTheProgram) {
  StartRecording();
  AnswerName("take.wav");
  device.saveResult = 4;
  prompts.answers = {Answer::Yes};
  EXPECT_FALSE(transport.MayEnd());
  EXPECT_FALSE(transport.Recording());
  EXPECT_EQ(prompts.errors.size(), 1U);
}

TEST_F(TransportRecording, NoThrowsItAway) {
  StartRecording();
  prompts.answers = {Answer::No};
  EXPECT_TRUE(transport.MayEnd());
  EXPECT_THAT(device.calls, ElementsAre("stop recording", "close recording"));
  EXPECT_FALSE(transport.Recording());
  EXPECT_FALSE(host.metering);
  EXPECT_EQ(transport.Buttons(), kNoneDown);
}

}  // namespace
}  // namespace tembrel::test
