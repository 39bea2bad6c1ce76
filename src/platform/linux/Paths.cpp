#include "platform/Paths.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <pwd.h>
#include <string>
#include <string_view>
#include <system_error>
#include <unistd.h>

#include "platform/InputFile.h"

namespace tembrel {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kProgramName = "tembrel";
constexpr std::size_t kMostUserDirsBytes = 65536;

std::string Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

fs::path HomeFolder() {
  fs::path home = Environment("HOME");
  if (home.is_absolute()) {
    return home;
  }
  std::array<char, 16384> buffer{};
  passwd record{};
  passwd* found = nullptr;
  if (getpwuid_r(getuid(), &record, buffer.data(), buffer.size(), &found) != 0 || found == nullptr) {
    return {};
  }
  home = found->pw_dir;
  return home.is_absolute() ? home : fs::path();
}

// The folder named by an environment variable, which counts only when absolute, else a folder below the home.
fs::path BaseFolder(const char* variable, const char* belowHome) {
  fs::path folder = Environment(variable);
  if (folder.is_absolute()) {
    return folder;
  }
  const fs::path home = HomeFolder();
  return home.empty() ? fs::path() : home / belowHome;
}

// The value of XDG_DOCUMENTS_DIR="$HOME/..." in the user's list of folders: shell text in double quotes, in
// which a backslash keeps the next character.
std::string DocumentsEntry(std::string_view list) {
  constexpr std::string_view kStart = "XDG_DOCUMENTS_DIR=\"";
  std::string entry;
  while (!list.empty()) {
    const std::size_t end = list.find('\n');
    std::string_view line = list.substr(0, end);
    list.remove_prefix(end == std::string_view::npos ? list.size() : end + 1);
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (!line.starts_with(kStart)) {
      continue;
    }
    entry.clear();  // the last one counts, as it would in a shell
    for (std::size_t i = kStart.size(); i < line.size() && line[i] != '"'; ++i) {
      if (line[i] == '\\' && i + 1 < line.size()) {
        ++i;
      }
      entry += line[i];
    }
  }
  return entry;
}

fs::path ConfiguredDocuments() {
  constexpr std::string_view kHome = "$HOME";
  const fs::path config = BaseFolder("XDG_CONFIG_HOME", ".config");
  std::string reason;
  const std::string entry =
      DocumentsEntry(ReadWholeFile(config / "user-dirs.dirs", kMostUserDirsBytes, reason).value_or(""));
  if (entry.starts_with(kHome)) {
    const fs::path home = HomeFolder();
    return home.empty() ? fs::path() : fs::path(home.string() + entry.substr(kHome.size()));
  }
  fs::path folder = entry;
  return folder.is_absolute() ? folder : fs::path();
}

}  // namespace

fs::path ExecutablePath() {
  // What the system says of a program that was built anew.
  constexpr std::string_view kDeleted = " (deleted)";
  std::error_code error;
  fs::path path = fs::read_symlink("/proc/self/exe", error);
  if (error) {
    return {};
  }
  const std::string text = path.string();
  if (text.ends_with(kDeleted) && !fs::exists(path, error)) {
    path = text.substr(0, text.size() - kDeleted.size());
  }
  return path;
}

fs::path UserDataFolder() {
  const fs::path base = BaseFolder("XDG_DATA_HOME", ".local/share");
  return base.empty() ? fs::path() : base / kProgramName;
}

fs::path UserConfigFolder() {
  const fs::path base = BaseFolder("XDG_CONFIG_HOME", ".config");
  return base.empty() ? fs::path() : base / kProgramName;
}

std::optional<fs::path> DocumentsFolder() {
  fs::path folder = ConfiguredDocuments();
  if (folder.empty()) {
    const fs::path home = HomeFolder();
    if (home.empty()) {
      return std::nullopt;
    }
    folder = home / "Documents";
  }
  std::error_code error;
  fs::create_directories(folder, error);
  if (!fs::is_directory(folder, error)) {
    return std::nullopt;
  }
  return folder;
}

bool IsWritableFolder(const fs::path& path) {
  std::error_code error;
  return fs::is_directory(path, error) && faccessat(AT_FDCWD, path.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

}  // namespace tembrel
