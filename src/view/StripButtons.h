// The buttons of the main frame's top strip as data: the transport's and the four position buttons.
#pragma once

#include <span>
#include <string_view>

#include "view/ScrollCodes.h"

namespace tembrel {

// The transport's buttons are known by their tool tips.
inline constexpr int kStripPlay = 33;
inline constexpr int kStripStop = 34;
inline constexpr int kStripPause = 35;
inline constexpr int kStripRecord = 36;
inline constexpr int kStripTimeDisplay = 37;
inline constexpr int kStripRewind = 45;
inline constexpr int kStripMoveInTime = 46;

struct StripButton {
  int tipId;  // its name is the tip's text
  std::string_view icon;
  std::string_view key;  // that does the same; empty when there is none
  bool built;            // the others stand in the strip, disabled
};

struct PositionButton {
  ScrollCode code;  // the horizontal scroll request it sends
  int value;        // what goes with it
  std::string_view icon;
  std::string_view name;  // tool tip too
};

// From left to right.
std::span<const StripButton> StripButtons();
std::span<const PositionButton> PositionButtons();

// The name of a strip button: the text of its tool tip.
std::string_view StripButtonName(const StripButton& button);

}  // namespace tembrel
