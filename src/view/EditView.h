// The waveform view's state and rules: which frames and amplitude rows are shown, where the cursor is, and
// what scroll requests, zoom commands, clicks and keys do to them. It owns no sound and draws nothing; it
// tells a listener.
#pragma once

#include <cstdint>
#include <optional>

#include "view/EditViewListener.h"

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

enum class EditKey { Left, Right, Up, Down, PageUp, PageDown, Home, End, F11, F12 };
enum class MouseButton { Left, Right };

inline constexpr int kAmplitudeRows = 128;
inline constexpr int kVerticalPageRows = 12;
inline constexpr int kToolCount = 8;
inline constexpr std::int64_t kFramesOfEmptyDocument = 100;
// No sound comes near it; positions and lengths given from outside are held within it, so that products of
// two fit.
inline constexpr std::int64_t kMaxFrames = std::int64_t{1} << 40;

class EditView {
 public:
  // The listener outlives the view and is not called before the first change.
  explicit EditView(EditViewListener& viewListener) : listener(viewListener) {}

  std::int64_t CursorFrame() const { return cursorFrame; }              // 0..the sound's frames
  std::int64_t FirstVisibleFrame() const { return firstVisibleFrame; }  // never below 0
  std::int64_t FramesOnScreen() const { return framesOnScreen; }        // at least 1; may exceed the sound
  std::int64_t SoundFrames() const { return soundFrames; }              // 0 for an empty document
  std::int64_t TotalFrames() const;                                     // an empty document counts as 100
  int VerticalZoom() const { return verticalZoom; }      // 1, 4, 5 or 7 pixels a row; 1: all rows fit
  int VisibleRows() const { return visibleRows; }        // 0..128
  int VerticalTopRow() const { return verticalTopRow; }  // 0..128 - VisibleRows()
  int ToolIndex() const { return toolIndex; }            // 0..7, 0 selects
  bool Dragging() const { return dragging; }             // a mouse button is held down inside
  bool CursorShown() const { return !dragging; }         // painting leaves it out during a drag
  int ClientWidth() const { return clientWidth; }
  int ClientHeight() const { return clientHeight; }

  // A sound was loaded (or taken away: 0 frames, no rate): shows the whole of it from the start, cursor at 0.
  void SetSound(std::int64_t frames, std::optional<std::uint32_t> newRate);
  // The sound was edited: what is shown and the cursor are held inside it.
  void SoundChanged(std::int64_t frames, std::optional<std::uint32_t> newRate);

  // Logical pixels. Nothing is told to the listener but what follows for the vertical scroll bar.
  void SetClientSize(int width, int height);
  // The document window's width in logical pixels: the limit of zooming in.
  void SetDocumentWidth(int width) { documentWidth = width; }
  void SetTool(int index);  // what the tool buttons say; other indices are ignored

  // A code that is none of the enumeration's does nothing and gives false.
  bool HorizontalScroll(ScrollCode code, std::int64_t value = 0);
  bool VerticalScroll(VerticalScrollCode code, std::int64_t value = 0);

  void ZoomIn();
  void ZoomOut();
  void ZoomAll();
  void VerticalZoomIn();
  void VerticalZoomOut();
  // Shows `frames` frames (at least 1) from `first` on and refreshes.
  void Show(std::int64_t first, std::int64_t frames);

  // Ignored during a drag, or when the frame is the cursor's and `force` is clear. Scrolls to the frame when
  // it is not visible, or always with `force`. Frames outside the sound are moved to its nearest end.
  void SetCursorPosition(std::int64_t frame, bool force);

  // A mouse button at logical pixel x, which may be fractional and outside the client area. The release puts
  // the cursor. False when the view ignores the button: the right one with another tool than 0, any while
  // another is held.
  bool Press(MouseButton button, double x);
  bool Release(MouseButton button, double x);
  // The mouse was taken away in the middle of a drag: ends it without moving the cursor.
  void CancelDrag();

  // False for a key the view has no use for in this state.
  bool KeyPress(EditKey key, bool shift, bool control);

  // The logical pixel of the cursor, outside 0..ClientWidth()-1 when it is not visible.
  std::int64_t CursorPixel() const;
  // The frame under logical pixel x, not limited to the sound.
  std::int64_t FrameAt(double x) const;
  // True from the first visible frame up to, not including, the one after the last; the end of the sound is
  // visible too when it is the right edge.
  bool IsVisible(std::int64_t frame) const;

 private:
  std::int64_t LastFirstFrame() const;  // total - framesOnScreen, 0 in a view wider than the sound
  std::int64_t WithinSound(std::int64_t frame) const;
  int ScrollPercent() const;
  void ScrollTo(std::int64_t frame);
  void KeepCursorVisible();
  void MoveCursor(std::int64_t frame);
  void ShowHorizontalState(bool withCounter);
  void ShowCounter() { listener.CounterChanged(cursorFrame, rate); }
  void CentreCursor();
  void RefreshRows();
  void ScrollRows(int rows);
  void SetTopRow(int row);
  void SetVerticalZoom(int zoom);
  void JumpCursor(std::int64_t frame);
  bool StepCursor(bool right);
  bool PressTool(int index);

  EditViewListener& listener;
  std::int64_t soundFrames = 0;
  std::optional<std::uint32_t> rate;  // hertz; none while there is no clip
  std::int64_t cursorFrame = 0;
  std::int64_t firstVisibleFrame = 0;
  std::int64_t framesOnScreen = kFramesOfEmptyDocument;
  int clientWidth = 593;
  int clientHeight = 175;
  int documentWidth = 624;
  int verticalZoom = 1;
  int visibleRows = kAmplitudeRows;
  int verticalTopRow = 0;
  int toolIndex = 0;
  bool dragging = false;
  bool rightButton = false;  // the press that began the drag came from the right button
};

}  // namespace tembrel
