#include "edit/ClipEdits.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <utility>

#include "edit/PasteMerge.h"

namespace tembrel {

namespace {

constexpr std::size_t kLargestFrame = 4;  // bytes

// The selection as far as it lies within the clip.
struct Selection {
  std::uint64_t start = 0;
  std::uint64_t end = 0;  // never before the start

  std::uint64_t Length() const { return end - start; }
};

Selection WithinClip(const ByteRange& range, const AudioClip& clip) {
  const ByteRange within = CutDown(range, clip.dataSize);
  return {static_cast<std::uint64_t>(within.start), static_cast<std::uint64_t>(within.end)};
}

std::uint64_t CursorByte(const AudioClip& clip, std::int64_t cursorFrame) {
  // No cursor comes near 2^32 frames; one that does lies beyond every clip all the same.
  const std::int64_t frame = std::clamp<std::int64_t>(cursorFrame, 0, std::int64_t{1} << 32U);
  return static_cast<std::uint64_t>(frame) * FrameSize(clip.format);
}

// What stands at an index; 0 where the clip has ended.
std::byte ByteAt(const AudioClip& clip, std::uint64_t index) {
  return index < clip.dataSize ? clip.Bytes()[static_cast<std::size_t>(index)] : std::byte{0};
}

std::optional<AudioClip> CutOut(ClipEditor& editor, const Selection& selection) {
  std::optional<MemoryBlock> block = editor.Allocate(selection.Length());
  if (!block) {
    return std::nullopt;
  }
  const AudioClip& clip = editor.Clip();
  std::ranges::copy(clip.Bytes().subspan(static_cast<std::size_t>(selection.start),
                                         static_cast<std::size_t>(selection.Length())),
                    block->Data());
  AudioClip copy;
  copy.format = clip.format;
  copy.data = std::move(*block);
  copy.dataSize = static_cast<std::uint32_t>(selection.Length());
  return copy;
}

EditResult Cut(ClipEditor& editor, const Selection& selection, Clipboard& clipboard) {
  std::optional<AudioClip> copy = CutOut(editor, selection);
  if (!copy) {
    return RefusalOf(editor);
  }
  const bool all = selection.Length() == editor.Clip().dataSize;
  const bool empty = editor.Clip().dataSize == 0;
  // The first byte stays when all is cut.
  const std::uint64_t start = selection.start + (all && !empty ? 1 : 0);
  const auto bytes = editor.Splice(start, selection.end - start, empty ? 1 : 0);
  if (!bytes) {
    return RefusalOf(editor);
  }
  std::ranges::fill(*bytes, std::byte{0});
  clipboard.clip = std::move(*copy);
  return EditResult::Done();
}

EditResult CopyToClipboard(ClipEditor& editor, const Selection& selection, Clipboard& clipboard) {
  std::optional<AudioClip> copy = CutOut(editor, selection);
  if (!copy) {
    return RefusalOf(editor);
  }
  clipboard.clip = std::move(*copy);
  return EditResult::Done();
}

// Only whole frames are silenced, counted down from both ends of the selection. What of the selection is not
// keeps its values, as does the byte behind it: up to a frame and a byte.
EditResult InsertSilence(ClipEditor& editor, const Selection& selection) {
  const AudioClip& clip = editor.Clip();
  const std::uint64_t frame = FrameSize(clip.format);
  if (selection.Length() == 0) {
    return EditResult::Done();
  }
  std::uint64_t silentStart = selection.start / frame * frame;
  std::uint64_t silentEnd = selection.end / frame * frame;
  if (silentStart >= silentEnd) {
    silentStart = silentEnd = selection.start;
  }
  std::array<std::byte, kLargestFrame + 1> kept{};
  const auto keptCount = static_cast<std::size_t>(selection.end + 1 - silentEnd);
  for (std::size_t i = 0; i < keptCount; ++i) {
    kept.at(i) = ByteAt(clip, silentEnd + i);
  }
  const std::byte silence{clip.format.wBitsPerSample == 8 ? static_cast<unsigned char>(kSilence8Edited)
                                                          : static_cast<unsigned char>(0)};
  const auto bytes =
      editor.Splice(silentStart, selection.start + 1 - silentStart, selection.end + 1 - silentStart);
  if (!bytes) {
    return RefusalOf(editor);
  }
  const auto silent = static_cast<std::size_t>(silentEnd - silentStart);
  std::fill_n(bytes->begin(), silent, silence);
  std::copy_n(kept.begin(), keptCount, bytes->begin() + static_cast<std::ptrdiff_t>(silent));
  return EditResult::Done();
}

EditResult PasteInsert(ClipEditor& editor, const AudioClip& pasted, std::uint64_t position) {
  const AudioClip& clip = editor.Clip();
  const std::uint64_t length = pasted.dataSize;
  if (length == 0) {
    return EditResult::Done();
  }
  // In the middle the byte at the position goes, and one that stood behind the pasted sound before stays
  // there.
  const bool inside = position < clip.dataSize;
  const std::byte kept = ByteAt(clip, position + length);
  const std::uint64_t start = std::min<std::uint64_t>(position, clip.dataSize);
  const auto bytes = editor.Splice(start, inside ? 1 : 0, length + (inside ? 1 : 0));
  if (!bytes) {
    return RefusalOf(editor);
  }
  // A cursor beyond the end leaves a gap of zeros and loses as much of the pasted end.
  const auto gap = static_cast<std::size_t>(std::min(position - start, length));
  std::fill_n(bytes->begin(), gap, std::byte{0});
  std::ranges::copy(pasted.Bytes().first(static_cast<std::size_t>(length) - gap),
                    bytes->begin() + static_cast<std::ptrdiff_t>(gap));
  if (inside) {
    bytes->back() = kept;
  }
  return EditResult::Done();
}

EditResult PasteOverwrite(ClipEditor& editor, const AudioClip& pasted, std::uint64_t position) {
  const std::uint64_t size = editor.Clip().dataSize;
  const std::uint64_t start = std::min(position, size);
  const std::uint64_t length = std::min<std::uint64_t>(pasted.dataSize, size - start);
  const auto bytes = editor.Overwrite(start, length);
  if (!bytes) {
    return RefusalOf(editor);
  }
  std::ranges::copy(pasted.Bytes().first(static_cast<std::size_t>(length)), bytes->begin());
  return EditResult::Done();
}

std::function<EditResult(const AudioClip&)> SameFormatAs(const Clipboard& clipboard) {
  return [&clipboard](const AudioClip& clip) {
    const WaveFormat& theirs = clipboard.clip.format;
    const WaveFormat& ours = clip.format;
    const bool same = theirs.nSamplesPerSec == ours.nSamplesPerSec &&
                      theirs.wBitsPerSample == ours.wBitsPerSample && theirs.nChannels == ours.nChannels;
    return same ? EditResult::Done() : EditResult::Noted(FormatMismatchText(ours));
  };
}

}  // namespace

EditStep CutEdit(const ByteRange& selection, Clipboard& clipboard) {
  return {.check = {},
          .change =
              [selection, &clipboard](ClipEditor& editor) {
                return Cut(editor, WithinClip(selection, editor.Clip()), clipboard);
              },
          .marksChanged = true,
          .refreshesLengths = true};
}

EditStep CopyEdit(const ByteRange& selection, Clipboard& clipboard) {
  return {.check = {},
          .change =
              [selection, &clipboard](ClipEditor& editor) {
                return CopyToClipboard(editor, WithinClip(selection, editor.Clip()), clipboard);
              },
          .marksChanged = false,
          .refreshesLengths = false};
}

EditStep InsertSilenceEdit(const ByteRange& selection) {
  return {.check = {},
          .change =
              [selection](ClipEditor& editor) {
                return InsertSilence(editor, WithinClip(selection, editor.Clip()));
              },
          .marksChanged = true,
          .refreshesLengths = true};
}

EditStep PasteInsertEdit(const Clipboard& clipboard, std::int64_t cursorFrame) {
  return {.check = SameFormatAs(clipboard),
          .change =
              [&clipboard, cursorFrame](ClipEditor& editor) {
                return PasteInsert(editor, clipboard.clip, CursorByte(editor.Clip(), cursorFrame));
              },
          .marksChanged = true,
          .refreshesLengths = true};
}

EditStep PasteMergeEdit(const Clipboard& clipboard, std::int64_t cursorFrame) {
  return {.check = SameFormatAs(clipboard),
          .change = [&clipboard, cursorFrame](
                        ClipEditor& editor) { return PasteMerge(editor, clipboard.clip, cursorFrame); },
          .marksChanged = true,
          .refreshesLengths = false};
}

EditStep PasteOverwriteEdit(const Clipboard& clipboard, std::int64_t cursorFrame) {
  return {.check = SameFormatAs(clipboard),
          .change =
              [&clipboard, cursorFrame](ClipEditor& editor) {
                return PasteOverwrite(editor, clipboard.clip, CursorByte(editor.Clip(), cursorFrame));
              },
          .marksChanged = true,
          .refreshesLengths = false};
}

std::string FormatMismatchText(const WaveFormat& documentFormat) {
  return "Can't paste to " + std::to_string(documentFormat.wBitsPerSample) + " bit " +
         (documentFormat.nChannels == 1 ? "mono " : "stereo ") +
         std::to_string(documentFormat.nSamplesPerSec) + " Hz audio file.";
}

}  // namespace tembrel
