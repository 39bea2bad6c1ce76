#include "app/RecentFiles.h"

#include <algorithm>

#include "app/CommandIds.h"
#include "view/ActionMenu.h"

namespace tembrel {

namespace {

constexpr std::size_t kComparedCharacters = 259;

bool IsSameFile(std::string_view a, std::string_view b) {
  return a.substr(0, kComparedCharacters) == b.substr(0, kComparedCharacters);
}

bool IsControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7f;
}

}  // namespace

void RecentFiles::Add(std::string_view path) {
  if (path.empty()) {
    return;
  }
  SlotArray next;
  next[0] = path;
  std::size_t used = 1;
  for (std::string& slot : slots) {
    if (used < kSlots && !slot.empty() && !IsSameFile(slot, next[0])) {
      next[used++] = std::move(slot);
    }
  }
  slots = std::move(next);
}

std::vector<RecentMenuEntry> RecentFiles::MenuEntries() const {
  std::vector<RecentMenuEntry> entries;
  int id = kCommandRecentFile1;
  for (const std::string& slot : slots) {
    if (!slot.empty()) {
      entries.push_back({id, MenuText(slot)});
    }
    ++id;
  }
  return entries;
}

std::string MenuText(std::string_view path) {
  std::string text = MenuName(path);
  std::ranges::replace_if(text, IsControl, ' ');
  return text;
}

}  // namespace tembrel
