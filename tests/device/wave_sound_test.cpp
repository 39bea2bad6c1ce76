// WAVE sound as the sound server gets it.
#include <gmock/gmock.h>

#include "device/WaveSound.h"
#include "tests/support/FileBytes.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/WaveBytes.h"

namespace tembrel::test {
namespace {

using ::testing::ElementsAre;

TEST(PlayableFormat, TakesWhatTheServerKnows) {
  const std::optional<SoundFormat> format = PlayableFormat(PcmFormat(11025, 8, 1));
  ASSERT_TRUE(format);
  EXPECT_EQ(format->rate, 11025U);
  EXPECT_EQ(format->FrameBytes(), 1U);
  EXPECT_EQ(PlayableFormat(PcmFormat(96000, 12, 2))->sampleBytes, 2U);
  EXPECT_EQ(PlayableFormat(PcmFormat(96000, 24, 3))->FrameBytes(), 9U);
  EXPECT_EQ(PlayableFormat(PcmFormat(384'000, 64, 32))->sampleBytes, 4U);
}

TEST(PlayableFormat, RefusesTheRest) {
  EXPECT_FALSE(PlayableFormat(PcmFormat(0, 16, 2)));
  EXPECT_FALSE(PlayableFormat(PcmFormat(384'001, 16, 2)));
  EXPECT_FALSE(PlayableFormat(PcmFormat(44100, 0, 2)));
  EXPECT_FALSE(PlayableFormat(PcmFormat(44100, 16, 0)));
  EXPECT_FALSE(PlayableFormat(PcmFormat(44100, 16, 33)));
  WaveFormat overlapping = PcmFormat(44100, 16, 2);
  overlapping.nBlockAlign = 3;
  EXPECT_FALSE(PlayableFormat(overlapping));
}

TEST(PackFrames, LeavesGapsOut) {
  WaveFormat format = PcmFormat(44100, 8, 2);
  format.nBlockAlign = 3;
  Bytes packed(4);
  PackFrames(format, BytesOf({1, 2, 99, 3, 4, 99}), packed);
  EXPECT_EQ(packed, BytesOf({1, 2, 3, 4}));
}

TEST(PackFrames, KeepsTheUpperFourBytes) {
  Bytes packed(8);
  PackFrames(PcmFormat(44100, 48, 1), BytesOf({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}), packed);
  EXPECT_EQ(packed, BytesOf({3, 4, 5, 6, 9, 10, 11, 12}));
}

TEST(FrameAtMilliseconds, IsTheNearestWithinTheSound) {
  EXPECT_EQ(FrameAtMilliseconds(1000, 11025, 20'000), 11025U);
  EXPECT_EQ(FrameAtMilliseconds(1, 44100, 20'000), 44U);
  EXPECT_EQ(FrameAtMilliseconds(5, 44100, 20'000), 221U);
  EXPECT_EQ(FrameAtMilliseconds(-1, 44100, 20'000), 0U);
  EXPECT_EQ(FrameAtMilliseconds(2'147'483'647, 384'000, 4'000'000'000), 4'000'000'000U);
}

class AFile : public testing::Test {
 protected:
  std::shared_ptr<FileSound> Open(const Bytes& bytes) {
    WriteBytes(folder / "a.wav", bytes);
    return FileSound::Open(folder / "a.wav", reason);
  }
  static Bytes Read(FileSound& sound, std::size_t most) {
    Bytes bytes(most);
    bytes.resize(sound.Read(bytes));
    return bytes;
  }

  ScratchFolder folder;
  std::string reason;
};

TEST_F(AFile, IsReadInWholeFramesUpToItsEnd) {
  const auto sound = Open(WaveFile(44100, 16, 1, Samples16({1, 2, 3, 4, 5})));
  ASSERT_NE(sound, nullptr);
  EXPECT_EQ(sound->Frames(), 5U);
  EXPECT_EQ(Read(*sound, 5), Samples16({1, 2}));
  EXPECT_EQ(Read(*sound, 100), Samples16({3, 4, 5}));
  EXPECT_EQ(Read(*sound, 100), Bytes());
}

TEST_F(AFile, IsReadWithinLimits) {
  const auto sound = Open(WaveFile(44100, 16, 1, Samples16({1, 2, 3, 4, 5})));
  sound->Limit(1, 4);
  EXPECT_EQ(Read(*sound, 2), Samples16({2}));
  sound->EndAt(3);
  EXPECT_EQ(Read(*sound, 100), Samples16({3}));
  sound->Limit(4, 100);
  EXPECT_EQ(Read(*sound, 2), Samples16({5}));
  sound->EndAt(2);
  EXPECT_EQ(Read(*sound, 2), Bytes());
  sound->Limit(100, 200);
  EXPECT_EQ(Read(*sound, 2), Bytes());
}

TEST_F(AFile, WithManyFramesThatHaveGapsIsReadInPieces) {
  Bytes record = Record(44100, 8, 1);
  Put16(record, 12, 60'000);
  Bytes data(std::size_t{3} * 60'000);
  data[0] = std::byte{1};
  data[60'000] = std::byte{2};
  data[120'000] = std::byte{3};
  const auto sound = Open(Form("WAVE", {Chunk("fmt ", record), Chunk("data", data)}));
  ASSERT_NE(sound, nullptr);
  EXPECT_EQ(Read(*sound, 100), BytesOf({1, 2, 3}));
}

TEST_F(AFile, ThatEndsBeforeItsHeaderSaysGivesWhatIsThere) {
  Bytes bytes = WaveFile(44100, 16, 1, Samples16({1, 2, 3}));
  bytes.erase(bytes.end() - 3, bytes.end());
  const auto sound = Open(bytes);
  ASSERT_NE(sound, nullptr);
  EXPECT_EQ(sound->Frames(), 1U);
  EXPECT_EQ(Read(*sound, 100), Samples16({1}));
}

TEST_F(AFile, ThatIsCutShortMeanwhileEndsThere) {
  const auto sound = Open(WaveFile(44100, 16, 1, Samples16({1, 2, 3})));
  std::filesystem::resize_file(folder / "a.wav", 44 + 3);
  EXPECT_EQ(Read(*sound, 100), Samples16({1}));
  EXPECT_EQ(Read(*sound, 100), Bytes());
}

TEST_F(AFile, ThatCannotBePlayedSaysWhy) {
  EXPECT_EQ(Open(WaveFile(44100, 16, 33, Bytes(66))), nullptr);
  EXPECT_EQ(reason, "sound of its format cannot be played");
  EXPECT_EQ(Open({}), nullptr);
  EXPECT_EQ(reason, "it is empty");
}

std::unique_ptr<AudioClip> ClipOf(const Bytes& data) {
  auto clip = std::make_unique<AudioClip>();
  clip->format = PcmFormat(44100, 8, 1);
  clip->dataSize = static_cast<std::uint32_t>(data.size());
  clip->data = *MemoryBlock::Allocate(data.size());
  std::ranges::copy(data, clip->data.Data());
  return clip;
}

TEST(AClip, EndsOrStartsAgain) {
  Bytes bytes(7);
  ClipSound once(ClipOf(BytesOf({1, 2, 3})), false);
  EXPECT_EQ(once.Read(bytes), 3U);
  EXPECT_EQ(once.Read(bytes), 0U);
  ClipSound endless(ClipOf(BytesOf({1, 2, 3})), true);
  EXPECT_EQ(endless.Read(bytes), 7U);
  EXPECT_EQ(bytes, BytesOf({1, 2, 3, 1, 2, 3, 1}));
  EXPECT_EQ(endless.Read(bytes), 7U);
  EXPECT_EQ(bytes, BytesOf({2, 3, 1, 2, 3, 1, 2}));
}

TEST(AClip, WithoutSoundEndsAtOnce) {
  Bytes bytes(7);
  ClipSound endless(ClipOf({}), true);
  EXPECT_EQ(endless.Read(bytes), 0U);
}

}  // namespace
}  // namespace tembrel::test
