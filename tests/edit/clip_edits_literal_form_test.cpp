// The edits store the same bytes as their literal forms, on clips of every layout and any length.
#include <gtest/gtest.h>

#include "tests/edit/EditSession.h"
#include "tests/support/LiteralEdits.h"

namespace tembrel {
namespace {

using test::Dice;
using test::EditSession;
using test::LiteralClip;
using test::LiteralEdits;

constexpr int kCases = 3000;
constexpr std::int64_t kLongest = 40;  // bytes

struct Case {
  explicit Case(unsigned seed) : dice(seed), format(dice.Layout()) {
    // Loud and quiet sound: merges that are scaled down and merges that are not.
    const auto bytes = [&](std::int64_t shortest) {
      test::Bytes noise = dice.Noise(dice.Roll(shortest, kLongest));
      if (dice.OneIn(2)) {
        for (std::byte& byte : noise) {
          byte = format.wBitsPerSample == 8 ? std::byte{128} : std::byte{0};
          byte = static_cast<std::byte>(std::to_integer<int>(byte) + dice.Roll(0, 9));
        }
      }
      return noise;
    };
    before = {format, bytes(1)};
    clipboard = {format, bytes(1)};
    const auto size = static_cast<std::int64_t>(before.data.size());
    selection.start = dice.Roll(0, size);
    selection.end = dice.Roll(selection.start, size);
    if (dice.OneIn(2)) {
      const std::int64_t frame = test::BytesPerFrame(format);
      selection = {selection.start / frame * frame, selection.end / frame * frame};
    }
    cursor = dice.Roll(0, size / test::BytesPerFrame(format) + 2);
  }

  Dice dice;
  WaveFormat format;
  LiteralClip before;
  LiteralClip clipboard;
  ByteRange selection;
  std::int64_t cursor = 0;
};

// Runs both forms and compares clip and clipboard; then what undo and redo bring.
template <typename Literal, typename Shipped>
void Compare(Literal literal, Shipped shipped) {
  for (unsigned seed = 1; seed <= kCases; ++seed) {
    Case input(seed);
    LiteralClip expected = input.before;
    LiteralClip expectedClipboard = input.clipboard;
    literal(LiteralEdits(expected), input, expectedClipboard);
    EditSession session(input.format, input.before.data);
    session.clipboard.clip = test::ClipOf(input.format, input.clipboard.data);
    ASSERT_TRUE(session.Run(shipped(input, session.clipboard)).done) << seed;
    ASSERT_EQ(test::LiteralCopy(session.clip), expected) << seed;
    ASSERT_EQ(test::LiteralCopy(session.clipboard.clip), expectedClipboard) << seed;
    ASSERT_TRUE(session.Undo());
    ASSERT_EQ(test::LiteralCopy(session.clip), input.before) << seed;
    ASSERT_TRUE(session.Redo());
    ASSERT_EQ(test::LiteralCopy(session.clip), expected) << seed;
  }
}

TEST(LiteralForm, OfCut) {
  Compare([](LiteralEdits edits, const Case& input,
             LiteralClip& clipboard) { edits.Cut(input.selection.start, input.selection.end, clipboard); },
          [](const Case& input, Clipboard& clipboard) { return CutEdit(input.selection, clipboard); });
}

TEST(LiteralForm, OfCopy) {
  Compare([](LiteralEdits edits, const Case& input,
             LiteralClip& clipboard) { edits.Copy(input.selection.start, input.selection.end, clipboard); },
          [](const Case& input, Clipboard& clipboard) { return CopyEdit(input.selection, clipboard); });
}

TEST(LiteralForm, OfInsertSilence) {
  Compare([](LiteralEdits edits, const Case& input,
             LiteralClip&) { edits.InsertSilence(input.selection.start, input.selection.end); },
          [](const Case& input, Clipboard&) { return InsertSilenceEdit(input.selection); });
}

TEST(LiteralForm, OfPasteInsert) {
  Compare([](LiteralEdits edits, const Case& input,
             LiteralClip& clipboard) { edits.PasteInsert(clipboard, input.cursor); },
          [](const Case& input, Clipboard& clipboard) { return PasteInsertEdit(clipboard, input.cursor); });
}

TEST(LiteralForm, OfPasteMerge) {
  Compare([](LiteralEdits edits, const Case& input,
             LiteralClip& clipboard) { edits.PasteMerge(clipboard, input.cursor); },
          [](const Case& input, Clipboard& clipboard) { return PasteMergeEdit(clipboard, input.cursor); });
}

TEST(LiteralForm, OfPasteOverwrite) {
  Compare(
      [](LiteralEdits edits, const Case& input, LiteralClip& clipboard) {
        edits.PasteOverwrite(clipboard, input.cursor);
      },
      [](const Case& input, Clipboard& clipboard) { return PasteOverwriteEdit(clipboard, input.cursor); });
}

// Every selection and every cursor of one short clip, ends included.
TEST(LiteralForm, OfAllEditsAtEveryPlaceOfAShortClip) {
  for (const WaveFormat& format : test::kLayouts) {
    const LiteralClip before{format, test::CountingBytes(9)};
    for (std::int64_t start = 0; start <= 9; ++start) {
      for (std::int64_t end = start; end <= 9; ++end) {
        LiteralClip cut = before;
        LiteralClip silenced = before;
        LiteralClip clipboard;
        LiteralEdits(cut).Cut(start, end, clipboard);
        LiteralEdits(silenced).InsertSilence(start, end);
        EditSession session(format, before.data);
        ASSERT_TRUE(session.Run(CutEdit({start, end}, session.clipboard)).done);
        ASSERT_EQ(test::LiteralCopy(session.clip), cut) << start << ' ' << end;
        ASSERT_TRUE(session.Undo());
        ASSERT_TRUE(session.Run(InsertSilenceEdit({start, end})).done);
        ASSERT_EQ(test::LiteralCopy(session.clip), silenced) << start << ' ' << end;
      }
    }
    for (std::int64_t cursor = 0; cursor <= 11; ++cursor) {
      for (std::size_t size = 1; size <= 11; ++size) {
        const LiteralClip clipboard{format, test::CountingBytes(size)};
        LiteralClip expected = before;
        LiteralEdits(expected).PasteInsert(clipboard, cursor);
        EditSession session(format, before.data);
        session.clipboard.clip = test::ClipOf(format, clipboard.data);
        ASSERT_TRUE(session.Run(PasteInsertEdit(session.clipboard, cursor)).done);
        ASSERT_EQ(test::LiteralCopy(session.clip), expected) << cursor << ' ' << size;
        ASSERT_TRUE(session.Undo());
        expected = before;
        LiteralEdits(expected).PasteMerge(clipboard, cursor);
        ASSERT_TRUE(session.Run(PasteMergeEdit(session.clipboard, cursor)).done);
        ASSERT_EQ(test::LiteralCopy(session.clip), expected) << cursor << ' ' << size;
      }
    }
  }
}

}  // namespace
}  // namespace tembrel
