// One state of a clip, as exact as a copy and as cheap as what differs from the clip now: a list of
// stretches, each either still standing in the live clip or saved beside it. Undo keeps these; ClipEditor
// keeps them true.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "audio/AudioClip.h"
#include "audio/WaveFormat.h"
#include "platform/MemoryBlock.h"

namespace tembrel {

// Bytes that no longer stand in the live clip, shared by the versions that need them.
struct SavedBytes {
  MemoryBlock block;
};

struct ClipPiece {
  std::shared_ptr<SavedBytes> saved;  // null: the piece stands in the live clip
  std::uint64_t offset = 0;           // bytes into the live clip or the saved block
  std::uint64_t length = 0;           // bytes

  std::uint64_t End() const { return offset + length; }
};

// `length` bytes that are found in another place from now on. A null store is the live clip.
struct Relocation {
  std::shared_ptr<SavedBytes> fromStore;
  std::uint64_t fromOffset = 0;
  std::uint64_t length = 0;
  std::shared_ptr<SavedBytes> toStore;
  std::uint64_t toOffset = 0;
};

struct ClipVersion {
  WaveFormat format;
  std::uint32_t dataSize = 0;  // the sum of the pieces' lengths
  // In the order of the sound. The live pieces among them have increasing offsets and do not overlap:
  // whatever order edits are made and undone in, bytes never pass each other.
  std::vector<ClipPiece> pieces;

  // The clip as it is now.
  static ClipVersion Of(const AudioClip& clip);

  // Follows bytes that moved. `moves` is sorted by fromStore and fromOffset and does not overlap; all of them
  // happen at once, so two may exchange their bytes.
  void Relocate(std::span<const Relocation> moves);

  // Live bytes from `offset` on moved by `distance`. No live piece reaches across bytes that went away.
  void Shift(std::uint64_t offset, std::int64_t distance);
};

// Puts moves into the order that Relocate asks for.
void SortRelocations(std::vector<Relocation>& moves);

}  // namespace tembrel
