#include "view/ToolButtons.h"

#include <array>

namespace tembrel {

namespace {

constexpr std::array<ToolButton, kToolCount> kButtons{{
    {8224, "tool-0", "Selection tool", "Select: drag over the waveform", PointerShape::IBeam, true},
    {8225, "tool-1", "Arrow", "Place the cursor (arrow pointer)", PointerShape::Arrow, true},
    {8226, "tool-2", "Four-way arrow", "Place the cursor, without scrolling sideways (four-way pointer)",
     PointerShape::FourWay, false},
    {8227, "tool-3", "Crosshair", "Place the cursor (crosshair pointer)", PointerShape::Cross, true},
    {8228, "tool-4", "Pencil", "Place the cursor (pencil pointer)", PointerShape::Pencil, true},
    {8229, "tool-5", "Left-right arrow", "Place the cursor, without scrolling sideways (left-right pointer)",
     PointerShape::LeftRight, false},
    {8230, "tool-6", "Flag", "Place the cursor (hand pointer)", PointerShape::Hand, true},
    {8231, "tool-7", "Ruler", "Place the cursor (upright pointer)", PointerShape::UpArrow, true},
}};

}  // namespace

std::span<const ToolButton, kToolCount> ToolButtons() {
  return kButtons;
}

PointerShape PointerOf(int tool, bool pencilArmed) {
  if (pencilArmed) {
    return PointerShape::Pencil;
  }
  const bool known = tool >= 0 && static_cast<std::size_t>(tool) < kToolCount;
  return kButtons[known ? static_cast<std::size_t>(tool) : std::size_t{kSelectionTool}].pointer;
}

}  // namespace tembrel
