// Documents that a run of the program left behind when it died.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "audio/Progress.h"
#include "document/Document.h"
#include "platform/FileLock.h"

namespace tembrel {

struct AbandonedCopy {
  std::filesystem::path wave;  // the temporary WAVE copy
  std::string documentName;    // the document's path, "" for one that never had a name
  // Keeps every other running program away from the copy until this one has dealt with it.
  std::optional<FileLock> lock = std::nullopt;
};

// The temporary copies with unsaved changes that no running program holds, oldest first, locked. Abandoned
// copies without changes are removed on the way, and notes without a copy. A copy that is found and neither
// recovered nor removed is found again at the next start.
std::vector<AbandonedCopy> FindAbandonedCopies(const std::filesystem::path& tempFolder);

// Removes the copy and its note.
void RemoveAbandonedCopy(const AbandonedCopy& copy);

struct RecoveryResult {
  bool recovered = false;  // the document has the sound; otherwise it is empty
  std::string message;     // for the user; empty when there is nothing to say
};

// Gets the copy's sound into the document, as unsaved changes of the document it was. The copy is removed
// once the document's own copy and note are on the disk, and stays otherwise. One that cannot be read is put
// aside as "temp<number>.broken" and not found again; after a cancel, and where memory is short, it stays.
RecoveryResult RecoverCopy(AbandonedCopy copy, Document& document, const Progress& progress = {});

// The question whether to recover them, naming up to five documents.
std::string RecoveryQuestion(const std::vector<AbandonedCopy>& copies);

}  // namespace tembrel
