// The only way an edit writes into a clip. Before bytes change, those that an undo step still needs are put
// aside, so the cost of undo is what an edit changes and not what it could have changed.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "audio/AudioClip.h"
#include "audio/Progress.h"
#include "edit/ClipChanges.h"
#include "edit/ClipVersion.h"
#include "edit/EditMemory.h"

namespace tembrel {

// Whoever keeps versions of a clip that is being changed.
class VersionKeeper {
 public:
  virtual ~VersionKeeper() = default;
  // Every version kept, each once.
  virtual std::vector<ClipVersion*> Versions() const = 0;
  // Memory is short: gives up the version that is missed least. False when there is none left.
  virtual bool ForgetOldest() = 0;

 protected:
  VersionKeeper() = default;
  VersionKeeper(const VersionKeeper&) = default;
  VersionKeeper& operator=(const VersionKeeper&) = default;
};

// A refused call changes nothing, and RefusalText() says why; it is empty when the user stopped the edit
// while what undo needs was put aside. Memory for versions never stands in the way of a change: where it is
// short, versions are given up, in the end all of them.
class ClipEditor {
 public:
  // Clip, keeper and memory outlive the editor, which lives for one edit.
  ClipEditor(AudioClip& editedClip, VersionKeeper& versionKeeper, const EditMemory& editMemory,
             Progress editProgress = {})
      : clip(editedClip), keeper(versionKeeper), memory(editMemory), progress(std::move(editProgress)) {}

  const AudioClip& Clip() const { return clip; }

  // The clip's bytes [offset, offset + length), to be changed in place; they hold their old values. Refused
  // when they are not all within the clip.
  std::optional<std::span<std::byte>> Overwrite(std::uint64_t offset, std::uint64_t length);

  // Puts aside in one go what versions need of these bytes, as far as they are within the clip: for many
  // small changes that will follow there.
  void Keep(std::uint64_t offset, std::uint64_t length);

  // Replaces [offset, offset + oldLength) by newLength bytes of undefined content, which are returned to be
  // filled; what stood behind stands behind the new bytes. Ends spans given out before. Refused when the
  // range is not within the clip, the clip would grow and become too large, or there is no memory.
  std::optional<std::span<std::byte>> Splice(std::uint64_t offset, std::uint64_t oldLength,
                                             std::uint64_t newLength);

  // Makes the first `size` bytes of `data` the clip's sound and `format` its record. Refused when the clip
  // would become too large.
  bool ReplaceAll(MemoryBlock data, std::uint64_t size, const WaveFormat& format);

  // Gets the memory that Restore will need; without it the clip stays as it is.
  bool ReserveFor(const ClipVersion& version);
  // Makes the clip what the version says, after ReserveFor. The version must be a state of this clip.
  void Restore(const std::shared_ptr<ClipVersion>& version);

  // A block for the edit's own use; refused when there is no memory.
  std::optional<MemoryBlock> Allocate(std::uint64_t size);

  // Bytes of intermediate results that are worth keeping.
  std::uint64_t LargestStore() const { return memory.largestStore; }

  // Tells how far the edit is, of what it does itself: putting things aside is reckoned in here. False when
  // it is to be given up, and can be: once versions were given up for want of memory there is no way back.
  bool Proceed(std::uint64_t done, std::uint64_t total);

  // What all calls so far changed.
  const ClipChanges& Changes() const { return changes; }
  // Why the last refused call was refused: a sentence or two for a person.
  const std::string& RefusalText() const { return refusalText; }

 private:
  // Bytes [offset, offset + oldLength) of the live clip that become the pieces.
  struct Patch {
    std::uint64_t offset = 0;
    std::uint64_t oldLength = 0;
    std::uint64_t newLength = 0;
    std::vector<ClipPiece> pieces;
  };

  static std::vector<Patch> PatchesTo(const ClipVersion& version, std::uint64_t liveSize);
  static bool IsWholeBlock(const ClipVersion& version);
  void ExchangeBlocks(const ClipVersion& version);
  void Exchange(const Patch& patch, std::vector<Relocation>& moves);
  void Replace(const Patch& patch);
  bool Preserve(std::uint64_t offset, std::uint64_t length);
  bool CopyOut(const std::vector<ByteRange>& ranges, std::uint64_t total, MemoryBlock& block);
  bool Tell(double share) const;
  void MoveTail(std::uint64_t offset, std::uint64_t oldLength, std::uint64_t newLength);
  void RelocateAll(std::vector<Relocation> moves);
  void Trim();
  bool FitsIn(std::uint64_t newSize);
  bool Grow(std::uint64_t newSize);
  std::vector<ClipVersion*> Versions() const;

  AudioClip& clip;
  VersionKeeper& keeper;
  const EditMemory& memory;
  Progress progress;
  bool versionsLost = false;
  double ownShare = 0.0;  // how far the edit was when it last told
  double ownPart = 1.0;   // of the whole work, what is the edit's own and not copying
  std::shared_ptr<ClipVersion> restoring;
  ClipChanges changes;
  std::string refusalText;
};

}  // namespace tembrel
