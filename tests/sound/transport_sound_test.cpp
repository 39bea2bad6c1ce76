// The transport with the real clock and sound device: what is heard and recorded when its commands are given.
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

#include "audio/WaveReader.h"
#include "device/SteadyClock.h"
#include "device/Transport.h"
#include "tests/sound/RealSound.h"
#include "tests/support/FakeTransport.h"
#include "tests/support/ScriptedPrompts.h"

namespace tembrel::test {
namespace {

constexpr std::size_t kFrames = 50'000;
constexpr WaveFormat kStereo{kPcmTag, 2, 44100, 176400, 4, 16};

class TransportSound : public RealSound {
 protected:
  void SetUp() override {
    RealSound::SetUp();
    if (IsSkipped() || HasFatalFailure()) {
      return;
    }
    settings.recording.showDialog = false;
    host.document.file = Write("song.wav", kStereo, data);
    host.document.frames = kFrames;
    host.document.onScreen = kFrames;
    transport.emplace(*services.device, *services.mixer, clock, settings, prompts, host);
  }
  void TearDown() override {
    transport.reset();
    RealSound::TearDown();
  }

  // Ticks as the program's timers do until the condition holds.
  bool TickUntil(const std::function<bool()>& condition) {
    std::uint32_t next = clock.Now() + kTickMs;
    return Eventually([&] {
      if (clock.Now() >= next) {
        next += kTickMs;
        transport->OnTick();
        transport->OnMeter();
      }
      return condition();
    });
  }
  bool TickFor(std::uint32_t milliseconds) {
    const std::uint32_t end = clock.Now() + milliseconds;
    return TickUntil([&] { return clock.Now() >= end; });
  }

  Bytes data = NoiseBytes(kStereo, kFrames);
  std::vector<StereoFrame> all = AsHeard(kStereo, data);
  SteadyClock clock;
  Settings settings;
  ScriptedPrompts prompts;
  FakeTransportHost host;
  std::optional<Transport> transport;
};

TEST_F(TransportSound, PlayGivesTheWholeDocument) {
  const SoundTap tap("out.monitor");
  transport->Play();
  EXPECT_TRUE(TickUntil([&] { return !transport->Playing(); }));
  EXPECT_TRUE(tap.WaitForAll(kFrames));
  EXPECT_TRUE(tap.Heard() == all);
}

TEST_F(TransportSound, FromTheCursorStartsThereWithinAMillisecond) {
  host.document.cursor = 20'021;
  const SoundTap tap("out.monitor");
  transport->PlayFromCursor();
  EXPECT_TRUE(TickUntil([&] { return !transport->Playing(); }));
  EXPECT_TRUE(tap.WaitForAll(kFrames - 20'021));
  const std::vector<StereoFrame> heard = tap.Heard();
  ASSERT_LE(heard.size(), kFrames);
  const std::size_t first = kFrames - heard.size();
  EXPECT_TRUE(heard == From(all, first));
  EXPECT_LE(first, 20'021U);
  EXPECT_GE(first + 45, 20'021U);
}

// Pauses that begin at different distances from the tick before. The server's buffer may be heard beyond the
// place where a pause began, which could hide a gap: sound that goes on is to begin at that place.
TEST_F(TransportSound, PauseAndResumeLoseNothing) {
  constexpr double kFewMilliseconds = 440.0;
  EXPECT_TRUE(OnceInThree([&] {
    std::size_t reached = 0;     // what was heard so far, from the start of the document on
    std::uint32_t pausedAt = 0;  // milliseconds
    bool right = true;
    transport->Play();
    for (const std::uint32_t played : {290U, 220U, 0U}) {
      const SoundTap tap("out.monitor");
      const std::uint32_t started = clock.Now();
      std::uint32_t stoppedAt = started;
      if (reached > 0) {
        transport->Pause();
      }
      if (played > 0) {
        EXPECT_TRUE(TickFor(played));
        stoppedAt = clock.Now();
        transport->Pause();
        EXPECT_TRUE(tap.WaitForSound());
        EXPECT_TRUE(tap.WaitForMore(30'000));
      } else {
        EXPECT_TRUE(TickUntil([&] { return !transport->Playing(); }));
        EXPECT_TRUE(tap.WaitForMore(30'000));
      }
      const std::vector<StereoFrame> heard = tap.Heard();
      const auto place = std::search(all.begin(), all.end(), heard.begin(), heard.end());
      EXPECT_FALSE(heard.empty() || place == all.end()) << "something else was heard";
      const auto first = static_cast<std::size_t>(place - all.begin());
      const double wanted = pausedAt * 44.1;
      right = right && first <= reached && std::abs(static_cast<double>(first) - wanted) < kFewMilliseconds;
      reached = first + heard.size();
      pausedAt += stoppedAt - started;
    }
    return right && reached == kFrames;
  }));
}

TEST_F(TransportSound, StopIsHeard) {
  constexpr std::size_t kLong = 4 * kFrames;
  host.document.file = Write("long.wav", kStereo, NoiseBytes(kStereo, kLong));
  host.document.frames = kLong;
  const SoundTap tap("out.monitor");
  transport->Play();
  ASSERT_TRUE(tap.WaitForSound());
  transport->Stop();
  ASSERT_TRUE(tap.WaitForMore(60'000));
  const std::size_t heard = tap.Heard().size();
  EXPECT_LT(heard, kLong);
  ASSERT_TRUE(tap.WaitForMore(10'000));
  EXPECT_EQ(tap.Heard().size(), heard);
}

TEST_F(TransportSound, AServerThatDiesLeavesTheCursorRunning) {
  transport->Play();
  ASSERT_TRUE(TickFor(150));
  server->Kill();
  EXPECT_TRUE(TickUntil([&] { return !transport->Playing(); }));
  EXPECT_GT(*std::ranges::max_element(host.document.cursorMoves), static_cast<std::int64_t>(kFrames) - 1);
}

TEST_F(TransportSound, ARecordingOfTheSelectedLineIsSavedAndOpened) {
  settings.playback = {44100, 16, 2};
  settings.recording.recordingLine = 0;
  settings.recording.recordingVolume = 65535;
  prompts.saveChoice = SaveChoice{folder / "take.mp3", 1};
  prompts.answers = {Answer::Yes};
  transport->Record();
  ASSERT_TRUE(transport->Recording());
  ASSERT_TRUE(PlayInto("out", all));
  ASSERT_TRUE(TickFor(400));
  transport->Stop();
  ASSERT_EQ(host.opened, std::vector<std::filesystem::path>{folder / "take.WAV"});
  const LoadResult loaded = LoadClip(folder / "take.WAV", 0, 0, 0, false);
  ASSERT_NE(loaded.clip, nullptr) << loaded.reason;
  const std::vector<StereoFrame> taken =
      AsHeard(kStereo, {loaded.clip->Bytes().begin(), loaded.clip->Bytes().end()});
  EXPECT_TRUE(WithoutSilence(taken) == all);
}

}  // namespace
}  // namespace tembrel::test
