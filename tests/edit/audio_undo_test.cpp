#include <gtest/gtest.h>

#include "edit/AudioUndo.h"
#include "tests/edit/EditSession.h"
#include "tests/edit/VersionBytes.h"

namespace tembrel {
namespace {

using test::BytesOf;
using test::EditSession;

const WaveFormat kMono8 = PcmFormat(22050, 8, 1);
const WaveFormat kStereo16 = PcmFormat(44100, 16, 2);

// An edit that sets the byte at `offset`.
bool SetByte(EditSession& session, std::uint64_t offset, int value) {
  return session.Change([&](ClipEditor& editor) {
    const auto bytes = editor.Overwrite(offset, 1);
    return bytes && (bytes->front() = static_cast<std::byte>(value), true);
  });
}

TEST(AudioUndo, BeginsEmpty) {
  const AudioUndo undo;
  EXPECT_FALSE(undo.CanUndo());
  EXPECT_FALSE(undo.CanRedo());
  EXPECT_EQ(undo.CurrentIndex(), -1);
  EXPECT_EQ(undo.TopIndex(), -1);
  EXPECT_EQ(undo.CurrentTag(), -1);
  EXPECT_EQ(undo.UndoSlotAt(0).tag, kEmptySlotTag);
  EXPECT_EQ(undo.RedoSlotAt(31).tag, kEmptySlotTag);
}

TEST(AudioUndo, IgnoresAPushWithoutAClip) {
  AudioUndo undo;
  undo.Push(nullptr);
  EXPECT_FALSE(undo.CanUndo());
}

TEST(AudioUndo, PushStoresTheStateForUndoAndRedoAlike) {
  EditSession session(kMono8, BytesOf({1, 2, 3}));
  session.undo.Push(&session.clip);
  EXPECT_EQ(session.undo.CurrentTag(), 0);
  EXPECT_EQ(session.undo.UndoSlotAt(0).tag, 0);
  EXPECT_EQ(session.undo.RedoSlotAt(0).tag, 0);
  EXPECT_EQ(session.undo.UndoSlotAt(0).version, session.undo.RedoSlotAt(0).version);
}

TEST(AudioUndo, TakesBackAndBringsAgain) {
  EditSession session(kMono8, BytesOf({1, 2, 3}));
  ASSERT_TRUE(SetByte(session, 1, 9));
  ASSERT_TRUE(session.Undo());
  EXPECT_EQ(session.Content(), BytesOf({1, 2, 3}));
  EXPECT_FALSE(session.undo.CanUndo());
  EXPECT_TRUE(session.undo.CanRedo());
  ASSERT_TRUE(session.Redo());
  EXPECT_EQ(session.Content(), BytesOf({1, 9, 3}));
  EXPECT_TRUE(session.undo.CanUndo());
  EXPECT_FALSE(session.undo.CanRedo());
}

TEST(AudioUndo, RestoresLengthsAndFormats) {
  EditSession session(kMono8, BytesOf({1, 2, 3}));
  ASSERT_TRUE(session.Change([](ClipEditor& editor) {
    const auto bytes = editor.Splice(1, 1, 3);
    return bytes && (std::ranges::fill(*bytes, std::byte{7}), true);
  }));
  ASSERT_TRUE(session.Change([](ClipEditor& editor) {
    MemoryBlock block = std::move(*MemoryBlock::Allocate(8));
    std::ranges::fill(block.Bytes(), std::byte{5});
    return editor.ReplaceAll(std::move(block), 8, kStereo16);
  }));
  EXPECT_EQ(session.clip.format, kStereo16);
  ASSERT_TRUE(session.Undo());
  EXPECT_EQ(session.clip.format, kMono8);
  EXPECT_EQ(session.Content(), BytesOf({1, 7, 7, 7, 3}));
  EXPECT_TRUE(session.changes.All());
  ASSERT_TRUE(session.Undo());
  EXPECT_EQ(session.Content(), BytesOf({1, 2, 3}));
  ASSERT_TRUE(session.Redo());
  EXPECT_EQ(session.Content(), BytesOf({1, 7, 7, 7, 3}));
  ASSERT_TRUE(session.Redo());
  EXPECT_EQ(session.clip.format, kStereo16);
  EXPECT_EQ(session.Content(), test::Bytes(8, std::byte{5}));
}

TEST(AudioUndo, Goes32StepsBackAfter33Edits) {
  EditSession session(kMono8, BytesOf({0}));
  for (int edit = 1; edit <= 33; ++edit) {
    ASSERT_TRUE(SetByte(session, 0, edit));
  }
  EXPECT_EQ(session.undo.CurrentIndex(), 31);
  int steps = 0;
  for (; session.undo.CanUndo(); ++steps) {
    ASSERT_TRUE(session.Undo());
    EXPECT_EQ(session.Content(), BytesOf({32 - steps}));
  }
  EXPECT_EQ(steps, 32);
  EXPECT_EQ(session.Content(), BytesOf({1}));  // the first edit stays
  while (session.undo.CanRedo()) {
    ASSERT_TRUE(session.Redo());
  }
  EXPECT_EQ(session.Content(), BytesOf({33}));
}

TEST(AudioUndo, ForgetsWhatCouldBeRedoneAtANewEdit) {
  EditSession session(kMono8, BytesOf({0}));
  SetByte(session, 0, 1);
  SetByte(session, 0, 2);
  SetByte(session, 0, 3);
  session.Undo();
  session.Undo();
  EXPECT_EQ(session.undo.CurrentIndex(), 0);
  EXPECT_EQ(session.undo.TopIndex(), 2);
  SetByte(session, 0, 9);
  EXPECT_FALSE(session.undo.CanRedo());
  EXPECT_EQ(session.undo.TopIndex(), 1);
  session.Undo();
  EXPECT_EQ(session.Content(), BytesOf({1}));
}

TEST(AudioUndo, CalledWithNothingToUndoExchangesWithTheWorkingState) {
  EditSession session(kMono8, BytesOf({1, 2, 3}));
  ASSERT_TRUE(session.Undo());
  EXPECT_EQ(session.clip.dataSize, 0U);
  EXPECT_TRUE(session.clip.data.Empty());
  EXPECT_EQ(session.clip.format, WaveFormat());
  EXPECT_FALSE(session.undo.CanUndo());
  EXPECT_FALSE(session.undo.CanRedo());
  ASSERT_TRUE(session.Undo());
  EXPECT_EQ(session.Content(), BytesOf({1, 2, 3}));
  EXPECT_EQ(session.clip.format, kMono8);
}

TEST(AudioUndo, CalledWithNothingToRedoExchangesToo) {
  EditSession session(kMono8, BytesOf({1, 2, 3}));
  ASSERT_TRUE(session.Redo());
  EXPECT_EQ(session.clip.dataSize, 0U);
  ASSERT_TRUE(session.Redo());
  EXPECT_EQ(session.Content(), BytesOf({1, 2, 3}));
  SetByte(session, 0, 9);
  // Without an undo before it the newest redo slot still holds the state before the edit.
  ASSERT_TRUE(session.Redo());
  EXPECT_EQ(session.Content(), BytesOf({1, 2, 3}));
}

TEST(AudioUndo, TakesBackAPushWhoseEditFailed) {
  EditSession session(kMono8, BytesOf({1, 2, 3}));
  SetByte(session, 0, 4);
  SetByte(session, 0, 5);
  session.Undo();
  EXPECT_FALSE(session.Change([](ClipEditor&) { return false; }));
  EXPECT_EQ(session.Content(), BytesOf({4, 2, 3}));
  EXPECT_TRUE(session.undo.CanRedo());
  ASSERT_TRUE(session.Redo());
  EXPECT_EQ(session.Content(), BytesOf({5, 2, 3}));
}

TEST(AudioUndo, TakesBackWhatAFailedEditHadChanged) {
  EditSession session(kMono8, BytesOf({1, 2, 3, 4, 5}));
  SetByte(session, 0, 9);
  session.Undo();
  EXPECT_FALSE(session.Change([](ClipEditor& editor) {
    editor.Overwrite(2, 2)->front() = std::byte{77};
    editor.Splice(1, 3, 0);
    std::ranges::fill(*editor.Splice(0, 0, 4), std::byte{66});
    return false;
  }));
  EXPECT_EQ(session.Content(), BytesOf({1, 2, 3, 4, 5}));
  EXPECT_FALSE(session.undo.CanUndo());
  ASSERT_TRUE(session.Redo());
  EXPECT_EQ(session.Content(), BytesOf({9, 2, 3, 4, 5}));
}

TEST(AudioUndo, ResetForgetsAll) {
  EditSession session(kMono8, BytesOf({1, 2, 3}));
  SetByte(session, 0, 4);
  session.undo.Reset();
  EXPECT_FALSE(session.undo.CanUndo());
  EXPECT_EQ(session.undo.UndoSlotAt(0).tag, kEmptySlotTag);
  EXPECT_EQ(session.undo.UndoSlotAt(0).version, nullptr);
  EXPECT_EQ(session.undo.WorkingClip()->dataSize, 0U);
}

// What the history keeps beside the clip, in bytes.
std::uint64_t SavedBytesOf(const AudioUndo& undo) {
  std::vector<const SavedBytes*> seen;
  std::uint64_t total = 0;
  for (const ClipVersion* version : undo.Versions()) {
    for (const ClipPiece& piece : version->pieces) {
      if (piece.saved && std::ranges::find(seen, piece.saved.get()) == seen.end()) {
        seen.push_back(piece.saved.get());
        total += piece.saved->block.Size();
      }
    }
  }
  return total;
}

TEST(AudioUndo, KeepsOnlyWhatEditsChanged) {
  EditSession session(kMono8, test::CountingBytes(100000));
  for (std::uint64_t edit = 0; edit < 32; ++edit) {
    const std::uint64_t at = 1000 * edit;
    ASSERT_TRUE(session.Change([at](ClipEditor& editor) {
      return editor.Overwrite(at, 10) && editor.Splice(at + 20, 10, 0) && editor.Splice(at + 50, 0, 10);
    }));
  }
  EXPECT_EQ(SavedBytesOf(session.undo), 32U * 20U);
  while (session.undo.CanUndo()) {
    ASSERT_TRUE(session.Undo());
  }
  EXPECT_EQ(SavedBytesOf(session.undo), 32U * 20U);
  EXPECT_EQ(session.Content(), test::CountingBytes(100000));
}

TEST(AudioUndo, SavesBytesChangedTwiceInOneStepOnce) {
  EditSession session(kMono8, test::CountingBytes(1000));
  ASSERT_TRUE(session.Change([](ClipEditor& editor) {
    return editor.Overwrite(100, 50) && editor.Overwrite(120, 50) && editor.Overwrite(100, 70);
  }));
  EXPECT_EQ(SavedBytesOf(session.undo), 70U);
}

TEST(AudioUndo, HandsTheOldBlockOverWhenAllIsReplaced) {
  EditSession session(kMono8, test::CountingBytes(1000));
  const std::byte* const oldBlock = session.clip.data.Data();
  test::ScarceMemory scarce;
  session.memory = scarce.Memory();
  ASSERT_TRUE(session.Change([](ClipEditor& editor) {
    return editor.ReplaceAll(std::move(*MemoryBlock::Allocate(500)), 500, kStereo16);
  }));
  ASSERT_TRUE(session.Undo());
  EXPECT_EQ(session.clip.data.Data(), oldBlock);
  ASSERT_TRUE(session.Redo());
  ASSERT_TRUE(session.Undo());
  EXPECT_EQ(session.clip.data.Data(), oldBlock);
  EXPECT_EQ(scarce.asked, 0);
}

}  // namespace
}  // namespace tembrel
