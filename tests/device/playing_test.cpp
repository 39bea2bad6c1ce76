#include <gtest/gtest.h>

#include "device/DeviceErrors.h"
#include "tests/device/RealSound.h"

namespace tembrel::test {
namespace {

constexpr std::size_t kFrames = 20'000;

class Playing : public RealSound {
 protected:
  // What is heard of the file from this millisecond on.
  std::vector<StereoFrame> Play(const std::filesystem::path& path, std::int32_t startMs, std::size_t frames) {
    const SoundTap tap("out.monitor");
    EXPECT_EQ(services.device->OpenPlayback(path, startMs), kDeviceSuccess);
    EXPECT_EQ(services.device->Play(), kDeviceSuccess);
    EXPECT_TRUE(tap.WaitForFrames(frames + 4000));
    services.device->StopPlayback();
    services.device->ClosePlayback();
    return tap.Heard();
  }
};

TEST_F(Playing, GivesEveryLayoutSampleForSample) {
  for (const std::uint16_t bits : {std::uint16_t{8}, std::uint16_t{16}}) {
    for (const std::uint16_t channels : {std::uint16_t{1}, std::uint16_t{2}}) {
      const WaveFormat format = PcmFormat(44100, bits, channels);
      const Bytes data = NoiseBytes(format, kFrames);
      EXPECT_TRUE(Play(Write("a.wav", format, data), 0, kFrames) == AsHeard(format, data))
          << bits << " bits, " << channels << " channels";
    }
  }
}

}  // namespace
}  // namespace tembrel::test
