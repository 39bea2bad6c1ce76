#include <sys/stat.h>

#include "audio/WaveReader.h"
#include "audio/WaveWriter.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "tests/support/Blocks.h"
#include "tests/support/FailingOutput.h"
#include "tests/support/FileBytes.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/WaveBytes.h"

namespace tembrel {
namespace {

namespace fs = std::filesystem;
using test::Bytes;
using test::BytesOf;
using test::CountingBytes;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST(WaveWrite, HasExactlyTheStatedLayout) {
  const test::ScratchFolder scratch;
  EXPECT_EQ(WriteWaveFile(BytesOf({1, 2, 3, 4}), 44100, 16, 2, scratch / "a.wav"), 1);
  EXPECT_EQ(test::ReadBytes(scratch / "a.wav"),
            BytesOf({'R', 'I', 'F', 'F', 40,  0,   0,   0,   'W',  'A',  'V', 'E', 'f',  'm',  't', ' ',
                     16,  0,   0,   0,   1,   0,   2,   0,   0x44, 0xAC, 0,   0,   0x10, 0xB1, 2,   0,
                     4,   0,   16,  0,   'd', 'a', 't', 'a', 4,    0,    0,   0,   1,    2,    3,   4}));
}

TEST(WaveWrite, PadsOddDataAndCountsThePadOutsideOnly) {
  const test::ScratchFolder scratch;
  EXPECT_TRUE(WriteWave(BytesOf({7, 8, 9}), 11025, 8, 1, scratch / "a.wav").ok);
  const Bytes file = test::ReadBytes(scratch / "a.wav");
  ASSERT_EQ(file.size(), 48U);
  EXPECT_EQ(file[4], std::byte{40});
  EXPECT_EQ(file[40], std::byte{3});
  EXPECT_EQ(file[46], std::byte{9});
  EXPECT_EQ(file[47], std::byte{0});
  EXPECT_EQ(file, test::WaveFile(11025, 8, 1, BytesOf({7, 8, 9})));
}

TEST(WaveWrite, OfNoDataIsAValidFileThatDoesNotLoad) {
  const test::ScratchFolder scratch;
  EXPECT_TRUE(WriteWave({}, 44100, 16, 2, scratch / "a.wav").ok);
  const Bytes file = test::ReadBytes(scratch / "a.wav");
  EXPECT_EQ(file.size(), 44U);
  EXPECT_EQ(file, test::WaveFile(44100, 16, 2, {}));
  EXPECT_EQ(LoadClip(scratch / "a.wav", 0, 0, 0, false).reason, "its data chunk is empty");
}

TEST(WaveWrite, AllThreeWritersWriteTheSameBytesAndTheyReadBack) {
  const test::ScratchFolder scratch;
  for (const std::uint16_t bits :
       {std::uint16_t{8}, std::uint16_t{12}, std::uint16_t{16}, std::uint16_t{24}}) {
    for (const std::uint16_t channels : {std::uint16_t{1}, std::uint16_t{2}, std::uint16_t{6}}) {
      for (const std::size_t size : {1U, 2U, 3U, 44U, 1001U}) {
        const Bytes data = CountingBytes(size);
        const Bytes expected = test::WaveFile(22050, bits, channels, data);
        EXPECT_EQ(WriteWaveFile(data, 22050, bits, channels, scratch / "a.wav"), 1);
        EXPECT_EQ(test::ReadBytes(scratch / "a.wav"), expected);
        EXPECT_TRUE(WriteWave(data, 22050, bits, channels, scratch / "b.wav").ok);
        EXPECT_EQ(test::ReadBytes(scratch / "b.wav"), expected);
        EXPECT_TRUE(SaveWaveFile(data, 22050, bits, channels, scratch / "c.wav").ok);
        EXPECT_EQ(test::ReadBytes(scratch / "c.wav"), expected);
        const LoadResult loaded = LoadClip(scratch / "c.wav", 0, 0, 0, false);
        ASSERT_TRUE(loaded.clip) << loaded.reason;
        EXPECT_EQ(loaded.clip->format, PcmFormat(22050, bits, channels));
        EXPECT_EQ(test::BytesOfBlock(loaded.clip->data, loaded.clip->dataSize), data);
      }
    }
  }
}

TEST(WaveWrite, InPlaceCutsALongerOldFile) {
  const test::ScratchFolder scratch;
  EXPECT_TRUE(WriteWave(CountingBytes(1000), 44100, 8, 1, scratch / "a.wav").ok);
  EXPECT_TRUE(WriteWave(CountingBytes(10), 44100, 8, 1, scratch / "a.wav").ok);
  EXPECT_EQ(test::ReadBytes(scratch / "a.wav"), test::WaveFile(44100, 8, 1, CountingBytes(10)));
}

TEST(WaveWrite, WriteWaveFileReportsOneWhateverHappens) {
  const test::ScratchFolder scratch;
  EXPECT_EQ(WriteWaveFile(CountingBytes(4), 44100, 8, 1, scratch / "missing" / "a.wav"), 1);
  EXPECT_EQ(WriteWaveFile(CountingBytes(4), 44100, 8, 1, scratch.Path()), 1);
  EXPECT_EQ(WriteWaveFile(CountingBytes(4), 44100, 8, 1, "/dev/full"), 1);
  EXPECT_THAT(scratch.Names(), IsEmpty());
}

TEST(WaveWrite, GivesTheSystemsReason) {
  const test::ScratchFolder scratch;
  EXPECT_EQ(WriteWave(CountingBytes(4), 44100, 8, 1, "/dev/full").reason, "No space left on device");
  for (const WriteResult& result :
       {WriteWave(CountingBytes(4), 44100, 8, 1, scratch / "missing" / "a.wav"),
        SaveWaveFile(CountingBytes(4), 44100, 8, 1, scratch / "missing" / "a.wav")}) {
    EXPECT_FALSE(result.ok);
    EXPECT_FALSE(result.cancelled);
    EXPECT_EQ(result.reason, "No such file or directory");
  }
  EXPECT_EQ(SaveWaveFile(CountingBytes(4), 44100, 8, 1, scratch.Path()).reason, "Is a directory");
}

TEST(WaveWrite, ReportsWhicheverWriteFails) {
  test::FailingOutput whole(0);
  EXPECT_TRUE(WriteWaveTo(whole, CountingBytes(3), 44100, 8, 1).ok);
  EXPECT_EQ(whole.Content(), test::WaveFile(44100, 8, 1, CountingBytes(3)));
  for (int call = 1; call <= whole.Calls(); ++call) {
    test::FailingOutput failing(call);
    const WriteResult result = WriteWaveTo(failing, CountingBytes(3), 44100, 8, 1);
    EXPECT_FALSE(result.ok) << call;
    EXPECT_FALSE(result.cancelled);
    EXPECT_EQ(result.reason, test::kInjectedReason);
    EXPECT_EQ(failing.Calls(), call) << "nothing is written after a failure";
  }
}

TEST(WaveWrite, SaysHowFarItIs) {
  const test::ScratchFolder scratch;
  const Bytes data(2 * kProgressStep + 1, std::byte{5});
  std::vector<std::uint64_t> seen;
  const Progress progress = [&](std::uint64_t done, std::uint64_t total) {
    EXPECT_EQ(total, data.size());
    seen.push_back(done);
    return true;
  };
  EXPECT_TRUE(WriteWave(data, 44100, 8, 1, scratch / "a.wav", progress).ok);
  EXPECT_EQ(seen, (std::vector<std::uint64_t>{kProgressStep, 2 * kProgressStep, data.size()}));
}

TEST(WaveSave, CancelledLeavesTheOldFileAndNoLitter) {
  const test::ScratchFolder scratch;
  test::WriteText(scratch / "song.wav", "old");
  const WriteResult result = SaveWaveFile(CountingBytes(4), 44100, 8, 1, scratch / "song.wav",
                                          [](std::uint64_t, std::uint64_t) { return false; });
  EXPECT_FALSE(result.ok);
  EXPECT_TRUE(result.cancelled);
  EXPECT_EQ(result.reason, "");
  EXPECT_EQ(test::ReadText(scratch / "song.wav"), "old");
  EXPECT_THAT(scratch.Names(), UnorderedElementsAre("song.wav"));
}

TEST(WaveSave, KeepsLinksAndPermissions) {
  const test::ScratchFolder scratch;
  test::WriteText(scratch / "real.wav", "old");
  ASSERT_EQ(chmod((scratch / "real.wav").c_str(), 0640), 0);
  fs::create_symlink("real.wav", scratch / "link.wav");
  EXPECT_TRUE(SaveWaveFile(CountingBytes(4), 44100, 8, 1, scratch / "link.wav").ok);
  EXPECT_TRUE(fs::is_symlink(scratch / "link.wav"));
  EXPECT_EQ(test::ReadBytes(scratch / "real.wav"), test::WaveFile(44100, 8, 1, CountingBytes(4)));
  EXPECT_EQ(fs::status(scratch / "real.wav").permissions(), static_cast<fs::perms>(0640));
}

TEST(WaveSave, GoesBackToTheFileItWasLoadedFrom) {
  const test::ScratchFolder scratch;
  const Bytes original = test::WaveFile(44100, 16, 2, CountingBytes(4000));
  test::WriteBytes(scratch / "song.wav", original);
  const LoadResult loaded = LoadClip(scratch / "song.wav", 0, 0, 0, false);
  ASSERT_TRUE(loaded.clip);
  EXPECT_TRUE(SaveWaveFile(loaded.clip->Bytes(), 44100, 16, 2, scratch / "song.wav").ok);
  EXPECT_EQ(test::ReadBytes(scratch / "song.wav"), original);
}

TEST(WaveSize, EndsWhereThe32BitSizesDo) {
  EXPECT_TRUE(FitsInWaveFile(0));
  EXPECT_TRUE(FitsInWaveFile(4294967258U));   // with the 36 bytes of the headers exactly 2^32 - 2
  EXPECT_FALSE(FitsInWaveFile(4294967259U));  // one more, and its pad byte
  EXPECT_FALSE(FitsInWaveFile(4294967260U));
  EXPECT_FALSE(FitsInWaveFile(0xFFFFFFFFU));
  EXPECT_FALSE(FitsInWaveFile(0x100000000U));
  EXPECT_FALSE(FitsInWaveFile(0xFFFFFFFFFFFFFFFFU));
}

TEST(WaveSize, TooMuchDataIsRefusedBeforeAnythingIsCreated) {
  const test::ScratchFolder scratch;
  const std::optional<MemoryBlock> block = MemoryBlock::Allocate(4294967259U);
  if (!block) {
    GTEST_SKIP() << "the machine does not give 4 GiB";
  }
  EXPECT_FALSE(WriteWave(block->Bytes(), 44100, 8, 1, scratch / "a.wav").ok);
  const WriteResult saved = SaveWaveFile(block->Bytes(), 44100, 8, 1, scratch / "b.wav");
  EXPECT_FALSE(saved.ok);
  EXPECT_EQ(saved.reason, "File too large: a WAVE file holds at most 4 GB");
  EXPECT_THAT(scratch.Names(), IsEmpty());
}

}  // namespace
}  // namespace tembrel
