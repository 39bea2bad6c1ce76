// The undo history as it is described, with a whole copy of the clip in every slot: what the program's
// history is compared with.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "audio/AudioClip.h"
#include "tests/support/WaveBytes.h"

namespace tembrel::test {

struct LiteralClip {
  WaveFormat format;
  Bytes data;

  bool operator==(const LiteralClip&) const = default;
};

inline LiteralClip LiteralCopy(const AudioClip& clip) {
  const auto bytes = clip.Bytes();
  return {clip.format, {bytes.begin(), bytes.end()}};
}

struct LiteralSlot {
  std::uint16_t tag = 0xFFFF;
  LiteralClip clip;
};

class LiteralUndo {
 public:
  static constexpr int kDepth = 32;

  bool canUndo = false;
  bool canRedo = false;
  LiteralClip workingClip;
  std::array<LiteralSlot, kDepth> undoSlots;
  std::array<LiteralSlot, kDepth> redoSlots;
  int currentIndex = -1;
  int topIndex = -1;
  bool recording = true;
  int currentTag = -1;

  void Push(const LiteralClip& clip) {
    workingClip = clip;
    currentTag = 0;
    if (!recording) {
      return;
    }
    currentIndex += 1;
    if (currentIndex >= kDepth) {
      currentIndex = kDepth - 1;
      for (std::size_t i = 0; i + 1 < undoSlots.size(); ++i) {
        undoSlots[i].clip = undoSlots[i + 1].clip;
        redoSlots[i].clip = redoSlots[i + 1].clip;
      }
    }
    topIndex = currentIndex;
    Store(currentIndex, undoSlots);
    Store(currentIndex, redoSlots);
    UpdateFlags();
  }

  void Undo(LiteralClip& clip) {
    if (currentIndex >= 0) {
      Restore(currentIndex, undoSlots);
      currentIndex -= 1;
    }
    recording = false;
    std::swap(clip, workingClip);
    recording = true;
    Store(currentIndex + 1, redoSlots);
    UpdateFlags();
  }

  void Redo(LiteralClip& clip) {
    if (currentIndex < topIndex) {
      currentIndex += 1;
    }
    Restore(currentIndex, redoSlots);
    recording = false;
    std::swap(clip, workingClip);
    recording = true;
    UpdateFlags();
  }

 private:
  using Slots = std::array<LiteralSlot, kDepth>;

  void Store(int index, Slots& slots) {
    if (index >= 0 && index < kDepth) {
      slots[static_cast<std::size_t>(index)] = {static_cast<std::uint16_t>(currentTag), workingClip};
    }
  }
  void Restore(int index, const Slots& slots) {
    if (index >= 0 && index < kDepth) {
      currentTag = slots[static_cast<std::size_t>(index)].tag;
      workingClip = slots[static_cast<std::size_t>(index)].clip;
    }
  }
  void UpdateFlags() {
    canUndo = currentIndex >= 0;
    canRedo = currentIndex < topIndex;
  }
};

}  // namespace tembrel::test
