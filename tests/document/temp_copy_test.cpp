#include <algorithm>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "document/TempCopy.h"
#include "document/TempName.h"
#include "platform/FileLock.h"
#include "tests/document/EditFixture.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel {
namespace {

using test::Bytes;

const WaveFormat kMono8 = PcmFormat(22050, 8, 1);

ino_t InodeOf(const std::filesystem::path& path) {
  struct stat info {};
  stat(path.c_str(), &info);
  return info.st_ino;
}

class TempCopyUpdate : public test::EditTest {
 protected:
  TempCopyUpdate() { copy->Write(clip); }

  void SetLength(std::size_t size) {
    clip.data = std::move(test::ClipOf(kMono8, test::CountingBytes(size)).data);
    clip.dataSize = static_cast<std::uint32_t>(size);
  }
  bool UpToDate() const {
    const std::filesystem::path fresh = scratch.Path() / "fresh.wav";
    WriteWaveFile(clip.Bytes(), clip.format.nSamplesPerSec, clip.format.wBitsPerSample, clip.format.nChannels,
                  fresh);
    return test::ReadBytes(copy->Path()) == test::ReadBytes(fresh);
  }

  AudioClip clip = test::ClipOf(kMono8, test::CountingBytes(100));
  std::optional<TempCopy> copy = TempCopy::Create(paths, 1);
};

TEST(TempNames, AreTheFirstThatNothingHas) {
  const test::ScratchFolder folder;
  std::filesystem::create_directory(folder / "temp3.wav");
  std::filesystem::create_symlink("nowhere", folder / "temp4.wav");
  const std::optional<TempName> second = TakeTempName(folder.Path(), 2);
  const std::optional<TempName> next = TakeTempName(folder.Path(), 2);
  ASSERT_TRUE(second && next);
  EXPECT_EQ(second->path, folder / "temp2.wav");
  EXPECT_EQ(next->path, folder / "temp5.wav");
  EXPECT_FALSE(FileLock::TryLock(next->path));
  EXPECT_FALSE(std::filesystem::exists(folder / "nowhere"));
  EXPECT_FALSE(TakeTempName(folder / "nowhere", 1));
}

TEST_F(TempCopyUpdate, WritesOnlyTheChangedBytes) {
  clip.Bytes()[10] = std::byte{200};
  clip.Bytes()[50] = std::byte{201};  // not told, so not written
  ClipChanges changes;
  changes.AddOverwrite({10, 11});
  EXPECT_EQ(copy->Update(clip, changes), TempCopy::Result::Written);
  const Bytes file = test::ReadBytes(copy->Path());
  EXPECT_EQ(file.at(44 + 10), std::byte{200});
  EXPECT_NE(file.at(44 + 50), std::byte{201});
}

TEST_F(TempCopyUpdate, TellsHowFarItIsAndIsNotStopped) {
  SetLength(5U << 20U);
  for (const bool all : {true, false}) {
    clip.Bytes()[77] = std::byte{200};
    ClipChanges changes;
    changes.AddOverwrite({0, 5 << 20});
    if (all) {
      changes.AddAll();
    }
    std::vector<double> told;
    const auto result = copy->Update(clip, changes, [&told](std::uint64_t done, std::uint64_t total) {
      told.push_back(static_cast<double>(done) / static_cast<double>(total));
      return false;
    });
    EXPECT_EQ(result, TempCopy::Result::Written);
    EXPECT_TRUE(UpToDate());
    ASSERT_FALSE(told.empty());
    EXPECT_TRUE(std::ranges::is_sorted(told));
    EXPECT_EQ(told.back(), 1.0);
    EXPECT_GE(told.size(), all ? 1U : 5U);
  }
}

TEST_F(TempCopyUpdate, FollowsEveryLength) {
  for (const std::size_t size : {100U, 101U, 102U, 57U, 56U, 1U, 0U, 3U, 1000U}) {
    SetLength(size);
    ClipChanges changes;
    changes.AddOverwrite({0, 2000});
    changes.AddShift(static_cast<std::int64_t>(size / 2));
    EXPECT_EQ(copy->Update(clip, changes), TempCopy::Result::Written);
    EXPECT_TRUE(UpToDate()) << size;
  }
}

TEST_F(TempCopyUpdate, OfTheFormatWritesAll) {
  clip.format = PcmFormat(44100, 16, 2);
  ClipChanges changes;
  changes.AddAll();
  EXPECT_EQ(copy->Update(clip, changes), TempCopy::Result::Written);
  EXPECT_TRUE(UpToDate());
}

TEST_F(TempCopyUpdate, KeepsTheFileAndItsLock) {
  const ino_t inode = InodeOf(copy->Path());
  SetLength(300);
  ClipChanges shift;
  shift.AddShift(100);
  copy->Update(clip, shift);
  ClipChanges all;
  all.AddAll();
  copy->Update(clip, all);
  EXPECT_EQ(InodeOf(copy->Path()), inode);
  EXPECT_FALSE(FileLock::TryLock(copy->Path()));
}

TEST_F(TempCopyUpdate, WritesAllAfterAFailure) {
  const std::filesystem::path aside = scratch.Path() / "aside.wav";
  std::filesystem::rename(copy->Path(), aside);
  clip.Bytes()[10] = std::byte{200};
  ClipChanges changes;
  changes.AddOverwrite({10, 11});
  EXPECT_EQ(copy->Update(clip, changes), TempCopy::Result::Failed);
  std::filesystem::rename(aside, copy->Path());
  EXPECT_FALSE(UpToDate());
  EXPECT_EQ(copy->Update(clip, {}), TempCopy::Result::Written);
  EXPECT_TRUE(UpToDate());
}

TEST_F(TempCopyUpdate, WithoutChangesTouchesNothing) {
  const auto before = std::filesystem::last_write_time(copy->Path());
  clip.Bytes()[10] = std::byte{200};
  EXPECT_EQ(copy->Update(clip, {}), TempCopy::Result::Written);
  EXPECT_EQ(std::filesystem::last_write_time(copy->Path()), before);
  EXPECT_FALSE(UpToDate());
}

TEST_F(TempCopyUpdate, TakesNoNameThatALinkHasEvenIfItLeadsNowhere) {
  const std::filesystem::path elsewhere = scratch.Path() / "elsewhere.wav";
  std::filesystem::create_symlink(elsewhere, paths.TempWavePath(2));
  const std::optional<TempCopy> second = TempCopy::Create(paths, 2);
  ASSERT_TRUE(second);
  EXPECT_EQ(second->Path(), paths.TempWavePath(3));
  EXPECT_FALSE(std::filesystem::exists(elsewhere));
  EXPECT_TRUE(std::filesystem::is_symlink(paths.TempWavePath(2)));
}

}  // namespace
}  // namespace tembrel
