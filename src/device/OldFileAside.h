// Keeps the file that a new one is to replace until the new one is there.
#pragma once

#include <filesystem>
#include <string>

namespace tembrel {

// Renames a regular file at `path` to another name in its folder; without one, or when that fails, all this
// does nothing.
class OldFileAside {
 public:
  explicit OldFileAside(const std::filesystem::path& path);

  // Why the file could not be renamed, in the system's words; empty when it could or there is none.
  const std::string& Reason() const { return reason; }
  // The new file is not there: the old one comes back.
  void PutBack();
  // The new file is there: the old one goes.
  void Remove();

 private:
  std::filesystem::path place;
  std::filesystem::path aside;  // empty: nothing was moved
  std::string reason;
};

}  // namespace tembrel
