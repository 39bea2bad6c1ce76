// What the mouse does to the view: cursor, selection, scrolling under a drag, pencil strokes, and the action
// menu a selection leads to.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "view/ActionMenu.h"
#include "view/EditView.h"
#include "view/PixelMap.h"
#include "view/ToolButtons.h"

namespace tembrel {

namespace {

constexpr double kPagingMargin = 30;  // pixels from the edge the pointer is put back to

// The pixel a fractional place lies in.
int WholePixel(double place) {
  constexpr double kLimit = 1 << 29;
  return std::isnan(place) ? 0 : static_cast<int>(std::floor(std::clamp(place, -kLimit, kLimit)));
}

}  // namespace

double EditView::InsideX(double x) const {
  return x < clientWidth ? std::max(x, 0.0) : std::max(clientWidth - 1, 0);
}

void EditView::PutCursorByMouse(std::int64_t frame) {
  const std::int64_t old = cursorFrame;
  cursorFrame = WithinSound(frame);
  listener.CursorChanged(old, cursorFrame);
  listener.CursorNotification(cursorFrame);
}

// ---- Buttons and moves

bool EditView::Press(MouseButton button, MousePoint at) {
  if (dragging || (button == MouseButton::Right && toolIndex != kSelectionTool)) {
    return false;
  }
  dragging = true;
  rightButton = button == MouseButton::Right;
  listener.CursorChanged(cursorFrame, cursorFrame);
  if (rightButton) {
    return true;
  }
  if (pencilEdit && PencilPossible() && listener.PencilBegin()) {
    drawing = true;
    strokeLeft = strokeRight = WholePixel(at.x);
    return true;
  }
  ArmPencil(false);
  if (toolIndex == kSelectionTool && !selection.Valid()) {
    StartSelection(at.x);
  }
  return true;
}

void EditView::Move(MousePoint at) {
  if (at.x > 0 && at.x <= clientWidth) {
    listener.MouseReadout(FrameAt(at.x));
  }
  if (!dragging) {
    ArmPencil(PencilPossible() && listener.PencilHit(WholePixel(at.x), WholePixel(at.y), FrameAt(at.x)));
    return;
  }
  if (drawing) {
    DrawWithPencil(at);
    return;
  }
  const MousePoint inside = ScrollUnderDrag(at);
  if (selecting) {
    FollowMouse(inside.x);
  }
}

bool EditView::Release(MouseButton button, MousePoint at) {
  if (!dragging || rightButton != (button == MouseButton::Right)) {
    return false;
  }
  if (selecting) {
    FollowMouse(at.x);
  }
  dragging = false;
  PutCursorByMouse(FrameAt(InsideX(at.x)));
  bool finished = false;
  if (drawing) {
    EndStroke();
  } else if (!rightButton && toolIndex == kSelectionTool) {
    finished = EndSelection();
  }
  ShowCounter();
  if (finished) {
    WantMenu(at);
  }
  return true;
}

void EditView::Leave() {
  if (!dragging) {
    ArmPencil(false);
  }
}

void EditView::CancelDrag() {
  if (!dragging) {
    return;
  }
  dragging = false;
  listener.CursorChanged(cursorFrame, cursorFrame);
  if (drawing) {
    EndStroke();
  } else if (selecting) {
    DropSelection();
  }
}

// ---- Scrolling under a drag

MousePoint EditView::ScrollUnderDrag(MousePoint at) {
  const std::optional<double> scrolledX = ScrollSideways(at.x);
  const std::optional<double> pagedY = PageRows(at.y);
  const MousePoint inside{
      std::clamp<double>(scrolledX.value_or(at.x), 0, clientWidth),
      pagedY.value_or(std::clamp<double>(at.y, 0, std::max(clientHeight - 1, 0))),
  };
  if (scrolledX || pagedY) {
    listener.MovePointerTo(WholePixel(scrolledX.value_or(inside.x)), WholePixel(inside.y));
  }
  return inside;
}

// Where the frame under the mouse went, when a drag beyond an edge scrolled.
std::optional<double> EditView::ScrollSideways(double x) {
  const bool left = x < 0 && firstVisibleFrame > 0;
  const bool right = x > clientWidth && firstVisibleFrame < LastFirstFrame();
  if ((!left && !right) || !ToolButtons()[static_cast<std::size_t>(toolIndex)].scrollsSideways) {
    return std::nullopt;
  }
  const std::int64_t frame = std::clamp<std::int64_t>(FrameAt(x), 0, TotalFrames());
  HorizontalScroll(left ? ScrollCode::LineLeft : ScrollCode::LineRight);
  return static_cast<double>(FrameToPixel(frame, firstVisibleFrame, framesOnScreen, clientWidth));
}

// The new y of the pointer, when a drag beyond an edge paged the amplitude rows.
std::optional<double> EditView::PageRows(double y) {
  if (toolIndex == kSelectionTool) {
    return std::nullopt;
  }
  if (y < 0 && verticalTopRow > 0) {
    VerticalScroll(VerticalScrollCode::PageUp);
    return kPagingMargin;
  }
  if (y > clientHeight && verticalTopRow <= kAmplitudeRows - 1 - visibleRows) {
    VerticalScroll(VerticalScrollCode::PageDown);
    return clientHeight - kPagingMargin;
  }
  return std::nullopt;
}

// ---- Selection

void EditView::StartSelection(double x) {
  const double inside = InsideX(x);
  const std::int64_t frame = FrameAt(inside);
  selection.SetRaw(frame, frame);
  selecting = true;
  anchorPixel = endPixel = WholePixel(inside);
}

// The right edge itself belongs to a drag: it stands for the frame after the last one shown, without which
// the sound's last frames could not be selected.
void EditView::FollowMouse(double x) {
  const double inside = std::clamp<double>(x, 0, clientWidth);
  selection.SetRaw(selection.AnchorFrame(), FrameAt(inside));
  const int previous = endPixel;
  endPixel = WholePixel(inside);
  if (endPixel != previous) {
    listener.SelectionStripChanged(std::min(previous, endPixel), std::max(previous, endPixel));
  }
}

// True when the drag made a selection that counts.
bool EditView::EndSelection() {
  if (!selecting) {
    DropSelection();
    return false;
  }
  const std::int64_t anchor = selection.AnchorFrame();
  const std::int64_t end = selection.EndFrame();
  if (WithinSound(std::min(anchor, end)) != cursorFrame) {
    PutCursorByMouse(std::min(anchor, end));
  }
  const bool click = std::abs(end - anchor) <= ClickFrames(framesOnScreen, clientWidth);
  if (click || !selection.Normalise(soundFrames)) {
    DropSelection();
    return false;
  }
  selecting = false;
  return true;
}

void EditView::DropSelection() {
  const PixelColumns strip = SelectionStrip();
  selecting = false;
  selection.Clear();
  if (!strip.Empty()) {
    listener.SelectionStripChanged(strip.from, strip.to);
  }
}

PixelColumns EditView::SelectionStrip() const {
  if (!selecting && !selection.Valid()) {
    return {};
  }
  return {std::clamp(std::min(anchorPixel, endPixel), 0, clientWidth),
          std::clamp(std::max(anchorPixel, endPixel), 0, clientWidth)};
}

// The view was scrolled, zoomed or resized, or the selection was not made by the mouse.
void EditView::PlaceStrip() {
  const auto column = [this](std::int64_t frame) {
    return WholePixel(
        static_cast<double>(FrameToPixel(frame, firstVisibleFrame, framesOnScreen, clientWidth)));
  };
  if (selecting || selection.Valid()) {
    anchorPixel = column(selection.AnchorFrame());
    endPixel = column(selection.EndFrame());
  }
}

void EditView::SetSelection(std::int64_t anchor, std::int64_t end, MousePoint mouse) {
  if (dragging) {
    return;
  }
  DropSelection();
  selection.SetRaw(std::clamp(anchor, -kMaxFrames, kMaxFrames), std::clamp(end, -kMaxFrames, kMaxFrames));
  if (!selection.Normalise(soundFrames)) {
    selection.Clear();
    return;
  }
  PlaceStrip();
  const PixelColumns strip = SelectionStrip();
  if (!strip.Empty()) {
    listener.SelectionStripChanged(strip.from, strip.to);
  }
  WantMenu(mouse);
}

void EditView::SelectAll(MousePoint mouse) {
  SetSelection(0, soundFrames, mouse);
}

void EditView::SelectLastRange(MousePoint mouse) {
  if (const std::optional<FrameRange> range = selection.Remembered()) {
    SetSelection(range->start, range->end, mouse);
  }
}

std::int64_t EditView::SelectionStart() const {
  const std::optional<FrameRange> range = selection.Remembered();
  return range ? std::min(range->start, soundFrames) * frameSize : 0;
}

std::int64_t EditView::SelectionEnd() const {
  const std::optional<FrameRange> range = selection.Remembered();
  return range ? std::min(range->end, soundFrames) * frameSize : 0;
}

void EditView::WantMenu(MousePoint mouse) {
  listener.ActionMenuWanted(WholePixel(mouse.x) + kActionMenuRight, WholePixel(mouse.y) + kActionMenuDown);
}

void EditView::ActionMenuClosed() {
  if (!selecting) {
    DropSelection();
  }
}

// ---- Pencil

bool EditView::PencilPossible() const {
  return soundFrames > 0 && framesOnScreen <= std::int64_t{4} * documentWidth;
}

void EditView::ArmPencil(bool armed) {
  if (armed != pencilEdit) {
    pencilEdit = armed;
    listener.PointerShapeChanged();
  }
}

// The redraw range of a stroke only grows: each move repaints all the stroke has touched.
void EditView::DrawWithPencil(MousePoint at) {
  const int x = WholePixel(at.x);
  strokeLeft = std::min(strokeLeft, x - 1);
  strokeRight = std::max(strokeRight, x + 1);
  listener.PencilDraw(x, WholePixel(at.y));
  listener.PencilStripChanged(strokeLeft, strokeRight);
}

void EditView::EndStroke() {
  drawing = false;
  ArmPencil(false);
  listener.PencilEnd();
  listener.Repaint();
}

}  // namespace tembrel
