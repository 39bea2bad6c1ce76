#include "view/ToolTipRules.h"

#include "document/StringTable.h"

namespace tembrel {

namespace {

// Below the mouse; the tips 22 to 30 belong to larger buttons.
int DistanceBelow(int id) {
  return id >= 22 && id <= 30 ? 25 : 16;
}

constexpr int kTextMargins = 6;

}  // namespace

void ToolTipRules::Show(int id, int x, int y) {
  listener.StopTipTimer();
  latest = {id, x, y};
  if (!armed) {
    listener.StartTipTimer(kToolTipArmTime);
    return;
  }
  Act();
}

// The first delay is over for a mouse that has not gone to another control since: what it asked for begins
// now.
void ToolTipRules::TipTimeOver() {
  if (!armed) {
    armed = true;
    Act();
  } else if (shown && !visible) {
    PutUp();
  }
}

void ToolTipRules::Act() {
  if (latest.id == kNoToolTip) {
    Hide();
    return;
  }
  const std::string_view wanted = StringResource(kStringToolTips + latest.id).substr(0, kToolTipLength);
  if (wanted.empty()) {
    Hide();
    return;
  }
  if (shown && visible && wanted == text) {
    return;
  }
  const bool another = shown && wanted != text;
  text = wanted;
  tipX = latest.x;
  tipY = latest.y + DistanceBelow(latest.id);
  shown = true;
  if (another) {
    PutUp();
  } else {
    visible = false;
    listener.StartTipTimer(kToolTipShowTime);
  }
}

// A tip that has been read is in the way: it goes after a while by itself.
void ToolTipRules::PutUp() {
  visible = true;
  listener.ShowTip(text, tipX, tipY, listener.TextWidth(text) + kTextMargins, kToolTipHeight);
  listener.StartEndTimer(kToolTipEndTime);
}

void ToolTipRules::Hide() {
  if (visible) {
    listener.StopEndTimer();
    listener.HideTip();
  }
  shown = false;
  visible = false;
}

// The next tip begins with the first delay again.
void ToolTipRules::EndTimeOver() {
  Hide();
  armed = false;
}

}  // namespace tembrel
