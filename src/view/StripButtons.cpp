#include "view/StripButtons.h"

#include <array>

#include "document/StringTable.h"

namespace tembrel {

namespace {

constexpr std::array kStrip{
    StripButton{45, "rewind", false},       StripButton{33, "play", false},
    StripButton{35, "pause", false},        StripButton{34, "stop", false},
    StripButton{36, "record", false},       StripButton{46, "move-in-time", false},
    StripButton{37, "time-display", false},
};

constexpr std::array kPositions{
    PositionButton{ScrollCode::LeftEnd, 0, "position-start", "To the start"},
    PositionButton{ScrollCode::LineLeft, 0, "position-left", "A quarter screen left"},
    PositionButton{ScrollCode::LineRight, 0, "position-right", "A quarter screen right"},
    PositionButton{ScrollCode::RightEnd, 100, "position-end", "To the end"},
};

}  // namespace

std::span<const StripButton> StripButtons() {
  return kStrip;
}

std::span<const PositionButton> PositionButtons() {
  return kPositions;
}

std::string_view StripButtonName(const StripButton& button) {
  return StringResource(kStringToolTips + button.tipId);
}

}  // namespace tembrel
