// One open sound file: its clip, its names, whether it changed, and its temporary WAVE copy. Windows show it
// and commands change it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "audio/AudioClip.h"
#include "audio/ProgramPaths.h"
#include "audio/Progress.h"
#include "audio/Settings.h"
#include "document/TempCopy.h"

namespace tembrel {

enum class LoadOutcome { Loaded, Failed, Cancelled };

class Document {
 public:
  // An empty document. `windowHandle` is the number of its window; it names the temporary copy.
  Document(ProgramPaths programPaths, long long windowHandle);

  // Replaces the sound by that of the WAVE file `wavePath`, known from now on as `displayName`. On failure
  // the document is empty and Notice() says why; after a cancel it is empty too.
  LoadOutcome LoadFile(const std::filesystem::path& wavePath, const std::string& displayName,
                       const PlaybackFormat& playback, const Progress& progress = {});

  // Empties the document and keeps the name; the notice becomes "<name> could not be read: <reason>."
  void FailToLoad(const std::string& displayName, const std::string& reason);

  // The sound, or null while the document is empty.
  const AudioClip* Clip() const { return clip.get(); }
  // True when there is sound and every command may change it: 8 or 16 bits, mono or stereo.
  bool Editable() const { return clip != nullptr && IsEditable(clip->format); }

  // The document's path as the user opened it; empty for a new document.
  const std::string& FileName() const { return fileName; }
  // The temporary WAVE copy; empty when there is none.
  std::filesystem::path TempFileName() const { return tempCopy ? tempCopy->Path() : std::filesystem::path(); }
  // Frames as the file's header tells them.
  std::uint32_t FrameCount() const { return frameCount; }
  bool Stereo() const { return stereo; }

  // Whether the clip differs from the file.
  bool Changed() const { return changed; }
  void SetChanged(bool newValue);

  // One line for the view: why the file could not be read, or that its sound can only be looked at. Empty
  // when there is nothing to say.
  const std::string& Notice() const { return notice; }

 private:
  void Clear();
  LoadOutcome MakeTempCopy(const AudioClip& sound, const Progress& progress);

  ProgramPaths paths;
  long long handle;
  std::unique_ptr<AudioClip> clip;
  std::optional<TempCopy> tempCopy;
  std::string fileName;
  std::string notice;
  std::uint32_t frameCount = 0;
  bool stereo = false;
  bool changed = false;
};

}  // namespace tembrel
