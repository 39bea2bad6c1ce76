#include "audio/WaveReader.h"
#include "gtest/gtest.h"
#include "tests/support/Blocks.h"
#include "tests/support/FileBytes.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/WaveBytes.h"

namespace tembrel {
namespace {

using test::Bytes;
using test::BytesOf;
using test::Chunk;
using test::CountingBytes;
using test::Form;
using test::Record;
using test::Samples16;
using test::WaveFile;

class WaveRead : public testing::Test {
 protected:
  LoadResult Load(const Bytes& bytes) const {
    test::WriteBytes(path, bytes);
    return LoadClip(path, 0, 0, 0, false);
  }
  // The sound of a file that must load.
  Bytes Sound(const Bytes& bytes) const {
    const LoadResult result = Load(bytes);
    EXPECT_TRUE(result.clip) << result.reason;
    return result.clip ? test::BytesOfBlock(result.clip->data, result.clip->dataSize) : Bytes();
  }
  std::string Reason(const Bytes& bytes) const {
    const LoadResult result = Load(bytes);
    EXPECT_FALSE(result.clip);
    EXPECT_FALSE(result.cancelled);
    return result.reason;
  }

  test::ScratchFolder scratch;
  std::filesystem::path path = scratch / "song.wav";
};

TEST_F(WaveRead, GivesTheFormatAndTheDataByteForByte) {
  const Bytes data = CountingBytes(400);
  for (const std::uint32_t bits : {8U, 16U}) {
    for (const std::uint32_t channels : {1U, 2U}) {
      const LoadResult result = Load(WaveFile(22050, bits, channels, data));
      ASSERT_TRUE(result.clip) << result.reason;
      EXPECT_EQ(result.reason, "");
      EXPECT_EQ(result.clip->format,
                PcmFormat(22050, static_cast<std::uint16_t>(bits), static_cast<std::uint16_t>(channels)));
      EXPECT_EQ(result.clip->dataSize, 400U);
      EXPECT_EQ(result.clip->data.Size(), 400U);
      EXPECT_EQ(test::BytesOfBlock(result.clip->data, 400), data);
    }
  }
}

TEST_F(WaveRead, SkipsTheRestOfALongerFormatChunk) {
  Bytes record = Record(44100, 16, 2);
  test::Append16(record, 0);
  EXPECT_EQ(Sound(Form("WAVE", {Chunk("fmt ", record), Chunk("data", Samples16({1, 2}))})),
            Samples16({1, 2}));
  test::Append(record, CountingBytes(23));
  EXPECT_EQ(Sound(Form("WAVE", {Chunk("fmt ", record), Chunk("data", Samples16({1, 2}))})),
            Samples16({1, 2}));
}

TEST_F(WaveRead, SkipsChunksBeforeBetweenAndBehind) {
  const Bytes junk = Chunk("junk", CountingBytes(11));
  const Bytes list = Chunk("LIST", CountingBytes(26));
  const Bytes empty = Chunk("none", {});
  const Bytes format = Chunk("fmt ", Record(44100, 16, 2));
  const Bytes data = Chunk("data", Samples16({1, 2}));
  EXPECT_EQ(Sound(Form("WAVE", {format, list, data})), Samples16({1, 2}));
  EXPECT_EQ(Sound(Form("WAVE", {junk, empty, format, empty, list, junk, data, list})), Samples16({1, 2}));
}

TEST_F(WaveRead, TakesTheFirstOfTwoDataChunks) {
  EXPECT_EQ(Sound(Form("WAVE", {Chunk("fmt ", Record(44100, 8, 1)), Chunk("data", BytesOf({1, 2})),
                                Chunk("data", BytesOf({3, 4}))})),
            BytesOf({1, 2}));
}

TEST_F(WaveRead, FindsTheWaveFormBehindOtherChunksOfTheFile) {
  Bytes file = Chunk("head", CountingBytes(5));
  test::Append(file, Form("AVI ", {Chunk("data", CountingBytes(4))}));
  test::Append(file, WaveFile(44100, 8, 1, BytesOf({9, 8, 7})));
  EXPECT_EQ(Sound(file), BytesOf({9, 8, 7}));
}

TEST_F(WaveRead, DoesNotMindALastPadByteThatIsMissing) {
  Bytes file = WaveFile(44100, 8, 1, BytesOf({1, 2, 3}));
  file.pop_back();
  EXPECT_EQ(Sound(file), BytesOf({1, 2, 3}));
}

TEST_F(WaveRead, DoesNotMindBytesBehindTheForm) {
  Bytes file = WaveFile(44100, 8, 1, BytesOf({1, 2}));
  test::Append(file, CountingBytes(100));
  EXPECT_EQ(Sound(file), BytesOf({1, 2}));
}

TEST_F(WaveRead, DoesNotMindAnOuterSizeThatIsWrong) {
  Bytes file = WaveFile(44100, 8, 1, CountingBytes(100));
  for (const std::uint32_t size : {0xFFFFFFFFU, 0x7FFFFFFFU, 137U, 135U, 100U, 36U}) {
    test::Put32(file, 4, size);
    EXPECT_EQ(Sound(file), CountingBytes(100)) << size;
  }
}

TEST_F(WaveRead, FindsNothingBehindTheEndThatTheFormDeclares) {
  Bytes file = WaveFile(44100, 8, 1, CountingBytes(100));
  test::Put32(file, 4, 28);
  EXPECT_EQ(Reason(file), "it has no data chunk behind its format chunk");
  test::Put32(file, 4, 0);
  EXPECT_EQ(Reason(file), "it has no format chunk");
}

TEST_F(WaveRead, KeepsAFormatRecordWhoseFrameSizeDisagrees) {
  Bytes file = WaveFile(44100, 16, 2, CountingBytes(64));
  for (const std::uint32_t align : {1U, 3U, 8U, 65535U}) {
    test::Put16(file, 32, align);
    const LoadResult result = Load(file);
    ASSERT_TRUE(result.clip);
    EXPECT_EQ(result.clip->format.nBlockAlign, align);
    EXPECT_EQ(result.clip->format.wBitsPerSample, 16);
    EXPECT_EQ(result.clip->Frames(), 64 / align);
    EXPECT_FALSE(IsEditable(result.clip->format));
  }
}

TEST_F(WaveRead, KeepsBytesPerSecondAsTheyStand) {
  Bytes file = WaveFile(44100, 16, 2, CountingBytes(64));
  test::Put32(file, 28, 0);
  const LoadResult result = Load(file);
  ASSERT_TRUE(result.clip);
  EXPECT_EQ(result.clip->format.nAvgBytesPerSec, 0U);
}

TEST_F(WaveRead, LoadsOtherShapesOfPcm) {
  for (const std::uint32_t bits : {1U, 12U, 20U, 24U, 32U, 64U}) {
    for (const std::uint32_t channels : {1U, 3U, 6U, 255U}) {
      for (const std::uint32_t rate : {1U, 8000U, 37800U, 192000U, 0xFFFFFFFFU}) {
        const LoadResult result = Load(WaveFile(rate, bits, channels, CountingBytes(500)));
        ASSERT_TRUE(result.clip) << result.reason;
        EXPECT_EQ(result.clip->format.nSamplesPerSec, rate);
        EXPECT_EQ(result.clip->format.wBitsPerSample, bits);
        EXPECT_EQ(result.clip->format.nChannels, channels);
      }
    }
  }
}

TEST_F(WaveRead, LoadsSoundThatIsShorterThanAFrame) {
  const LoadResult result = Load(WaveFile(44100, 16, 2, BytesOf({1, 2, 3})));
  ASSERT_TRUE(result.clip);
  EXPECT_EQ(result.clip->dataSize, 3U);
  EXPECT_EQ(result.clip->Frames(), 0U);
}

TEST_F(WaveRead, ConvertsTheDataAndKeepsTheFilesRecord) {
  test::WriteBytes(path, WaveFile(22050, 8, 1, BytesOf({128, 130})));
  const LoadResult result = LoadClip(path, 44100, 16, 2, true);
  ASSERT_TRUE(result.clip) << result.reason;
  EXPECT_EQ(result.clip->format, PcmFormat(22050, 8, 1));
  EXPECT_EQ(test::BytesOfBlock(result.clip->data, result.clip->dataSize),
            Samples16({0, 0, 256, 256, 512, 512, 512, 512}));
}

TEST_F(WaveRead, OfTheTargetFormatConvertsNothing) {
  test::WriteBytes(path, WaveFile(22050, 16, 2, CountingBytes(7)));
  const LoadResult result = LoadClip(path, 22050, 16, 2, true);
  ASSERT_TRUE(result.clip);
  EXPECT_EQ(test::BytesOfBlock(result.clip->data, result.clip->dataSize), CountingBytes(7));
}

TEST_F(WaveRead, FailsWhenTheConversionDoes) {
  test::WriteBytes(path, WaveFile(22050, 24, 2, CountingBytes(12)));
  const LoadResult result = LoadClip(path, 22050, 16, 2, true);
  EXPECT_FALSE(result.clip);
  EXPECT_EQ(result.reason, "its sound cannot be converted to the wanted format");
}

TEST_F(WaveRead, SaysHowFarItIsAndStopsWhenTold) {
  const std::size_t size = 3 * kProgressStep + 5;
  const Bytes data(size, std::byte{3});
  test::WriteBytes(path, WaveFile(44100, 8, 1, data));
  std::vector<std::uint64_t> seen;
  const LoadResult whole = LoadClip(path, 0, 0, 0, false, [&](std::uint64_t done, std::uint64_t total) {
    EXPECT_EQ(total, size);
    seen.push_back(done);
    return true;
  });
  EXPECT_TRUE(whole.clip);
  EXPECT_EQ(seen, (std::vector<std::uint64_t>{kProgressStep, 2 * kProgressStep, 3 * kProgressStep, size}));
  int calls = 0;
  const LoadResult cancelled =
      LoadClip(path, 0, 0, 0, false, [&](std::uint64_t, std::uint64_t) { return ++calls < 2; });
  EXPECT_FALSE(cancelled.clip);
  EXPECT_TRUE(cancelled.cancelled);
  EXPECT_EQ(cancelled.reason, "");
  EXPECT_EQ(calls, 2);
}

TEST_F(WaveRead, TakesNamesOfAnyBytes) {
  for (const std::string& name :
       {std::string("with blanks .wav"), std::string("quo\"te's.wav"), std::string("\xC3\xA9t\xC3\xA9.wav"),
        std::string("\xE9\x9F\xB3\xE6\xA5\xBD.wav"), std::string("-rf.wav"), std::string("line\nend.wav"),
        std::string("not\xFFtext.wav"), std::string(255, 'n')}) {
    test::WriteBytes(scratch / name, WaveFile(44100, 8, 1, BytesOf({1, 2})));
    EXPECT_TRUE(LoadClip(scratch / name, 0, 0, 0, false).clip) << name;
    std::uint32_t frames = 0;
    EXPECT_EQ(ReadWaveInfo(scratch / name, frames), 0U);
    EXPECT_EQ(frames, 2U);
  }
}

TEST_F(WaveRead, GivesTheSystemsReasonWhenThereIsNoSuchFile) {
  EXPECT_EQ(LoadClip(scratch / "missing", 0, 0, 0, false).reason, "No such file or directory");
  EXPECT_EQ(LoadClip(scratch.Path(), 0, 0, 0, false).reason, "Is a directory");
}

TEST_F(WaveRead, InfoTellsFramesAndHundredthsFromTheHeadersAlone) {
  Bytes file = WaveFile(44100, 16, 2, {});
  test::Put32(file, 40, 176400);
  test::WriteBytes(path, file);
  std::uint32_t frames = 1;
  EXPECT_EQ(ReadWaveInfo(path, frames), 100U);
  EXPECT_EQ(frames, 44100U);
}

TEST_F(WaveRead, InfoKeepsTheWrappingProductAndTheRecordsFrameSize) {
  Bytes file = WaveFile(1, 8, 1, {});
  test::Put32(file, 40, 42949673);
  test::WriteBytes(path, file);
  std::uint32_t frames = 0;
  EXPECT_EQ(ReadWaveInfo(path, frames), 4U);
  EXPECT_EQ(frames, 42949673U);
  test::Put32(file, 40, 1000);
  test::Put16(file, 32, 3);
  test::WriteBytes(path, file);
  EXPECT_EQ(ReadWaveInfo(path, frames), 33333U);
  EXPECT_EQ(frames, 333U);
}

TEST_F(WaveRead, InfoOfAnEmptyDataChunkIsNoLength) {
  test::WriteBytes(path, WaveFile(44100, 16, 2, {}));
  std::uint32_t frames = 7;
  EXPECT_EQ(ReadWaveInfo(path, frames), 0U);
  EXPECT_EQ(frames, 0U);
}

TEST_F(WaveRead, InfoReadsLongerFormatChunksByTheLow16BitsOfTheirSize) {
  Bytes record = Record(44100, 16, 2);
  test::Append(record, CountingBytes(0x10000));
  std::uint32_t frames = 0;
  test::WriteBytes(path, Form("WAVE", {Chunk("fmt ", record), Chunk("data", CountingBytes(400))}));
  EXPECT_EQ(ReadWaveInfo(path, frames), 0U);
  EXPECT_EQ(frames, 100U);
  record.resize(0x10000 + 8);  // the low bits say 8, which is no whole record
  test::WriteBytes(path, Form("WAVE", {Chunk("fmt ", record), Chunk("data", CountingBytes(400))}));
  EXPECT_EQ(ReadWaveInfo(path, frames), kNoDuration);
  EXPECT_EQ(frames, 0U);
  EXPECT_TRUE(LoadClip(path, 0, 0, 0, false).clip);
}

TEST_F(WaveRead, InfoOfNoFileIsAllBitsSet) {
  std::uint32_t frames = 7;
  EXPECT_EQ(ReadWaveInfo(scratch / "missing", frames), 0xFFFFFFFFU);
  EXPECT_EQ(frames, 0U);
}

}  // namespace
}  // namespace tembrel
