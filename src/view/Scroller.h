// The small position scroller: a thumb on a short track, and what the mouse does to it.
#pragma once

#include <optional>

#include "view/ScrollCodes.h"

namespace tembrel {

inline constexpr int kScrollerTrack = 50;  // logical pixels
inline constexpr int kScrollerThumb = 10;
inline constexpr int kScrollerThumbTop = 2;  // rows 2..13 of the window take hold of the thumb
inline constexpr int kScrollerThumbBottom = 13;

// What the scroller asks of the main frame. The percentage counts for the thumb codes only.
struct ScrollerRequest {
  ScrollCode code = ScrollCode::Refresh;
  int percent = 0;

  bool operator==(const ScrollerRequest&) const = default;
};

class Scroller {
 public:
  int Thumb() const { return thumb; }  // 1..40, the thumb's left end
  bool Dragging() const { return dragging; }
  // 0..100; the leftmost thumb is 0.
  int Percent() const;

  // The view was scrolled. True when the thumb moved and is to be painted. The percentage that a drag has
  // just ended with leaves it where it was let go.
  bool SetPercent(int percent);

  // Mouse, logical pixels. Move's request means that the thumb moved as well.
  std::optional<ScrollerRequest> Press(int x, int y);
  std::optional<ScrollerRequest> Move(int x);
  std::optional<ScrollerRequest> Release();

 private:
  int thumb = 1;
  int grabOffset = 0;  // the mouse's distance from the thumb's left end
  bool dragging = false;
  std::optional<int> released;  // the percentage of the last drag's end, until the view is elsewhere
};

}  // namespace tembrel
