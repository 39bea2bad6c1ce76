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
  // The columns [fromX, toX), logical pixels, became inverted or not: repaint them from the kept picture.
  virtual void SelectionStripChanged(int fromX, int toX) = 0;
  // Set the mouse pointer to this logical pixel of the view: a drag beyond an edge scrolled.
  virtual void MovePointerTo(int x, int y) = 0;
  // The rulers' mouse read-outs: the frame under the mouse.
  virtual void MouseReadout(std::int64_t frame) = 0;
  // The pencil got armed or disarmed: the pointer over the view has another shape.
  virtual void PointerShapeChanged() = 0;
  // Whether the mouse at logical pixel (x, y), over `frame`, points at the waveform closely enough for the
  // pencil.
  virtual bool PencilHit(int x, int y, std::int64_t frame) = 0;
  // A pencil stroke begins: record for undo. False when that failed; nothing is drawn then.
  virtual bool PencilBegin() = 0;
  // Draw samples at logical pixel (x, y), which may lie outside the view.
  virtual void PencilDraw(int x, int y) = 0;
  // The sound in the columns fromX..toX, logical pixels, changed: paint the waveform there anew.
  virtual void PencilStripChanged(int fromX, int toX) = 0;
  // The stroke has ended: the document is changed.
  virtual void PencilEnd() = 0;
  // Open the action menu with its top left corner at this logical pixel of the view; call ActionMenuClosed
  // when it has closed.
  virtual void ActionMenuWanted(int x, int y) = 0;
  // The vertical zoom changed: the document window lays out its children again (size message 99).
  virtual void Relayout() = 0;
};

}  // namespace tembrel
