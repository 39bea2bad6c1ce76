#include "edit/AudioUndo.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace tembrel {

namespace {

void MoveDown(std::array<UndoSlot, kUndoSteps>& slots) {
  for (std::size_t i = 0; i + 1 < slots.size(); ++i) {
    slots.at(i).version = slots.at(i + 1).version;  // tags stay where they are
  }
  slots.back().version.reset();
}

}  // namespace

void AudioUndo::Reset() {
  before.reset();
  history = {};
  history.workingClip = std::make_shared<ClipVersion>();
}

void AudioUndo::Push(const AudioClip* clip) {
  if (clip == nullptr) {
    return;
  }
  before = history;
  history.workingClip = std::make_shared<ClipVersion>(ClipVersion::Of(*clip));
  history.currentTag = 0;
  if (!history.recording) {
    return;
  }
  if (++history.currentIndex >= kUndoSteps) {
    history.currentIndex = kUndoSteps - 1;
    MoveDown(history.undoSlots);
    MoveDown(history.redoSlots);
  }
  history.topIndex = history.currentIndex;
  for (auto i = static_cast<std::size_t>(history.topIndex); i < history.undoSlots.size(); ++i) {
    history.undoSlots.at(i).version.reset();
    history.redoSlots.at(i).version.reset();
  }
  Store(history.currentIndex, history.undoSlots);
  Store(history.currentIndex, history.redoSlots);
}

void AudioUndo::TakeBackPush(ClipEditor& editor) {
  const std::shared_ptr<ClipVersion> pushed = history.workingClip;
  if (!editor.Changes().Empty() && pushed && editor.ReserveFor(*pushed)) {
    editor.Restore(pushed);
  }
  if (before) {
    history = std::move(*before);
    before.reset();
  } else if (history.currentIndex >= 0) {
    // Memory was too short to keep what the push replaced: only its own step goes.
    history.topIndex = --history.currentIndex;
  }
}

bool AudioUndo::Undo(ClipEditor& editor) {
  before.reset();
  const bool steps = CanUndo();
  const std::shared_ptr<ClipVersion> target =
      steps ? UndoSlotAt(history.currentIndex).version : history.workingClip;
  if (!target || !editor.ReserveFor(*target)) {
    return false;
  }
  if (steps) {
    Restore(history.currentIndex, history.undoSlots);
    --history.currentIndex;
  }
  Swap(editor);
  if (!history.workingClip) {
    return true;  // there was no memory to keep what could be redone
  }
  const int undone = history.currentIndex + 1;
  Store(undone, history.redoSlots);
  if (steps) {
    history.topIndex = std::max(history.topIndex, undone);
    UndoSlot& slot = history.undoSlots.at(static_cast<std::size_t>(undone));
    if (!slot.version) {
      // Given up for want of memory on the way; without it a redo could not be undone.
      slot.version = std::make_shared<ClipVersion>(ClipVersion::Of(editor.Clip()));
    }
  }
  return true;
}

bool AudioUndo::Redo(ClipEditor& editor) {
  before.reset();
  const int next = CanRedo() ? history.currentIndex + 1 : history.currentIndex;
  const std::shared_ptr<ClipVersion> target = next >= 0 ? RedoSlotAt(next).version : history.workingClip;
  if (!target || !editor.ReserveFor(*target)) {
    return false;
  }
  history.currentIndex = next;
  Restore(next, history.redoSlots);
  Swap(editor);
  return true;
}

// Clip and working state change places.
void AudioUndo::Swap(ClipEditor& editor) {
  history.recording = false;
  const auto target =
      std::exchange(history.workingClip, std::make_shared<ClipVersion>(ClipVersion::Of(editor.Clip())));
  editor.Restore(target);
  history.recording = true;
}

void AudioUndo::Store(int index, Slots& slots) {
  if (index >= 0 && index < kUndoSteps) {
    slots.at(static_cast<std::size_t>(index)) = {static_cast<std::uint16_t>(history.currentTag),
                                                 history.workingClip};
  }
}

void AudioUndo::Restore(int index, const Slots& slots) {
  if (index >= 0 && index < kUndoSteps) {
    const UndoSlot& slot = slots.at(static_cast<std::size_t>(index));
    history.currentTag = slot.tag;
    history.workingClip = slot.version;
  }
}

std::vector<ClipVersion*> AudioUndo::Versions() const {
  std::vector<ClipVersion*> versions;
  const auto add = [&versions](const History& from) {
    for (std::size_t i = 0; i < from.undoSlots.size(); ++i) {
      versions.push_back(from.undoSlots.at(i).version.get());
      versions.push_back(from.redoSlots.at(i).version.get());
    }
    versions.push_back(from.workingClip.get());
  };
  add(history);
  if (before) {
    add(*before);
  }
  std::ranges::sort(versions, std::less<>());
  versions.erase(std::unique(versions.begin(), versions.end()), versions.end());
  std::erase(versions, nullptr);
  return versions;
}

bool AudioUndo::ForgetOldest() {
  if (before) {
    before.reset();
    return true;
  }
  if (history.currentIndex >= 0) {
    MoveDown(history.undoSlots);
    MoveDown(history.redoSlots);
    --history.currentIndex;
    --history.topIndex;
    return true;
  }
  if (history.topIndex >= 0) {
    const auto farthest = static_cast<std::size_t>(history.topIndex--);
    history.undoSlots.at(farthest).version.reset();
    history.redoSlots.at(farthest).version.reset();
    return true;
  }
  return std::exchange(history.workingClip, nullptr) != nullptr;
}

}  // namespace tembrel
