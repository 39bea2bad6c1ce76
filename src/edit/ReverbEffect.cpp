#include "edit/ReverbEffect.h"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "edit/EchoLine.h"
#include "edit/EchoPeak.h"
#include "edit/EffectRange.h"
#include "edit/SampleFloat.h"
#include "platform/Prefetch.h"
#include "platform/WorkTeam.h"

namespace tembrel {

namespace {

constexpr std::uint32_t kDelaysASecond = 15;
// Frames that go through all steps at a time, while they are in the processor's first cache.
constexpr std::int64_t kRun = 1024;
// Frames that are worked on between two looks at whether the user wants to stop.
constexpr std::int64_t kFramesAtOnce = std::int64_t{1} << 20U;

constexpr std::int64_t kLeastWidth = 512;  // of a strip that is not alone, in columns
constexpr std::int64_t kMostStrips = 16;
constexpr std::int64_t kVector = 16;  // floats
// One column of so many may be computed on its own: then that takes much less time than all of them.
constexpr std::int64_t kColumnsForOne = 64;

// Some columns of the range, when it is laid out in rows that are a delay long. Echoes stay within their
// column: strips have nothing to do with each other, and each is echoed as if it was a sound of its own.
struct Strip {
  std::int64_t first = 0;  // column
  std::int64_t width = 0;  // in columns
  std::array<std::optional<EchoLine>, kMostChannels> lines;
  std::array<std::optional<NearPeak>, kMostChannels> near;
  std::array<float, kMostChannels> peaks{};
};

struct FrameRun {
  std::int64_t first = 0;  // frame
  std::int64_t count = 0;  // at most kRun
  std::int64_t column = 0;
  std::int64_t next = 0;  // frame where the strip goes on
};

class Reverberation {
 public:
  Reverberation(ClipEditor& clipEditor, const EffectFrames& frameRange)
      : editor(clipEditor),
        range(frameRange),
        size(static_cast<std::uint64_t>(range.bytes.end - range.bytes.start)),
        delay(range.format.nSamplesPerSec / kDelaysASecond),
        rowLength(std::clamp<std::int64_t>(range.count, 1, delay == 0 ? kRun : delay)) {}

  EditResult Run() {
    if (!MakeStrips()) {
      return RefusalOf(editor);
    }
    EditResult found =
        FindPeaks(editor.Clip().Bytes().subspan(static_cast<std::size_t>(range.bytes.start), size));
    if (!found.done) {
      return found;
    }
    const auto bytes = editor.Overwrite(static_cast<std::uint64_t>(range.bytes.start), size);
    if (!bytes) {
      return RefusalOf(editor);
    }
    return Write(*bytes) ? EditResult::Done() : EditResult::Cancelled();
  }

 private:
  bool MakeStrips() {
    const std::int64_t rows = (range.count + rowLength - 1) / rowLength;
    const std::int64_t count = StripCount();
    for (std::int64_t index = 0; index < count; ++index) {
      Strip strip;
      strip.first = StripStart(index, count);
      strip.width = StripStart(index + 1, count) - strip.first;
      for (std::size_t channel = 0; channel < range.format.nChannels; ++channel) {
        strip.lines.at(channel) = EchoLine::Make(editor, rows * strip.width, delay == 0 ? 0 : strip.width);
        strip.near.at(channel) = NearPeak::Make(editor, strip.width);
        if (!strip.lines.at(channel) || !strip.near.at(channel)) {
          return false;
        }
      }
      strips.push_back(std::move(strip));
    }
    return true;
  }

  // As many for each processor, if rows are long enough.
  std::int64_t StripCount() const {
    if (rowLength > kFramesAtOnce) {
      return 1;
    }
    const std::int64_t most = std::clamp<std::int64_t>(rowLength / kLeastWidth, 1, kMostStrips);
    const std::int64_t processors = Processors();
    return most < processors ? most : most / processors * processors;
  }

  std::int64_t StripStart(std::int64_t index, std::int64_t count) const {
    return index == count ? rowLength : rowLength * index / count / kVector * kVector;
  }

  // Calls work(strip, run) for all frames, on all processors, and for each strip in order. `goOn` is asked
  // from time to time. False when it said no, or the user stopped it. `before` bytes were worked through
  // before.
  bool ForEachRun(std::uint64_t before, const std::function<void(Strip&, const FrameRun&)>& work,
                  const std::function<bool()>& goOn = {}) {
    const std::int64_t atOnce =
        rowLength > kFramesAtOnce ? kFramesAtOnce : kFramesAtOnce / rowLength * rowLength;
    for (std::int64_t first = 0; first < range.count; first += atOnce) {
      const std::int64_t end = std::min(first + atOnce, range.count);
      team.ShareOut(static_cast<std::int64_t>(strips.size()), [&](std::int64_t index) {
        WorkOnStrip(strips[static_cast<std::size_t>(index)], first, end, work);
      });
      told = std::max(told, before + static_cast<std::uint64_t>(end) * FrameSize(range.format));
      if ((goOn && !goOn()) || !editor.Proceed(told, 2 * size)) {
        return false;
      }
    }
    return true;
  }

  void WorkOnStrip(Strip& strip, std::int64_t first, std::int64_t end,
                   const std::function<void(Strip&, const FrameRun&)>& work) const {
    if (strip.width == rowLength) {
      for (std::int64_t frame = first; frame < end; frame += kRun) {
        const std::int64_t count = std::min(kRun, end - frame);
        work(strip, {.first = frame, .count = count, .column = frame % rowLength, .next = frame + count});
      }
      return;
    }
    for (std::int64_t row = first; row < end; row += rowLength) {
      const std::int64_t rowStart = row + strip.first;
      const std::int64_t runsEnd = std::min(rowStart + strip.width, end);
      for (std::int64_t frame = rowStart; frame < runsEnd; frame += kRun) {
        const std::int64_t runEnd = std::min(frame + kRun, runsEnd);
        work(strip, {.first = frame,
                     .count = runEnd - frame,
                     .column = frame - rowStart,
                     .next = runEnd < rowStart + strip.width ? runEnd : rowStart + rowLength});
      }
    }
  }

  // The run's bytes of all the range's.
  template <typename Byte>
  std::span<Byte> BytesOf(const FrameRun& run, std::span<Byte> frames) const {
    return frames.subspan(static_cast<std::size_t>(run.first) * FrameSize(range.format),
                          static_cast<std::size_t>(run.count) * FrameSize(range.format));
  }

  // Has the strip's next run fetched, a part for each channel of this one: more at a time would have to wait.
  void FetchNext(const FrameRun& run, std::span<const std::byte> frames, std::size_t channel) const {
    const std::size_t part = BytesOf(run, frames).size() / range.format.nChannels;
    const std::size_t start = static_cast<std::size_t>(run.next) * FrameSize(range.format) + channel * part;
    if (start + part <= frames.size()) {
      PrefetchForReading(frames.subspan(start, part));
    }
  }

  using Buffer = std::array<float, kRun>;

  // Puts the run's floats with their echoes into the buffer.
  std::span<float> Echo(Strip& strip, const FrameRun& run, std::span<const std::byte> frames,
                        std::size_t channel, Buffer& buffer) const {
    const std::span<float> values = std::span(buffer).first(static_cast<std::size_t>(run.count));
    FetchNext(run, frames, channel);
    SamplesToFloat(range.format, BytesOf(run, frames), values, run.count, range.Selector(channel));
    strip.lines.at(channel)->Continue(values);
    return values;
  }

  void Restart(EchoRounding rounding) {
    for (Strip& strip : strips) {
      for (std::size_t channel = 0; channel < range.format.nChannels; ++channel) {
        strip.lines.at(channel)->Restart(rounding);
      }
    }
  }

  // In few columns if those can be told, or in all of them.
  EditResult FindPeaks(std::span<const std::byte> frames) {
    bool few = delay > 0 && MostColumns() > 0;
    if (few) {
      Restart(EchoRounding::Near);
      const auto take = [&](Strip& strip, const FrameRun& run) {
        Buffer buffer;
        for (std::size_t channel = 0; channel < range.format.nChannels; ++channel) {
          strip.near.at(channel)->Take(Echo(strip, run, frames, channel, buffer), run.column);
        }
      };
      const auto goOn = [&] { return few = FewColumnsMatter(); };
      if (!ForEachRun(0, take, goOn) && few) {
        return EditResult::Cancelled();
      }
    }
    return few ? FindPeaksInColumns(frames) : FindPeaksInAll(frames);
  }

  float LargestNearly(std::size_t channel) const {
    float largest = 0;
    for (const Strip& strip : strips) {
      largest = std::max(largest, strip.near.at(channel)->Largest());
    }
    return largest;
  }

  // Where the channel's peak may stand, if it is above 1.
  std::vector<std::int64_t> ColumnsThatMatter(std::size_t channel) const {
    std::vector<std::int64_t> columns;
    const float largest = LargestNearly(channel);
    if (MayPassUnity(largest)) {
      for (const Strip& strip : strips) {
        strip.near.at(channel)->AddColumns(largest, strip.first, columns);
      }
    }
    return columns;
  }

  std::size_t MostColumns() const {
    return std::min(kMostColumns, static_cast<std::size_t>(rowLength / kColumnsForOne));
  }

  bool FewColumnsMatter() const {
    for (std::size_t channel = 0; channel < range.format.nChannels; ++channel) {
      if (ColumnsThatMatter(channel).size() > MostColumns()) {
        return false;
      }
    }
    return true;
  }

  EditResult FindPeaksInColumns(std::span<const std::byte> frames) {
    for (std::size_t channel = 0; channel < range.format.nChannels; ++channel) {
      const std::vector<std::int64_t> columns = ColumnsThatMatter(channel);
      const std::optional<float> peak = PeakOfColumns(editor, range, frames, channel, rowLength, columns);
      if (!peak) {
        return RefusalOf(editor);
      }
      peaks.at(channel) = *peak;
    }
    return EditResult::Done();
  }

  EditResult FindPeaksInAll(std::span<const std::byte> frames) {
    Restart(EchoRounding::Exact);
    const bool finished = ForEachRun(0, [&](Strip& strip, const FrameRun& run) {
      Buffer buffer;
      for (std::size_t channel = 0; channel < range.format.nChannels; ++channel) {
        float& peak = strip.peaks.at(channel);
        peak = std::max(peak, LargestMagnitude(Echo(strip, run, frames, channel, buffer)));
      }
    });
    for (const Strip& strip : strips) {
      for (std::size_t channel = 0; channel < range.format.nChannels; ++channel) {
        peaks.at(channel) = std::max(peaks.at(channel), strip.peaks.at(channel));
      }
    }
    return finished ? EditResult::Done() : EditResult::Cancelled();
  }

  bool Write(std::span<std::byte> frames) {
    Restart(EchoRounding::Exact);
    return ForEachRun(size, [&](Strip& strip, const FrameRun& run) {
      Buffer buffer;
      const std::span<std::byte> bytes = BytesOf(run, frames);
      for (std::size_t channel = 0; channel < range.format.nChannels; ++channel) {
        const std::span<float> values = Echo(strip, run, frames, channel, buffer);
        DivideIfAboveUnity(values, peaks.at(channel));
        FloatToSamples(range.format, bytes, values, run.count, range.Selector(channel));
      }
    });
  }

  ClipEditor& editor;
  EffectFrames range;
  std::uint64_t size;
  std::int64_t delay;
  std::int64_t rowLength;
  std::vector<Strip> strips;
  std::array<float, kMostChannels> peaks{};
  std::uint64_t told = 0;
  WorkTeam team;
};

EditResult Reverb(ClipEditor& editor, const ByteRange& selection) {
  return Reverberation(editor, EffectFrames::Of(selection, editor.Clip())).Run();
}

}  // namespace

EditStep ReverbEdit(const ByteRange& selection) {
  return InPlaceStep([selection](ClipEditor& editor) { return Reverb(editor, selection); });
}

}  // namespace tembrel
