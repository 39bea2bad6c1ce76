// Format records and block lengths that do not fit together. Under the address sanitizer a read outside the
// clip's bytes ends the test; here the block is exactly as long as the sound.
#include <gtest/gtest.h>

#include "tests/view/TestClips.h"
#include "view/WaveLines.h"

namespace tembrel {
namespace {

using Numbers = std::vector<std::uint16_t>;

void ExpectLinesInside(const AudioClip& clip) {
  for (const int width : {1, 50}) {
    for (const std::int64_t first : {0, 1, 1000}) {
      for (const std::int64_t frames : {1, 7, 100'000}) {
        for (const Line& line : WaveLines(clip, {width, 120}, first, frames)) {
          EXPECT_TRUE(line.x1 >= 0 && line.x1 <= line.x2 && line.x2 < width);
          EXPECT_TRUE(std::min(line.y1, line.y2) >= 0 && std::max(line.y1, line.y2) < 120);
        }
      }
    }
  }
}

TEST(WaveLinesOfHostileRecords, EveryLengthOfASmallBlockInEveryShape) {
  for (const std::uint16_t bits : Numbers{0, 1, 7, 8, 9, 12, 16, 17, 24, 32, 64, 65535}) {
    for (const std::uint16_t channels : Numbers{0, 1, 2, 3, 6, 65535}) {
      for (std::size_t length = 0; length <= 33; ++length) {
        AudioClip clip = ClipOfBytes(bits, channels, std::vector<std::uint8_t>(length, 0x5A));
        for (const std::uint16_t align : Numbers{0, 65535}) {
          clip.format.nBlockAlign = align;
          ExpectLinesInside(clip);
        }
      }
    }
  }
}

TEST(WaveLinesOfHostileRecords, LongBlockThatEndsInMidFrame) {
  for (const std::uint16_t channels : Numbers{1, 2, 3}) {
    for (std::size_t length = 200'000; length < 200'013; ++length) {
      AudioClip clip = ClipOfBytes(16, channels, std::vector<std::uint8_t>(length, 0x80));
      ExpectLinesInside(clip);
      clip.format.wBitsPerSample = 24;
      ExpectLinesInside(clip);
      clip.format.wBitsPerSample = 8;
      ExpectLinesInside(clip);
    }
  }
}

TEST(WaveLinesOfHostileRecords, HugeFramesThatFitAreDrawn) {
  // Three frames of two samples of 8192 bytes.
  AudioClip clip = ClipOfBytes(65535, 2, std::vector<std::uint8_t>(49'152, 0));
  EXPECT_EQ(WaveLines(clip, {3, 232}, 0, 3).size(), 4U);
  ExpectLinesInside(clip);
}

TEST(WaveLinesOfHostileRecords, SamplesInRoomyFramesAreFoundInTheirTopBytes) {
  // 16 bits in four bytes each, two channels: the two low bytes of each are noise.
  const AudioClip packed = NoiseClip(16, 2, 50, 255, 7);
  std::vector<std::uint8_t> roomy;
  for (std::size_t i = 0; i < packed.dataSize; i += 2) {
    roomy.insert(roomy.end(), {0x5A, 0xA5, std::to_integer<std::uint8_t>(packed.Bytes()[i]),
                               std::to_integer<std::uint8_t>(packed.Bytes()[i + 1])});
  }
  AudioClip clip = ClipOfBytes(16, 2, roomy);
  clip.format.nBlockAlign = 8;
  EXPECT_EQ(WaveLines(clip, {400, 200}, 0, 50), WaveLines(packed, {400, 200}, 0, 50));
}

TEST(WaveLinesOfHostileRecords, ViewsAtTheEdgesOfTheNumbers) {
  const AudioClip clip = NoiseClip(16, 2, 100, 255, 1);
  const std::int64_t huge = std::int64_t{1} << 62;
  EXPECT_TRUE(WaveLines(clip, {600, 200}, huge, huge).empty());
  EXPECT_EQ(WaveLines(clip, {600, 200}, 0, huge).size(), 2U);
  EXPECT_TRUE(WaveLines(clip, {600, 200}, 0, -1).empty());
  EXPECT_EQ(WaveLines(clip, {600, 200}, -5, 100), WaveLines(clip, {600, 200}, 0, 100));
}

}  // namespace
}  // namespace tembrel
