// The four files opened or saved last, as the File menu lists them.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tembrel {

struct RecentMenuEntry {
  int id;            // the slot's command: 600 for slot 0 to 603 for slot 3
  std::string text;  // the path as a menu text

  bool operator==(const RecentMenuEntry&) const = default;
};

// File names are bytes as the system gave them, kept at full length: a shortened name would open nothing.
class RecentFiles {
 public:
  static constexpr std::size_t kSlots = 4;
  using SlotArray = std::array<std::string, kSlots>;

  // Slot 0 is the newest; an empty slot holds "".
  const SlotArray& Slots() const { return slots; }

  // Takes the slots as they were stored, gaps included.
  void SetSlots(SlotArray stored) { slots = std::move(stored); }

  // Puts the path in front. Slots that hold it already are dropped, then gaps, then what no longer fits.
  // Paths that agree in their first 259 characters count as the same. An empty path changes nothing.
  void Add(std::string_view path);

  // One entry for each slot that is not empty. A separator goes before them when there are any.
  std::vector<RecentMenuEntry> MenuEntries() const;

 private:
  SlotArray slots;
};

// The path as it must be written to show literally in a menu: '&' is doubled, since a single one would
// underline the next letter, and control characters become blanks, since a tab would start the column of
// keys.
std::string MenuText(std::string_view path);

}  // namespace tembrel
