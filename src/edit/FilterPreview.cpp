#include "edit/FilterPreview.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "edit/ClipEditor.h"
#include "edit/EffectRange.h"
#include "edit/FilterEffect.h"

namespace tembrel {

namespace {

// A clip that nobody will undo anything in.
class NoVersions : public VersionKeeper {
 public:
  std::vector<ClipVersion*> Versions() const override { return {}; }
  bool ForgetOldest() override { return false; }
};

}  // namespace

FilterPreview::FilterPreview(const AudioClip& previewedClip, const ByteRange& selection,
                             EditMemory editMemory)
    : clip(previewedClip), range(FrameBytes(selection, previewedClip)), memory(std::move(editMemory)) {}

FilterPreview::Result FilterPreview::Make(int preset) {
  const std::int64_t longest =
      std::int64_t{clip.format.nSamplesPerSec} * kPreviewSeconds * FrameSize(clip.format);
  range.end = std::min(range.end, range.start + longest);

  // Of the sound before the range nothing is heard, so nothing of it is copied.
  const auto size = static_cast<std::size_t>(range.end - range.start);
  std::optional<MemoryBlock> block = memory.allocate(size);
  if (!block) {
    return {nullptr, "There is not enough memory for a preview."};
  }
  auto sound = std::make_unique<AudioClip>();
  sound->format = clip.format;
  sound->dataSize = static_cast<std::uint32_t>(size);
  sound->data = *std::move(block);
  std::ranges::copy(clip.Bytes().subspan(static_cast<std::size_t>(range.start), size),
                    sound->Bytes().begin());

  const EditStep step = FilterEdit({0, range.end - range.start}, preset);
  EditResult result = step.check(*sound);
  if (result.done) {
    NoVersions versions;
    ClipEditor editor(*sound, versions, memory);
    result = step.change(editor);
  }
  return result.done ? Result{std::move(sound), {}} : Result{nullptr, result.message};
}

}  // namespace tembrel
