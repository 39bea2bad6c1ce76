#include "edit/FilterEffect.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "edit/EffectRange.h"
#include "edit/FilteredSound.h"
#include "edit/FloatBlock.h"
#include "edit/SampleFloat.h"

namespace tembrel {

namespace {

// Frames that are scaled and stored by one thread at a time, while they are in the processor's cache.
constexpr std::int64_t kStoredAtOnce = std::int64_t{1} << 13U;

// Goes through the range twice: for the peak of each channel, which shows only at its end, and to scale and
// store. Of the floats the last are kept in between, as many as EditMemory says; those before are computed
// again: hours need no more memory than minutes.
class FilterRun {
 public:
  FilterRun(ClipEditor& clipEditor, const ByteRange& selection, FilterMode mode, int preset)
      : editor(clipEditor),
        range(EffectFrames::Of(selection, clipEditor.Clip())),
        filter(mode, range.format.nSamplesPerSec, BuildPresetTable(preset)),
        size(static_cast<std::uint64_t>(range.bytes.end - range.bytes.start)) {}

  EditResult Run() {
    if (!Prepare()) {
      return RefusalOf(editor);
    }
    if (!FindPeaks()) {
      return EditResult::Cancelled();
    }
    const auto bytes = editor.Overwrite(static_cast<std::uint64_t>(range.bytes.start), size);
    if (!bytes) {
      return RefusalOf(editor);
    }
    return Write(*bytes) ? EditResult::Done() : EditResult::Cancelled();
  }

 private:
  bool Prepare() {
    sound = FilteredSound::Make(editor, range, filter);
    if (!sound) {
      return false;
    }
    const auto kept =
        static_cast<std::int64_t>(editor.LargestStore() / sizeof(float) / range.format.nChannels);
    const std::int64_t computedTwice = std::max<std::int64_t>(range.count - kept, 0);
    keptFrom = std::min((computedTwice + kFilteredAPart - 1) / kFilteredAPart * kFilteredAPart, range.count);
    for (std::size_t channel = 0; channel < range.format.nChannels; ++channel) {
      if (!Allocate(std::min(keptFrom, kFilteredAPart), passing.at(channel)) ||
          !Allocate(range.count - keptFrom, keeping.at(channel))) {
        return false;
      }
    }
    return true;
  }

  bool Allocate(std::int64_t frames, MemoryBlock& block) {
    std::optional<MemoryBlock> allocated =
        editor.Allocate(static_cast<std::uint64_t>(frames) * sizeof(float));
    if (allocated) {
      block = std::move(*allocated);
    }
    return allocated.has_value();
  }

  ChannelFloats Floats(std::int64_t first) {
    const auto count = static_cast<std::size_t>(std::min(kFilteredAPart, range.count - first));
    ChannelFloats floats;
    for (std::size_t channel = 0; channel < range.format.nChannels; ++channel) {
      floats.at(channel) =
          first < keptFrom
              ? AsFloats(passing.at(channel)).first(count)
              : AsFloats(keeping.at(channel)).subspan(static_cast<std::size_t>(first - keptFrom), count);
    }
    return floats;
  }

  bool Tell(std::int64_t frames, std::uint64_t before) {
    const auto done = static_cast<std::uint64_t>(std::min(frames, range.count)) * FrameSize(range.format);
    return editor.Proceed(before + done, 2 * size);
  }

  bool FindPeaks() {
    const auto frames = editor.Clip().Bytes().subspan(static_cast<std::size_t>(range.bytes.start), size);
    for (std::int64_t first = 0; first < range.count; first += kFilteredAPart) {
      const ChannelFloats floats = Floats(first);
      sound->Continue(frames, first, floats, team);
      team.ShareOut(range.format.nChannels, [&](std::int64_t index) {
        const auto channel = static_cast<std::size_t>(index);
        peaks.at(channel) = std::max(peaks.at(channel), LargestMagnitude(floats.at(channel)));
      });
      if (!Tell(first + kFilteredAPart, 0)) {
        return false;
      }
    }
    return true;
  }

  bool Write(std::span<std::byte> frames) {
    for (std::int64_t first = 0; first < range.count; first += kFilteredAPart) {
      const ChannelFloats floats = Floats(first);
      if (first < keptFrom) {
        sound->Continue(frames, first, floats, team);
      }
      Store(frames.subspan(static_cast<std::size_t>(first) * FrameSize(range.format)), floats);
      if (!Tell(first + kFilteredAPart, size)) {
        return false;
      }
    }
    return true;
  }

  void Store(std::span<std::byte> frames, const ChannelFloats& floats) {
    const auto count = static_cast<std::int64_t>(floats[0].size());
    team.ShareOut((count + kStoredAtOnce - 1) / kStoredAtOnce, [&](std::int64_t piece) {
      const std::int64_t first = piece * kStoredAtOnce;
      const std::int64_t length = std::min(kStoredAtOnce, count - first);
      const auto stored = frames.subspan(static_cast<std::size_t>(first) * FrameSize(range.format));
      for (std::size_t channel = 0; channel < range.format.nChannels; ++channel) {
        const auto values =
            floats.at(channel).subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(length));
        DivideIfAboveUnity(values, peaks.at(channel));
        FloatToSamples(range.format, stored, values, length, range.Selector(channel));
      }
    });
  }

  ClipEditor& editor;
  const EffectFrames range;
  const BlockFilter filter;
  std::optional<FilteredSound> sound;
  std::uint64_t size;
  std::int64_t keptFrom = 0;  // frames before are computed twice, those from here on are kept
  std::array<MemoryBlock, kMostChannels> passing;
  std::array<MemoryBlock, kMostChannels> keeping;
  std::array<float, kMostChannels> peaks{};
  WorkTeam team;
};

}  // namespace

EditStep FilterEdit(const ByteRange& selection, int preset) {
  EditStep step = InPlaceStep([selection, preset](ClipEditor& editor) {
    return FilterRun(editor, selection, FilterMode::Preset, preset).Run();
  });
  step.check = [preset](const AudioClip&) {
    const bool exists = preset >= 0 && preset < static_cast<int>(kFilterPresetCount);
    return exists ? EditResult::Done()
                  : EditResult::Refused("There is no filter preset " + std::to_string(preset) + ".");
  };
  return step;
}

EditStep CleanSpectrumEdit(const ByteRange& selection) {
  return InPlaceStep([selection](ClipEditor& editor) {
    return FilterRun(editor, selection, FilterMode::CleanSpectrum, 0).Run();
  });
}

EditStep CutRumbleEdit(const ByteRange& selection) {
  return InPlaceStep([selection](ClipEditor& editor) {
    return FilterRun(editor, selection, FilterMode::CutRumble, 0).Run();
  });
}

}  // namespace tembrel
