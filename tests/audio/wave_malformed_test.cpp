#include <filesystem>
#include <optional>
#include <random>

#include "audio/Riff.h"
#include "audio/WaveReader.h"
#include "gtest/gtest.h"
#include "tests/support/BytesRead.h"
#include "tests/support/FileBytes.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/WaveBytes.h"

namespace tembrel {
namespace {

using test::Bytes;
using test::Chunk;
using test::CountingBytes;
using test::Form;
using test::Record;
using test::WaveFile;

class WaveMalformed : public testing::Test {
 protected:
  std::string Reason(const Bytes& bytes) const {
    test::WriteBytes(path, bytes);
    return ReasonOfFile();
  }
  std::string ReasonOfFile() const {
    const LoadResult result = LoadClip(path, 44100, 16, 2, false);
    EXPECT_FALSE(result.clip);
    EXPECT_FALSE(result.cancelled);
    EXPECT_NE(result.reason, "");
    return result.reason;
  }
  std::string ReasonBothReaders(const Bytes& bytes) const {
    test::WriteBytes(path, bytes);
    return ReasonOfFileBothReaders();
  }
  std::string ReasonOfFileBothReaders() const {
    std::string reason = ReasonOfFile();
    std::uint32_t frames = 1;
    EXPECT_EQ(ReadWaveInfo(path, frames), kNoDuration) << reason;
    EXPECT_EQ(frames, 0U);
    return reason;
  }
  // The file that is there is given up on after reading at most so many bytes of it, by both readers
  // together.
  void ExpectGivenUpOn(const std::string& reason, std::uint64_t most) const {
    const std::optional<std::uint64_t> before = test::BytesRead();
    EXPECT_EQ(ReasonOfFileBothReaders(), reason);
    const std::optional<std::uint64_t> after = test::BytesRead();
    ASSERT_TRUE(before && after) << "the system does not count what is read";
    EXPECT_GT(*after, *before);
    EXPECT_LE(*after - *before, most);
  }
  // Whatever the readers make of the file, they give no sound that is not in it.
  void CheckHarmless(const Bytes& bytes) const {
    test::WriteBytes(path, bytes);
    const LoadResult result = LoadClip(path, 44100, 16, 2, false);
    EXPECT_NE(static_cast<bool>(result.clip), !result.reason.empty());
    if (result.clip) {
      EXPECT_LE(result.clip->data.Size(), bytes.size());
      EXPECT_EQ(result.clip->dataSize, result.clip->data.Size());
      EXPECT_GT(result.clip->format.nBlockAlign, 0);
    }
    const LoadResult converted = LoadClip(path, 44100, 16, 2, true);
    EXPECT_TRUE(!converted.clip || converted.clip->dataSize <= converted.clip->data.Size());
    std::uint32_t frames = 0;
    EXPECT_TRUE(ReadWaveInfo(path, frames) != kNoDuration || frames == 0);
  }

  test::ScratchFolder scratch;
  std::filesystem::path path = scratch / "bad.wav";
};

TEST_F(WaveMalformed, EmptyFilesAndNonsenseAreRefused) {
  EXPECT_EQ(ReasonBothReaders({}), "it is empty");
  EXPECT_EQ(ReasonBothReaders(test::BytesOf({'R', 'I', 'F'})), "it is not a RIFF WAVE file");
  EXPECT_EQ(ReasonBothReaders(CountingBytes(1000)), "it is not a RIFF WAVE file");
  EXPECT_EQ(ReasonBothReaders(Bytes(100000, std::byte{0})), "it is not a RIFF WAVE file");
  EXPECT_EQ(ReasonBothReaders(Bytes(100000, std::byte{0xFF})), "it is not a RIFF WAVE file");
}

TEST_F(WaveMalformed, OtherKindsOfRiffAreRefusedByName) {
  EXPECT_EQ(
      ReasonBothReaders(Form("AVI ", {Chunk("fmt ", Record(44100, 16, 2)), Chunk("data", CountingBytes(4))})),
      "it is a RIFF file but not a WAVE file");
  Bytes file = WaveFile(44100, 16, 2, CountingBytes(8));
  test::Put32(file, 0, FourCc("RIFX"));
  EXPECT_EQ(ReasonBothReaders(file), "it is a WAVE file of the big-endian kind (RIFX)");
  test::Put32(file, 0, FourCc("RF64"));
  EXPECT_EQ(ReasonBothReaders(file), "it is a WAVE file of the 64-bit kind (RF64)");
}

TEST_F(WaveMalformed, SoundThatIsNotIntegerPcmIsRefusedByItsFormat) {
  const auto withTag = [](std::uint32_t tag) {
    return Form("WAVE", {Chunk("fmt ", Record(44100, 16, 2, tag)), Chunk("data", CountingBytes(8))});
  };
  EXPECT_EQ(ReasonBothReaders(withTag(3)), "its samples are floating-point numbers (format 3)");
  EXPECT_EQ(ReasonBothReaders(withTag(0xFFFE)), "its format record is of the extensible kind (format 65534)");
  EXPECT_EQ(ReasonBothReaders(withTag(2)), "its sound is compressed (format 2)");
  EXPECT_EQ(ReasonBothReaders(withTag(0)), "its sound is compressed (format 0)");
  EXPECT_EQ(ReasonBothReaders(withTag(0x55)), "its sound is compressed (format 85)");
}

TEST_F(WaveMalformed, ZerosThatWouldBeDividedByAreRefused) {
  const Bytes good = WaveFile(44100, 16, 2, CountingBytes(8));
  Bytes file = good;
  test::Put16(file, 22, 0);
  EXPECT_EQ(ReasonBothReaders(file), "its format record says it has no channels");
  file = good;
  test::Put32(file, 24, 0);
  EXPECT_EQ(ReasonBothReaders(file), "its format record says its sample rate is 0");
  file = good;
  test::Put16(file, 32, 0);
  EXPECT_EQ(ReasonBothReaders(file), "its format record says its frames have no bytes");
  file = good;
  test::Put16(file, 34, 0);
  EXPECT_EQ(ReasonBothReaders(file), "its format record says its samples have no bits");
}

TEST_F(WaveMalformed, AnEmptyDataChunkIsRefused) {
  EXPECT_EQ(Reason(WaveFile(44100, 16, 2, {})), "its data chunk is empty");
}

TEST_F(WaveMalformed, MissingChunksAreRefused) {
  const Bytes format = Chunk("fmt ", Record(44100, 16, 2));
  const Bytes data = Chunk("data", CountingBytes(8));
  EXPECT_EQ(ReasonBothReaders(Form("WAVE", {})), "it has no format chunk");
  EXPECT_EQ(ReasonBothReaders(Form("WAVE", {data})), "it has no format chunk");
  EXPECT_EQ(ReasonBothReaders(Form("WAVE", {format})), "it has no data chunk behind its format chunk");
  EXPECT_EQ(ReasonBothReaders(Form("WAVE", {data, format})), "it has no data chunk behind its format chunk");
  EXPECT_EQ(ReasonBothReaders(Form("WAVE", {Chunk("FMT ", Record(44100, 16, 2)), data})),
            "it has no format chunk");
}

TEST_F(WaveMalformed, AFormatChunkShorterThanItsRecordIsRefused) {
  const Bytes record = Record(44100, 16, 2);
  for (std::size_t size = 0; size < 16; ++size) {
    const Bytes part(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(size));
    EXPECT_EQ(ReasonBothReaders(Form("WAVE", {Chunk("fmt ", part), Chunk("data", CountingBytes(64))})),
              "its format chunk is too short");
  }
}

TEST_F(WaveMalformed, AFormatChunkThatPassesTheEndOfTheFileIsRefused) {
  Bytes file = WaveFile(44100, 16, 2, CountingBytes(8));
  for (const std::uint32_t size : {100U, 0x10010U, 0x7FFFFFFFU, 0xFFFFFFFFU, 0xFFFFFFF0U}) {
    test::Put32(file, 16, size);
    Reason(file);
    std::uint32_t frames = 0;
    EXPECT_EQ(ReadWaveInfo(path, frames), kNoDuration);
  }
}

TEST_F(WaveMalformed, ADataChunkThatPassesTheEndOfTheFileIsRefused) {
  Bytes file = WaveFile(44100, 16, 2, CountingBytes(8));
  for (const std::uint32_t size : {9U, 10U, 0x10000U, 0x7FFFFFFFU, 0xFFFFFFFEU, 0xFFFFFFFFU}) {
    test::Put32(file, 40, size);
    EXPECT_EQ(Reason(file), "it ends before its data chunk does") << size;
  }
}

TEST_F(WaveMalformed, AFileCutOffAnywhereIsRefused) {
  const Bytes whole = Form("WAVE", {Chunk("LIST", CountingBytes(5)), Chunk("fmt ", Record(44100, 16, 2)),
                                    Chunk("fact", CountingBytes(4)), Chunk("data", CountingBytes(20))});
  for (std::size_t length = 0; length < whole.size(); ++length) {
    const Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
    Reason(part);
    CheckHarmless(part);
  }
  test::WriteBytes(path, whole);
  EXPECT_TRUE(LoadClip(path, 0, 0, 0, false).clip);
}

TEST_F(WaveMalformed, EveryHeaderByteMayHoldAnything) {
  const Bytes good = WaveFile(44100, 16, 2, CountingBytes(20));
  for (std::size_t offset = 0; offset < 44; ++offset) {
    for (const int value : {0, 1, 2, 3, 0x20, 0x7F, 0x80, 0xFE, 0xFF}) {
      Bytes file = good;
      file[offset] = static_cast<std::byte>(value);
      CheckHarmless(file);
    }
  }
}

TEST_F(WaveMalformed, EveryChunkNameMayBeWrong) {
  const Bytes good = WaveFile(44100, 16, 2, CountingBytes(20));
  for (const std::size_t offset : {0U, 8U, 12U, 36U}) {
    Bytes file = good;
    file[offset] = std::byte{'x'};
    ReasonBothReaders(file);
  }
}

TEST_F(WaveMalformed, EverySizeFieldMayBeWrong) {
  const Bytes good = WaveFile(44100, 16, 2, CountingBytes(20));
  for (const std::size_t offset : {4U, 16U, 40U}) {
    for (std::uint32_t bit = 0; bit < 32; ++bit) {
      for (const std::uint32_t value : {1U << bit, (1U << bit) - 1, ~(1U << bit), 0U - (1U << bit)}) {
        Bytes file = good;
        test::Put32(file, offset, value);
        CheckHarmless(file);
      }
    }
  }
}

TEST_F(WaveMalformed, FlippedBitsAreHarmless) {
  const Bytes good = Form("WAVE", {Chunk("LIST", CountingBytes(5)), Chunk("fmt ", Record(11025, 8, 2)),
                                   Chunk("fact", CountingBytes(4)), Chunk("data", CountingBytes(30))});
  std::mt19937 random(20260101);
  for (int round = 0; round < 4000; ++round) {
    Bytes file = good;
    const unsigned flips = 1 + random() % 8;
    for (unsigned i = 0; i < flips; ++i) {
      file[random() % file.size()] ^= static_cast<std::byte>(1U << random() % 8);
    }
    if (random() % 4 == 0) {
      file.resize(random() % (file.size() + 1));
    }
    CheckHarmless(file);
  }
}

TEST_F(WaveMalformed, ChunksWithoutEndAreGivenUpOnSoon) {
  // 64 MiB of chunks of no length, before the form and inside it.
  const std::size_t size = std::size_t{64} << 20U;
  Bytes chunks;
  chunks.reserve(size);
  while (chunks.size() < size) {
    test::AppendText(chunks, "AAAA");
    test::Append32(chunks, 0);
  }
  test::WriteBytes(path, chunks);
  ExpectGivenUpOn("it is not a RIFF WAVE file", size / 2);
  test::WriteBytes(path, Form("WAVE", {chunks}));
  ExpectGivenUpOn("it has no format chunk", size / 2);
}

TEST_F(WaveMalformed, AHugeSparseFileIsNotReadThrough) {
  // 100 GB that hold nothing but a form whose data chunk is not there.
  test::WriteBytes(path, Form("WAVE", {Chunk("fmt ", Record(44100, 16, 2))}));
  std::error_code error;
  std::filesystem::resize_file(path, std::uintmax_t{100} << 30U, error);
  if (error) {
    GTEST_SKIP() << error.message();
  }
  ExpectGivenUpOn("it has no data chunk behind its format chunk", 200'000);
}

}  // namespace
}  // namespace tembrel
