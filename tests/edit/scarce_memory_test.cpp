// What editing does when memory runs out.
#include <gtest/gtest.h>

#include "tests/edit/EditSession.h"

namespace tembrel {
namespace {

using test::Bytes;
using test::BytesOf;
using test::EditSession;
using test::ScarceMemory;

const WaveFormat kMono8 = PcmFormat(22050, 8, 1);

bool SetByte(EditSession& session, int value) {
  return session.Change([&](ClipEditor& editor) {
    const auto bytes = editor.Overwrite(0, 1);
    return bytes && (bytes->front() = static_cast<std::byte>(value), true);
  });
}

TEST(ScarceMemory, LetsTheOldestStepsGoFirst) {
  EditSession session(kMono8, BytesOf({0}));
  ScarceMemory scarce;
  session.memory = scarce.Memory();
  // No more than five states fit.
  scarce.refuse = [&](std::size_t) { return session.undo.CurrentIndex() >= 5; };
  for (int edit = 1; edit <= 20; ++edit) {
    ASSERT_TRUE(SetByte(session, edit));
    EXPECT_EQ(session.Content(), BytesOf({edit}));
  }
  int steps = 0;
  for (; session.undo.CanUndo(); ++steps) {
    ASSERT_TRUE(session.Undo());
    EXPECT_EQ(session.Content(), BytesOf({19 - steps}));
  }
  EXPECT_EQ(steps, 5);
}

TEST(ScarceMemory, LeavesAnEditWithoutUndoAtWorst) {
  EditSession session(kMono8, BytesOf({0, 1}));
  ScarceMemory scarce;
  session.memory = scarce.Memory();
  SetByte(session, 1);
  scarce.refuse = [](std::size_t) { return true; };
  ASSERT_TRUE(SetByte(session, 2));
  EXPECT_EQ(session.Content(), BytesOf({2, 1}));
  EXPECT_FALSE(session.undo.CanUndo());
  EXPECT_FALSE(session.undo.CanRedo());
  EXPECT_FALSE(session.Undo());
  EXPECT_FALSE(session.Redo());
  EXPECT_EQ(session.Content(), BytesOf({2, 1}));
  scarce.refuse = [](std::size_t) { return false; };
  ASSERT_TRUE(SetByte(session, 3));
  ASSERT_TRUE(session.Undo());
  EXPECT_EQ(session.Content(), BytesOf({2, 1}));
}

TEST(ScarceMemory, IsNoObstacleToUndoingWhatKeptTheLength) {
  EditSession session(kMono8, BytesOf({0}));
  ScarceMemory scarce;
  session.memory = scarce.Memory();
  SetByte(session, 1);
  SetByte(session, 2);
  scarce.refuse = [](std::size_t) { return true; };
  ASSERT_TRUE(session.Undo());
  ASSERT_TRUE(session.Undo());
  EXPECT_EQ(session.Content(), BytesOf({0}));
  ASSERT_TRUE(session.Redo());
  ASSERT_TRUE(session.Redo());
  EXPECT_EQ(session.Content(), BytesOf({2}));
}

TEST(ScarceMemory, CanRedoAnUndoThatFoundRoomAtTheSecondTry) {
  EditSession session(kMono8, BytesOf({1, 2, 3, 4}));
  session.clipboard.clip = test::ClipOf(kMono8, BytesOf({8, 9}));
  ASSERT_TRUE(session.Run(PasteInsertEdit(session.clipboard, 0)).done);
  const Bytes pasted = session.Content();
  ScarceMemory scarce;
  session.memory = scarce.Memory();
  scarce.refuse = [&](std::size_t) { return scarce.asked == 1; };
  ASSERT_TRUE(session.Undo());
  EXPECT_EQ(session.Content(), BytesOf({1, 2, 3, 4}));
  ASSERT_TRUE(session.undo.CanRedo());
  ASSERT_TRUE(session.Redo());
  EXPECT_EQ(session.Content(), pasted);
  ASSERT_TRUE(session.undo.CanUndo());
  ASSERT_TRUE(session.Undo());
  EXPECT_EQ(session.Content(), BytesOf({1, 2, 3, 4}));
}

TEST(ScarceMemory, RefusesAnUndoThatHasToGrowTheClipAndChangesNothing) {
  EditSession session(kMono8, BytesOf({1, 2, 3, 4}));
  ScarceMemory scarce;
  session.memory = scarce.Memory();
  ASSERT_TRUE(session.Run(CutEdit({0, 3}, session.clipboard)).done);
  scarce.refuse = [](std::size_t) { return true; };
  ClipEditor editor(session.clip, session.undo, session.memory);
  EXPECT_FALSE(session.undo.Undo(editor));
  EXPECT_NE(editor.RefusalText(), "");
  EXPECT_EQ(session.Content(), BytesOf({4}));
  EXPECT_TRUE(session.undo.CanUndo());
  scarce.refuse = [](std::size_t) { return false; };
  ASSERT_TRUE(session.Undo());
  EXPECT_EQ(session.Content(), BytesOf({1, 2, 3, 4}));
}

// Every edit, with its n-th request refused, either works or leaves clip, clipboard and history as they were.
TEST(ScarceMemory, LeavesAllAsItWasWhenAnEditFails) {
  const Bytes before = test::CountingBytes(40);
  const auto steps = [](EditSession& session) {
    return std::vector{CutEdit({8, 20}, session.clipboard),  CopyEdit({8, 20}, session.clipboard),
                       InsertSilenceEdit({8, 20}),           PasteInsertEdit(session.clipboard, 2),
                       PasteMergeEdit(session.clipboard, 2), PasteOverwriteEdit(session.clipboard, 2)};
  };
  int failures = 0;
  for (std::size_t which = 0; which < 6; ++which) {
    for (int refused = 1; refused <= 5; ++refused) {
      EditSession session(PcmFormat(44100, 16, 2), before);
      session.clipboard.clip = test::ClipOf(session.clip.format, BytesOf({1, 2, 3, 4}));
      SetByte(session, 200);
      SetByte(session, 201);
      ASSERT_TRUE(session.Undo());
      ScarceMemory scarce;
      session.memory = scarce.Memory();
      scarce.refuse = [&](std::size_t) { return scarce.asked == refused; };
      const Bytes content = session.Content();
      const EditResult result = session.Run(steps(session).at(which));
      if (result.done) {
        continue;
      }
      ++failures;
      EXPECT_TRUE(result.isMistake);
      EXPECT_NE(result.message, "");
      EXPECT_EQ(session.Content(), content);
      EXPECT_EQ(test::BytesOfClip(session.clipboard.clip), BytesOf({1, 2, 3, 4}));
      EXPECT_EQ(session.undo.CurrentIndex(), 0);
      EXPECT_EQ(session.undo.TopIndex(), 1);
      ASSERT_TRUE(session.Redo());
      EXPECT_EQ(session.Content().front(), std::byte{201});
      ASSERT_TRUE(session.Undo());
      ASSERT_TRUE(session.Undo());
      EXPECT_EQ(session.Content(), before);
    }
  }
  EXPECT_EQ(failures, 6);  // cut 1, copy 1, silence 1, insert 1, merge 2
}

TEST(ScarceMemory, KeepsTheBlockWhenItCannotBeTrimmed) {
  EditSession session(kMono8, BytesOf({1, 2, 3, 4}));
  session.memory.resize = [](MemoryBlock&, std::size_t) { return false; };
  ASSERT_TRUE(session.Run(CutEdit({0, 2}, session.clipboard)).done);
  EXPECT_EQ(session.Content(), BytesOf({3, 4}));
  ASSERT_TRUE(session.Undo());  // the room is still there
  EXPECT_EQ(session.Content(), BytesOf({1, 2, 3, 4}));
}

}  // namespace
}  // namespace tembrel
