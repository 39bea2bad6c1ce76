// A clip with its history and clipboard, without a document around it.
#pragma once

#include <utility>

#include "edit/AudioUndo.h"
#include "edit/ClipEdits.h"
#include "edit/Clipboard.h"
#include "edit/EditStep.h"
#include "tests/support/EditClips.h"

namespace tembrel::test {

struct EditSession {
  AudioClip clip;
  AudioUndo undo;
  EditMemory memory;
  Clipboard clipboard;
  ClipChanges changes;  // of the last step

  explicit EditSession(AudioClip edited) : clip(std::move(edited)) {}
  EditSession(const WaveFormat& format, std::span<const std::byte> bytes) : clip(ClipOf(format, bytes)) {}

  EditResult Run(const EditStep& step) {
    EditResult result = step.check ? step.check(clip) : EditResult::Done();
    if (!result.done) {
      return result;
    }
    undo.Push(&clip);
    ClipEditor editor(clip, undo, memory);
    result = step.change(editor);
    changes = editor.Changes();
    if (result.done) {
      undo.KeepPush();
    } else {
      undo.TakeBackPush(editor);
    }
    return result;
  }

  // A step whose change is any function of the editor that tells whether it worked.
  bool Change(const std::function<bool(ClipEditor&)>& change) {
    return Run({.check = {},
                .change =
                    [&](ClipEditor& editor) {
                      return EditResult{change(editor), {}, false};
                    },
                .marksChanged = true,
                .refreshesLengths = true})
        .done;
  }

  bool Undo() {
    ClipEditor editor(clip, undo, memory);
    const bool done = undo.Undo(editor);
    changes = editor.Changes();
    return done;
  }
  bool Redo() {
    ClipEditor editor(clip, undo, memory);
    const bool done = undo.Redo(editor);
    changes = editor.Changes();
    return done;
  }

  Bytes Content() const { return BytesOfClip(clip); }
};

}  // namespace tembrel::test
