#include "edit/ReverbEffect.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "edit/EchoLine.h"
#include "edit/EffectRange.h"
#include "edit/LimitedRewrite.h"
#include "edit/SampleFloat.h"

namespace tembrel {

namespace {

constexpr std::uint32_t kDelaysASecond = 15;
// Samples that are converted and echoed at a time, while they are in the processor's cache.
constexpr std::size_t kCached = 1024;

class EchoSource : public FloatSource {
 public:
  explicit EchoSource(const FrameRange& frameRange) : range(frameRange) {}

  bool Prepare(ClipEditor& editor) {
    for (std::size_t channel = 0; channel < range.format.nChannels; ++channel) {
      lines.at(channel) = EchoLine::Make(editor, range.count, range.format.nSamplesPerSec / kDelaysASecond);
      if (!lines.at(channel)) {
        return false;
      }
    }
    return true;
  }

  void Restart() override {
    for (std::optional<EchoLine>& line : lines) {
      if (line) {
        line->Restart();
      }
    }
  }

  void Continue(std::span<const std::byte> frames, std::int64_t first, const ChannelFloats& out,
                WorkTeam& team) override {
    const auto bytes = frames.subspan(static_cast<std::size_t>(first) * FrameSize(range.format));
    team.ShareOut(range.format.nChannels, [&](std::int64_t index) {
      const auto channel = static_cast<std::size_t>(index);
      ContinueChannel(bytes, channel, out.at(channel));
    });
  }

 private:
  void ContinueChannel(std::span<const std::byte> bytes, std::size_t channel, std::span<float> out) {
    for (std::size_t at = 0; at < out.size(); at += kCached) {
      const std::span<float> values = out.subspan(at, std::min(kCached, out.size() - at));
      SamplesToFloat(range.format, bytes.subspan(at * FrameSize(range.format)), values,
                     static_cast<std::int64_t>(values.size()), range.Selector(channel));
      lines.at(channel)->Continue(values);
    }
  }

  const FrameRange& range;
  std::array<std::optional<EchoLine>, kMostChannels> lines;
};

EditResult Reverb(ClipEditor& editor, const ByteRange& selection) {
  const FrameRange range = FrameRange::Of(selection, editor.Clip());
  EchoSource source(range);
  return source.Prepare(editor) ? RewriteLimited(editor, range, source) : RefusalOf(editor);
}

}  // namespace

EditStep ReverbEdit(const ByteRange& selection) {
  return InPlaceStep([selection](ClipEditor& editor) { return Reverb(editor, selection); });
}

}  // namespace tembrel
