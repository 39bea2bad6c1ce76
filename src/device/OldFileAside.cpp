#include "device/OldFileAside.h"

#include <string>
#include <system_error>

namespace tembrel {

namespace {

std::filesystem::path FreeNameBeside(const std::filesystem::path& path) {
  std::error_code ignored;
  std::filesystem::path free;
  int number = 0;
  do {
    ++number;
    free = path;
    free += ".old" + std::to_string(number);
  } while (std::filesystem::exists(std::filesystem::symlink_status(free, ignored)));
  return free;
}

}  // namespace

OldFileAside::OldFileAside(const std::filesystem::path& path) : place(path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(place, error)) {
    return;
  }
  const std::filesystem::path free = FreeNameBeside(place);
  std::filesystem::rename(place, free, error);
  if (error) {
    reason = error.message();
  } else {
    aside = free;
  }
}

void OldFileAside::PutBack() {
  if (!aside.empty()) {
    std::error_code ignored;
    std::filesystem::rename(aside, place, ignored);
    aside.clear();
  }
}

void OldFileAside::Remove() {
  if (!aside.empty()) {
    std::error_code ignored;
    std::filesystem::remove(aside, ignored);
    aside.clear();
  }
}

}  // namespace tembrel
