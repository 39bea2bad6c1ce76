#include "document/Recovery.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "audio/WaveSalvage.h"
#include "document/TempCopy.h"
#include "platform/OutputFile.h"

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

std::string ShownName(const AbandonedCopy& copy) {
  return copy.documentName.empty() ? "a new document" : copy.documentName;
}

// The first free name of "temp7.broken", "temp7-2.broken", ...
fs::path BrokenPath(const fs::path& wave) {
  fs::path path = fs::path(wave).replace_extension(".broken");
  std::error_code error;
  for (int i = 2; fs::exists(path, error); ++i) {
    path = wave.parent_path() / (wave.stem().string() + "-" + std::to_string(i) + ".broken");
  }
  return path;
}

std::string PutAside(const AbandonedCopy& copy, const std::string& reason) {
  std::string text = "The unsaved changes of " + ShownName(copy) + " could not be recovered: " + reason + ".";
  const fs::path broken = BrokenPath(copy.wave);
  std::error_code error;
  fs::rename(copy.wave, broken, error);
  if (error) {
    return text;
  }
  fs::remove(NotePath(copy.wave), error);
  return text + " The damaged copy is kept as " + broken.string() + ".";
}

// Whether a program that dies now, or a computer that loses its power, leaves the document's own copy.
bool IsKeptOnDisk(const Document& document) {
  std::error_code error;
  std::string reason;
  if (!document.HasTempCopy() || !fs::exists(NotePath(document.TempFileName()), error)) {
    return false;
  }
  std::optional<OutputFile> file = OutputFile::OpenExisting(document.TempFileName(), reason);
  return file && file->Flush(reason) && file->Close(reason);
}

}  // namespace

std::vector<AbandonedCopy> FindAbandonedCopies(const fs::path& tempFolder) {
  std::vector<AbandonedCopy> copies;
  std::error_code error;
  for (const fs::path& path : FolderEntries(tempFolder)) {
    if (IsTempName(path, ".txt") && !fs::exists(fs::path(path).replace_extension(".wav"), error)) {
      fs::remove(path, error);
    }
    if (IsTempName(path, ".part") && FileLock::TryLock(path)) {
      fs::remove(path, error);
    }
    if (!IsTempName(path, ".wav")) {
      continue;
    }
    std::optional<FileLock> lock = FileLock::TryLock(path);
    if (!lock) {
      continue;  // a running program's
    }
    if (fs::exists(NotePath(path), error)) {
      copies.push_back({path, ReadNote(NotePath(path)), std::move(lock)});
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

RecoveryResult RecoverCopy(AbandonedCopy copy, Document& document, const Progress& progress) {
  SalvageResult salvaged = SalvageClip(copy.wave, FirstHalf(progress));
  if (salvaged.cancelled) {
    return {};
  }
  if (salvaged.outOfMemory) {
    return {false, "The unsaved changes of " + ShownName(copy) + " could not be recovered: " +
                       salvaged.reason + ". They will be offered again at the next start."};
  }
  if (!salvaged.clip) {
    return {false, PutAside(copy, salvaged.reason)};
  }
  if (document.TakeSound(std::move(salvaged.clip), copy.documentName, SecondHalf(progress)) ==
      LoadOutcome::Cancelled) {
    return {};
  }
  document.SetChanged(true);
  RecoveryResult result{true, {}};
  if (salvaged.cutShort) {
    result.message = "The end of " + ShownName(copy) +
                     " may be missing: Tembrel was stopped while it wrote the copy that was recovered.";
  }
  if (IsKeptOnDisk(document)) {
    RemoveAbandonedCopy(copy);
  } else {
    result.message +=
        (result.message.empty() ? "" : "  ") + ("The recovered changes of " + ShownName(copy)) +
        " could not be written to the disk again. Save them soon. Their old copy stays and will be offered "
        "again at the next start.";
  }
  return result;
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
  return text +
         "\nDo you wish to recover them?  With No their changes are lost for good, with Cancel you are asked "
         "again next time.";
}

}  // namespace tembrel
