#include "view/EditView.h"

#include <algorithm>
#include <array>

#include "view/PixelMap.h"
#include "view/ToolButtons.h"

namespace tembrel {

namespace {

// A thumb position 0..100 stands in the low word of a request's value.
std::int64_t PercentIn(std::int64_t value) {
  return std::min<std::int64_t>(value & 0xFFFF, 100);
}

}  // namespace

// ---- What is shown

std::int64_t EditView::TotalFrames() const {
  return soundFrames == 0 ? kFramesOfEmptyDocument : soundFrames;
}

std::int64_t EditView::LastFirstFrame() const {
  return std::max<std::int64_t>(TotalFrames() - framesOnScreen, 0);
}

std::int64_t EditView::WithinSound(std::int64_t frame) const {
  return std::clamp<std::int64_t>(frame, 0, soundFrames);
}

bool EditView::IsVisible(std::int64_t frame) const {
  const std::int64_t end = firstVisibleFrame + framesOnScreen;
  return frame >= firstVisibleFrame && (frame < end || (frame == end && frame == soundFrames));
}

std::int64_t EditView::CursorPixel() const {
  return FrameToPixel(cursorFrame, firstVisibleFrame, framesOnScreen, clientWidth);
}

std::int64_t EditView::FrameAt(double x) const {
  return PixelToFrame(x, firstVisibleFrame, framesOnScreen, clientWidth);
}

void EditView::SetSound(std::int64_t frames, std::optional<std::uint32_t> newRate,
                        std::int64_t newFrameSize) {
  selection.Reset();
  selecting = drawing = pencilEdit = dragging = false;
  frameSize = std::max<std::int64_t>(newFrameSize, 0);
  soundFrames = std::clamp<std::int64_t>(frames, 0, kMaxFrames);
  rate = newRate;
  cursorFrame = 0;
  firstVisibleFrame = 0;
  framesOnScreen = TotalFrames();
  verticalTopRow = 51;
  RefreshRows();
  HorizontalScroll(ScrollCode::Refresh);
}

void EditView::SoundChanged(std::int64_t frames, std::optional<std::uint32_t> newRate,
                            std::int64_t newFrameSize) {
  frameSize = std::max<std::int64_t>(newFrameSize, 0);
  soundFrames = std::clamp<std::int64_t>(frames, 0, kMaxFrames);
  rate = newRate;
  framesOnScreen = std::min(framesOnScreen, TotalFrames());
  firstVisibleFrame = std::min(firstVisibleFrame, LastFirstFrame());
  MoveCursor(WithinSound(cursorFrame));
  HorizontalScroll(ScrollCode::Refresh);
}

void EditView::SetClientSize(int width, int height) {
  clientWidth = std::max(width, 0);
  clientHeight = std::max(height, 0);
  PlaceStrip();
  RefreshRows();
}

void EditView::Show(std::int64_t first, std::int64_t frames) {
  framesOnScreen = std::clamp<std::int64_t>(frames, 1, kMaxFrames);
  firstVisibleFrame = std::clamp<std::int64_t>(first, 0, kMaxFrames);
  HorizontalScroll(ScrollCode::Refresh);
}

// ---- Horizontal scrolling and zooming

void EditView::ScrollTo(std::int64_t frame) {
  firstVisibleFrame = std::clamp<std::int64_t>(frame, 0, LastFirstFrame());
}

void EditView::KeepCursorVisible() {
  if (!IsVisible(cursorFrame)) {
    MoveCursor(WithinSound(firstVisibleFrame));
  }
}

void EditView::MoveCursor(std::int64_t frame) {
  const std::int64_t old = cursorFrame;
  cursorFrame = frame;
  if (frame != old) {
    listener.CursorChanged(old, frame);
  }
}

bool EditView::HorizontalScroll(ScrollCode code, std::int64_t value) {
  const std::int64_t shown = framesOnScreen;
  const std::int64_t first = firstVisibleFrame;
  switch (code) {
    case ScrollCode::LineLeft:
      firstVisibleFrame = std::max<std::int64_t>(first - shown / 4, 0);
      break;
    case ScrollCode::LineRight:
      ScrollTo(first + shown / 4);
      break;
    case ScrollCode::PageLeft:
      firstVisibleFrame = std::max<std::int64_t>(first - shown, 0);
      break;
    case ScrollCode::PageRight:
      ScrollTo(first + shown);
      break;
    case ScrollCode::ThumbPosition:
    case ScrollCode::LeftEnd:
    case ScrollCode::RightEnd:
      ScrollTo(LastFirstFrame() * PercentIn(value) / 100);
      KeepCursorVisible();
      // The percentage asked for, and not what the frame rounds down to: the thumb stays where it was let go.
      ShowHorizontalState(true, LastFirstFrame() == 0 ? 0 : static_cast<int>(PercentIn(value)));
      return true;
    case ScrollCode::ThumbTrack:
      listener.CounterChanged(LastFirstFrame() * PercentIn(value) / 100, rate);
      return true;
    case ScrollCode::ShowFrame:
      ScrollTo(std::clamp<std::int64_t>(value, 0, kMaxFrames) / shown * shown);
      break;
    case ScrollCode::Refresh:
      ShowHorizontalState(true, ScrollPercent());
      return true;
    default:
      return false;
  }
  KeepCursorVisible();
  ShowHorizontalState(code != ScrollCode::ShowFrame, ScrollPercent());
  return true;
}

int EditView::ScrollPercent() const {
  const std::int64_t range = LastFirstFrame();
  const std::int64_t percent = firstVisibleFrame * 100 / (range == 0 ? TotalFrames() : range);
  return static_cast<int>(std::clamp<std::int64_t>(percent, 0, 100));
}

void EditView::ShowHorizontalState(bool withCounter, int percent) {
  PlaceStrip();
  listener.ScrollBarChanged(percent);
  listener.Repaint();
  if (withCounter) {
    ShowCounter();
  }
}

// The cursor in the middle of the screen, as far as the sound reaches.
void EditView::CentreCursor() {
  ScrollTo(cursorFrame - framesOnScreen / 2);
  HorizontalScroll(ScrollCode::Refresh);
}

void EditView::ZoomIn() {
  if (documentWidth / 2 < framesOnScreen) {
    framesOnScreen = std::max<std::int64_t>(framesOnScreen / 2, 1);
    CentreCursor();
  }
}

void EditView::ZoomOut() {
  framesOnScreen = std::min(framesOnScreen, kMaxFrames) * 2;
  if (TotalFrames() <= framesOnScreen / 4) {
    framesOnScreen = TotalFrames();
  }
  CentreCursor();
}

void EditView::ZoomAll() {
  Show(0, TotalFrames());
}

// ---- Amplitude rows

void EditView::RefreshRows() {
  visibleRows = verticalZoom == 1 ? kAmplitudeRows : std::min(clientHeight / verticalZoom, kAmplitudeRows);
  verticalTopRow = std::clamp(verticalTopRow, 0, kAmplitudeRows - visibleRows);
  listener.VerticalScrollChanged(verticalTopRow, visibleRows, verticalZoom != 1);
}

// One row up (-1) or down (1): the image moves the other way.
void EditView::ScrollRows(int rows) {
  const int row = std::clamp(verticalTopRow + rows, 0, kAmplitudeRows - visibleRows);
  if (row != verticalTopRow) {
    verticalTopRow = row;
    listener.VerticalScrollChanged(verticalTopRow, visibleRows, true);
    listener.VerticalImageScroll(-rows * verticalZoom);
  }
}

void EditView::SetTopRow(int row) {
  verticalTopRow = std::clamp(row, 0, kAmplitudeRows - visibleRows);
  listener.VerticalScrollChanged(verticalTopRow, visibleRows, true);
  listener.Repaint();
}

bool EditView::VerticalScroll(VerticalScrollCode code, std::int64_t value) {
  const bool scrollable = verticalZoom != 1;
  int row = verticalTopRow;
  switch (code) {
    case VerticalScrollCode::RowUp:
    case VerticalScrollCode::RowDown:
      if (scrollable) {
        ScrollRows(code == VerticalScrollCode::RowUp ? -1 : 1);
      }
      return true;
    case VerticalScrollCode::Refresh:
      RefreshRows();
      return true;
    case VerticalScrollCode::PageUp:
      row -= kVerticalPageRows;
      break;
    case VerticalScrollCode::PageDown:
      row += kVerticalPageRows;
      break;
    case VerticalScrollCode::ThumbPosition:
      row = (kAmplitudeRows - visibleRows) * static_cast<int>(PercentIn(value)) / 100;
      break;
    case VerticalScrollCode::Top:
      row = 0;
      break;
    case VerticalScrollCode::Bottom:
      row = kAmplitudeRows - visibleRows;
      break;
    default:
      return false;
  }
  if (scrollable) {
    SetTopRow(row);
  }
  return true;
}

void EditView::SetVerticalZoom(int zoom) {
  if (zoom != verticalZoom) {
    verticalZoom = zoom;
    RefreshRows();
    listener.Relayout();
  }
}

namespace {

constexpr std::array<int, 4> kVerticalZooms = {1, 4, 5, 7};

}  // namespace

void EditView::VerticalZoomIn() {
  const auto* next = std::upper_bound(kVerticalZooms.begin(), kVerticalZooms.end(), verticalZoom);
  SetVerticalZoom(next == kVerticalZooms.end() ? verticalZoom : *next);
}

void EditView::VerticalZoomOut() {
  const auto* here = std::lower_bound(kVerticalZooms.begin(), kVerticalZooms.end(), verticalZoom);
  SetVerticalZoom(here == kVerticalZooms.begin() ? verticalZoom : *(here - 1));
}

// ---- Cursor, keys

void EditView::SetCursorPosition(std::int64_t frame, bool force) {
  const std::int64_t target = WithinSound(frame);
  if (dragging || (target == cursorFrame && !force)) {
    return;
  }
  if (force || !IsVisible(target)) {
    HorizontalScroll(ScrollCode::ShowFrame, target);
  }
  MoveCursor(target);
  ShowCounter();
}

void EditView::SetTool(int index) {
  if (index >= 0 && static_cast<std::size_t>(index) < kToolCount) {
    toolIndex = index;
  }
}

// Home, End, F11 and F12: the screen follows the cursor.
void EditView::JumpCursor(std::int64_t frame) {
  MoveCursor(WithinSound(frame));
  HorizontalScroll(ScrollCode::ShowFrame, cursorFrame);
  ShowCounter();
  listener.CursorNotification(cursorFrame);
}

bool EditView::StepCursor(bool right) {
  const std::int64_t old = cursorFrame;
  const std::int64_t step = std::max<std::int64_t>(framesOnScreen / std::max(clientWidth, 1), 1);
  SetCursorPosition(old + (right ? step : -step), false);
  if (cursorFrame != old) {
    listener.CursorNotification(cursorFrame);
  }
  return true;
}

bool EditView::PressTool(int index) {
  if (!dragging) {
    constexpr int kTools{kToolCount};
    toolIndex = (index + kTools) % kTools;
    listener.ToolPressed(toolIndex);
  }
  return true;
}

bool EditView::KeyPress(EditKey key, bool shift, bool control) {
  switch (key) {
    case EditKey::Left:
      return shift ? PressTool(toolIndex - 1) : StepCursor(false);
    case EditKey::Right:
      return shift ? PressTool(toolIndex + 1) : StepCursor(true);
    case EditKey::Up:
      return VerticalScroll(VerticalScrollCode::RowUp);
    case EditKey::Down:
      return VerticalScroll(VerticalScrollCode::RowDown);
    case EditKey::PageUp:
      return control ? HorizontalScroll(ScrollCode::LineLeft) : VerticalScroll(VerticalScrollCode::PageUp);
    case EditKey::PageDown:
      return control ? HorizontalScroll(ScrollCode::LineRight) : VerticalScroll(VerticalScrollCode::PageDown);
    case EditKey::Home:
      if (control) {
        return VerticalScroll(VerticalScrollCode::Top);
      }
      JumpCursor(0);
      return true;
    case EditKey::End:
      if (control) {
        return VerticalScroll(VerticalScrollCode::Bottom);
      }
      JumpCursor(0);  // not the end of the sound: kept on purpose
      return true;
    case EditKey::F11:
      JumpCursor(firstVisibleFrame - framesOnScreen);
      return true;
    case EditKey::F12:
      JumpCursor(firstVisibleFrame + framesOnScreen);
      return true;
  }
  return false;
}

}  // namespace tembrel
