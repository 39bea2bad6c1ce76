#include "view/StripButtons.h"

#include <array>

#include "document/StringTable.h"

namespace tembrel {

namespace {

constexpr std::array kStrip{
    StripButton{kStripRewind, "rewind", "Home", true},
    StripButton{kStripPlay, "play", "Space", true},
    StripButton{kStripPause, "pause", "", true},
    StripButton{kStripStop, "stop", "", true},
    StripButton{kStripRecord, "record", "", true},
    StripButton{kStripMoveInTime, "move-in-time", "", false},
    StripButton{kStripTimeDisplay, "time-display", "", false},
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
