// The WAVE copy of a document below the program folder: what playback plays, and what is left of the document
// when the program dies. It is removed when the document closes.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "audio/AudioClip.h"
#include "audio/ProgramPaths.h"
#include "audio/Progress.h"
#include "edit/ClipChanges.h"
#include "platform/FileLock.h"

namespace tembrel {

class TempCopy {
 public:
  // Under the first free name from `number` upward (TakeTempName). Nothing when the folder takes no file, or
  // when the paths name none.
  static std::optional<TempCopy> Create(const ProgramPaths& paths, long long number);

  TempCopy(TempCopy&& other) noexcept;
  TempCopy& operator=(TempCopy&& other) noexcept;
  ~TempCopy();

  const std::filesystem::path& Path() const { return path; }

  enum class Result { Written, Failed, Cancelled };
  // Makes the file the WAVE form of the clip.
  Result Write(const AudioClip& clip, const Progress& progress = {});
  // The same after the clip changed in these places, by writing them alone. After a failure the file is not
  // to be played, and the next update writes the whole. While there is a note, a program that dies on the way
  // leaves the sound of before, of after, or some of each. The progress is told; it stops nothing.
  Result Update(const AudioClip& clip, const ClipChanges& changes, const Progress& progress = {});
  // The file is the WAVE form of the clip that was written last; false after any failure.
  bool Complete() const { return state.complete; }

  // Leaves a note beside the copy that the document `name` has unsaved changes; without a note a copy found
  // at start-up holds nothing that is not in its file.
  void NoteChanged(const std::string& name);
  // The same where that note is missing: it could not be written, or somebody removed it.
  void KeepNote(const std::string& name);
  void NoteUnchanged();

 private:
  struct State {
    bool complete = false;
    bool noted = false;
    std::uint32_t dataSize = 0;  // bytes of sound in the file, while it is complete
  };

  TempCopy(std::filesystem::path wavePath, FileLock fileLock);
  void Remove();
  Result Replace(const AudioClip& clip, const Progress& progress);

  std::filesystem::path path;  // empty once moved from
  std::optional<FileLock> lock;
  State state;
};

// Where the note of a copy stands: "temp<number>.txt".
std::filesystem::path NotePath(const std::filesystem::path& tempWave);
// Where its successor is written while the copy itself is worth keeping: "temp<number>.part".
std::filesystem::path PartPath(const std::filesystem::path& tempWave);

}  // namespace tembrel
