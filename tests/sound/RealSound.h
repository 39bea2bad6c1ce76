// The sound services of the program with a sound server of the test's own.
#pragma once

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "audio/WaveFormat.h"
#include "device/SoundServices.h"
#include "tests/support/EnvironmentValue.h"
#include "tests/support/FileBytes.h"
#include "tests/support/PrivateSoundServer.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/SoundNoise.h"
#include "tests/support/SoundTap.h"

namespace tembrel::test {

// More than the program asks the server for, so that a busy machine makes no gaps; it goes for all streams of
// the test.
inline constexpr const char* kPatientLatencyMs = "200";

class RealSound : public testing::Test {
 protected:
  // Plays to this sink.
  explicit RealSound(std::string sink = "out") : playTo(std::move(sink)) {}

  void SetUp() override {
    if (!PrivateSoundServer::Installed()) {
      GTEST_SKIP() << "there is no pulseaudio to play to";
    }
    server.emplace(playTo);
    ASSERT_TRUE(server->Running()) << "the private sound server did not start";
    services = OpenSoundServices(folder.Path());
  }
  void TearDown() override { services = {}; }

  std::filesystem::path Write(const std::string& name, const WaveFormat& format, const Bytes& data) const {
    WriteBytes(folder / name, WaveFile(format.nSamplesPerSec, format.wBitsPerSample, format.nChannels, data));
    return folder / name;
  }

  std::string playTo;
  ScratchFolder folder;
  EnvironmentValue latency{"PULSE_LATENCY_MSEC", kPatientLatencyMs};
  std::optional<PrivateSoundServer> server;
  SoundServices services;
};

inline std::vector<StereoFrame> From(const std::vector<StereoFrame>& frames, std::size_t first) {
  return {frames.begin() + static_cast<std::ptrdiff_t>(first), frames.end()};
}

inline std::vector<StereoFrame> WithoutSilence(std::vector<StereoFrame> frames) {
  std::erase(frames, StereoFrame{0});
  return frames;
}

// For what a machine that is busy elsewhere can spoil, but not each time.
inline bool OnceInThree(const std::function<bool()>& succeeds) {
  for (int attempt = 0; attempt < 3; ++attempt) {
    if (succeeds()) {
      return true;
    }
  }
  return false;
}

}  // namespace tembrel::test
