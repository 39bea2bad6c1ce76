#include "platform/MoveFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <unistd.h>
#include <vector>

#include "platform/InputFile.h"
#include "platform/OutputFile.h"
#include "platform/linux/FlushFolder.h"
#include "platform/linux/SystemReason.h"

namespace tembrel {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kCopyStep = std::size_t{1} << 20U;
// Flushed so often, a slow disk is waited for on the way, where the progress tells of it.
constexpr std::uint64_t kFlushStep = std::uint64_t{8} << 20U;

bool CopyInto(OutputFile& target, const fs::path& from, const MoveProgress& progress, std::string& reason) {
  const std::optional<InputFile> source = InputFile::Open(from, reason);
  if (!source) {
    return false;
  }
  std::vector<std::byte> buffer(kCopyStep);
  for (std::uint64_t done = 0; done < source->Size();) {
    const std::size_t got = source->ReadAt(done, buffer, reason);
    if (got == 0) {
      reason = reason.empty() ? SystemReason(EIO) : reason;
      return false;
    }
    if (!reason.empty() || !target.Write(std::span(buffer).first(got), reason)) {
      return false;
    }
    done += got;
    if (done % kFlushStep < got) {
      if (!target.Flush(reason)) {
        return false;
      }
      if (progress) {
        progress(done, source->Size());
      }
    }
  }
  return target.Flush(reason);
}

// On the disk, and open to those whom a new file at `likeThis` is open to.
bool Settle(const fs::path& file, const fs::path& likeThis, std::string& reason) {
  std::optional<OutputFile> settled = OutputFile::OpenExisting(file, reason);
  if (!settled) {
    return false;
  }
  settled->TakeAttributesOf(likeThis);
  return settled->Flush(reason) && settled->Close(reason);
}

bool MoveOver(OutputFile& placeholder, const fs::path& from, const fs::path& to, const MoveProgress& progress,
              std::string& reason) {
  std::error_code ignored;
  const fs::perms before = fs::status(from, ignored).permissions();
  int error = 0;
  if (Settle(from, to, reason)) {
    if (rename(from.c_str(), to.c_str()) == 0) {
      return true;
    }
    error = errno;
    reason = SystemReason(error);
  }
  // Where it is it stays as private as it was: the copy may fail, too.
  fs::permissions(from, before, ignored);
  if (error != EXDEV) {
    return false;
  }
  reason.clear();
  return CopyInto(placeholder, from, progress, reason) && placeholder.Close(reason);
}

}  // namespace

ReplaceResult MoveFile(const fs::path& from, const fs::path& to, const MoveProgress& progress) {
  ReplaceResult result;
  const fs::path target = ResolveLinks(to);
  std::optional<OutputFile> placeholder =
      OutputFile::CreateNew(target, OutputFile::Access::kDefault, result.reason);
  if (!placeholder) {
    return result;
  }
  result.ok = MoveOver(*placeholder, from, target, progress, result.reason);
  if (result.ok) {
    FlushFolder(target.parent_path());
    unlink(from.c_str());  // still there after a copy
  } else {
    unlink(target.c_str());
  }
  return result;
}

}  // namespace tembrel
