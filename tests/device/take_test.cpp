// A recording on its way to the disk.
#include "device/Take.h"

#include <csignal>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include "audio/WaveReader.h"
#include "device/DeviceErrors.h"
#include "document/Recovery.h"
#include "tests/support/Eventually.h"
#include "tests/support/FileBytes.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/WaveBytes.h"

namespace tembrel::test {
namespace {

using ::testing::IsEmpty;

constexpr FormatChoice kSmall{11025, 8, 1};
constexpr std::size_t kSecond = 11025;

class ATake : public testing::Test {
 protected:
  std::unique_ptr<Take> Begin(const FormatChoice& format = kSmall, std::uint64_t most = kMostTakeBytes) {
    return Take::Begin(temp.Path(), format, reason, most);
  }
  Bytes Sound(const std::filesystem::path& path) {
    const LoadResult loaded = LoadClip(path, 0, 0, 0, false);
    EXPECT_EQ(loaded.reason, "");
    return loaded.clip == nullptr ? Bytes() : Bytes(loaded.clip->Bytes().begin(), loaded.clip->Bytes().end());
  }
  std::filesystem::path First() const { return temp / "temp1.wav"; }

  ScratchFolder temp;
  ScratchFolder home;
  std::string reason;
};

TEST_F(ATake, HoldsWhatWasPushedInOrder) {
  const std::unique_ptr<Take> take = Begin();
  ASSERT_NE(take, nullptr);
  const Bytes data = CountingBytes(5 * kSecond + 1);
  for (std::size_t i = 0; i < data.size(); i += 441) {
    take->Push(std::span(data).subspan(i, std::min<std::size_t>(441, data.size() - i)));
  }
  take->Finish();
  EXPECT_EQ(take->Ask().milliseconds, 5000);
  ASSERT_TRUE(take->MoveTo(home / "take.WAV", {}, reason)) << reason;
  EXPECT_EQ(ReadBytes(home / "take.WAV"), WaveFile(11025, 8, 1, data));
  EXPECT_THAT(temp.Names(), IsEmpty());
}

TEST_F(ATake, TakesNothingAfterItsEnd) {
  const std::unique_ptr<Take> take = Begin();
  take->Push(BytesOf({1, 2}));
  take->Finish();
  take->Push(BytesOf({3, 4}));
  take->Finish();
  EXPECT_EQ(Sound(First()), BytesOf({1, 2}));
}

TEST_F(ATake, IsOnTheDiskWhileItGoesOn) {
  const std::unique_ptr<Take> take = Begin();
  EXPECT_FALSE(std::filesystem::exists(temp / "temp1.txt"));
  const Bytes data = CountingBytes(3 * kSecond);
  take->Push(data);
  EXPECT_TRUE(Eventually([&] { return std::filesystem::exists(temp / "temp1.txt"); }));
  EXPECT_EQ(Sound(First()), data);
  EXPECT_THAT(FindAbandonedCopies(temp.Path()), IsEmpty());
}

TEST_F(ATake, OfAProgramThatIsKilledIsRecovered) {
  const pid_t child = fork();
  if (child == 0) {
    const std::unique_ptr<Take> take = Begin();
    take->Push(CountingBytes(3 * kSecond));
    Eventually([&] { return std::filesystem::exists(temp / "temp1.txt"); });
    raise(SIGKILL);
  }
  ASSERT_GT(child, 0);
  waitpid(child, nullptr, 0);
  std::vector<AbandonedCopy> copies = FindAbandonedCopies(temp.Path());
  ASSERT_EQ(copies.size(), 1U);
  EXPECT_EQ(copies[0].documentName, "");
  Document document(PathsBelow(home.Path()), 7);
  EXPECT_TRUE(RecoverCopy(std::move(copies[0]), document).recovered);
  EXPECT_EQ(document.FrameCount(), 3 * kSecond);
}

TEST_F(ATake, ThatIsLeftBehindIsFoundAgain) {
  Begin()->Push(BytesOf({1, 2, 3, 4}));
  EXPECT_EQ(FindAbandonedCopies(temp.Path()).size(), 1U);
}

TEST_F(ATake, WithoutSoundIsNotOfferedForRecovery) {
  Begin();
  EXPECT_THAT(FindAbandonedCopies(temp.Path()), IsEmpty());
  EXPECT_THAT(temp.Names(), IsEmpty());
}

TEST_F(ATake, KeepsOutOfTheWayOfDocuments) {
  WriteText(temp / "temp1.wav", "a document's");
  const std::unique_ptr<Take> first = Begin();
  const std::unique_ptr<Take> second = Begin();
  EXPECT_EQ(ReadText(temp / "temp1.wav"), "a document's");
  EXPECT_TRUE(std::filesystem::exists(temp / "temp2.wav"));
  EXPECT_TRUE(std::filesystem::exists(temp / "temp3.wav"));
}

TEST_F(ATake, StopsAtTheLargestSize) {
  const std::unique_ptr<Take> take = Begin({11025, 16, 1}, 100);
  take->Push(CountingBytes(90));
  EXPECT_EQ(take->Ask().failure, kDeviceSuccess);
  take->Push(CountingBytes(30));
  EXPECT_EQ(take->Ask().failure, kTakeTooLong);
  take->Push(CountingBytes(30));
  take->Finish();
  EXPECT_EQ(Sound(First()).size(), 100U);
}

TEST_F(ATake, TheLargestSizeFitsInAWaveFile) {
  EXPECT_EQ(kMostTakeBytes % 4, 0U);
  EXPECT_LE(kMostTakeBytes + 36, 0xFFFFFFFFU);
  EXPECT_GT(kMostTakeBytes + 36, 0xFFFFFF00U);
}

TEST_F(ATake, AFullDiskLeavesWholeFrames) {
  for (const FormatChoice& format : {kSmall, FormatChoice{44100, 16, 2}}) {
    const FileSizeLimit limit(44 + 10'003);
    const std::unique_ptr<Take> take = Begin(format);
    take->Push(CountingBytes(8'000));
    take->Push(CountingBytes(8'000));
    take->Finish();
    EXPECT_EQ(take->Ask().failure, kTakeNotWritten);
    EXPECT_EQ(take->FailureReason(), "File too large");
    const std::size_t size = Sound(First()).size();
    EXPECT_EQ(size, format.bits == 8 ? 10'002U : 10'000U);
    const std::size_t frameSize = std::size_t{format.bits} / 8 * format.channels;
    EXPECT_EQ(take->Ask().milliseconds, static_cast<std::int64_t>(size / frameSize * 1000 / format.rate));
    take->Remove();
  }
}

TEST_F(ATake, KeepsItsFirstFailure) {
  const std::unique_ptr<Take> take = Begin();
  take->Push(BytesOf({1, 2}));
  take->Fail(kServerLost);
  take->Fail(kTakeNotWritten, "later");
  take->Push(BytesOf({3, 4}));
  take->Finish();
  EXPECT_EQ(take->Failure(), kServerLost);
  EXPECT_EQ(take->FailureReason(), "");
  EXPECT_EQ(Sound(First()), BytesOf({1, 2}));
}

TEST_F(ATake, LevelsStartAnewWithEveryQuestion) {
  const std::unique_ptr<Take> take = Begin({44100, 16, 2});
  take->Push(Samples16({-16384, 100, 8192, -8192}));
  RecordingState state = take->Ask();
  EXPECT_EQ(state.peakLeft, 0.5);
  EXPECT_EQ(state.peakRight, 0.25);
  EXPECT_FALSE(state.clipped);
  EXPECT_EQ(take->Ask().peakLeft, 0.0);
  take->Push(Samples16({32767, 0}));
  EXPECT_TRUE(take->Ask().clipped);
  EXPECT_FALSE(take->Ask().clipped);
}

TEST_F(ATake, ARemovedTakeLeavesNothing) {
  const std::unique_ptr<Take> take = Begin();
  take->Push(CountingBytes(kSecond));
  take->Finish();
  take->Remove();
  EXPECT_THAT(temp.Names(), IsEmpty());
}

TEST_F(ATake, WithoutAFolderSaysWhy) {
  EXPECT_EQ(Take::Begin(temp / "nowhere", kSmall, reason), nullptr);
  EXPECT_EQ(reason, "No such file or directory");
}

TEST_F(ATake, ANameThatIsTakenStaysAndTheTakeToo) {
  const std::unique_ptr<Take> take = Begin();
  take->Push(BytesOf({1, 2}));
  take->Finish();
  WriteText(home / "take.WAV", "old");
  EXPECT_FALSE(take->MoveTo(home / "take.WAV", {}, reason));
  EXPECT_EQ(reason, "File exists");
  EXPECT_EQ(ReadText(home / "take.WAV"), "old");
  EXPECT_EQ(Sound(First()), BytesOf({1, 2}));
}

}  // namespace
}  // namespace tembrel::test
