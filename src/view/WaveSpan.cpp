#include "view/WaveSpan.h"

#include "view/PixelMap.h"
#include "view/WaveLines.h"

namespace tembrel {

namespace {

// Bytes from one channel's sample to the next one's. A frame may be longer than its samples need (24 bits in
// four bytes each); the sample then stands in the top bytes of its share. A block alignment that cannot be so
// is not believed.
std::int64_t ContainerBytes(const WaveFormat& format) {
  const bool roomy = format.nChannels != 0 && format.nBlockAlign >= FrameSize(format) &&
                     format.nBlockAlign % format.nChannels == 0;
  return roomy ? format.nBlockAlign / format.nChannels : BytesPerSample(format.wBitsPerSample);
}

}  // namespace

std::optional<WaveSpan> WaveSpanOf(const AudioClip& clip, const PaintArea& area, std::int64_t first,
                                   std::int64_t framesOnScreen) {
  const std::int64_t sampleBytes = ContainerBytes(clip.format);
  const std::int64_t stride = sampleBytes * clip.format.nChannels;
  if (stride == 0 || area.width <= 0 || area.height <= 0 || framesOnScreen <= 0) {
    return std::nullopt;
  }
  const std::span<const std::byte> all = clip.Bytes();
  const std::int64_t total = static_cast<std::int64_t>(all.size()) / stride;
  first = std::max<std::int64_t>(first, 0);
  if (first >= total) {
    return std::nullopt;
  }
  WaveSpan span;
  span.frames = std::min(framesOnScreen, total - first);
  span.stride = stride;
  span.sampleBytes = sampleBytes;
  span.bytes =
      all.subspan(static_cast<std::size_t>(first * stride), static_cast<std::size_t>(span.frames * stride));
  span.channels = DrawsAsStereo(clip.format) ? 2 : 1;
  span.columns = std::min<std::int64_t>(FrameToPixel(first + span.frames, first, framesOnScreen, area.width),
                                        area.width);
  const std::int64_t samples = span.frames * clip.format.nChannels;
  span.step = ExaminedStep(sampleBytes > 1, samples, span.ColumnCount());
  span.dense = samples > 2 * span.columns;
  return span;
}

}  // namespace tembrel
