// The buttons of the main frame's top strip as data: the transport's and the four position buttons.
#pragma once

#include <span>
#include <string_view>

#include "view/ScrollCodes.h"

namespace tembrel {

struct StripButton {
  int tipId;  // of its tool tip; its name is the tip's text
  std::string_view icon;
  bool built;  // the others stand in the strip, disabled
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
