// What editing a long recording costs: an hour of 44.1 kHz 16-bit stereo, about 635 MB, or
// TEMBREL_BENCH_MINUTES minutes. Every edit, its undo and its redo are told beside one whole copy of the clip
// in memory (a fresh block, filled), taken right before.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>

#include "audio/ProgramPaths.h"
#include "bench/support/Figures.h"
#include "bench/support/NoisySound.h"
#include "bench/support/ProcessMemory.h"
#include "bench/support/Rounds.h"
#include "document/Document.h"
#include "edit/ClipEdits.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel {
namespace {

constexpr std::int64_t kFrame = bench::kFrameBytes;
constexpr std::int64_t kSecond = bench::kRate * kFrame;
constexpr int kRounds = 5;
constexpr int kUndoableEdits = 32;

struct Desk {
  Document& document;
  Clipboard& clipboard;  // holds one second
  std::int64_t seconds;  // of the document

  ByteRange SecondFrom(std::int64_t start) const { return {start, start + kSecond}; }
  std::int64_t Middle() const { return seconds / 2 * kSecond; }
};

// The seconds of the 32 edits lie apart: nothing is shared by luck.
EditResult MixedEdit(const Desk& desk, int i) {
  const std::int64_t startFrame = (100 + i * 90) * desk.seconds * bench::kRate / 3600;
  const ByteRange second = desk.SecondFrom(startFrame * kFrame);
  switch (i % 6) {
    case 0:
      return desk.document.Edit(CutEdit(second, desk.clipboard));
    case 1:
      return desk.document.Edit(PasteInsertEdit(desk.clipboard, startFrame));
    case 2:
      return desk.document.Edit(InsertSilenceEdit(second));
    case 3:
      return desk.document.Edit(PasteOverwriteEdit(desk.clipboard, startFrame));
    case 4:
      return desk.document.Edit(PasteMergeEdit(desk.clipboard, startFrame));
    default:
      return desk.document.Edit(CopyEdit(second, desk.clipboard));
  }
}

void MeasureMemory(benchmark::State& state, const Desk& desk) {
  double peak = 0;
  double peakWithUndo = 0;
  bench::CountRounds(state, [&](const auto& count) {
    bench::ForgetPeakMemory();
    int done = 0;
    count([&] {
      for (int i = 0; i < kUndoableEdits; ++i) {
        done += MixedEdit(desk, i).done ? 1 : 0;
      }
    });
    peak = bench::PeakMemory();
    int undone = 0;
    for (; desk.document.CanUndo() && desk.document.Undo().done; ++undone) {
    }
    peakWithUndo = bench::PeakMemory();
    if (done != kUndoableEdits || undone != kUndoableEdits) {
      bench::Fail(state, "not all of the 32 edits could be done and undone");
    }
  });
  const double limit = 1.15 * static_cast<double>(desk.seconds * kSecond) / 1e6 + 60;
  bench::Report(state, {{"peak_mb", peak, limit}, {"peak_with_undo_mb", peakWithUndo, limit}});
}

// One edit, its undo, its redo and the undo again in every round. The limit is in copies of the clip.
void TimeEdit(benchmark::State& state, const Desk& desk, double limit,
              const std::function<EditResult()>& edit) {
  bool copied = true;
  const double copy =
      bench::TakeRounds(kRounds, [&] { copied = copied && desk.document.Clip()->Copy(); }).Median();
  bench::Times undos;
  bench::Times redos;
  const bench::Times edits = bench::CountRounds(state, [&](const auto& count) {
    EditResult edited;
    EditResult undone;
    EditResult redone;
    count([&] { edited = edit(); });
    undos.Take([&] { undone = desk.document.Undo(); });
    redos.Take([&] { redone = desk.document.Redo(); });
    if (!copied || !edited.done || !undone.done || !redone.done || !desk.document.Undo().done) {
      bench::Fail(state, "the clip could not be copied, or not edited, undone and redone");
    }
  });
  bench::Report(state, {{"of_copy", edits.Median() / copy, limit},
                        {"undo_of_copy", undos.Median() / copy, limit},
                        {"redo_of_copy", redos.Median() / copy, limit},
                        {"median_ms", edits.Median()},
                        {"undo_ms", undos.Median()},
                        {"redo_ms", redos.Median()},
                        {"copy_ms", copy}});
}

EditStep SilenceStep(const ByteRange& range) {
  return {.check = {},
          .change =
              [range](ClipEditor& editor) {
                const auto bytes = editor.Overwrite(static_cast<std::uint64_t>(range.start),
                                                    static_cast<std::uint64_t>(range.end - range.start));
                std::ranges::fill(*bytes, std::byte{0});
                return EditResult::Done();
              },
          .marksChanged = true,
          .refreshesLengths = false};
}

// A drag over a view of one second, a pixel a move.
EditResult DragPencil(const Desk& desk) {
  const PencilArea area{desk.Middle() / kFrame, bench::kRate, 1600, 400};
  EditResult result = desk.document.BeginPencil();
  for (int x = 0; x < area.width; ++x) {
    desk.document.DrawPencil(area, x, 60 + x % 40);
  }
  desk.document.EndPencil();
  return result;
}

void RegisterEdit(const char* name, const Desk& desk, double limit, const std::function<EditResult()>& edit) {
  bench::Register(name, kRounds,
                  [&desk, limit, edit](benchmark::State& state) { TimeEdit(state, desk, limit, edit); });
}

void RegisterEdits(const Desk& desk) {
  constexpr double kInPlace = 0.03;
  constexpr double kMoving = 2.0;
  const ByteRange inMiddle = desk.SecondFrom(desk.Middle());
  const ByteRange atStart = desk.SecondFrom(0);
  const std::int64_t middleFrame = desk.Middle() / kFrame;
  RegisterEdit("silence_in_middle", desk, kInPlace,
               [&desk, inMiddle] { return desk.document.Edit(SilenceStep(inMiddle)); });
  RegisterEdit("overwrite_in_middle", desk, kInPlace, [&desk, middleFrame] {
    return desk.document.Edit(PasteOverwriteEdit(desk.clipboard, middleFrame));
  });
  RegisterEdit("merge_in_middle", desk, kInPlace, [&desk, middleFrame] {
    return desk.document.Edit(PasteMergeEdit(desk.clipboard, middleFrame));
  });
  RegisterEdit("draw_in_middle_by_1600_moves", desk, kInPlace, [&desk] { return DragPencil(desk); });
  RegisterEdit("cut_at_start", desk, kMoving,
               [&desk, atStart] { return desk.document.Edit(CutEdit(atStart, desk.clipboard)); });
  RegisterEdit("paste_at_start", desk, kMoving,
               [&desk] { return desk.document.Edit(PasteInsertEdit(desk.clipboard, 0)); });
  RegisterEdit("insert_silence_at_start", desk, kMoving,
               [&desk, atStart] { return desk.document.Edit(InsertSilenceEdit(atStart)); });
}

int Run() {
  const test::ScratchFolder scratch;
  const ProgramPaths paths = PathsBelow(scratch.Path() / "program");
  std::filesystem::create_directories(paths.tempFolder);
  const std::filesystem::path file = scratch / "noise.wav";
  const std::uint32_t seconds = bench::SoundSeconds();
  Document document(paths, 1);
  Clipboard clipboard;
  const Desk desk{document, clipboard, seconds};
  if (!bench::WriteNoisyFile(file, seconds) || document.LoadFile(file, file, {}) != LoadOutcome::Loaded ||
      !document.Edit(CopyEdit(desk.SecondFrom(desk.Middle()), clipboard)).done) {
    std::fputs("the recording could not be made\n", stderr);
    return 1;
  }
  bench::Register("memory_of_32_edits", 1, [&](benchmark::State& state) { MeasureMemory(state, desk); });
  RegisterEdits(desk);
  return bench::RunRegistered();
}

}  // namespace
}  // namespace tembrel

int main(int argc, char** argv) {
  return tembrel::bench::ReadFlags(argc, argv) ? tembrel::Run() : 1;
}
