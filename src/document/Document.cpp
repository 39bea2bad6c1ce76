#include "document/Document.h"

#include <utility>

#include "audio/WaveReader.h"

namespace tembrel {

namespace {

constexpr std::uint64_t kHalf = 1U << 20;  // progress of one of the two passes over the sound

// The share of a whole that begins at `start` and is kHalf long.
Progress HalfOf(const Progress& whole, std::uint64_t start) {
  if (!whole) {
    return {};
  }
  return [&whole, start](std::uint64_t done, std::uint64_t total) {
    const double fraction = total == 0 ? 1.0 : static_cast<double>(done) / static_cast<double>(total);
    return whole(start + static_cast<std::uint64_t>(fraction * static_cast<double>(kHalf)), 2 * kHalf);
  };
}

std::string BaseName(const std::string& path) {
  return std::filesystem::path(path).filename().string();
}

std::string LookOnlyNotice(const WaveFormat& format) {
  std::string shape = std::to_string(format.wBitsPerSample) + " bits, " + std::to_string(format.nChannels) +
                      (format.nChannels == 1 ? " channel" : " channels");
  if (format.nBlockAlign != FrameSize(format)) {
    shape += ", " + std::to_string(format.nBlockAlign) + " bytes per frame";
  }
  return "This sound (" + shape + ") can be looked at but not edited.";
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
                               const PlaybackFormat& playback, const Progress& progress) {
  Clear();
  LoadResult loaded =
      LoadClip(wavePath, playback.rate, playback.bits, playback.channels, false, HalfOf(progress, 0));
  if (loaded.cancelled) {
    return LoadOutcome::Cancelled;
  }
  if (!loaded.clip) {
    FailToLoad(displayName, loaded.reason);
    return LoadOutcome::Failed;
  }
  // The document stays empty until its copy is there too: what is painted meanwhile is no half-loaded sound.
  if (MakeTempCopy(*loaded.clip, progress) == LoadOutcome::Cancelled) {
    Clear();
    return LoadOutcome::Cancelled;
  }
  clip = std::move(loaded.clip);
  if (ReadWaveInfo(wavePath, frameCount) == kNoDuration) {
    frameCount = clip->Frames();
  }
  stereo = clip->format.nChannels == 2;
  fileName = displayName;
  if (!Editable()) {
    notice = LookOnlyNotice(clip->format);
  }
  return LoadOutcome::Loaded;
}

LoadOutcome Document::MakeTempCopy(const AudioClip& sound, const Progress& progress) {
  tempCopy = TempCopy::Create(paths, handle);
  if (!tempCopy) {
    return LoadOutcome::Loaded;
  }
  const TempCopy::Result result = tempCopy->Write(sound, HalfOf(progress, kHalf));
  return result == TempCopy::Result::Cancelled ? LoadOutcome::Cancelled : LoadOutcome::Loaded;
}

void Document::FailToLoad(const std::string& displayName, const std::string& reason) {
  Clear();
  fileName = displayName;
  notice = BaseName(displayName) + " could not be read: " + reason + ".";
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

EditResult Document::Edit(const EditStep& step) {
  if (!clip) {
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
  ClipEditor editor(*clip, undo, memory);
  if (step.change) {
    result = step.change(editor);
  }
  if (!result.done) {
    undo.TakeBackPush(editor);
    return result;
  }
  undo.KeepPush();
  Finish(editor.Changes(), step.marksChanged, step.refreshesLengths);
  return result;
}

EditResult Document::Undo() {
  return StepThroughHistory(&AudioUndo::Undo);
}

EditResult Document::Redo() {
  return StepThroughHistory(&AudioUndo::Redo);
}

EditResult Document::StepThroughHistory(bool (AudioUndo::*step)(ClipEditor&)) {
  if (!clip) {
    return {};
  }
  EndPencil();
  if (!notice.empty()) {
    return EditResult::Refused(notice);
  }
  ClipEditor editor(*clip, undo, memory);
  if (!(undo.*step)(editor)) {
    return EditResult::Refused(editor.RefusalText());
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
  if (listener != nullptr && !editor.Changes().Empty()) {
    listener->SoundChanged(false);
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

void Document::Finish(const ClipChanges& changes, bool marksChanged, bool refreshesLengths) {
  if (refreshesLengths) {
    RefreshLengths();
  }
  if (tempCopy) {
    tempCopy->Update(*clip, changes);
  }
  if (marksChanged && !changed) {
    SetChanged(true);
  }
  if (listener != nullptr) {
    listener->SoundChanged(refreshesLengths);
  }
}

}  // namespace tembrel
