#include "document/Document.h"

#include <system_error>
#include <utility>

#include "audio/WaveReader.h"

namespace tembrel {

namespace {

// Of the time an edit takes; the rest goes into the temporary copy.
constexpr double kEditingShare = 0.8;

std::string BaseName(const std::string& path) {
  return std::filesystem::path(path).filename().string();
}

std::string LookOnlyNotice(const WaveFormat& format) {
  std::string shape = std::to_string(format.wBitsPerSample) + " bits, " + std::to_string(format.nChannels) +
                      (format.nChannels == 1 ? " channel" : " channels");
  if (!HasPackedFrames(format)) {
    shape += ", " + std::to_string(format.nBlockAlign) + " bytes per frame";
  }
  return "This sound (" + shape + ") can be looked at but not edited.";
}

// False where a copy in this folder would only fill the disk in vain.
bool HasRoomFor(const AudioClip& sound, const std::filesystem::path& folder) {
  std::error_code error;
  const std::filesystem::space_info room = std::filesystem::space(folder, error);
  return !error && room.available > sound.dataSize;
}

}  // namespace

Document::Document(ProgramPaths programPaths, long long windowHandle, EditMemory editMemory)
    : paths(std::move(programPaths)), handle(windowHandle), memory(std::move(editMemory)) {}

void Document::Clear() {
  undo.Reset();
  FreeClip(clip);
  fileName.clear();
  notice.clear();
  tempCopy.reset();
  frameCount = 0;
  stereo = false;
  changed = false;
  pencilDown = false;
  pencilChanges = {};
}

LoadOutcome Document::LoadFile(const std::filesystem::path& wavePath, const std::string& displayName,
                               const FormatChoice& playback, const Progress& progress) {
  Clear();
  LoadResult loaded =
      LoadClip(wavePath, playback.rate, playback.bits, playback.channels, false, FirstHalf(progress));
  if (loaded.cancelled) {
    return LoadOutcome::Cancelled;
  }
  if (!loaded.clip) {
    FailToLoad(displayName, loaded.reason);
    return LoadOutcome::Failed;
  }
  return TakeSound(std::move(loaded.clip), displayName, SecondHalf(progress));
}

LoadOutcome Document::TakeSound(std::unique_ptr<AudioClip> sound, const std::string& displayName,
                                const Progress& progress) {
  Clear();
  // The document stays empty until its copy is there too: what is painted meanwhile is no half-loaded sound.
  if (MakeTempCopy(*sound, progress) == LoadOutcome::Cancelled) {
    Clear();
    return LoadOutcome::Cancelled;
  }
  clip = std::move(sound);
  frameCount = clip->Frames();
  stereo = clip->format.nChannels == 2;
  fileName = displayName;
  if (!Editable()) {
    notice = LookOnlyNotice(clip->format);
  }
  return LoadOutcome::Loaded;
}

LoadOutcome Document::MakeTempCopy(const AudioClip& sound, const Progress& progress) {
  // WAVE files are written with packed frames only; with gaps it would be a copy of other sound.
  tempCopy = HasPackedFrames(sound.format) ? TempCopy::Create(paths, handle) : std::nullopt;
  if (!tempCopy) {
    const bool goOn = !progress || progress(sound.dataSize, sound.dataSize);
    return goOn ? LoadOutcome::Loaded : LoadOutcome::Cancelled;
  }
  TempCopy::Result result = tempCopy->Write(sound, progress);
  if (result == TempCopy::Result::Failed) {
    tempCopy.reset();  // a part of a copy is of no use, and takes room on a disk that may be full
    if (progress && !progress(sound.dataSize, sound.dataSize)) {
      result = TempCopy::Result::Cancelled;
    }
  }
  return result == TempCopy::Result::Cancelled ? LoadOutcome::Cancelled : LoadOutcome::Loaded;
}

void Document::UpdateTempCopy(const ClipChanges& changes, const Progress& progress) {
  if (tempCopy) {
    tempCopy->Update(*clip, changes, progress);
  } else if (!changes.Empty() && HasRoomFor(*clip, paths.tempFolder)) {
    MakeTempCopy(*clip, {});
  }
  if (changed && tempCopy) {
    tempCopy->KeepNote(fileName);
  }
}

void Document::FailToLoad(const std::string& displayName, const std::string& reason) {
  Clear();
  fileName = displayName;
  notice = BaseName(displayName) + " could not be read: " + reason + ".";
}

void Document::AdoptName(const std::string& name) {
  fileName = name;
  if (changed && tempCopy) {
    tempCopy->NoteChanged(fileName);
  }
}

void Document::SetChanged(bool newValue) {
  changed = newValue;
  if (!tempCopy) {
    return;
  }
  if (changed) {
    tempCopy->NoteChanged(fileName);
  } else {
    tempCopy->NoteUnchanged();
  }
}

EditResult Document::CheckEditable() const {
  if (Editable()) {
    return EditResult::Done();
  }
  return EditResult::Refused(notice.empty() ? "There is no sound to edit." : notice);
}

EditResult Document::Edit(const EditStep& step, const Progress& progress,
                          const std::function<void()>& settled) {
  if (!clip || editing) {
    return {};
  }
  EndPencil();
  EditResult result = CheckEditable();
  if (result.done && step.check) {
    result = step.check(*clip);
  }
  if (!result.done) {
    return result;
  }
  undo.Push(clip.get());
  editing = true;
  const double share = tempCopy ? kEditingShare : 1.0;
  ClipEditor editor(*clip, undo, memory, PartOf(progress, 0.0, share));
  if (step.change) {
    result = step.change(editor);
  }
  if (!result.done) {
    undo.TakeBackPush(editor);
    editing = false;
    if (progress || !editor.Changes().Empty()) {
      TellListener(false);
    }
    return result;
  }
  undo.KeepPush();
  if (settled) {
    settled();
  }
  Finish(editor.Changes(), step.marksChanged, step.refreshesLengths, PartOf(progress, share, 1.0));
  return result;
}

EditResult Document::Undo() {
  return StepThroughHistory(&AudioUndo::Undo);
}

EditResult Document::Redo() {
  return StepThroughHistory(&AudioUndo::Redo);
}

EditResult Document::StepThroughHistory(bool (AudioUndo::*step)(ClipEditor&)) {
  if (!clip || editing) {
    return {};
  }
  EndPencil();
  if (!notice.empty()) {
    return EditResult::Refused(notice);
  }
  ClipEditor editor(*clip, undo, memory);
  if (!(undo.*step)(editor)) {
    return RefusalOf(editor);
  }
  // Taking back a step that changed nothing, a copy, does not make the document differ from its file.
  Finish(editor.Changes(), !editor.Changes().Empty(), true);
  return EditResult::Done();
}

EditResult Document::BeginPencil() {
  EditResult result = Edit({.check = {}, .change = {}, .marksChanged = false, .refreshesLengths = false});
  pencilDown = result.done;
  return result;
}

EditResult Document::DrawPencil(const PencilArea& area, int x, int y) {
  if (!clip || !pencilDown) {
    return {};
  }
  ClipEditor editor(*clip, undo, memory);
  EditResult result = DrawWithPencil(editor, area, frameCount, x, y);
  pencilChanges.Add(editor.Changes());
  if (!editor.Changes().Empty()) {
    TellListener(false);
  }
  return result;
}

void Document::EndPencil() {
  if (std::exchange(pencilDown, false)) {
    Finish(std::exchange(pencilChanges, {}), true, false);
  }
}

void Document::RefreshLengths() {
  const WaveFormat& format = clip->format;
  stereo = format.nChannels == 2;
  frameCount = clip->dataSize / ((format.wBitsPerSample == 16 ? 2U : 1U) * (stereo ? 2U : 1U));
}

void Document::Finish(const ClipChanges& changes, bool marksChanged, bool refreshesLengths,
                      const Progress& progress) {
  if (refreshesLengths) {
    RefreshLengths();
  }
  changed = changed || marksChanged;
  UpdateTempCopy(changes, progress);
  editing = false;
  TellListener(refreshesLengths);
}

void Document::TellListener(bool lengthsRefreshed) {
  if (listener != nullptr) {
    listener->SoundChanged(lengthsRefreshed);
  }
}

}  // namespace tembrel
