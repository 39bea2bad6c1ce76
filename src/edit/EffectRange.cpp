#include "edit/EffectRange.h"

#include <algorithm>
#include <type_traits>
#include <utility>

#include "platform/Prefetch.h"
#include "platform/WorkTeam.h"

namespace tembrel {

namespace {

// A multiple of every frame's size; large enough that sharing it out costs nothing against working on it.
constexpr std::int64_t kPiece = std::int64_t{1} << 20U;

template <typename Byte>
void WorkOnStretches(std::span<Byte> piece, std::int64_t offset,
                     const std::function<void(std::span<Byte>, std::int64_t)>& work) {
  for (std::size_t at = 0; at < piece.size(); at += kStretch) {
    const std::span<Byte> left = piece.subspan(at);
    const std::span<Byte> behind = left.subspan(std::min(kStretch, left.size()));
    const std::span<Byte> next = behind.first(std::min(kStretch, behind.size()));
    if constexpr (std::is_const_v<Byte>) {
      PrefetchForReading(next);
    } else {
      PrefetchForWriting(next);
    }
    work(left.first(std::min(kStretch, left.size())), offset + static_cast<std::int64_t>(at));
  }
}

ByteRange Within(const ByteRange& selection, const AudioClip& clip, std::int64_t unit) {
  const ByteRange range = CutDown(selection, clip.dataSize);
  return {range.start / unit * unit, range.end / unit * unit};
}

template <typename Byte>
bool WorkOnPieces(ClipEditor& editor, std::span<Byte> bytes, std::uint64_t doneBefore, std::uint64_t total,
                  const std::function<void(std::span<Byte>, std::int64_t)>& work) {
  const auto size = static_cast<std::int64_t>(bytes.size());
  return ShareOut((size + kPiece - 1) / kPiece,
                  [&](std::int64_t piece) {
                    const std::int64_t offset = piece * kPiece;
                    WorkOnStretches(bytes.subspan(static_cast<std::size_t>(offset),
                                                  static_cast<std::size_t>(std::min(kPiece, size - offset))),
                                    offset, work);
                  },
                  [&](std::int64_t done) {
                    return editor.Proceed(
                        doneBefore + static_cast<std::uint64_t>(std::min(done * kPiece, size)), total);
                  });
}

}  // namespace

ByteRange SampleBytes(const ByteRange& selection, const AudioClip& clip) {
  return Within(selection, clip, BytesPerSample(clip.format.wBitsPerSample));
}

ByteRange FrameBytes(const ByteRange& selection, const AudioClip& clip) {
  return Within(selection, clip, FrameSize(clip.format));
}

EffectFrames EffectFrames::Of(const ByteRange& selection, const AudioClip& clip) {
  const ByteRange bytes = FrameBytes(selection, clip);
  return {clip.format, bytes, (bytes.end - bytes.start) / FrameSize(clip.format)};
}

EditStep InPlaceStep(std::function<EditResult(ClipEditor&)> change) {
  return {.check = {}, .change = std::move(change), .marksChanged = true, .refreshesLengths = false};
}

EditResult RewritePieces(
    ClipEditor& editor, const ByteRange& range, std::uint64_t doneBefore, std::uint64_t total,
    const std::function<void(std::span<std::byte> piece, std::int64_t offset)>& rewrite) {
  const auto bytes = editor.Overwrite(static_cast<std::uint64_t>(range.start),
                                      static_cast<std::uint64_t>(range.end - range.start));
  if (!bytes) {
    return RefusalOf(editor);
  }
  return WorkOnPieces(editor, *bytes, doneBefore, total, rewrite) ? EditResult::Done()
                                                                  : EditResult::Cancelled();
}

bool LookAtPieces(ClipEditor& editor, const ByteRange& range, std::uint64_t doneBefore, std::uint64_t total,
                  const std::function<void(std::span<const std::byte> piece, std::int64_t offset)>& look) {
  const auto bytes = editor.Clip().Bytes().subspan(static_cast<std::size_t>(range.start),
                                                   static_cast<std::size_t>(range.end - range.start));
  return WorkOnPieces(editor, bytes, doneBefore, total, look);
}

}  // namespace tembrel
