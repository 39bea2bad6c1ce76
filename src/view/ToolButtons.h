// The eight tool buttons as data. Only the selection tool makes selections; a click with any other just
// places the cursor, so these differ in their pointer and in whether a drag beyond the side edges scrolls.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace tembrel {

inline constexpr int kFirstToolButton = 8224;  // control ids 8224..8231
inline constexpr std::size_t kToolCount = 8;
inline constexpr int kSelectionTool = 0;

enum class PointerShape { IBeam, Arrow, FourWay, Cross, UpArrow, LeftRight, Hand, Pencil };

struct ToolButton {
  int controlId;
  std::string_view icon;
  std::string_view name;  // for screen readers
  std::string_view tip;
  PointerShape pointer;
  bool scrollsSideways;  // dragging beyond the left or right edge scrolls the view
};

// From index 0 to 7.
std::span<const ToolButton, kToolCount> ToolButtons();

// The pointer over the view: the pencil wherever a press would draw samples, else the tool's. Indices outside
// 0..7 give the selection tool's.
PointerShape PointerOf(int tool, bool pencilArmed);

}  // namespace tembrel
