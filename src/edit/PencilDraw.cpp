#include "edit/PencilDraw.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "audio/Samples.h"

namespace tembrel {

namespace {

// The gap between the two channels and what lies above the upper one, in rows.
constexpr int kStereoGap = 12;
constexpr int kStereoTop = 3;
constexpr int kFramesPerPixel = 4;  // no pencil where more are shown
constexpr int kFramesTested = 3;
// A drag sets a few samples a move; what stands in view is put aside in one piece instead. No view that can
// be drawn in shows more.
constexpr std::int64_t kMostKept = std::int64_t{1} << 20U;
constexpr std::int64_t kReach8 = 5;
constexpr std::int64_t kReach16 = 1000;

bool EightBits(const WaveFormat& format) {
  return format.wBitsPerSample == 8;
}

// The waveform is drawn over ten elevenths of its height; this undoes that.
std::int64_t LevelOfRow(const WaveFormat& format, std::int64_t y, std::int64_t height) {
  const std::int64_t range = EightBits(format) ? 256 : 65535;
  const std::int64_t centre = EightBits(format) ? kSilence8 : 32767;
  return -(y * range / height - centre) * 11 / 10;
}

// The frame under a pixel column, by the view's own rule.
std::int64_t FrameUnder(const PencilArea& area, std::int64_t x) {
  return static_cast<std::int64_t>(static_cast<double>(area.firstVisibleFrame) +
                                   static_cast<double>(area.framesOnScreen) * static_cast<double>(x) /
                                       area.width);
}

// Distance from silence.
std::int64_t SampleLevel(const AudioClip& clip, std::int64_t frame, int channel) {
  const std::int64_t index = frame * clip.format.nChannels + channel;
  const std::byte* const block = clip.data.Data();
  return EightBits(clip.format) ? Sample8(block, static_cast<std::uint64_t>(index)) - kSilence8
                                : Sample16(block, static_cast<std::uint64_t>(index));
}

}  // namespace

std::optional<PencilLevel> PencilLevelAt(const WaveFormat& format, int y, int height) {
  if (format.nChannels != 2) {
    return height > 0 ? std::optional(PencilLevel{0, LevelOfRow(format, y, height)}) : std::nullopt;
  }
  const int half = height / 2;
  const int channelHeight = (height - kStereoGap) / 2;
  if (channelHeight <= 0) {
    return std::nullopt;
  }
  const int channel = y < half ? 0 : 1;
  const std::int64_t row = std::int64_t{y} - kStereoTop - (channel == 0 ? 0 : half);
  return PencilLevel{channel, LevelOfRow(format, row, channelHeight)};
}

bool PencilTouches(const AudioClip& clip, const PencilArea& area, int documentWidth, int x, int y) {
  if (!IsEditable(clip.format) || area.width <= 0 ||
      area.framesOnScreen > std::int64_t{kFramesPerPixel} * documentWidth) {
    return false;
  }
  const std::optional<PencilLevel> mouse = PencilLevelAt(clip.format, y, area.height);
  if (!mouse) {
    return false;
  }
  const std::int64_t reach = EightBits(clip.format) ? kReach8 : kReach16;
  const std::int64_t frame = FrameUnder(area, x);
  for (std::int64_t tested = frame; tested > frame - kFramesTested; --tested) {
    if (tested > 0 && tested < clip.Frames() &&
        std::abs(mouse->value - SampleLevel(clip, tested, mouse->channel)) < reach) {
      return true;
    }
  }
  return false;
}

EditResult DrawWithPencil(ClipEditor& editor, const PencilArea& area, std::int64_t frameCount, int x, int y) {
  const WaveFormat format = editor.Clip().format;
  const std::optional<PencilLevel> level = PencilLevelAt(format, y, area.height);
  if (!IsEditable(format) || !level || area.width <= 0) {
    return EditResult::Done();
  }
  const std::int64_t first = FrameUnder(area, std::int64_t{x} - 1);
  const std::int64_t end = std::min(
      {FrameUnder(area, std::int64_t{x} + 1), frameCount, static_cast<std::int64_t>(editor.Clip().Frames())});
  if (first < 0 || first >= end) {
    return EditResult::Done();
  }
  const std::int64_t frameSize = format.nBlockAlign;
  if (area.firstVisibleFrame >= 0 && area.framesOnScreen > 0 &&
      area.framesOnScreen <= kMostKept / frameSize) {
    editor.Keep(static_cast<std::uint64_t>(area.firstVisibleFrame * frameSize),
                static_cast<std::uint64_t>(area.framesOnScreen * frameSize));
  }
  const auto count = static_cast<std::uint64_t>(end - first);
  const auto bytes =
      editor.Overwrite(static_cast<std::uint64_t>(first) * format.nBlockAlign, count * format.nBlockAlign);
  if (!bytes) {
    return RefusalOf(editor);
  }
  for (std::uint64_t i = 0; i < count; ++i) {
    const std::uint64_t index = i * format.nChannels + static_cast<std::uint64_t>(level->channel);
    if (EightBits(format)) {
      StoreSample8(bytes->data(), index, level->value + kSilence8);
    } else {
      StoreSample16(bytes->data(), index, level->value);
    }
  }
  return EditResult::Done();
}

}  // namespace tembrel
