#include "audio/WaveReader.h"
#include "audio/WaveSalvage.h"
#include "gtest/gtest.h"
#include "tests/support/Blocks.h"
#include "tests/support/FileBytes.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/WaveBytes.h"

namespace tembrel {
namespace {

using test::Bytes;
using test::CountingBytes;
using test::WaveFile;

constexpr std::size_t kDataStart = 44;

class WaveSalvage : public testing::Test {
 protected:
  SalvageResult Salvage(const Bytes& bytes, const Progress& progress = {}) const {
    test::WriteBytes(path, bytes);
    return SalvageClip(path, progress);
  }
  static Bytes Sound(const SalvageResult& result) {
    EXPECT_TRUE(result.clip) << result.reason;
    return result.clip ? test::BytesOfBlock(result.clip->data, result.clip->dataSize) : Bytes();
  }
  static Bytes First(Bytes bytes, std::size_t count) {
    bytes.resize(count);
    return bytes;
  }

  test::ScratchFolder scratch;
  std::filesystem::path path = scratch / "temp1.wav";
  Bytes sound = CountingBytes(400);
  Bytes whole = WaveFile(22050, 16, 2, sound);
};

TEST_F(WaveSalvage, OfAWholeFileIsWhatLoadingGives) {
  for (const std::uint32_t bits : {8U, 16U, 24U}) {
    const SalvageResult result = Salvage(WaveFile(22050, bits, 1, CountingBytes(63)));
    const LoadResult loaded = LoadClip(path, 0, 0, 0, false);
    EXPECT_EQ(Sound(result), CountingBytes(63));
    EXPECT_EQ(result.clip->format, loaded.clip->format);
    EXPECT_FALSE(result.cutShort);
  }
}

TEST_F(WaveSalvage, TakesTheWholeFramesOfDataThatEndTooEarly) {
  for (const std::size_t left : {399U, 398U, 397U, 396U}) {
    const SalvageResult result = Salvage(First(whole, kDataStart + left));
    EXPECT_EQ(Sound(result), First(sound, 396));
    EXPECT_TRUE(result.cutShort);
  }
}

TEST_F(WaveSalvage, TakesDataWhoseSizesWereNeverFilledIn) {
  test::Put32(whole, 4, 0);
  test::Put32(whole, 40, 0);
  const SalvageResult result = Salvage(First(whole, kDataStart + 202));
  EXPECT_EQ(Sound(result), First(sound, 200));
  EXPECT_TRUE(result.cutShort);
}

TEST_F(WaveSalvage, LeavesWhatStandsBehindTheDataAlone) {
  test::Put32(whole, 40, 100);
  const SalvageResult result = Salvage(whole);
  EXPECT_EQ(Sound(result), First(sound, 100));
  EXPECT_FALSE(result.cutShort);
}

TEST_F(WaveSalvage, DoesNotBelieveASizeThatNoFileHas) {
  test::Put32(whole, 40, 0xFFFFFFFF);
  EXPECT_EQ(Sound(Salvage(whole)), sound);
}

TEST_F(WaveSalvage, RefusesEveryFileThatEndsBeforeTheFirstFrame) {
  for (std::size_t size = 0; size < kDataStart + 4; ++size) {
    const SalvageResult result = Salvage(First(whole, size));
    EXPECT_FALSE(result.clip) << size;
    EXPECT_NE(result.reason, "") << size;
    EXPECT_FALSE(result.outOfMemory);
  }
}

TEST_F(WaveSalvage, RefusesHeadersThatTheWriterDoesNotWrite) {
  for (const std::size_t offset : {0U, 8U, 12U, 16U, 20U, 36U}) {
    Bytes bytes = whole;
    bytes[offset] ^= std::byte{0x20};
    EXPECT_FALSE(Salvage(bytes).clip) << offset;
  }
  for (const std::size_t field : {22U, 32U, 34U}) {
    Bytes bytes = whole;
    test::Put16(bytes, field, 0);
    EXPECT_FALSE(Salvage(bytes).clip) << field;
  }
}

TEST_F(WaveSalvage, OfAMissingFileNamesTheSystemsReason) {
  const SalvageResult result = SalvageClip(scratch / "missing.wav");
  EXPECT_FALSE(result.clip);
  EXPECT_EQ(result.reason, "No such file or directory");
}

TEST_F(WaveSalvage, ReportsProgressAndCanBeCancelled) {
  std::uint64_t last = 0;
  EXPECT_TRUE(Salvage(whole, [&last](std::uint64_t done, std::uint64_t) {
                last = done;
                return true;
              }).clip);
  EXPECT_EQ(last, sound.size());
  const SalvageResult result = Salvage(whole, [](std::uint64_t, std::uint64_t) { return false; });
  EXPECT_TRUE(result.cancelled);
  EXPECT_FALSE(result.clip);
  EXPECT_EQ(result.reason, "");
}

}  // namespace
}  // namespace tembrel
