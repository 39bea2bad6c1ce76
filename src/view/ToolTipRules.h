// When the program's one tool tip pop-up appears, moves and goes. It knows no clock and no window: it tells a
// listener what to start and show, and is told when a time is over.
#pragma once

#include <string>
#include <string_view>

namespace tembrel {

inline constexpr int kNoToolTip = -1;        // the mouse left: hide
inline constexpr int kToolTipNoText = 0;     // the mouse is over a control without a tip
inline constexpr int kToolTipArmTime = 200;  // milliseconds
inline constexpr int kToolTipShowTime = 1000;
inline constexpr int kToolTipEndTime = 5000;
inline constexpr int kToolTipHeight = 16;  // logical pixels
inline constexpr std::size_t kToolTipLength = 80;

// Starting a timer that runs starts it anew; each timer goes off once.
class ToolTipListener {
 public:
  virtual ~ToolTipListener() = default;

  virtual void StartTipTimer(int milliseconds) = 0;  // then TipTimeOver()
  virtual void StopTipTimer() = 0;
  virtual void StartEndTimer(int milliseconds) = 0;  // then EndTimeOver()
  virtual void StopEndTimer() = 0;
  // Logical pixels in the font of the tips.
  virtual int TextWidth(std::string_view text) = 0;
  // Show the pop-up, or move and resize it when it is on the screen already.
  virtual void ShowTip(std::string_view text, int x, int y, int width, int height) = 0;
  virtual void HideTip() = 0;
};

class ToolTipRules {
 public:
  // The listener outlives the rules.
  explicit ToolTipRules(ToolTipListener& tipListener) : listener(tipListener) {}

  // The mouse rests over the control whose tip is `id`, at (x, y) in the pixels the pop-up is placed in. To
  // be called when the mouse comes to another control, and may be called again while it stays.
  void Show(int id, int x, int y);
  void TipTimeOver();
  void EndTimeOver();

  bool Armed() const { return armed; }  // the first delay has passed
  bool Shown() const { return shown; }  // a tip is on the screen or about to be

 private:
  struct Request {
    int id = kNoToolTip;
    int x = 0;
    int y = 0;
  };
  void Act();
  void PutUp();
  void Hide();

  ToolTipListener& listener;
  bool armed = false;
  bool shown = false;
  bool visible = false;  // the second delay has passed as well
  Request latest;
  std::string text;
  int tipX = 0;
  int tipY = 0;
};

}  // namespace tembrel
