#include <algorithm>
#include <gmock/gmock.h>
#include <limits>

#include "audio/WaveWriter.h"
#include "edit/ClipEditor.h"
#include "tests/edit/EditSession.h"
#include "tests/support/WaveBytes.h"

namespace tembrel {
namespace {

using test::BytesOf;
using test::EditSession;

const WaveFormat kMono8 = PcmFormat(22050, 8, 1);
constexpr std::uint64_t kHuge = std::numeric_limits<std::uint64_t>::max();

class ClipEditing : public ::testing::Test {
 protected:
  EditSession session{kMono8, BytesOf({1, 2, 3, 4, 5})};
  ClipEditor editor{session.clip, session.undo, session.memory};
};

TEST_F(ClipEditing, GivesBytesWithTheirValues) {
  const auto bytes = editor.Overwrite(1, 3);
  ASSERT_TRUE(bytes);
  EXPECT_EQ(test::Bytes(bytes->begin(), bytes->end()), BytesOf({2, 3, 4}));
  EXPECT_EQ(editor.Changes().Overwritten(), (std::vector<ByteRange>{{1, 4}}));
  EXPECT_FALSE(editor.Changes().ShiftedFrom());
}

TEST_F(ClipEditing, RefusesWhatReachesOutside) {
  EXPECT_FALSE(editor.Overwrite(5, 1));
  EXPECT_FALSE(editor.Overwrite(0, 6));
  EXPECT_FALSE(editor.Overwrite(1, kHuge));
  EXPECT_FALSE(editor.Overwrite(kHuge, 1));
  EXPECT_FALSE(editor.Splice(6, 0, 1));
  EXPECT_FALSE(editor.Splice(2, kHuge, 1));
  EXPECT_FALSE(editor.Splice(0, 0, kHuge));
  EXPECT_FALSE(editor.ReplaceAll(MemoryBlock(), 1, kMono8));
  EXPECT_NE(editor.RefusalText(), "");
  EXPECT_TRUE(editor.Changes().Empty());
  EXPECT_EQ(session.Content(), BytesOf({1, 2, 3, 4, 5}));
  EXPECT_TRUE(editor.Overwrite(5, 0));
}

TEST_F(ClipEditing, MovesTheTail) {
  const auto more = editor.Splice(1, 2, 4);
  ASSERT_TRUE(more);
  std::ranges::fill(*more, std::byte{9});
  EXPECT_EQ(session.Content(), BytesOf({1, 9, 9, 9, 9, 4, 5}));
  EXPECT_EQ(session.clip.data.Size(), 7U);
  EXPECT_EQ(editor.Changes().ShiftedFrom(), 1);
  EXPECT_EQ(editor.Splice(0, 6, 0)->size(), 0U);
  EXPECT_EQ(session.Content(), BytesOf({5}));
  EXPECT_EQ(session.clip.data.Size(), 1U);
  EXPECT_EQ(editor.Changes().ShiftedFrom(), 0);
}

TEST_F(ClipEditing, ReplacesAll) {
  AudioClip other = test::ClipOf(PcmFormat(44100, 16, 2), BytesOf({7, 8, 9, 10}));
  EXPECT_TRUE(editor.ReplaceAll(std::move(other.data), 3, other.format));
  EXPECT_EQ(session.Content(), BytesOf({7, 8, 9}));
  EXPECT_EQ(session.clip.format, PcmFormat(44100, 16, 2));
  EXPECT_EQ(session.clip.data.Size(), 3U);
  EXPECT_TRUE(editor.Changes().All());
}

TEST_F(ClipEditing, MakesSoundThatIsTooLargeAlreadySmallerButNotLarger) {
  session.memory.largestClip = 3;
  EXPECT_FALSE(editor.Splice(0, 1, 2));
  EXPECT_NE(editor.RefusalText(), "");
  EXPECT_TRUE(editor.Splice(0, 1, 0));
  EXPECT_EQ(session.Content(), BytesOf({2, 3, 4, 5}));
}

TEST_F(ClipEditing, SaysWhyWhereTheNewBytesAloneAreTooMany) {
  session.memory.largestClip = 7;
  for (const std::uint64_t length : {std::uint64_t{8}, kHuge}) {
    ClipEditor another(session.clip, session.undo, session.memory);
    EXPECT_FALSE(another.Splice(0, 5, length));
    EXPECT_THAT(another.RefusalText(), ::testing::HasSubstr("would become larger than 7 bytes"));
  }
}

TEST_F(ClipEditing, RefusesToReplaceByTooLargeASound) {
  session.memory.largestClip = 7;
  EXPECT_FALSE(editor.ReplaceAll(std::move(*MemoryBlock::Allocate(8)), 8, kMono8));
  EXPECT_EQ(session.Content(), BytesOf({1, 2, 3, 4, 5}));
}

class PuttingMuchAside : public ::testing::Test {
 protected:
  static constexpr std::size_t kSize = 3 * kProgressStep + 5;

  PuttingMuchAside() { session.undo.Push(&session.clip); }

  EditSession session{kMono8, test::CountingBytes(kSize)};
  std::vector<double> told;
  double stopAt = 2.0;
  ClipEditor editor{session.clip, session.undo, session.memory,
                    [this](std::uint64_t done, std::uint64_t total) {
                      told.push_back(static_cast<double>(done) / static_cast<double>(total));
                      return told.back() < stopAt;
                    }};
};

TEST_F(PuttingMuchAside, TellsHowFarItIsAndLeavesTheRestOfTheBarToTheEdit) {
  EXPECT_TRUE(editor.Proceed(1, 2));
  ASSERT_TRUE(editor.Overwrite(0, kSize));
  EXPECT_EQ(told.size(), 5U);
  EXPECT_TRUE(editor.Proceed(1, 2));  // where it stood before
  EXPECT_DOUBLE_EQ(told.at(4), told.at(5));
  EXPECT_TRUE(editor.Proceed(2, 2));
  EXPECT_EQ(told.front(), 0.5);
  EXPECT_LT(told.at(1), told.at(2));
  EXPECT_TRUE(std::ranges::is_sorted(told));
  EXPECT_LT(told.at(5), 0.7);
  EXPECT_EQ(told.back(), 1.0);
}

TEST_F(PuttingMuchAside, CanBeStopped) {
  stopAt = 0.1;
  EXPECT_FALSE(editor.Overwrite(0, kSize));
  EXPECT_EQ(editor.RefusalText(), "");
  EXPECT_TRUE(editor.Changes().Empty());
  EXPECT_LT(told.size(), 4U);
  EXPECT_FALSE(editor.Splice(0, kSize, 2 * kSize));
  EXPECT_EQ(editor.RefusalText(), "");
  EXPECT_EQ(session.clip.data.Size(), kSize);
  EXPECT_EQ(session.Content(), test::CountingBytes(kSize));
  session.undo.TakeBackPush(editor);
  EXPECT_FALSE(session.undo.CanUndo());
}

TEST_F(PuttingMuchAside, IsNotStoppedWhenAnEditIsTakenBack) {
  const auto bytes = editor.Splice(0, kSize, kSize + 1);
  ASSERT_TRUE(bytes);
  std::ranges::fill(*bytes, std::byte{1});
  stopAt = 0.0;
  session.undo.TakeBackPush(editor);
  EXPECT_EQ(session.Content(), test::CountingBytes(kSize));
}

TEST(LargestClip, IsWhatAWaveFileHolds) {
  EXPECT_TRUE(FitsInWaveFile(EditMemory().largestClip));
  EXPECT_FALSE(FitsInWaveFile(EditMemory().largestClip + 1));
}

TEST(ClipChanges, JoinTouchingRanges) {
  ClipChanges changes;
  EXPECT_TRUE(changes.Empty());
  changes.AddOverwrite({5, 5});
  EXPECT_TRUE(changes.Empty());
  changes.AddOverwrite({10, 20});
  changes.AddOverwrite({20, 25});
  changes.AddOverwrite({5, 12});
  changes.AddOverwrite({40, 41});
  EXPECT_EQ(changes.Overwritten(), (std::vector<ByteRange>{{5, 25}, {40, 41}}));
}

TEST(ClipChanges, AddUp) {
  ClipChanges changes;
  ClipChanges later;
  later.AddOverwrite({1, 2});
  later.AddShift(50);
  changes.AddShift(70);
  changes.Add(later);
  EXPECT_EQ(changes.Overwritten(), (std::vector<ByteRange>{{1, 2}}));
  EXPECT_EQ(changes.ShiftedFrom(), 50);
  EXPECT_FALSE(changes.All());
  later.AddAll();
  changes.Add(later);
  EXPECT_TRUE(changes.All());
}

}  // namespace
}  // namespace tembrel
