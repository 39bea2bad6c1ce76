// Documents that a run of the program left behind when it died.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tembrel {

struct AbandonedCopy {
  std::filesystem::path wave;  // the temporary WAVE copy
  std::string documentName;    // the document's path, "" for one that never had a name
};

// The temporary copies with unsaved changes that no running program holds, oldest first. Abandoned copies
// without changes are removed on the way, and notes without a copy.
std::vector<AbandonedCopy> FindAbandonedCopies(const std::filesystem::path& tempFolder);

// Removes the copy and its note.
void RemoveAbandonedCopy(const AbandonedCopy& copy);

// The question whether to recover them, naming up to five documents.
std::string RecoveryQuestion(const std::vector<AbandonedCopy>& copies);

}  // namespace tembrel
