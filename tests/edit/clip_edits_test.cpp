#include <gmock/gmock.h>
#include <limits>

#include "edit/ClipEdits.h"
#include "tests/edit/EditSession.h"

namespace tembrel {
namespace {

using test::Bytes;
using test::BytesOf;
using test::EditSession;
using test::Samples16;

const WaveFormat kMono8 = PcmFormat(22050, 8, 1);
const WaveFormat kStereo8 = PcmFormat(22050, 8, 2);
const WaveFormat kMono16 = PcmFormat(44100, 16, 1);
const WaveFormat kStereo16 = PcmFormat(44100, 16, 2);

void Fill(Clipboard& clipboard, const WaveFormat& format, const Bytes& bytes) {
  clipboard.clip = test::ClipOf(format, bytes);
}

TEST(Cut, MovesTheSelectionToTheClipboardAndClosesTheGap) {
  EditSession session(kMono8, BytesOf({1, 2, 3, 4, 5}));
  EXPECT_FALSE(session.clipboard.HasData());
  ASSERT_TRUE(session.Run(CutEdit({1, 3}, session.clipboard)).done);
  EXPECT_EQ(session.Content(), BytesOf({1, 4, 5}));
  EXPECT_EQ(session.clip.data.Size(), 3U);
  EXPECT_TRUE(session.clipboard.HasData());
  EXPECT_EQ(test::BytesOfClip(session.clipboard.clip), BytesOf({2, 3}));
  EXPECT_EQ(session.clipboard.clip.format, kMono8);
}

TEST(Cut, OfTheWholeClipLeavesItsFirstByte) {
  EditSession session(kStereo16, BytesOf({9, 8, 7, 6, 5, 4, 3, 2}));
  ASSERT_TRUE(session.Run(CutEdit({0, 8}, session.clipboard)).done);
  EXPECT_EQ(session.Content(), BytesOf({9}));
  EXPECT_EQ(session.clipboard.clip.dataSize, 8U);
  ASSERT_TRUE(session.Run(CutEdit({0, 1}, session.clipboard)).done);
  EXPECT_EQ(session.Content(), BytesOf({9}));
}

TEST(Cut, ReplacesWhatTheClipboardHeld) {
  EditSession session(kMono8, BytesOf({1, 2, 3, 4, 5}));
  Fill(session.clipboard, kStereo16, BytesOf({1, 1, 1, 1}));
  session.Run(CutEdit({4, 5}, session.clipboard));
  EXPECT_EQ(test::BytesOfClip(session.clipboard.clip), BytesOf({5}));
  EXPECT_EQ(session.clipboard.clip.format, kMono8);
}

TEST(Copy, ChangesNothingButIsAnUndoStep) {
  EditSession session(kMono8, BytesOf({1, 2, 3, 4, 5}));
  const EditStep copy = CopyEdit({0, 2}, session.clipboard);
  EXPECT_FALSE(copy.marksChanged);
  ASSERT_TRUE(session.Run(copy).done);
  EXPECT_TRUE(session.undo.CanUndo());
  EXPECT_TRUE(session.changes.Empty());
  EXPECT_EQ(test::BytesOfClip(session.clipboard.clip), BytesOf({1, 2}));
  ASSERT_TRUE(session.Undo());
  EXPECT_EQ(session.Content(), BytesOf({1, 2, 3, 4, 5}));
  EXPECT_FALSE(session.undo.CanUndo());
}

TEST(InsertSilence, WritesBytesOf127In8BitSound) {
  EditSession session(kMono8, BytesOf({1, 2, 3, 4, 5, 6}));
  ASSERT_TRUE(session.Run(InsertSilenceEdit({1, 3})).done);
  // The byte at the selection's end keeps its value 4; 2, the first byte of the sound that moved, is lost.
  EXPECT_EQ(session.Content(), BytesOf({1, 127, 127, 4, 3, 4, 5, 6}));
}

TEST(InsertSilence, WritesZerosIn16BitSound) {
  EditSession session(kMono16, BytesOf({1, 2, 3, 4, 5, 6}));
  ASSERT_TRUE(session.Run(InsertSilenceEdit({0, 4})).done);
  EXPECT_EQ(session.Content(), BytesOf({0, 0, 0, 0, 5, 2, 3, 4, 5, 6}));
}

TEST(InsertSilence, WritesBothChannelsOfStereoSound) {
  EditSession session(kStereo8, BytesOf({1, 2, 3, 4, 5, 6}));
  ASSERT_TRUE(session.Run(InsertSilenceEdit({2, 4})).done);
  EXPECT_EQ(session.Content(), BytesOf({1, 2, 127, 127, 5, 4, 5, 6}));
  EditSession wide(kStereo16, BytesOf({1, 2, 3, 4, 5, 6, 7, 8}));
  ASSERT_TRUE(wide.Run(InsertSilenceEdit({0, 4})).done);
  EXPECT_EQ(wide.Content(), BytesOf({0, 0, 0, 0, 5, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(InsertSilence, AtTheEndFindsNoByteToKeep) {
  EditSession session(kMono8, BytesOf({1, 2, 3}));
  ASSERT_TRUE(session.Run(InsertSilenceEdit({1, 3})).done);
  EXPECT_EQ(session.Content(), BytesOf({1, 127, 127, 0, 3}));
}

TEST(PasteInsert, OpensTheSoundAndKeepsTheByteBehindThePaste) {
  EditSession session(kMono8, BytesOf({1, 2, 3, 4, 5, 6}));
  Fill(session.clipboard, kMono8, BytesOf({50, 51}));
  ASSERT_TRUE(session.Run(PasteInsertEdit(session.clipboard, 1)).done);
  EXPECT_EQ(session.Content(), BytesOf({1, 50, 51, 4, 3, 4, 5, 6}));
}

TEST(PasteInsert, TurnsTheCursorsFrameIntoBytes) {
  for (const auto& [format, position] :
       {std::pair(kMono8, 1), std::pair(kStereo8, 2), std::pair(kMono16, 2), std::pair(kStereo16, 4)}) {
    EditSession session(format, test::CountingBytes(16));
    Fill(session.clipboard, format, BytesOf({200, 201, 202, 203}));
    ASSERT_TRUE(session.Run(PasteInsertEdit(session.clipboard, 1)).done);
    ASSERT_EQ(session.clip.dataSize, 20U);
    EXPECT_EQ(session.Content().at(static_cast<std::size_t>(position)), std::byte{200});
  }
}

TEST(PasteInsert, AtTheEndAppends) {
  EditSession session(kMono8, BytesOf({1, 2}));
  Fill(session.clipboard, kMono8, BytesOf({50, 51, 52}));
  ASSERT_TRUE(session.Run(PasteInsertEdit(session.clipboard, 2)).done);
  EXPECT_EQ(session.Content(), BytesOf({1, 2, 50, 51, 52}));
}

TEST(PasteInsert, BehindTheEndLeavesAGapAndNeverReadsOutside) {
  EditSession session(kMono8, BytesOf({1, 2}));
  Fill(session.clipboard, kMono8, BytesOf({50, 51, 52}));
  ASSERT_TRUE(session.Run(PasteInsertEdit(session.clipboard, 4)).done);
  EXPECT_EQ(session.Content(), BytesOf({1, 2, 0, 0, 50}));
  ASSERT_TRUE(session.Run(PasteInsertEdit(session.clipboard, std::numeric_limits<std::int64_t>::max())).done);
  EXPECT_EQ(session.Content(), BytesOf({1, 2, 0, 0, 50, 0, 0, 0}));
}

TEST(PasteOverwrite, DropsWhatReachesBeyondTheEnd) {
  EditSession session(kStereo16, Bytes(2000));
  Fill(session.clipboard, kStereo16, Bytes(4000, std::byte{7}));
  ASSERT_TRUE(session.Run(PasteOverwriteEdit(session.clipboard, 400)).done);
  EXPECT_EQ(session.clip.dataSize, 2000U);
  const Bytes content = session.Content();
  EXPECT_EQ(std::ranges::count(content, std::byte{7}), 400);
  EXPECT_EQ(content.at(1599), std::byte{0});
  EXPECT_EQ(content.at(1600), std::byte{7});
}

TEST(PasteMerge, ScalesABlockWhoseSumPeaksAbove1) {
  EditSession session(kMono8, BytesOf({128 + 102, 128 + 51, 100}));
  Fill(session.clipboard, kMono8, BytesOf({128 + 102, 128 + 51}));
  ASSERT_TRUE(session.Run(PasteMergeEdit(session.clipboard, 0)).done);
  // 204/128 scaled to 1.0 is 256, whose low 8 bits are 0; 102/128 scaled likewise is half of full scale.
  EXPECT_EQ(session.Content(), BytesOf({0, 128 + 64, 100}));
}

TEST(PasteMerge, LeavesASumThatPeaksAtExactly1) {
  EditSession session(kMono8, BytesOf({0, 128 + 10}));
  Fill(session.clipboard, kMono8, BytesOf({128, 128 + 10}));
  ASSERT_TRUE(session.Run(PasteMergeEdit(session.clipboard, 0)).done);
  EXPECT_EQ(session.Content(), BytesOf({0, 128 + 20}));
}

TEST(PasteMerge, Adds16BitSamples) {
  EditSession session(kMono16, Samples16({100, 200, -300}));
  Fill(session.clipboard, kMono16, Samples16({1000, -2000}));
  ASSERT_TRUE(session.Run(PasteMergeEdit(session.clipboard, 1)).done);
  EXPECT_EQ(session.Content(), Samples16({100, 1200, -2300}));
}

TEST(PasteMerge, ScalesEveryChannelByItsOwnPeak) {
  EditSession session(kStereo16, Samples16({30000, 100, 15000, 200}));
  Fill(session.clipboard, kStereo16, Samples16({30000, 100, 15000, 200}));
  ASSERT_TRUE(session.Run(PasteMergeEdit(session.clipboard, 0)).done);
  EXPECT_EQ(session.Content(), Samples16({32767, 200, 16383, 400}));
}

TEST(PasteMerge, BeginsAtHalfTheCursorInStereo) {
  EditSession session(kStereo16, Samples16({1, 2, 3, 4, 5, 6, 7, 8}));
  Fill(session.clipboard, kStereo16, Samples16({1000, 2000}));
  ASSERT_TRUE(session.Run(PasteMergeEdit(session.clipboard, 2)).done);
  EXPECT_EQ(session.Content(), Samples16({1, 2, 1003, 2004, 5, 6, 7, 8}));
}

TEST(PasteMerge, ExchangesTheChannelsAtAnOddCursor) {
  EditSession session(kStereo8, BytesOf({128, 128, 128, 128, 128, 128}));
  Fill(session.clipboard, kStereo8, BytesOf({128 + 1, 128 + 2}));
  ASSERT_TRUE(session.Run(PasteMergeEdit(session.clipboard, 1)).done);
  EXPECT_EQ(session.Content(), BytesOf({128, 129, 130, 128, 128, 128}));
}

TEST(PasteMerge, AtOrBeyondTheEndMixesNothingButIsAnUndoStep) {
  for (const std::int64_t cursor : {3, 4, 1000, 2000000000}) {
    EditSession session(kMono8, BytesOf({1, 2, 3}));
    Fill(session.clipboard, kMono8, BytesOf({200}));
    const EditStep step = PasteMergeEdit(session.clipboard, cursor);
    EXPECT_TRUE(step.marksChanged);
    ASSERT_TRUE(session.Run(step).done);
    EXPECT_EQ(session.Content(), BytesOf({1, 2, 3}));
    EXPECT_TRUE(session.undo.CanUndo());
  }
}

TEST(Paste, IsRefusedWhenTheFormatsDifferAndRecordsNothing) {
  for (const WaveFormat& other : {PcmFormat(22050, 16, 1), PcmFormat(22050, 8, 2), PcmFormat(44100, 8, 1)}) {
    EditSession session(kMono8, BytesOf({1, 2, 3}));
    Fill(session.clipboard, other, BytesOf({1, 2, 3, 4}));
    for (const EditStep& step : {PasteInsertEdit(session.clipboard, 0), PasteMergeEdit(session.clipboard, 0),
                                 PasteOverwriteEdit(session.clipboard, 0)}) {
      const EditResult result = session.Run(step);
      EXPECT_FALSE(result.done);
      EXPECT_FALSE(result.isMistake);
      EXPECT_EQ(result.message, "Can't paste to 8 bit mono 22050 Hz audio file.");
      EXPECT_FALSE(session.undo.CanUndo());
    }
  }
}

TEST(Paste, MismatchIsToldWithTheDocumentsFormat) {
  EXPECT_EQ(FormatMismatchText(kMono8), "Can't paste to 8 bit mono 22050 Hz audio file.");
  EXPECT_EQ(FormatMismatchText(kStereo16), "Can't paste to 16 bit stereo 44100 Hz audio file.");
}

TEST(Edits, SayWhetherLengthsFollow) {
  Clipboard clipboard;
  EXPECT_TRUE(CutEdit({}, clipboard).refreshesLengths);
  EXPECT_TRUE(InsertSilenceEdit({}).refreshesLengths);
  EXPECT_TRUE(PasteInsertEdit(clipboard, 0).refreshesLengths);
  EXPECT_FALSE(PasteMergeEdit(clipboard, 0).refreshesLengths);
  EXPECT_FALSE(PasteOverwriteEdit(clipboard, 0).refreshesLengths);
}

TEST(Edits, CutSelectionsDownToTheClip) {
  constexpr std::int64_t kFar = std::numeric_limits<std::int64_t>::max();
  constexpr std::int64_t kBefore = std::numeric_limits<std::int64_t>::min();
  EditSession session(kMono8, BytesOf({1, 2, 3, 4}));
  ASSERT_TRUE(session.Run(CopyEdit({kBefore, kFar}, session.clipboard)).done);
  EXPECT_EQ(session.clipboard.clip.dataSize, 4U);
  ASSERT_TRUE(session.Run(CutEdit({2, kFar}, session.clipboard)).done);
  EXPECT_EQ(session.Content(), BytesOf({1, 2}));
  for (const ByteRange& nothing :
       {ByteRange{2, 2}, ByteRange{2, 1}, ByteRange{kFar, kBefore}, ByteRange{-1, -1}}) {
    ASSERT_TRUE(session.Run(InsertSilenceEdit(nothing)).done);
    ASSERT_TRUE(session.Run(CutEdit(nothing, session.clipboard)).done);
    EXPECT_FALSE(session.clipboard.HasData());
    EXPECT_EQ(session.Content(), BytesOf({1, 2}));
  }
}

TEST(Edits, OfAClipWithoutDataStayWithinIt) {
  EditSession session(kMono8, Bytes());
  ASSERT_TRUE(session.Run(InsertSilenceEdit({0, 4})).done);
  EXPECT_EQ(session.clip.dataSize, 0U);
  ASSERT_TRUE(session.Run(CutEdit({0, 0}, session.clipboard)).done);
  EXPECT_EQ(session.Content(), BytesOf({0}));
}

TEST(Edits, ThatWouldPassTheLargestClipAreRefusedAndNameIt) {
  EditSession session(kMono8, BytesOf({1, 2, 3, 4}));
  session.memory.largestClip = 6;
  Fill(session.clipboard, kMono8, BytesOf({7, 7, 7}));
  for (const EditStep& step : {PasteInsertEdit(session.clipboard, 0), PasteInsertEdit(session.clipboard, 4),
                               InsertSilenceEdit({0, 3})}) {
    const EditResult result = session.Run(step);
    EXPECT_FALSE(result.done);
    EXPECT_TRUE(result.isMistake);
    EXPECT_THAT(result.message, testing::HasSubstr("larger than 6 bytes"));
    EXPECT_EQ(session.Content(), BytesOf({1, 2, 3, 4}));
    EXPECT_FALSE(session.undo.CanUndo());
  }
  EXPECT_TRUE(session.Run(InsertSilenceEdit({0, 2})).done);
  EXPECT_EQ(session.clip.dataSize, 6U);
}

}  // namespace
}  // namespace tembrel
