// What the sound device plays is what comes out of the sound server.
#include <chrono>
#include <cmath>
#include <gtest/gtest.h>

#include "device/DeviceErrors.h"
#include "tests/sound/RealSound.h"

namespace tembrel::test {
namespace {

constexpr std::size_t kFrames = 12'000;
constexpr WaveFormat kStereo{kPcmTag, 2, 44100, 176400, 4, 16};

class Playing : public RealSound {
 protected:
  using RealSound::RealSound;

  void Start(const std::filesystem::path& path, std::int32_t startMs = 0) const {
    ASSERT_EQ(services.device->OpenPlayback(path, startMs), kDeviceSuccess);
    ASSERT_EQ(services.device->Play(), kDeviceSuccess);
  }
  void Stop() const {
    services.device->StopPlayback();
    services.device->ClosePlayback();
  }
  // What is heard of the file from this millisecond on; it has `frames` frames from there.
  std::vector<StereoFrame> PlayToTheEnd(const std::filesystem::path& path, std::int32_t startMs,
                                        std::size_t frames, std::uint32_t rate = 44100) const {
    const SoundTap tap(playTo + ".monitor", rate);
    Start(path, startMs);
    EXPECT_TRUE(tap.WaitForAll(frames));
    Stop();
    return tap.Heard();
  }
  void ExpectEveryLayoutExact(std::uint32_t rate) const {
    for (const std::uint16_t bits : {std::uint16_t{8}, std::uint16_t{16}}) {
      for (const std::uint16_t channels : {std::uint16_t{1}, std::uint16_t{2}}) {
        const WaveFormat format = PcmFormat(rate, bits, channels);
        const Bytes data = NoiseBytes(format, kFrames);
        EXPECT_TRUE(PlayToTheEnd(Write("a.wav", format, data), 0, kFrames, rate) == AsHeard(format, data))
            << bits << " bits, " << channels << " channels";
      }
    }
  }
};

class PlayingAt48 : public Playing {
 protected:
  PlayingAt48() : Playing("out48") {}
};

TEST_F(Playing, GivesEveryLayoutSampleForSample) {
  ExpectEveryLayoutExact(44100);
}

TEST_F(PlayingAt48, GivesEveryLayoutSampleForSample) {
  ExpectEveryLayoutExact(48000);
}

TEST_F(Playing, StartsWithinAFrameOfTheMillisecond) {
  const Bytes data = NoiseBytes(kStereo, kFrames);
  const std::vector<StereoFrame> all = AsHeard(kStereo, data);
  const auto path = Write("a.wav", kStereo, data);
  for (const std::int32_t startMs : {1, 137, 203}) {
    const double asked = startMs * 44.1;
    const std::vector<StereoFrame> heard =
        PlayToTheEnd(path, startMs, kFrames - static_cast<std::size_t>(asked) - 1);
    ASSERT_LE(heard.size(), kFrames);
    const std::size_t first = kFrames - heard.size();
    EXPECT_LE(std::abs(static_cast<double>(first) - asked), 1.0) << startMs;
    EXPECT_TRUE(heard == From(all, first)) << startMs;
  }
}

TEST_F(Playing, HasNoGap) {
  const Bytes data = NoiseBytes(kStereo, kFrames);
  const auto path = Write("a.wav", kStereo, data);
  EXPECT_TRUE(OnceInThree([&] {
    const SoundTap tap("out.monitor");
    Start(path);
    EXPECT_TRUE(tap.WaitForAll(kFrames));
    Stop();
    return tap.WithoutGap();
  }));
}

TEST_F(Playing, AStopAtTheEndByTheClockCutsNothingOff) {
  const Bytes data = NoiseBytes(kStereo, kFrames);
  const auto path = Write("a.wav", kStereo, data);
  EXPECT_TRUE(OnceInThree([&] {
    const SoundTap tap("out.monitor");
    Start(path);
    const auto start = std::chrono::steady_clock::now();
    const auto length = std::chrono::milliseconds(kFrames * 1000 / 44100);
    EXPECT_TRUE(Eventually([&] { return std::chrono::steady_clock::now() >= start + length; }));
    Stop();
    EXPECT_TRUE(tap.WaitForSound());
    EXPECT_TRUE(tap.WaitForMore(50'000));
    return tap.Heard() == AsHeard(kStereo, data);
  }));
}

TEST_F(Playing, PauseAndResumeByTheClockLoseNothing) {
  constexpr std::size_t kLonger = 120'000;
  const Bytes data = NoiseBytes(kStereo, kLonger);
  const std::vector<StereoFrame> all = AsHeard(kStereo, data);
  const auto path = Write("a.wav", kStereo, data);
  std::vector<StereoFrame> before;
  std::int64_t pausedAt = 0;
  {
    const SoundTap tap("out.monitor");
    Start(path);
    const auto start = std::chrono::steady_clock::now();
    ASSERT_TRUE(tap.WaitForFrames(8'000));
    pausedAt = std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start)
                   .count();
    Stop();
    ASSERT_TRUE(tap.WaitForMore(40'000));
    before = tap.Heard();
  }
  ASSERT_LT(before.size(), kLonger);
  EXPECT_TRUE(std::equal(before.begin(), before.end(), all.begin()));
  const auto resumedAt = static_cast<std::size_t>(pausedAt * 44100 / 1000);
  EXPECT_GE(before.size(), resumedAt);
  const std::vector<StereoFrame> after = PlayToTheEnd(
      path, static_cast<std::int32_t>(pausedAt), kLonger - resumedAt - 1);  // a millisecond is no whole frame
  ASSERT_LE(after.size(), kLonger);
  EXPECT_TRUE(after == From(all, kLonger - after.size()));
  EXPECT_GE(before.size() + after.size(), kLonger);
}

TEST_F(Playing, GoesOnAfterAStopWithoutOpeningAgain) {
  constexpr std::size_t kLonger = 120'000;
  const Bytes data = NoiseBytes(kStereo, kLonger);
  const auto path = Write("a.wav", kStereo, data);
  {
    const SoundTap tap("out.monitor");
    Start(path);
    ASSERT_TRUE(tap.WaitForFrames(8'000));
    EXPECT_EQ(services.device->StopPlayback(), kDeviceSuccess);
    ASSERT_TRUE(tap.WaitForMore(40'000));
    EXPECT_LT(tap.Heard().size(), kLonger);
  }
  const SoundTap tap("out.monitor");
  EXPECT_EQ(services.device->Play(), kDeviceSuccess);
  const std::vector<StereoFrame> all = AsHeard(kStereo, data);
  ASSERT_TRUE(Eventually([&] { return !tap.Heard().empty() && tap.Heard().back() == all.back(); }));
  ASSERT_TRUE(tap.WaitForMore(10'000));
  const std::vector<StereoFrame> rest = tap.Heard();
  ASSERT_LT(rest.size(), kLonger);
  EXPECT_TRUE(rest == From(all, kLonger - rest.size()));
}

TEST_F(Playing, LeavesOutWhatFramesHoldBesideTheirSamples) {
  const WaveFormat packed = PcmFormat(44100, 16, 2);
  const Bytes data = NoiseBytes(packed, kFrames);
  Bytes gaps;
  for (std::size_t i = 0; i < data.size(); i += 4) {
    Append(gaps, std::span(data).subspan(i, 4));
    Append16(gaps, 0x5A5A);
  }
  Bytes record = Record(44100, 16, 2);
  Put16(record, 12, 6);
  WriteBytes(folder / "gaps.wav", Form("WAVE", {Chunk("fmt ", record), Chunk("data", gaps)}));
  EXPECT_TRUE(PlayToTheEnd(folder / "gaps.wav", 0, kFrames) == AsHeard(packed, data));
}

TEST_F(Playing, ConvertsWhatTheEditorOnlyShows) {
  const SoundTap tap("out.monitor");
  Bytes data(kFrames * 9, std::byte{0x33});
  Start(Write("24 bits, 3 channels.wav", PcmFormat(44100, 24, 3), data));
  EXPECT_TRUE(tap.WaitForAll(kFrames));
  EXPECT_NEAR(static_cast<double>(tap.Heard().size()), kFrames, 100);
  data.assign(kFrames * 8, std::byte{0x33});
  Start(Write("64 bits.wav", PcmFormat(44100, 64, 1), data));
  EXPECT_TRUE(tap.WaitForMore(kFrames));
}

TEST_F(Playing, AFileThatIsRemovedMeanwhilePlaysToItsEnd) {
  const Bytes data = NoiseBytes(kStereo, kFrames);
  const auto path = Write("a.wav", kStereo, data);
  const SoundTap tap("out.monitor");
  ASSERT_EQ(services.device->OpenPlayback(path, 0), kDeviceSuccess);
  std::filesystem::remove(path);
  ASSERT_EQ(services.device->Play(), kDeviceSuccess);
  EXPECT_TRUE(tap.WaitForAll(kFrames));
  EXPECT_TRUE(tap.Heard() == AsHeard(kStereo, data));
}

TEST_F(Playing, AFileThatIsCutShortMeanwhileEndsThere) {
  constexpr std::size_t kLonger = 160'000;
  constexpr std::size_t kLeft = 100'000;
  const Bytes data = NoiseBytes(kStereo, kLonger);
  const auto path = Write("a.wav", kStereo, data);
  const SoundTap tap("out.monitor");
  Start(path);
  ASSERT_TRUE(tap.WaitForFrames(4'000));
  std::filesystem::resize_file(path, 44 + kLeft * 4);
  EXPECT_TRUE(tap.WaitForAll(kLeft));
  const std::vector<StereoFrame> heard = tap.Heard();
  const std::vector<StereoFrame> all = AsHeard(kStereo, data);
  ASSERT_EQ(heard.size(), kLeft);
  EXPECT_TRUE(std::equal(heard.begin(), heard.end(), all.begin()));
}

// Left to itself the server takes two seconds of sound in advance, and Stop would come too late for all of
// it.
TEST_F(Playing, HandsOverLittleSoundInAdvance) {
  const auto path = Write("a.wav", kStereo, NoiseBytes(kStereo, 200'000));
  const SoundTap tap("out.monitor");
  const EnvironmentValue asTheProgramAsks("PULSE_LATENCY_MSEC", std::nullopt);
  Start(path);
  ASSERT_TRUE(tap.WaitForFrames(4'000));
  std::filesystem::resize_file(path, 44);
  const std::size_t heard = tap.Heard().size();
  ASSERT_TRUE(tap.WaitForMore(70'000));
  EXPECT_LT(tap.Heard().size(), heard + 44'100);
}

TEST_F(Playing, AFileThatCannotBeReadLeavesTheOldOneOpen) {
  const Bytes data = NoiseBytes(kStereo, kFrames);
  const auto path = Write("a.wav", kStereo, data);
  const SoundTap tap("out.monitor");
  ASSERT_EQ(services.device->OpenPlayback(path, 0), kDeviceSuccess);
  EXPECT_EQ(services.device->OpenPlayback(folder / "nowhere.wav", 0), kFileUnreadable);
  EXPECT_EQ(services.device->ErrorText(kFileUnreadable),
            "The sound could not be played: No such file or directory.");
  ASSERT_EQ(services.device->Play(), kDeviceSuccess);
  EXPECT_TRUE(tap.WaitForAll(kFrames));
  EXPECT_TRUE(tap.Heard() == AsHeard(kStereo, data));
}

TEST_F(Playing, BehindTheEndIsSilent) {
  const Bytes data = NoiseBytes(kStereo, kFrames);
  const auto path = Write("a.wav", kStereo, data);
  const SoundTap tap("out.monitor");
  Start(path, 100'000);
  EXPECT_TRUE(tap.WaitForMore(kFrames));
  EXPECT_EQ(tap.Heard().size(), 0U);
  EXPECT_EQ(services.device->StopPlayback(), kDeviceSuccess);
  EXPECT_EQ(services.device->ClosePlayback(), kDeviceSuccess);
  EXPECT_EQ(services.device->Play(), kNothingOpen);
  // All that is heard is the next sound: the tap was not deaf.
  Start(path);
  EXPECT_TRUE(tap.WaitForAll(kFrames));
  EXPECT_TRUE(tap.Heard() == AsHeard(kStereo, data));
}

}  // namespace
}  // namespace tembrel::test
