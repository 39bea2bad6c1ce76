// The undo history of one document: up to 32 states of the whole clip, each from before an edit, and their
// counterparts for redo. Behaves as if every slot held a whole copy.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "edit/ClipEditor.h"
#include "edit/ClipVersion.h"

namespace tembrel {

inline constexpr int kUndoSteps = 32;
// A slot is filled with the working state and the tag that is current, and brings both back. A push makes 0
// the current tag, so that a tag tells a slot that was filled from one that never was. The program asks for
// none so far.
inline constexpr std::uint16_t kEmptySlotTag = 0xFFFF;

struct UndoSlot {
  std::uint16_t tag = kEmptySlotTag;
  std::shared_ptr<ClipVersion> version;
};

class AudioUndo : public VersionKeeper {
 public:
  AudioUndo() { Reset(); }
  AudioUndo(const AudioUndo&) = delete;
  AudioUndo& operator=(const AudioUndo&) = delete;

  // Empties the history; the state that a swap without steps brings is then an empty clip.
  void Reset();

  // Records the clip as it is, before an edit. The 33rd step drops the oldest; what could be redone is
  // forgotten. Does nothing for a null clip.
  void Push(const AudioClip* clip);
  // The edit after a push was done: what the push replaced may go.
  void KeepPush() { before.reset(); }
  // The edit after a push failed: the history, and the clip if it was changed meanwhile, are again as they
  // were before the push.
  void TakeBackPush(ClipEditor& editor);

  // Brings back the state before the newest step. Without a step it exchanges the clip with the state that
  // was current before the last undo or redo, or recorded by the last push. False when there is no memory:
  // nothing has changed then.
  bool Undo(ClipEditor& editor);
  // Brings back what the last undo took away; without such a step, the state that the newest step recorded.
  bool Redo(ClipEditor& editor);

  bool CanUndo() const { return history.currentIndex >= 0; }
  bool CanRedo() const { return history.currentIndex < history.topIndex; }
  int CurrentIndex() const { return history.currentIndex; }  // slot of the newest undoable step, -1 for none
  int TopIndex() const { return history.topIndex; }      // the highest slot that redo reaches, -1 for none
  int CurrentTag() const { return history.currentTag; }  // -1 after Reset, 0 after a push
  const std::shared_ptr<ClipVersion>& WorkingClip() const { return history.workingClip; }
  const UndoSlot& UndoSlotAt(int index) const {
    return history.undoSlots.at(static_cast<std::size_t>(index));
  }
  const UndoSlot& RedoSlotAt(int index) const {
    return history.redoSlots.at(static_cast<std::size_t>(index));
  }

  std::vector<ClipVersion*> Versions() const override;
  // What a push replaced goes first, then the undo steps from the oldest on, then the redo steps from the
  // farthest on, last the working state.
  bool ForgetOldest() override;

 private:
  using Slots = std::array<UndoSlot, kUndoSteps>;

  struct History {
    Slots undoSlots;
    Slots redoSlots;
    std::shared_ptr<ClipVersion> workingClip;  // null only when memory was too short to keep it
    int currentIndex = -1;
    int topIndex = -1;
    int currentTag = -1;
    bool recording = true;
  };

  void Store(int index, Slots& slots);
  void Restore(int index, const Slots& slots);
  void Swap(ClipEditor& editor);

  History history;
  std::optional<History> before;
};

}  // namespace tembrel
