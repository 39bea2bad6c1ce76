// What editing an hour of sound costs: 60 minutes of 44.1 kHz 16-bit stereo, about 635 MB. Prints every
// figure beside the time of one whole copy of the clip in memory (a fresh block, filled), taken in the same
// run.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "audio/ProgramPaths.h"
#include "audio/WaveWriter.h"
#include "document/Document.h"
#include "edit/ClipEdits.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel {
namespace {

constexpr std::int64_t kRate = 44100;
constexpr std::int64_t kFrame = 4;
constexpr std::int64_t kSecond = kRate * kFrame;
constexpr std::int64_t kHour = kSecond * 3600;
constexpr std::int64_t kMiddle = kHour / 2;
constexpr int kRounds = 5;
constexpr int kUndoableEdits = 32;
constexpr double kMegabyte = 1e6;

bool WriteNoisyHour(const std::filesystem::path& path) {
  std::optional<MemoryBlock> block = MemoryBlock::Allocate(static_cast<std::size_t>(kHour));
  if (!block) {
    return false;
  }
  std::uint32_t state = 1;
  for (std::size_t at = 0; at < block->Size(); at += sizeof state) {
    state = state * 1664525U + 1013904223U;
    std::memcpy(block->Data() + at, &state, sizeof state);
  }
  return WriteWave(block->Bytes(), static_cast<std::uint32_t>(kRate), 16, 2, path).ok;
}

// The most memory this process has had at a time, in bytes, since ForgetPeak.
double PeakMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) {
      return std::stod(line.substr(6)) * 1024;
    }
  }
  return 0;
}

void ForgetPeak() {
  std::ofstream("/proc/self/clear_refs") << "5";
}

double Milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
  return taken.count();
}

double Median(std::vector<double> times) {
  std::ranges::sort(times);
  return times.at(times.size() / 2);
}

class Bench {
 public:
  explicit Bench(Document& edited) : document(edited) {}

  bool Failed() const { return failed; }

  void MeasureWholeCopy() {
    std::vector<double> times;
    times.reserve(kRounds);
    for (int round = 0; round < kRounds; ++round) {
      times.push_back(
          Milliseconds([this] { Check(document.Clip()->Copy() != nullptr, "copying the clip"); }));
    }
    wholeCopy = Median(times);
    std::printf("%-52s %9.2f ms\n", "one whole copy of the clip in memory", wholeCopy);
  }

  // One edit, its undo, its redo and the undo again, several times over.
  void Measure(const char* what, double limit, const std::function<EditResult()>& edit) {
    std::vector<double> edits;
    std::vector<double> undos;
    std::vector<double> redos;
    for (int round = 0; round < kRounds; ++round) {
      edits.push_back(Milliseconds([&] { Check(edit().done, what); }));
      undos.push_back(Milliseconds([&] { Check(document.Undo().done, "undo"); }));
      redos.push_back(Milliseconds([&] { Check(document.Redo().done, "redo"); }));
      Check(document.Undo().done, "undo");
    }
    Report(what, Median(edits), limit);
    Report("  its undo", Median(undos), limit);
    Report("  its redo", Median(redos), limit);
  }

  void MeasureMemory(const std::function<EditResult(int)>& edit) {
    ForgetPeak();
    for (int i = 0; i < kUndoableEdits; ++i) {
      Check(edit(i).done, "one of 32 edits");
    }
    const double limit = 1.15 * static_cast<double>(kHour) + 60 * kMegabyte;
    Say("peak memory after 32 edits, MB", PeakMemory() / kMegabyte, limit / kMegabyte);
    int undone = 0;
    for (; document.CanUndo() && document.Undo().done; ++undone) {
    }
    Check(undone == kUndoableEdits, "undoing all 32 edits");
    Say("  with all of them undone", PeakMemory() / kMegabyte, limit / kMegabyte);
  }

  void Check(bool good, const char* what) {
    if (!good) {
      std::printf("FAILED: %s\n", what);
      failed = true;
    }
  }

 private:
  void Report(const char* what, double milliseconds, double limit) {
    const double ratio = milliseconds / wholeCopy;
    failed = failed || ratio > limit;
    std::printf("%-52s %9.2f ms   %7.4f of a copy (at most %.2f)%s\n", what, milliseconds, ratio, limit,
                ratio > limit ? "  MISSED" : "");
  }
  void Say(const char* what, double value, double limit) {
    failed = failed || value > limit;
    std::printf("%-52s %9.1f      (at most %.1f)%s\n", what, value, limit, value > limit ? "  MISSED" : "");
  }

  Document& document;
  double wholeCopy = 1;
  bool failed = false;
};

// The seconds of the 32 edits lie apart: nothing is shared by luck.
EditResult MixedEdit(Document& document, Clipboard& clipboard, int i) {
  const std::int64_t start = (100 + i * 90) * kSecond;
  const ByteRange second{start, start + kSecond};
  switch (i % 6) {
    case 0:
      return document.Edit(CutEdit(second, clipboard));
    case 1:
      return document.Edit(PasteInsertEdit(clipboard, start / kFrame));
    case 2:
      return document.Edit(InsertSilenceEdit(second));
    case 3:
      return document.Edit(PasteOverwriteEdit(clipboard, start / kFrame));
    case 4:
      return document.Edit(PasteMergeEdit(clipboard, start / kFrame));
    default:
      return document.Edit(CopyEdit(second, clipboard));
  }
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
EditResult DragPencil(Document& document) {
  constexpr PencilArea kArea{kMiddle / kFrame, kRate, 1600, 400};
  EditResult result = document.BeginPencil();
  for (int x = 0; x < kArea.width; ++x) {
    document.DrawPencil(kArea, x, 60 + x % 40);
  }
  document.EndPencil();
  return result;
}

int Run() {
  const test::ScratchFolder scratch;
  const ProgramPaths paths = PathsBelow(scratch.Path() / "program");
  std::filesystem::create_directories(paths.tempFolder);
  const std::filesystem::path file = scratch.Path() / "hour.wav";
  Document document(paths, 1);
  if (!WriteNoisyHour(file) || document.LoadFile(file, file, {}) != LoadOutcome::Loaded) {
    std::puts("an hour of sound could not be made");
    return 1;
  }
  Clipboard clipboard;
  Bench bench(document);
  bench.MeasureMemory([&](int i) { return MixedEdit(document, clipboard, i); });
  bench.MeasureWholeCopy();
  const ByteRange inMiddle{kMiddle, kMiddle + kSecond};
  const ByteRange atStart{0, kSecond};
  bench.Check(document.Edit(CopyEdit(inMiddle, clipboard)).done, "copy");
  const std::int64_t middleFrame = kMiddle / kFrame;
  constexpr double kInPlace = 0.03;
  constexpr double kMoving = 2.0;
  bench.Measure("one second of silence in the middle", kInPlace,
                [&] { return document.Edit(SilenceStep(inMiddle)); });
  bench.Measure("overwriting one second in the middle", kInPlace,
                [&] { return document.Edit(PasteOverwriteEdit(clipboard, middleFrame)); });
  bench.Measure("merging one second in the middle", kInPlace,
                [&] { return document.Edit(PasteMergeEdit(clipboard, middleFrame)); });
  bench.Measure("drawing over one second, 1600 mouse moves", kInPlace, [&] { return DragPencil(document); });
  bench.Measure("cutting one second at the start", kMoving,
                [&] { return document.Edit(CutEdit(atStart, clipboard)); });
  bench.Measure("pasting one second at the start", kMoving,
                [&] { return document.Edit(PasteInsertEdit(clipboard, 0)); });
  bench.Measure("inserting one second of silence at the start", kMoving,
                [&] { return document.Edit(InsertSilenceEdit(atStart)); });
  return bench.Failed() ? 1 : 0;
}

}  // namespace
}  // namespace tembrel

int main() {
  return tembrel::Run();
}
