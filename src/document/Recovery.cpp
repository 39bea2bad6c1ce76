#include "document/Recovery.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>

#include "document/TempCopy.h"
#include "platform/FileLock.h"

namespace tembrel {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kNamesShown = 5;

bool IsTempName(const fs::path& path, const std::string& extension) {
  const std::string stem = path.stem().string();
  const std::string prefix = "temp";
  return path.extension() == extension && stem.size() > prefix.size() && stem.starts_with(prefix) &&
         std::all_of(stem.begin() + static_cast<std::ptrdiff_t>(prefix.size()), stem.end(),
                     [](char c) { return c >= '0' && c <= '9'; });
}

std::string ReadNote(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<fs::path> FolderEntries(const fs::path& folder) {
  std::vector<fs::path> entries;
  std::error_code error;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    entries.push_back(it->path());
  }
  return entries;
}

}  // namespace

std::vector<AbandonedCopy> FindAbandonedCopies(const fs::path& tempFolder) {
  std::vector<AbandonedCopy> copies;
  std::error_code error;
  for (const fs::path& path : FolderEntries(tempFolder)) {
    if (IsTempName(path, ".txt") && !fs::exists(fs::path(path).replace_extension(".wav"), error)) {
      fs::remove(path, error);
    }
    if (!IsTempName(path, ".wav")) {
      continue;
    }
    const std::optional<FileLock> lock = FileLock::TryLock(path);
    if (!lock) {
      continue;  // a running program's
    }
    if (fs::exists(NotePath(path), error)) {
      copies.push_back({path, ReadNote(NotePath(path))});
    } else {
      fs::remove(path, error);
    }
  }
  std::ranges::sort(copies, [](const AbandonedCopy& a, const AbandonedCopy& b) {
    std::error_code ignored;
    return fs::last_write_time(a.wave, ignored) < fs::last_write_time(b.wave, ignored);
  });
  return copies;
}

void RemoveAbandonedCopy(const AbandonedCopy& copy) {
  std::error_code ignored;
  fs::remove(NotePath(copy.wave), ignored);
  fs::remove(copy.wave, ignored);
}

std::string RecoveryQuestion(const std::vector<AbandonedCopy>& copies) {
  std::string text =
      "Tembrel did not end properly last time.  These documents had changes that were not saved:\n\n";
  for (std::size_t i = 0; i < std::min(copies.size(), kNamesShown); ++i) {
    const std::string& name = copies[i].documentName;
    text += (name.empty() ? std::string("(a new document)") : name) + "\n";
  }
  if (copies.size() > kNamesShown) {
    text += "and " + std::to_string(copies.size() - kNamesShown) + " more\n";
  }
  return text + "\nDo you wish to recover them?  Their changes are lost for good if you do not.";
}

}  // namespace tembrel
