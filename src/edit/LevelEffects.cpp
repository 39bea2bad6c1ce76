#include "edit/LevelEffects.h"

#include <algorithm>
#include <atomic>
#include <string>

#include "edit/ClipEdits.h"
#include "edit/CompressCurve.h"
#include "edit/EffectRange.h"
#include "edit/LevelScale.h"

namespace tembrel {

namespace {

bool Is8Bit(const ClipEditor& editor) {
  return editor.Clip().format.wBitsPerSample == 8;
}

std::uint64_t LengthOf(const ByteRange& range) {
  return static_cast<std::uint64_t>(range.end - range.start);
}

EditResult Silence(ClipEditor& editor, const ByteRange& selection) {
  const ByteRange range = FrameBytes(selection, editor.Clip());
  const std::byte silence{Is8Bit(editor) ? static_cast<unsigned char>(kSilence8Edited)
                                         : static_cast<unsigned char>(0)};
  return RewritePieces(
      editor, range, 0, LengthOf(range),
      [silence](std::span<std::byte> piece, std::int64_t) { std::ranges::fill(piece, silence); });
}

void RaiseTo(std::atomic<int>& largest, int value) {
  for (int seen = largest; value > seen && !largest.compare_exchange_weak(seen, value);) {
  }
}

EditResult Amplify(ClipEditor& editor, const ByteRange& selection, int percent) {
  const ByteRange range = SampleBytes(selection, editor.Clip());
  const std::uint64_t total = 2 * LengthOf(range);  // looked at, then written
  const bool is8Bit = Is8Bit(editor);
  std::atomic<int> magnitude = 0;
  const bool looked =
      LookAtPieces(editor, range, 0, total, [&](std::span<const std::byte> piece, std::int64_t) {
        RaiseTo(magnitude, is8Bit ? LargestMagnitude8(piece) : LargestMagnitude16(piece));
      });
  if (!looked) {
    return EditResult::Cancelled();
  }
  const auto wanted = static_cast<float>(percent * 0.01L);
  const float gain =
      is8Bit ? GainWithin(wanted, magnitude, 127, 126) : GainWithin(wanted, magnitude, 32767, 32767);
  const ByteTable table = ScaleTable8(gain);
  return RewritePieces(editor, range, LengthOf(range), total, [&](std::span<std::byte> piece, std::int64_t) {
    if (is8Bit) {
      MapBytes(piece, table);
    } else {
      Scale16(piece, gain);
    }
  });
}

// The gains of a fade over `count` samples.
struct FadeLine {
  std::int64_t count = 0;
  bool rises = true;

  float GainAt(std::int64_t step) const {
    return static_cast<float>(0.01L * static_cast<long double>(rises ? step : 100 - step));
  }
  std::int64_t StepAt(std::int64_t sample) const { return sample * 100 / count; }
  // The first sample of the next step.
  std::int64_t EndOfStep(std::int64_t step) const { return ((step + 1) * count + 99) / 100; }
};

void FadePiece(std::span<std::byte> piece, std::int64_t firstSample, const FadeLine& line, bool is8Bit) {
  const std::int64_t size = is8Bit ? 1 : 2;
  const std::int64_t end = firstSample + static_cast<std::int64_t>(piece.size()) / size;
  for (std::int64_t sample = firstSample; sample < end;) {
    const std::int64_t step = line.StepAt(sample);
    const std::int64_t runEnd = std::min(end, line.EndOfStep(step));
    const auto run = piece.subspan(static_cast<std::size_t>((sample - firstSample) * size),
                                   static_cast<std::size_t>((runEnd - sample) * size));
    if (is8Bit) {
      MapBytes(run, ScaleTable8(line.GainAt(step)));
    } else {
      Scale16(run, line.GainAt(step));
    }
    sample = runEnd;
  }
}

EditResult Fade(ClipEditor& editor, const ByteRange& selection, bool rises) {
  const ByteRange range = SampleBytes(selection, editor.Clip());
  const bool is8Bit = Is8Bit(editor);
  const std::int64_t size = is8Bit ? 1 : 2;
  const FadeLine line{(range.end - range.start) / size, rises};
  return RewritePieces(editor, range, 0, LengthOf(range),
                       [&](std::span<std::byte> piece, std::int64_t offset) {
                         FadePiece(piece, offset / size, line, is8Bit);
                       });
}

EditResult Compress(ClipEditor& editor, const ByteRange& selection) {
  const ByteRange range = SampleBytes(selection, editor.Clip());
  const bool is8Bit = Is8Bit(editor);
  const ByteTable table = CompressTable8();
  return RewritePieces(editor, range, 0, LengthOf(range), [&](std::span<std::byte> piece, std::int64_t) {
    if (is8Bit) {
      MapBytes(piece, table);
    } else {
      Compress16(piece);
    }
  });
}

}  // namespace

EditStep AmplifyEdit(const ByteRange& selection, int percent) {
  EditStep step =
      InPlaceStep([selection, percent](ClipEditor& editor) { return Amplify(editor, selection, percent); });
  step.check = [percent](const AudioClip&) {
    return percent >= 0 && percent <= kLargestGainPercent
               ? EditResult::Done()
               : EditResult::Refused("Sound can be amplified by 0 to " + std::to_string(kLargestGainPercent) +
                                     " percent.");
  };
  return step;
}

EditStep SilenceEdit(const ByteRange& selection) {
  return InPlaceStep([selection](ClipEditor& editor) { return Silence(editor, selection); });
}

EditStep FadeInEdit(const ByteRange& selection) {
  return InPlaceStep([selection](ClipEditor& editor) { return Fade(editor, selection, true); });
}

EditStep FadeOutEdit(const ByteRange& selection) {
  return InPlaceStep([selection](ClipEditor& editor) { return Fade(editor, selection, false); });
}

EditStep CompressEdit(const ByteRange& selection) {
  return InPlaceStep([selection](ClipEditor& editor) { return Compress(editor, selection); });
}

}  // namespace tembrel
