// One open sound file: its clip with its undo history, its names, whether it changed, and its temporary WAVE
// copy. Windows show it; its sound changes only through the edit frame here.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "audio/AudioClip.h"
#include "audio/ProgramPaths.h"
#include "audio/Progress.h"
#include "audio/Settings.h"
#include "document/DocumentListener.h"
#include "document/TempCopy.h"
#include "edit/AudioUndo.h"
#include "edit/EditMemory.h"
#include "edit/EditStep.h"
#include "edit/PencilDraw.h"

namespace tembrel {

enum class LoadOutcome { Loaded, Failed, Cancelled };

class Document {
 public:
  // An empty document. `windowHandle` is the number of its window; it names the temporary copy.
  Document(ProgramPaths programPaths, long long windowHandle, EditMemory editMemory = {});

  // Replaces the sound by that of the WAVE file `wavePath`, known from now on as `displayName`. On failure
  // the document is empty and Notice() says why; after a cancel it is empty too.
  LoadOutcome LoadFile(const std::filesystem::path& wavePath, const std::string& displayName,
                       const FormatChoice& playback, const Progress& progress = {});

  // Replaces the sound by this one, which is not null. Loaded, or Cancelled with the document empty.
  LoadOutcome TakeSound(std::unique_ptr<AudioClip> sound, const std::string& displayName,
                        const Progress& progress = {});

  // Empties the document and keeps the name; the notice becomes "<name> could not be read: <reason>."
  void FailToLoad(const std::string& displayName, const std::string& reason);

  // The sound, or null while the document is empty.
  const AudioClip* Clip() const { return clip.get(); }
  // True when there is sound and every command may change it: 8 or 16 bits, mono or stereo.
  bool Editable() const { return clip != nullptr && IsEditable(clip->format); }

  // The document's path as the user opened it; empty for a new document.
  const std::string& FileName() const { return fileName; }
  // What the document is called from now on.
  void AdoptName(const std::string& name);
  // Whether there is a temporary WAVE copy and it has the sound as it is now. It is missing where the Temp
  // folder takes no file or the disk is full, and for sound whose frames have gaps.
  bool HasTempCopy() const { return tempCopy && tempCopy->Complete(); }
  // That copy's path; empty when there is none.
  std::filesystem::path TempFileName() const {
    return HasTempCopy() ? tempCopy->Path() : std::filesystem::path();
  }
  // An edit is at work: what Clip() holds is half old, half new, and other threads may be writing it. Only
  // its progress function sees this; whoever is called from there leaves the samples alone. A further edit,
  // undo or redo is not done then.
  bool Editing() const { return editing; }
  // Whole frames of the sound.
  std::uint32_t FrameCount() const { return frameCount; }
  bool Stereo() const { return stereo; }

  // Whether the clip differs from the file; a pencil stroke counts from its beginning.
  bool Changed() const { return changed || pencilDown; }
  void SetChanged(bool newValue);

  // One line for the view: why the file could not be read, or that its sound can only be looked at. Empty
  // when there is nothing to say.
  const std::string& Notice() const { return notice; }

  // Told after every edit; null for nobody. Outlives the document or is taken away before.
  void SetListener(DocumentListener* newListener) { listener = newListener; }

  // The edit frame. Runs the step: its check, the undo snapshot, its change; then lengths, temporary copy,
  // changed flag and listener follow. Without sound nothing happens and nothing is said; sound that cannot be
  // edited is refused. A refused, failed or cancelled step leaves document and history as they were.
  // `settled` is called when the change is made and only the copy is still to be written, which cannot be
  // stopped.
  EditResult Edit(const EditStep& step, const Progress& progress = {},
                  const std::function<void()>& settled = {});

  // One step back or forth. Commands ask CanUndo() and CanRedo() first; called anyway they exchange the sound
  // with the history's working state, which is an empty clip in a document that was never edited.
  EditResult Undo();
  EditResult Redo();
  bool CanUndo() const { return undo.CanUndo(); }
  bool CanRedo() const { return undo.CanRedo(); }

  // A pencil drag is one step: begun at the press, drawn at every move, ended at the release, which brings
  // the temporary copy up to date and marks the document changed. Any other edit in between ends it; what is
  // drawn after the end is not.
  EditResult BeginPencil();
  EditResult DrawPencil(const PencilArea& area, int x, int y);
  void EndPencil();

 private:
  EditResult StepThroughHistory(bool (AudioUndo::*step)(ClipEditor&));
  EditResult CheckEditable() const;
  void RefreshLengths();
  void Finish(const ClipChanges& changes, bool marksChanged, bool refreshesLengths,
              const Progress& progress = {});
  // Has the temporary copy follow the changes. Where there was no room for one so far it is tried again.
  void UpdateTempCopy(const ClipChanges& changes, const Progress& progress);
  void TellListener(bool lengthsRefreshed);
  void Clear();
  LoadOutcome MakeTempCopy(const AudioClip& sound, const Progress& progress);

  ProgramPaths paths;
  long long handle;
  EditMemory memory;
  DocumentListener* listener = nullptr;
  std::unique_ptr<AudioClip> clip;
  AudioUndo undo;
  std::optional<TempCopy> tempCopy;
  std::string fileName;
  std::string notice;
  std::uint32_t frameCount = 0;
  bool stereo = false;
  bool changed = false;
  bool pencilDown = false;
  bool editing = false;
  ClipChanges pencilChanges;  // since the press
};

}  // namespace tembrel
