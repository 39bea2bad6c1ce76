// What the waveform view tells its window. The rules stand in EditView; whoever shows a view implements this
// and paints, moves scroll bars and counters, and forwards.
#pragma once

#include <cstdint>
#include <optional>

namespace tembrel {

class EditViewListener {
 public:
  virtual ~EditViewListener() = default;

  // The view and both rulers are out of date as a whole: repaint at once.
  virtual void Repaint() = 0;
  // Only the cursor moved (or vanishes or comes back at a press or release): the two strips are out of date.
  // Frames.
  virtual void CursorChanged(std::int64_t oldFrame, std::int64_t newFrame) = 0;
  // 0..100, for the document's scroll bar and the main frame's overview.
  virtual void ScrollBarChanged(int percent) = 0;
  // The first amplitude row shown, how many fit, and whether the vertical scroll bar is of use. 128 rows in
  // all.
  virtual void VerticalScrollChanged(int topRow, int visibleRows, bool enabled) = 0;
  // Move the client's image by `pixels` logical pixels, down when positive, and repaint only the strip
  // uncovered.
  virtual void VerticalImageScroll(int pixels) = 0;
  // The position counter. No rate while there is no clip.
  virtual void CounterChanged(std::int64_t frame, std::optional<std::uint32_t> rate) = 0;
  // The user moved the cursor (message 0x1509 with 10 and the frame).
  virtual void CursorNotification(std::int64_t frame) = 0;
  // A key pressed tool button `index`, 0..7.
  virtual void ToolPressed(int index) = 0;
  // The vertical zoom changed: the document window lays out its children again (size message 99).
  virtual void Relayout() = 0;
};

}  // namespace tembrel
