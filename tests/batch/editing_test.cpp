// Selecting, cutting, pasting, undo and redo in scripts.
#include <gmock/gmock.h>

#include "tests/batch/BatchFixture.h"

namespace tembrel::test {
namespace {

using testing::HasSubstr;

class BatchEditing : public BatchTest {
 protected:
  // The sound's bytes after the lines ran on the file "a.wav", as they are saved.
  Bytes SoundAfter(std::vector<std::string> lines) {
    lines.insert(lines.begin(), "open " + Quoted("a.wav"));
    lines.push_back("save-as " + Quoted("out.wav"));
    EXPECT_EQ(Run(lines), kSucceeded);
    const Bytes file = ReadBytes(scratch / "out.wav");
    return {file.begin() + 44, file.end()};
  }
  // The sound of the counting file, bytes [from, to).
  static Bytes Counted(std::size_t from, std::size_t to) {
    const Bytes bytes = CountingBytes(to);
    return {bytes.begin() + static_cast<std::ptrdiff_t>(from), bytes.end()};
  }
  static Bytes Joined(Bytes first, const Bytes& second) {
    Append(first, second);
    return first;
  }
};

TEST_F(BatchEditing, CutRemovesTheSelection) {
  MakeWave("a.wav", 100);
  EXPECT_EQ(SoundAfter({"select 10 20", "cut"}), Joined(Counted(0, 40), Counted(80, 400)));
}

TEST_F(BatchEditing, ASelectionIsOrderedAndHeldInsideTheSound) {
  const std::string open = "open " + MakeWave("a.wav", 100);
  Printed({open, "select 20 10", "info"});
  EXPECT_EQ(Value("selection"), "40 80");
  Printed({open, "select -50 5000", "info"});
  EXPECT_EQ(Value("selection"), "0 400");
  Printed({open, "select all", "info"});
  EXPECT_EQ(Value("selection"), "0 400");
  Printed({open, "select 98 100", "info"});
  EXPECT_EQ(Value("selection"), "392 400");
}

TEST_F(BatchEditing, ASelectionOfFewerThanTwoFramesOrOutsideIsAnError) {
  const std::string open = "open " + MakeWave("a.wav", 100);
  for (const char* line : {"select 10 10", "select 10 11", "select 11 10", "select 100 200", "select -9 0"}) {
    EXPECT_THAT(Reason({open, line}), HasSubstr("no valid selection results")) << line;
  }
  EXPECT_THAT(Reason({open, "select some"}), HasSubstr("not \"some\""));
  EXPECT_THAT(Reason({open, "select 1 x"}), HasSubstr("END must be a whole number"));
}

TEST_F(BatchEditing, SelectingLeavesTheCursor) {
  const std::string open = "open " + MakeWave("a.wav", 100);
  Printed({open, "cursor 33", "select 10 20", "info"});
  EXPECT_EQ(Value("cursor"), "33");
}

TEST_F(BatchEditing, ASelectionBehindTheEndIsNone) {
  const std::string open = "open " + MakeWave("a.wav", 100);
  Printed({open, "select 90 100", "format 11025 16 1", "info"});
  EXPECT_EQ(Value("selection"), "none");
  EXPECT_THAT(Reason({open, "select 90 100", "format 11025 16 1", "cut"}), HasSubstr("needs a selection"));
}

TEST_F(BatchEditing, AnEditUsesTheSelectionUpAndLastBringsItBack) {
  const std::string open = "open " + MakeWave("a.wav", 100);
  for (const char* edit : {"cut", "copy", "insert-silence"}) {
    EXPECT_THAT(Reason({open, "select 10 20", edit, "cut"}), HasSubstr("needs a selection")) << edit;
  }
  Printed({open, "select 10 20", "copy", "select last", "info"});
  EXPECT_EQ(Value("selection"), "40 80");
  Printed({open, "select 50 100", "cut", "undo", "select 80 100", "copy", "select 0 50", "cut", "info"});
  EXPECT_EQ(Value("frames"), "50");
  EXPECT_EQ(Reason({open, "select last"}), "s:2: select last: nothing was selected before");
}

TEST_F(BatchEditing, TheLastSelectionIsClippedToTheSoundAsItIs) {
  const std::string open = "open " + MakeWave("a.wav", 100);
  Printed({open, "select 20 100", "cut", "undo", "select 50 100", "cut", "undo", "redo", "select 20 50",
           "cut", "info"});
  EXPECT_EQ(Value("frames"), "20");
  Printed({open, "select 40 100", "cut", "cursor 0", "select 10 40", "copy", "paste insert", "select last",
           "info"});
  EXPECT_EQ(Value("selection"), "40 160");
}

TEST_F(BatchEditing, PasteOverwriteAndInsertWorkAtTheCursor) {
  MakeWave("a.wav", 100);
  EXPECT_EQ(SoundAfter({"select 0 10", "copy", "cursor 50", "paste overwrite"}),
            Joined(Joined(Counted(0, 200), Counted(0, 40)), Counted(240, 400)));
  EXPECT_EQ(SoundAfter({"select 0 10", "copy", "cursor 100", "paste insert"}).size(), 440U);
}

TEST_F(BatchEditing, PasteMergeAddsTheClipboard) {
  WriteBytes(scratch / "a.wav", WaveFile(44100, 16, 1, Samples16({1000, 2000, 3000, 4000})));
  const Bytes sound = SoundAfter({"select 0 2", "copy", "cursor 2", "paste merge"});
  EXPECT_EQ(sound, Samples16({1000, 2000, 4000, 6000}));
}

TEST_F(BatchEditing, PastingAnotherFormatIsRefusedWithTheWindowsText) {
  const std::string a = MakeWave("a.wav", 100, 16, 1, 22050);
  const std::string b = MakeWave("b.wav", 100, 8, 1, 22050);
  EXPECT_EQ(Reason({"open " + a, "select all", "copy", "open " + b, "paste insert"}),
            "s:5: Can't paste to 8 bit mono 22050 Hz audio file.");
  EXPECT_EQ(Reason({"open " + a, "paste insert"}), "s:2: paste: the clipboard is empty");
  EXPECT_THAT(Reason({"open " + a, "paste over"}), HasSubstr("insert|merge|overwrite"));
}

TEST_F(BatchEditing, UndoAndRedoGoStepByStepAndEndInAnError) {
  const std::string open = "open " + MakeWave("a.wav", 100);
  EXPECT_EQ(SoundAfter({"select 10 20", "cut", "undo"}), Counted(0, 400));
  EXPECT_EQ(SoundAfter({"select 10 20", "cut", "undo", "redo"}), Joined(Counted(0, 40), Counted(80, 400)));
  EXPECT_EQ(Reason({open, "undo"}), "s:2: there is nothing to undo");
  EXPECT_EQ(Reason({open, "redo"}), "s:2: there is nothing to redo");
  EXPECT_EQ(Reason({open, "select all", "copy", "undo", "undo"}), "s:5: there is nothing to undo");
}

TEST_F(BatchEditing, SoundThatCanOnlyBeLookedAtIsNotEdited) {
  WriteBytes(scratch / "a.wav", WaveFile(44100, 24, 1, CountingBytes(300)));
  EXPECT_THAT(Reason({"open " + Quoted("a.wav"), "select all", "cut"}),
              HasSubstr("can be looked at but not edited"));
}

}  // namespace
}  // namespace tembrel::test
