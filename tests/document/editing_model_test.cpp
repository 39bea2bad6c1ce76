// A document beside a literal one, through thousands of random edits, undos and redos: sound, lengths, flags,
// and the temporary copy byte for byte.
#include "edit/ClipEdits.h"
#include "tests/document/EditFixture.h"
#include "tests/support/LiteralEdits.h"

namespace tembrel {
namespace {

using test::Bytes;
using test::Dice;
using test::LiteralClip;
using test::LiteralEdits;
using test::LiteralUndo;
using test::StepOf;

constexpr int kRuns = 6;
constexpr int kSteps = 600;
constexpr std::int64_t kLongest = 400;

class EditingModel : public test::EditTest {
 protected:
  void Begin(unsigned seed) {
    dice = Dice(seed);
    literal = {dice.Layout(), dice.Noise(dice.Roll(1, 200))};
    literalUndo = {};
    literalClipboard = {};
    clipboard.clip = {};
    document = Open(literal.format, literal.data);
  }

  void RandomStep() {
    const std::int64_t choice = dice.Roll(0, 99);
    if (choice < 20) {
      ASSERT_TRUE(document->Undo().done);
      literalUndo.Undo(literal);
    } else if (choice < 38) {
      ASSERT_TRUE(document->Redo().done);
      literalUndo.Redo(literal);
    } else if (literal.data.empty()) {
      return;
    } else if (choice < 80) {
      ClipboardEdit();
    } else if (choice < 90) {
      Pencil();
    } else if (choice < 95) {
      ReplaceAll();
    } else {
      SeveralChanges();
    }
  }

  void Compare() {
    ASSERT_EQ(test::LiteralCopy(*document->Clip()), literal);
    ASSERT_EQ(test::LiteralCopy(clipboard.clip), literalClipboard);
    ASSERT_EQ(document->CanUndo(), literalUndo.canUndo);
    ASSERT_EQ(document->CanRedo(), literalUndo.canRedo);
    ASSERT_EQ(document->FrameCount(), Size() / test::BytesPerFrame(literal.format));
    ASSERT_EQ(document->Stereo(), literal.format.nChannels == 2);
  }

 private:
  std::int64_t Size() const { return static_cast<std::int64_t>(literal.data.size()); }

  void Run(const EditStep& step, const std::function<void(LiteralEdits)>& change) {
    const EditResult result = document->Edit(step);
    ASSERT_TRUE(result.done || !result.isMistake) << result.message;
    if (result.done) {
      literalUndo.Push(literal);
      change(LiteralEdits(literal));
    }
  }

  void ClipboardEdit() {
    std::int64_t start = dice.Roll(0, Size());
    std::int64_t end = dice.Roll(start, std::min(Size(), start + 60));
    const std::int64_t frame = test::BytesPerFrame(literal.format);
    start = start / frame * frame;
    end = end / frame * frame;
    const std::int64_t cursor = dice.Roll(0, Size() / frame);
    const bool room = Size() < kLongest;
    switch (dice.Roll(0, 5)) {
      case 0:
        return Run(CutEdit({start, end}, clipboard),
                   [&](LiteralEdits edits) { edits.Cut(start, end, literalClipboard); });
      case 1:
        return Run(CopyEdit({start, end}, clipboard),
                   [&](LiteralEdits edits) { edits.Copy(start, end, literalClipboard); });
      case 2:
        return room ? Run(InsertSilenceEdit({start, end}),
                          [&](LiteralEdits edits) { edits.InsertSilence(start, end); })
                    : void();
      case 3:
        return room ? Run(PasteInsertEdit(clipboard, cursor),
                          [&](LiteralEdits edits) { edits.PasteInsert(literalClipboard, cursor); })
                    : void();
      case 4:
        return Run(PasteMergeEdit(clipboard, cursor),
                   [&](LiteralEdits edits) { edits.PasteMerge(literalClipboard, cursor); });
      default:
        return Run(PasteOverwriteEdit(clipboard, cursor),
                   [&](LiteralEdits edits) { edits.PasteOverwrite(literalClipboard, cursor); });
    }
  }

  void Pencil() {
    ASSERT_TRUE(document->BeginPencil().done);
    literalUndo.Push(literal);
    const PencilArea area{dice.Roll(0, document->FrameCount()), dice.Roll(1, 60), 30, 100};
    for (int x = 0; x < 30; x += static_cast<int>(dice.Roll(1, 10))) {
      ASSERT_TRUE(document->DrawPencil(area, x, static_cast<int>(dice.Roll(0, 99))).done);
    }
    document->EndPencil();
    literal.data = ContentOf(*document);
  }

  void ReplaceAll() {
    const Bytes bytes = dice.Noise(dice.Roll(1, 200));
    const WaveFormat& format = dice.Layout();
    AudioClip other = test::ClipOf(format, bytes);
    const EditStep step = StepOf(
        [&](ClipEditor& editor) { return editor.ReplaceAll(std::move(other.data), bytes.size(), format); });
    Run(step, [&](LiteralEdits) { literal = {format, bytes}; });
  }

  void SeveralChanges() {
    const std::int64_t first = dice.Roll(0, Size() - 1);
    const Bytes more = dice.Noise(dice.Roll(0, 9));
    const Bytes over = dice.Noise(dice.Roll(0, Size() - first));
    const EditStep step = StepOf([&](ClipEditor& editor) {
      std::ranges::copy(over, editor.Overwrite(static_cast<std::uint64_t>(first), over.size())->begin());
      std::ranges::copy(more, editor.Splice(static_cast<std::uint64_t>(first), 0, more.size())->begin());
      return true;
    });
    Run(step, [&](LiteralEdits) {
      std::ranges::copy(over, literal.data.begin() + first);
      literal.data.insert(literal.data.begin() + first, more.begin(), more.end());
    });
  }

  Dice dice{1};
  std::unique_ptr<Document> document;
  Clipboard clipboard;
  LiteralClip literal;
  LiteralUndo literalUndo;
  LiteralClip literalClipboard;

 protected:
  const Document& Doc() const { return *document; }
};

TEST_F(EditingModel, AgreesAtEveryStep) {
  for (unsigned run = 1; run <= kRuns; ++run) {
    Begin(run);
    for (int step = 0; step < kSteps; ++step) {
      RandomStep();
      ASSERT_FALSE(HasFatalFailure()) << "run " << run << " step " << step;
      Compare();
      ASSERT_FALSE(HasFatalFailure()) << "run " << run << " step " << step;
      if (step % 2 == 0) {
        ExpectCopyUpToDate(Doc());
        ASSERT_FALSE(HasFatalFailure()) << "run " << run << " step " << step;
      }
    }
  }
}

}  // namespace
}  // namespace tembrel
