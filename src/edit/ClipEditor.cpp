#include "edit/ClipEditor.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace tembrel {

namespace {

constexpr const char* kNoMemory = "There is not enough memory for this. Nothing was changed.";
// Of the work that is left, what copying for undo is taken to be.
constexpr double kCopyPart = 0.2;
constexpr const char* kOutside = "This reaches beyond the sound. Nothing was changed.";

bool LiesWithin(std::uint64_t offset, std::uint64_t length, std::uint64_t size) {
  return offset <= size && length <= size - offset;
}

// The stretches of live bytes within [offset, end) that any of the versions consists of, joined and in order.
std::vector<ByteRange> NeededRanges(const std::vector<ClipVersion*>& versions, std::uint64_t offset,
                                    std::uint64_t end) {
  std::vector<ByteRange> found;
  for (const ClipVersion* const version : versions) {
    for (const ClipPiece& piece : version->pieces) {
      const std::uint64_t from = std::max(piece.offset, offset);
      const std::uint64_t to = std::min(piece.End(), end);
      if (piece.saved == nullptr && from < to) {
        found.push_back({static_cast<std::int64_t>(from), static_cast<std::int64_t>(to)});
      }
    }
  }
  std::ranges::sort(found, {}, &ByteRange::start);
  std::vector<ByteRange> joined;
  for (const ByteRange& range : found) {
    if (!joined.empty() && range.start <= joined.back().end) {
      joined.back().end = std::max(joined.back().end, range.end);
    } else {
      joined.push_back(range);
    }
  }
  return joined;
}

std::uint64_t TotalOf(const std::vector<ByteRange>& ranges) {
  std::uint64_t total = 0;
  for (const ByteRange& range : ranges) {
    total += static_cast<std::uint64_t>(range.end - range.start);
  }
  return total;
}

}  // namespace

std::optional<std::span<std::byte>> ClipEditor::Overwrite(std::uint64_t offset, std::uint64_t length) {
  if (!LiesWithin(offset, length, clip.dataSize)) {
    refusalText = kOutside;
    return std::nullopt;
  }
  if (!Preserve(offset, length)) {
    return std::nullopt;
  }
  changes.AddOverwrite({static_cast<std::int64_t>(offset), static_cast<std::int64_t>(offset + length)});
  return clip.Bytes().subspan(static_cast<std::size_t>(offset), static_cast<std::size_t>(length));
}

void ClipEditor::Keep(std::uint64_t offset, std::uint64_t length) {
  const std::uint64_t start = std::min<std::uint64_t>(offset, clip.dataSize);
  Preserve(start, std::min(length, clip.dataSize - start));
}

std::optional<std::span<std::byte>> ClipEditor::Splice(std::uint64_t offset, std::uint64_t oldLength,
                                                       std::uint64_t newLength) {
  if (!LiesWithin(offset, oldLength, clip.dataSize)) {
    refusalText = kOutside;
    return std::nullopt;
  }
  const std::uint64_t remaining = clip.dataSize - oldLength;
  if (!FitsIn(newLength) || !FitsIn(remaining + newLength) || !Grow(remaining + newLength)) {
    return std::nullopt;
  }
  if (!Preserve(offset, oldLength)) {
    Trim();
    return std::nullopt;
  }
  MoveTail(offset, oldLength, newLength);
  Trim();
  return clip.Bytes().subspan(static_cast<std::size_t>(offset), static_cast<std::size_t>(newLength));
}

bool ClipEditor::ReplaceAll(MemoryBlock data, std::uint64_t size, const WaveFormat& format) {
  if (size > data.Size()) {
    refusalText = kOutside;
    return false;
  }
  if (!FitsIn(size)) {
    return false;
  }
  const auto old = std::make_shared<SavedBytes>(SavedBytes{std::exchange(clip.data, std::move(data))});
  RelocateAll({{nullptr, 0, clip.dataSize, old, 0}});
  clip.dataSize = static_cast<std::uint32_t>(size);
  clip.format = format;
  changes.AddAll();
  Trim();
  return true;
}

std::optional<MemoryBlock> ClipEditor::Allocate(std::uint64_t size) {
  std::optional<MemoryBlock> block = memory.allocate(static_cast<std::size_t>(size));
  if (!block) {
    refusalText = kNoMemory;
  }
  return block;
}

bool ClipEditor::Proceed(std::uint64_t done, std::uint64_t total) {
  ownShare = total == 0 ? 1.0 : static_cast<double>(done) / static_cast<double>(total);
  return Tell(1.0 - ownPart * (1.0 - ownShare));
}

bool ClipEditor::Tell(double share) const {
  constexpr double kSteps = 1U << 20U;
  return !progress ||
         progress(static_cast<std::uint64_t>(share * kSteps), static_cast<std::uint64_t>(kSteps)) ||
         versionsLost;
}

std::vector<ClipEditor::Patch> ClipEditor::PatchesTo(const ClipVersion& version, std::uint64_t liveSize) {
  std::vector<Patch> patches;
  Patch patch;
  const auto endAt = [&](std::uint64_t next, std::uint64_t following) {
    patch.oldLength = next - patch.offset;
    if (patch.oldLength > 0 || patch.newLength > 0) {
      patches.push_back(std::move(patch));
    }
    patch = {.offset = following, .oldLength = 0, .newLength = 0, .pieces = {}};
  };
  for (const ClipPiece& piece : version.pieces) {
    if (piece.saved == nullptr) {
      endAt(piece.offset, piece.End());
    } else {
      patch.newLength += piece.length;
      patch.pieces.push_back(piece);
    }
  }
  endAt(liveSize, liveSize);
  return patches;
}

bool ClipEditor::ReserveFor(const ClipVersion& version) {
  if (IsWholeBlock(version)) {
    return true;
  }
  std::uint64_t size = clip.dataSize;
  std::uint64_t largest = size;
  const std::vector<Patch> patches = PatchesTo(version, clip.dataSize);
  for (auto patch = patches.rbegin(); patch != patches.rend(); ++patch) {
    size = size - patch->oldLength + patch->newLength;
    largest = std::max(largest, size);
  }
  return Grow(largest);
}

void ClipEditor::Restore(const std::shared_ptr<ClipVersion>& version) {
  restoring = version;
  if (IsWholeBlock(*version)) {
    ExchangeBlocks(*version);
  } else {
    // From the end to the start: a patch that changes the length moves nothing that is still to be patched.
    std::vector<Relocation> moves;
    const std::vector<Patch> patches = PatchesTo(*version, clip.dataSize);
    for (auto patch = patches.rbegin(); patch != patches.rend(); ++patch) {
      if (patch->oldLength == patch->newLength) {
        Exchange(*patch, moves);
      } else {
        RelocateAll(std::exchange(moves, {}));
        Replace(*patch);
      }
    }
    RelocateAll(std::move(moves));
  }
  if (clip.format != version->format) {
    clip.format = version->format;
    changes.AddAll();
  }
  Trim();
  restoring.reset();
}

// True when the version is one saved block from its first to its last byte, or empty: blocks can change
// places.
bool ClipEditor::IsWholeBlock(const ClipVersion& version) {
  if (version.pieces.empty()) {
    return true;
  }
  const ClipPiece& first = version.pieces.front();
  return first.saved != nullptr && first.offset == 0 && first.length == version.dataSize &&
         first.saved->block.Size() == first.length;
}

void ClipEditor::ExchangeBlocks(const ClipVersion& version) {
  const std::uint32_t newSize = version.dataSize;
  const auto saved = newSize == 0 ? std::make_shared<SavedBytes>() : version.pieces.front().saved;
  std::swap(clip.data, saved->block);
  RelocateAll({{nullptr, 0, clip.dataSize, saved, 0}, {saved, 0, newSize, nullptr, 0}});
  clip.dataSize = newSize;
  changes.AddAll();
}

// The patch's bytes and the live ones change places: no memory is needed, none is freed.
void ClipEditor::Exchange(const Patch& patch, std::vector<Relocation>& moves) {
  std::uint64_t at = patch.offset;
  for (const ClipPiece& piece : patch.pieces) {
    std::byte* const live = clip.data.Data() + at;
    std::swap_ranges(live, live + piece.length, piece.saved->block.Data() + piece.offset);
    moves.push_back({nullptr, at, piece.length, piece.saved, piece.offset});
    moves.push_back({piece.saved, piece.offset, piece.length, nullptr, at});
    at += piece.length;
  }
  changes.AddOverwrite({static_cast<std::int64_t>(patch.offset), static_cast<std::int64_t>(at)});
}

void ClipEditor::Replace(const Patch& patch) {
  Preserve(patch.offset, patch.oldLength);
  MoveTail(patch.offset, patch.oldLength, patch.newLength);
  std::vector<Relocation> moves;
  std::uint64_t at = patch.offset;
  for (const ClipPiece& piece : patch.pieces) {
    std::memcpy(clip.data.Data() + at, piece.saved->block.Data() + piece.offset,
                static_cast<std::size_t>(piece.length));
    moves.push_back({piece.saved, piece.offset, piece.length, nullptr, at});
    at += piece.length;
  }
  RelocateAll(std::move(moves));
}

// Puts aside what versions need of these live bytes. Without memory for that, versions go until nothing is
// needed any more. False when the user stopped it; nothing has changed then.
bool ClipEditor::Preserve(std::uint64_t offset, std::uint64_t length) {
  for (;;) {
    const std::vector<ByteRange> needed = NeededRanges(Versions(), offset, offset + length);
    const std::uint64_t total = TotalOf(needed);
    if (total == 0) {
      return true;
    }
    std::optional<MemoryBlock> block = memory.allocate(static_cast<std::size_t>(total));
    if (!block) {
      versionsLost = true;
      if (keeper.ForgetOldest()) {
        continue;
      }
      return true;
    }
    if (!CopyOut(needed, total, *block)) {
      refusalText.clear();
      return false;
    }
    const auto saved = std::make_shared<SavedBytes>(SavedBytes{std::move(*block)});
    std::vector<Relocation> moves;
    std::uint64_t at = 0;
    for (const ByteRange& range : needed) {
      const auto start = static_cast<std::uint64_t>(range.start);
      const auto size = static_cast<std::uint64_t>(range.end - range.start);
      moves.push_back({nullptr, start, size, saved, at});
      at += size;
    }
    RelocateAll(std::move(moves));
    return true;
  }
}

// Copies the ranges, one behind the other, to the block. Much of it takes its time and a stretch of the bar;
// a version that is being restored is not to be stopped.
bool ClipEditor::CopyOut(const std::vector<ByteRange>& ranges, std::uint64_t total, MemoryBlock& block) {
  const bool tells = total > kProgressStep && restoring == nullptr;
  const double from = 1.0 - ownPart * (1.0 - ownShare);
  const double stretch = kCopyPart * (1.0 - from);
  std::uint64_t copied = 0;
  for (const ByteRange& range : ranges) {
    const auto end = static_cast<std::uint64_t>(range.end);
    for (auto start = static_cast<std::uint64_t>(range.start); start < end; start += kProgressStep) {
      const std::uint64_t size = std::min(kProgressStep, end - start);
      std::memcpy(block.Data() + copied, clip.data.Data() + start, static_cast<std::size_t>(size));
      copied += size;
      if (tells && !Tell(from + stretch * static_cast<double>(copied) / static_cast<double>(total))) {
        return false;
      }
    }
  }
  ownPart *= tells ? 1.0 - kCopyPart : 1.0;
  return true;
}

void ClipEditor::MoveTail(std::uint64_t offset, std::uint64_t oldLength, std::uint64_t newLength) {
  if (oldLength == newLength) {
    changes.AddOverwrite({static_cast<std::int64_t>(offset), static_cast<std::int64_t>(offset + newLength)});
    return;
  }
  const std::uint64_t tail = offset + oldLength;
  if (tail < clip.dataSize) {
    std::memmove(clip.data.Data() + offset + newLength, clip.data.Data() + tail,
                 static_cast<std::size_t>(clip.dataSize - tail));
  }
  const auto distance = static_cast<std::int64_t>(newLength) - static_cast<std::int64_t>(oldLength);
  for (ClipVersion* const version : Versions()) {
    version->Shift(tail, distance);
  }
  clip.dataSize = static_cast<std::uint32_t>(clip.dataSize - oldLength + newLength);
  changes.AddShift(static_cast<std::int64_t>(offset));
}

void ClipEditor::RelocateAll(std::vector<Relocation> moves) {
  if (moves.empty()) {
    return;
  }
  SortRelocations(moves);
  for (ClipVersion* const version : Versions()) {
    version->Relocate(moves);
  }
}

// Gives back what the block has beyond the sound. Where that fails the block just stays too long.
void ClipEditor::Trim() {
  if (clip.data.Size() > clip.dataSize) {
    memory.resize(clip.data, clip.dataSize);
  }
}

// A file may hold a few bytes more than one that is written: such sound may be edited as long as it does not
// grow.
bool ClipEditor::FitsIn(std::uint64_t newSize) {
  if (newSize <= std::max<std::uint64_t>(memory.largestClip, clip.dataSize)) {
    return true;
  }
  refusalText = "The sound would become larger than " + std::to_string(memory.largestClip) +
                " bytes, the most that a WAVE file holds. Nothing was changed.";
  return false;
}

bool ClipEditor::Grow(std::uint64_t newSize) {
  if (newSize <= clip.data.Size() || memory.resize(clip.data, static_cast<std::size_t>(newSize))) {
    return true;
  }
  refusalText = kNoMemory;
  return false;
}

std::vector<ClipVersion*> ClipEditor::Versions() const {
  std::vector<ClipVersion*> versions = keeper.Versions();
  if (restoring && std::ranges::find(versions, restoring.get()) == versions.end()) {
    versions.push_back(restoring.get());
  }
  return versions;
}

}  // namespace tembrel
