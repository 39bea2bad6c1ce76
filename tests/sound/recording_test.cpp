// What the sound device records is what the sound server's source gives.
#include <algorithm>
#include <gtest/gtest.h>

#include "audio/WaveReader.h"
#include "device/DeviceErrors.h"
#include "device/RecordingSource.h"
#include "tests/sound/RealSound.h"
#include "tests/support/FileSizeLimit.h"

namespace tembrel::test {
namespace {

constexpr std::size_t kFrames = 12'000;

class Recording : public RealSound {
 protected:
  void Start(const FormatChoice& format) const {
    ASSERT_EQ(services.device->OpenRecording(), kDeviceSuccess);
    ASSERT_EQ(services.device->SetRecordingFormat(format), kDeviceSuccess);
    ASSERT_EQ(services.device->Record(), kDeviceSuccess) << services.device->ErrorText(kServerRefused);
  }
  // Waits until this much more was taken down.
  bool WaitForMore(std::int64_t milliseconds) const {
    const std::int64_t now = services.device->AskRecording().milliseconds;
    return Eventually([&] {
      const RecordingState state = services.device->AskRecording();
      return state.milliseconds >= now + milliseconds || state.failure != kDeviceSuccess;
    });
  }
  std::unique_ptr<AudioClip> Saved() const {
    EXPECT_EQ(services.device->StopRecording(), kDeviceSuccess);
    EXPECT_EQ(services.device->SaveRecording(folder / "take.WAV", {}), kDeviceSuccess);
    EXPECT_EQ(services.device->CloseRecording(), kDeviceSuccess);
    LoadResult loaded = LoadClip(folder / "take.WAV", 0, 0, 0, false);
    EXPECT_EQ(loaded.reason, "");
    return std::move(loaded.clip);
  }
};

Bytes BytesOfSound(const AudioClip& clip) {
  return {clip.Bytes().begin(), clip.Bytes().end()};
}

TEST_F(Recording, GivesASourceSampleForSample) {
  for (const std::uint16_t bits : {std::uint16_t{8}, std::uint16_t{16}}) {
    for (const std::uint16_t channels : {std::uint16_t{1}, std::uint16_t{2}}) {
      const WaveFormat format = PcmFormat(44100, bits, channels);
      const std::vector<StereoFrame> source = AsHeard(format, NoiseBytes(format, kFrames));
      Start({44100, bits, channels});
      ASSERT_TRUE(PlayInto("in", source));
      ASSERT_TRUE(WaitForMore(400));
      const std::unique_ptr<AudioClip> clip = Saved();
      ASSERT_NE(clip, nullptr);
      EXPECT_EQ(clip->format, format);
      EXPECT_TRUE(WithoutSilence(AsHeard(format, BytesOfSound(*clip))) == source)
          << bits << " bits, " << channels << " channels";
      std::filesystem::remove(folder / "take.WAV");
    }
  }
}

TEST_F(Recording, TellsTimeLevelsAndClipping) {
  Start({22050, 16, 2});
  ASSERT_TRUE(WaitForMore(200));
  RecordingState state = services.device->AskRecording();
  EXPECT_EQ(state.peakLeft, 0.0);
  EXPECT_FALSE(state.clipped);
  const std::vector<StereoFrame> half(kFrames, 0x2000'4000);
  ASSERT_TRUE(PlayInto("in", half));
  ASSERT_TRUE(Eventually([&] {
    state = services.device->AskRecording();
    return state.peakLeft > 0.45;
  }));
  EXPECT_NEAR(state.peakLeft, 0.5, 0.1);
  EXPECT_NEAR(state.peakRight, 0.25, 0.1);
  const std::vector<StereoFrame> full(kFrames, 0x0000'7FFF);
  bool clipped = false;
  ASSERT_TRUE(PlayInto("in", full));
  ASSERT_TRUE(Eventually([&] { return clipped = clipped || services.device->AskRecording().clipped; }));
  const std::int64_t milliseconds = services.device->AskRecording().milliseconds;
  const std::unique_ptr<AudioClip> clip = Saved();
  ASSERT_NE(clip, nullptr);
  EXPECT_GE(clip->Frames(), milliseconds * 22050 / 1000);
}

TEST_F(Recording, FollowsTheSelectedSource) {
  const WaveFormat format = PcmFormat(44100, 16, 2);
  const std::vector<StereoFrame> source = AsHeard(format, NoiseBytes(format, kFrames));
  ASSERT_EQ(SelectRecordingSource(*services.mixer, 0, 0), 0);
  Start({44100, 16, 2});
  ASSERT_TRUE(PlayInto("out", source));
  ASSERT_TRUE(WaitForMore(400));
  const std::unique_ptr<AudioClip> clip = Saved();
  ASSERT_NE(clip, nullptr);
  EXPECT_TRUE(WithoutSilence(AsHeard(format, BytesOfSound(*clip))) == source);
}

TEST_F(Recording, GoesOverToASourceThatIsSelectedMeanwhile) {
  const WaveFormat format = PcmFormat(44100, 16, 2);
  const std::vector<StereoFrame> source = AsHeard(format, NoiseBytes(format, kFrames));
  Start({44100, 16, 2});
  ASSERT_TRUE(WaitForMore(100));
  ASSERT_EQ(SelectRecordingSource(*services.mixer, 0, 0), 0);
  ASSERT_TRUE(WaitForMore(100));
  ASSERT_TRUE(PlayInto("out", source));
  ASSERT_TRUE(WaitForMore(400));
  const std::unique_ptr<AudioClip> clip = Saved();
  ASSERT_NE(clip, nullptr);
  EXPECT_TRUE(WithoutSilence(AsHeard(format, BytesOfSound(*clip))) == source);
}

TEST_F(Recording, ClosedWithoutSavingLeavesNothing) {
  const std::vector<std::string> before = folder.Names();
  Start({44100, 16, 2});
  ASSERT_TRUE(WaitForMore(700));
  EXPECT_GT(folder.Names().size(), before.size());
  EXPECT_EQ(services.device->StopRecording(), kDeviceSuccess);
  EXPECT_EQ(services.device->CloseRecording(), kDeviceSuccess);
  EXPECT_EQ(folder.Names(), before);
  EXPECT_EQ(services.device->SaveRecording(folder / "take.WAV", {}), kNothingOpen);
}

TEST_F(Recording, AFullDiskStopsItAndKeepsWhatIsThere) {
  constexpr rlim_t kRoom = 100'003;
  ASSERT_EQ(services.mixer->DeviceCount(), 1);  // connected, which needs files too
  {
    const FileSizeLimit limit(kRoom);
    Start({44100, 16, 2});
    ASSERT_TRUE(Eventually([&] { return services.device->AskRecording().failure != kDeviceSuccess; }));
    const RecordingState state = services.device->AskRecording();
    EXPECT_EQ(state.failure, kTakeNotWritten);
    EXPECT_EQ(services.device->ErrorText(state.failure),
              "The recording has stopped: File too large. What was recorded is kept.");
    EXPECT_EQ(services.device->StopRecording(), kTakeNotWritten);
  }
  ASSERT_EQ(services.device->SaveRecording(folder / "take.WAV", {}), kDeviceSuccess);
  const LoadResult loaded = LoadClip(folder / "take.WAV", 0, 0, 0, false);
  ASSERT_NE(loaded.clip, nullptr) << loaded.reason;
  EXPECT_EQ(loaded.clip->dataSize, (kRoom - 44) / 4 * 4);
}

TEST_F(Recording, ADyingServerEndsItAndWhatWasRecordedStays) {
  const WaveFormat format = PcmFormat(44100, 16, 2);
  const std::vector<StereoFrame> source = AsHeard(format, NoiseBytes(format, 10 * kFrames));
  Start({44100, 16, 2});
  std::thread player([&] { PlayInto("in", source); });
  EXPECT_TRUE(WaitForMore(1'000));
  server->Kill();
  player.join();
  ASSERT_TRUE(Eventually([&] { return services.device->AskRecording().failure != kDeviceSuccess; }));
  EXPECT_EQ(services.device->AskRecording().failure, kServerLost);
  EXPECT_EQ(services.device->ErrorText(kServerLost),
            "The recording has stopped: the sound server or its source is gone. What was recorded is kept.");
  EXPECT_EQ(services.device->StopRecording(), kServerLost);
  ASSERT_EQ(services.device->SaveRecording(folder / "take.WAV", {}), kDeviceSuccess);
  EXPECT_EQ(services.device->CloseRecording(), kDeviceSuccess);
  const LoadResult loaded = LoadClip(folder / "take.WAV", 0, 0, 0, false);
  ASSERT_NE(loaded.clip, nullptr) << loaded.reason;
  const std::vector<StereoFrame> taken = WithoutSilence(AsHeard(format, BytesOfSound(*loaded.clip)));
  ASSERT_GT(taken.size(), 10'000U);
  ASSERT_LE(taken.size(), source.size());
  EXPECT_TRUE(std::equal(taken.begin(), taken.end(), source.begin()));
}

TEST_F(Recording, AFailedSaveKeepsItForRecovery) {
  Start({44100, 16, 1});
  ASSERT_TRUE(WaitForMore(700));
  services.device->StopRecording();
  EXPECT_EQ(services.device->SaveRecording(folder / "no such folder" / "take.WAV", {}), kTakeNotSaved);
  EXPECT_EQ(
      services.device->ErrorText(kTakeNotSaved),
      "The recording could not be saved: No such file or directory. It will be offered for recovery when "
      "Tembrel starts again.");
  EXPECT_EQ(services.device->CloseRecording(), kDeviceSuccess);
  EXPECT_TRUE(std::filesystem::exists(folder / "temp1.wav"));
  EXPECT_TRUE(std::filesystem::exists(folder / "temp1.txt"));
}

TEST_F(Recording, WithoutAPlaceForItDoesNotStart) {
  services = OpenSoundServices(folder / "nowhere");
  EXPECT_EQ(services.device->OpenRecording(), kDeviceSuccess);
  EXPECT_EQ(services.device->Record(), kTakeNotBegun);
  EXPECT_EQ(services.device->ErrorText(kTakeNotBegun),
            "There is no place for the recording: No such file or directory.");
}

}  // namespace
}  // namespace tembrel::test
