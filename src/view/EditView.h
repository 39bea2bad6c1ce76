// The waveform view's state and rules: which frames and amplitude rows are shown, where the cursor and the
// selection are, and what scroll requests, zoom commands, the mouse and keys do to them. It owns no sound and
// draws nothing; it tells a listener.
#pragma once

#include <cstdint>
#include <optional>

#include "view/EditViewListener.h"
#include "view/ScrollCodes.h"
#include "view/Selection.h"

namespace tembrel {

enum class EditKey { Left, Right, Up, Down, PageUp, PageDown, Home, End, F11, F12 };
enum class MouseButton { Left, Right };

inline constexpr int kAmplitudeRows = 128;
inline constexpr int kVerticalPageRows = 12;
inline constexpr std::int64_t kFramesOfEmptyDocument = 100;
// No sound comes near it; positions and lengths given from outside are held within it, so that products of
// two fit.
inline constexpr std::int64_t kMaxFrames = std::int64_t{1} << 40;

// A place in logical pixels from the view's top left corner; may be fractional and outside the client area.
struct MousePoint {
  double x = 0.0;
  double y = 0.0;
};

// Columns [from, to) in logical pixels, inside the client area.
struct PixelColumns {
  int from = 0;
  int to = 0;

  bool Empty() const { return from >= to; }
  bool operator==(const PixelColumns&) const = default;
};

class EditView {
 public:
  // The listener outlives the view and is not called before the first change.
  explicit EditView(EditViewListener& viewListener) : listener(viewListener) {}

  std::int64_t CursorFrame() const { return cursorFrame; }              // 0..the sound's frames
  std::int64_t FirstVisibleFrame() const { return firstVisibleFrame; }  // never below 0
  std::int64_t FramesOnScreen() const { return framesOnScreen; }        // at least 1; may exceed the sound
  std::int64_t SoundFrames() const { return soundFrames; }              // 0 for an empty document
  std::int64_t TotalFrames() const;                                     // an empty document counts as 100
  std::optional<std::uint32_t> Rate() const { return rate; }            // hertz; none while there is no clip
  int VerticalZoom() const { return verticalZoom; }      // 1, 4, 5 or 7 pixels a row; 1: all rows fit
  int VisibleRows() const { return visibleRows; }        // 0..128
  int VerticalTopRow() const { return verticalTopRow; }  // 0..128 - VisibleRows()
  int ToolIndex() const { return toolIndex; }            // 0..7, 0 selects
  bool Dragging() const { return dragging; }             // a mouse button is held down inside
  bool CursorShown() const { return !dragging; }         // painting leaves it out during a drag
  bool PencilArmed() const { return pencilEdit; }        // the next press, or the drag now, draws samples
  int ClientWidth() const { return clientWidth; }
  int ClientHeight() const { return clientHeight; }

  // A sound was loaded (or taken away: 0 frames, no rate): shows the whole of it from the start, cursor at 0,
  // no selection remembered. `newFrameSize` is the bytes of one frame.
  void SetSound(std::int64_t frames, std::optional<std::uint32_t> newRate, std::int64_t newFrameSize);
  // The sound was edited: what is shown and the cursor are held inside it.
  void SoundChanged(std::int64_t frames, std::optional<std::uint32_t> newRate, std::int64_t newFrameSize);

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

  // A mouse button went down or up. The release puts the cursor and ends a selection or a pencil stroke.
  // False when the view ignores the button: the right one with another tool than 0, any while another is
  // held.
  bool Press(MouseButton button, MousePoint at);
  bool Release(MouseButton button, MousePoint at);
  // The mouse moved, with or without a button held.
  void Move(MousePoint at);
  // The mouse left the view.
  void Leave();
  // The mouse was taken away in the middle of a drag: ends it without moving the cursor. A selection begun is
  // dropped; what a pencil stroke has drawn stays.
  void CancelDrag();

  // The selection the action menu works on: true from when the menu is asked for until it has closed.
  bool HasSelection() const { return selection.Valid(); }
  // The last valid selection as bytes of the sound's data, whole frames, end exclusive, held inside the sound
  // as it is now. Stays after the menu has closed; 0 and 0 before there was one.
  std::int64_t SelectionStart() const;
  std::int64_t SelectionEnd() const;
  // What the mouse drags now or the open menu works on, and the range remembered.
  const Selection& Selected() const { return selection; }
  // The columns painted inverted now: while a selection is dragged and while the menu is open. The cursor is
  // laid over them.
  PixelColumns SelectionStrip() const;

  // All three set the selection, and when it is valid draw it and ask for the action menu; `mouse` is where
  // the mouse is now. Ignored during a drag.
  void SelectAll(MousePoint mouse);
  void SelectLastRange(MousePoint mouse);
  void SetSelection(std::int64_t anchor, std::int64_t end, MousePoint mouse);
  // A selection was made since the sound was loaded.
  bool HasLastRange() const { return selection.Remembered().has_value(); }
  // To be called once the menu has closed, before or after its command has run: the selection is gone from
  // the screen, the byte pair stays.
  void ActionMenuClosed();

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
  void ShowHorizontalState(bool withCounter, int percent);
  void ShowCounter() { listener.CounterChanged(cursorFrame, rate); }
  void CentreCursor();
  void RefreshRows();
  void ScrollRows(int rows);
  void SetTopRow(int row);
  void SetVerticalZoom(int zoom);
  void JumpCursor(std::int64_t frame);
  bool StepCursor(bool right);
  bool PressTool(int index);
  bool PencilPossible() const;
  void ArmPencil(bool armed);
  void DrawWithPencil(MousePoint at);
  void EndStroke();
  MousePoint ScrollUnderDrag(MousePoint at);
  std::optional<double> ScrollSideways(double x);
  std::optional<double> PageRows(double y);
  void StartSelection(double x);
  void FollowMouse(double x);
  bool EndSelection();
  void DropSelection();
  void PlaceStrip();
  void WantMenu(MousePoint mouse);
  double InsideX(double x) const;
  void PutCursorByMouse(std::int64_t frame);

  EditViewListener& listener;
  std::int64_t soundFrames = 0;
  std::optional<std::uint32_t> rate;  // hertz; none while there is no clip
  std::int64_t frameSize = 1;         // bytes
  Selection selection;
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
  bool selecting = false;    // a selection drag is in progress
  bool pencilEdit = false;   // set by hovering near a sample
  bool drawing = false;      // a pencil stroke is in progress
  int anchorPixel = 0;       // the strip's ends, columns in logical pixels
  int endPixel = 0;
  int strokeLeft = 0;  // columns the pencil stroke has touched
  int strokeRight = 0;
};

}  // namespace tembrel
