#include "edit/PasteMerge.h"

#include <algorithm>
#include <span>

#include "edit/FloatBlock.h"
#include "edit/SampleFloat.h"

namespace tembrel {

EditResult PasteMerge(ClipEditor& editor, const AudioClip& pasted, std::int64_t cursorFrame) {
  const WaveFormat format = editor.Clip().format;
  const std::int64_t frameSize = FrameSize(format);
  const std::int64_t cursor = std::max<std::int64_t>(cursorFrame, 0);
  const std::int64_t count =
      std::min(pasted.dataSize / frameSize, editor.Clip().dataSize / frameSize - cursor);
  if (count <= 0) {
    return EditResult::Done();
  }
  const auto bufferSize = static_cast<std::uint64_t>(count) * sizeof(float);
  std::optional<MemoryBlock> ours = editor.Allocate(bufferSize);
  std::optional<MemoryBlock> theirs = editor.Allocate(bufferSize);
  if (!ours || !theirs) {
    return RefusalOf(editor);
  }
  // Samples, not frames: in stereo the mix begins at half the cursor's frame.
  const std::int64_t start = cursor * BytesPerSample(format.wBitsPerSample);
  const auto bytes =
      editor.Overwrite(static_cast<std::uint64_t>(start), static_cast<std::uint64_t>(count * frameSize));
  if (!bytes) {
    return RefusalOf(editor);
  }
  const std::span<float> sum = AsFloats(*ours);
  const std::span<float> added = AsFloats(*theirs);
  const bool stereo = format.nChannels == 2;
  for (std::uint32_t channel = stereo ? kLeftChannel : kMonoChannel;
       channel <= (stereo ? kRightChannel : kMonoChannel); ++channel) {
    SamplesToFloat(format, *bytes, sum, count, channel);
    SamplesToFloat(format, pasted.Bytes(), added, count, channel);
    std::ranges::transform(sum, added, sum.begin(), std::plus<>());
    LimitToUnity(sum);
    FloatToSamples(format, *bytes, sum, count, channel);
  }
  return EditResult::Done();
}

}  // namespace tembrel
