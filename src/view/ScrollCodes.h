// The scroll requests the waveform view answers, with their message numbers. Scroll bars, the scroller and
// the position buttons send them.
#pragma once

namespace tembrel {

// Horizontal scroll requests with their message numbers.
enum class ScrollCode {
  LineLeft = 0,       // a quarter screen
  LineRight = 1,      //
  PageLeft = 2,       // a screen
  PageRight = 3,      //
  ThumbPosition = 4,  // low word of the value: 0..100 percent of what can be scrolled
  ThumbTrack = 5,     // likewise, but only the position counter follows
  LeftEnd = 6,        // as ThumbPosition; senders give 0
  RightEnd = 7,       // as ThumbPosition; senders give 100
  Refresh = 10,       // no change, repaint
  ShowFrame = 11      // the whole screen that holds the frame given as value
};

// Vertical scroll requests with their message numbers.
enum class VerticalScrollCode {
  RowUp = 0,
  RowDown = 1,
  PageUp = 2,  // twelve rows
  PageDown = 3,
  ThumbPosition = 4,  // low word of the value: 0..100 percent
  Top = 6,
  Bottom = 7,
  Refresh = 10  // recompute the visible rows
};

}  // namespace tembrel
