// A new empty folder that is removed, with all that is in it, when the test ends.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace tembrel::test {

class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tembrel-test-XXXXXX").string();
    path = mkdtemp(name.data()) == nullptr ? std::filesystem::path() : std::filesystem::path(name);
  }
  ~ScratchFolder() {
    std::error_code ignored;
    if (!path.empty()) {
      std::filesystem::remove_all(path, ignored);
    }
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  const std::filesystem::path& Path() const { return path; }
  std::filesystem::path operator/(const std::filesystem::path& name) const { return path / name; }

  // The names of everything in the folder itself, hidden files included.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path)) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }

 private:
  std::filesystem::path path;
};

}  // namespace tembrel::test
