// The history beside a literal one that keeps whole copies, through thousands of random edits, undos and
// redos.
#include <gtest/gtest.h>

#include "edit/PencilDraw.h"
#include "tests/edit/EditSession.h"
#include "tests/edit/VersionBytes.h"

namespace tembrel {
namespace {

using test::Bytes;
using test::Dice;
using test::EditSession;
using test::LiteralClip;
using test::LiteralUndo;
using test::ScarceMemory;

constexpr int kRuns = 12;
constexpr int kStepsPerRun = 1500;
constexpr std::int64_t kLongest = 300;

void Fill(std::span<std::byte> target, const Bytes& bytes) {
  std::ranges::copy(bytes, target.begin());
}

// The program's clip and the literal one, changed together.
class Twins {
 public:
  explicit Twins(unsigned seed)
      : dice(seed), session(dice.Layout(), dice.Noise(100)), literal(test::LiteralCopy(session.clip)) {}

  Dice dice;
  EditSession session;
  LiteralClip literal;
  LiteralUndo literalUndo;

  void Push() {
    session.undo.Push(&session.clip);
    literalUndo.Push(literal);
  }

  // One to three changes under one push.
  void Edit() {
    Push();
    ClipEditor editor(session.clip, session.undo, session.memory);
    for (std::int64_t changes = dice.Roll(1, 3); changes > 0; --changes) {
      switch (dice.Roll(0, 9)) {
        case 0:
          ReplaceAll(editor);
          break;
        case 1:
        case 2:
          Pencil(editor);
          break;
        case 3:
        case 4:
        case 5:
          Splice(editor);
          break;
        default:
          Overwrite(editor);
      }
    }
    session.undo.KeepPush();
  }

  void Undo() {
    ASSERT_TRUE(session.Undo());
    literalUndo.Undo(literal);
  }
  void Redo() {
    ASSERT_TRUE(session.Redo());
    literalUndo.Redo(literal);
  }

 private:
  std::int64_t Size() const { return static_cast<std::int64_t>(literal.data.size()); }
  auto LiteralAt(std::int64_t offset) { return literal.data.begin() + offset; }

  void Overwrite(ClipEditor& editor) {
    const std::int64_t start = dice.Roll(0, Size());
    const std::int64_t length = dice.Roll(0, Size() - start);
    const Bytes bytes = dice.Noise(length);
    if (dice.OneIn(4)) {
      editor.Keep(static_cast<std::uint64_t>(dice.Roll(0, start)),
                  static_cast<std::uint64_t>(dice.Roll(0, 99)));
    }
    const auto target =
        editor.Overwrite(static_cast<std::uint64_t>(start), static_cast<std::uint64_t>(length));
    ASSERT_TRUE(target);
    ASSERT_TRUE(std::ranges::equal(
        *target,
        std::span(literal.data).subspan(static_cast<std::size_t>(start), static_cast<std::size_t>(length))));
    Fill(*target, bytes);
    std::ranges::copy(bytes, LiteralAt(start));
  }

  void Splice(ClipEditor& editor) {
    const std::int64_t start = dice.Roll(0, Size());
    const std::int64_t oldLength = dice.Roll(0, std::min<std::int64_t>(Size() - start, 40));
    std::int64_t newLength = Size() > kLongest ? 0 : dice.Roll(0, 40);
    if (Size() - oldLength + newLength == 0) {
      newLength = 1;
    }
    const Bytes bytes = dice.Noise(newLength);
    const auto target =
        editor.Splice(static_cast<std::uint64_t>(start), static_cast<std::uint64_t>(oldLength),
                      static_cast<std::uint64_t>(newLength));
    ASSERT_TRUE(target);
    Fill(*target, bytes);
    literal.data.erase(LiteralAt(start), LiteralAt(start + oldLength));
    literal.data.insert(LiteralAt(start), bytes.begin(), bytes.end());
  }

  void ReplaceAll(ClipEditor& editor) {
    const Bytes bytes = dice.Noise(dice.Roll(1, 200));
    const WaveFormat& format = dice.Layout();
    AudioClip other = test::ClipOf(format, bytes);
    ASSERT_TRUE(editor.ReplaceAll(std::move(other.data), bytes.size(), format));
    literal = {format, bytes};
  }

  void Pencil(ClipEditor& editor) {
    const auto frames = static_cast<std::int64_t>(session.clip.Frames());
    if (frames == 0 || !IsEditable(session.clip.format)) {
      return;
    }
    const PencilArea area{dice.Roll(0, frames - 1), dice.Roll(1, 60), 30, 100};
    for (int x = 0; x < 30; x += static_cast<int>(dice.Roll(1, 10))) {
      ASSERT_TRUE(DrawWithPencil(editor, area, frames, x, static_cast<int>(dice.Roll(0, 99))).done);
    }
    literal.data = session.Content();
  }
};

void ExpectSlotsAlike(const Twins& twins) {
  const AudioUndo& undo = twins.session.undo;
  const LiteralUndo& literal = twins.literalUndo;
  for (int i = 0; i <= literal.topIndex; ++i) {
    const auto at = static_cast<std::size_t>(i);
    ASSERT_EQ(undo.UndoSlotAt(i).tag, literal.undoSlots[at].tag);
    ASSERT_EQ(undo.RedoSlotAt(i).tag, literal.redoSlots[at].tag);
    ASSERT_EQ(test::ContentOf(*undo.UndoSlotAt(i).version, twins.session.clip), literal.undoSlots[at].clip);
    ASSERT_EQ(test::ContentOf(*undo.RedoSlotAt(i).version, twins.session.clip), literal.redoSlots[at].clip);
  }
  ASSERT_EQ(test::ContentOf(*undo.WorkingClip(), twins.session.clip), literal.workingClip);
}

TEST(UndoModel, AgreesAtEveryStepOfRandomWork) {
  for (unsigned run = 1; run <= kRuns; ++run) {
    Twins twins(run);
    for (int step = 0; step < kStepsPerRun; ++step) {
      const std::int64_t choice = twins.dice.Roll(0, 99);
      if (choice < 45 && !twins.literal.data.empty()) {
        twins.Edit();
      } else if (choice < 50) {
        twins.Push();  // a copy: a step that changes nothing
        twins.session.undo.KeepPush();
      } else if (choice < 75) {
        twins.Undo();
      } else {
        twins.Redo();
      }
      ASSERT_FALSE(HasFatalFailure()) << "run " << run << " step " << step;
      const AudioUndo& undo = twins.session.undo;
      ASSERT_EQ(test::LiteralCopy(twins.session.clip), twins.literal) << "run " << run << " step " << step;
      ASSERT_EQ(undo.CanUndo(), twins.literalUndo.canUndo) << "run " << run << " step " << step;
      ASSERT_EQ(undo.CanRedo(), twins.literalUndo.canRedo);
      ASSERT_EQ(undo.CurrentIndex(), twins.literalUndo.currentIndex);
      ASSERT_EQ(undo.TopIndex(), twins.literalUndo.topIndex);
      if (step % 5 == 0) {
        ExpectSlotsAlike(twins);
        ASSERT_FALSE(HasFatalFailure()) << "run " << run << " step " << step;
      }
    }
  }
}

// With memory that runs out at random edits still work, and the newest steps that are left are the right
// ones.
TEST(UndoModel, KeepsTheNewestStepsWhenMemoryIsShort) {
  for (unsigned run = 1; run <= kRuns; ++run) {
    Twins twins(1000 + run);
    ScarceMemory scarce;
    Dice luck(run);
    twins.session.memory = scarce.Memory();
    // Room to grow is always there: only what the history asks for is refused.
    twins.session.memory.resize = EditMemory().resize;
    scarce.refuse = [&luck](std::size_t) { return luck.OneIn(6); };
    int longest = 0;
    for (int step = 0; step < kStepsPerRun; ++step) {
      const AudioUndo& undo = twins.session.undo;
      const std::int64_t choice = twins.dice.Roll(0, 99);
      if (choice < 60) {
        twins.Edit();
      } else if (choice < 85 && undo.CanUndo()) {
        twins.Undo();
      } else if (undo.CanRedo()) {
        twins.Redo();
      }
      ASSERT_FALSE(HasFatalFailure()) << "run " << run << " step " << step;
      ASSERT_EQ(test::LiteralCopy(twins.session.clip), twins.literal) << "run " << run << " step " << step;
      longest = std::max(longest, undo.CurrentIndex());
      const int lost = twins.literalUndo.currentIndex - undo.CurrentIndex();
      ASSERT_GE(lost, 0);
      for (int i = 0; i <= undo.TopIndex(); ++i) {
        const bool undoable = i <= undo.CurrentIndex();
        const UndoSlot& slot = undoable ? undo.UndoSlotAt(i) : undo.RedoSlotAt(i);
        const auto& theirs = undoable ? twins.literalUndo.undoSlots : twins.literalUndo.redoSlots;
        ASSERT_EQ(test::ContentOf(*slot.version, twins.session.clip),
                  theirs[static_cast<std::size_t>(i + lost)].clip)
            << "run " << run << " step " << step << " slot " << i;
      }
    }
    EXPECT_GT(longest, 3);
  }
}

}  // namespace
}  // namespace tembrel
