// The temporary WAVE file of one recording. When the program dies, what was settled last can be played, and
// is offered for recovery at the next start as an unsaved new document.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>

#include "audio/Settings.h"
#include "platform/FileLock.h"
#include "platform/MoveFile.h"
#include "platform/OutputFile.h"

namespace tembrel {

class TakeFile {
 public:
  // Takes the first free name among those of the temporary copies in the folder, and locks it. Nothing on
  // failure, with the system's words.
  static std::optional<TakeFile> Create(const std::filesystem::path& tempFolder,
                                        const FormatChoice& soundFormat, std::string& reason);

  TakeFile(TakeFile&& other) noexcept = default;
  TakeFile& operator=(TakeFile&& other) = delete;

  const std::filesystem::path& Path() const { return path; }
  std::uint64_t SoundBytes() const { return soundBytes; }

  // Appends whole frames. After a failure, with the system's words, the file holds as many of them as had
  // room.
  bool Append(std::span<const std::byte> frames, std::string& reason);
  // Brings what was appended to the disk, and then the header that speaks of it.
  bool Settle(std::string& reason);

  // Gives the file its name for good and forgets it. On failure it is as it was.
  bool MoveTo(const std::filesystem::path& target, const MoveProgress& progress, std::string& reason);
  void Remove();

 private:
  TakeFile(std::filesystem::path wavePath, FileLock fileLock, OutputFile output,
           const FormatChoice& soundFormat);
  void CutToFrames();

  std::filesystem::path path;
  std::optional<FileLock> lock;
  OutputFile file;
  FormatChoice format;
  std::uint64_t soundBytes = 0;
  bool noted = false;  // there is a note beside it, without which it would be removed at the next start
};

}  // namespace tembrel
