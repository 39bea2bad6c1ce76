// The widget of the waveform view: it paints what the view's rules and the picture functions give, and
// forwards mouse, wheel and keys to them. The painted waveform and grid are kept; the cursor is laid over
// them.
#pragma once

#include <QImage>
#include <QWidget>

#include "document/Document.h"
#include "edit/EditStep.h"
#include "edit/PencilDraw.h"
#include "picture/Picture.h"
#include "view/EditView.h"

namespace tembrel {

class AudioEditWindow : public QWidget, private EditViewListener {
  Q_OBJECT

 public:
  // Shows the sound of `shownDocument`, which outlives the widget, and draws into it with the pencil.
  AudioEditWindow(Document& shownDocument, QWidget* parent);

  EditView& View() { return view; }
  const EditView& View() const { return view; }

  // The document's sound was replaced: shows the whole of it with the cursor at its start.
  void ShowSound();
  // The sound was edited: repaints it. `lengthsChanged`: its length or format may be another.
  void SoundEdited(bool lengthsChanged);
  // Shows what the document says about its file: in the view, wrapped, and as tool tip.
  void ShowNotice();
  // How much of the sound is on the screen, 0 to 1.
  double VisibleShare() const;

  // Takes the tool button `index`, 0 to 7.
  void ShowTool(int index);

  // Select all and select last range: the action menu follows, where the mouse is.
  void SelectAll();
  void SelectLastRange();

  QSize sizeHint() const override { return {593, 175}; }

 Q_SIGNALS:
  void scrollBarChanged(int percent);
  void verticalScrollChanged(int topRow, int visibleRows, bool enabled);
  void counterChanged(qint64 frame, qint64 rate);
  // The cursor stands on another frame, whoever moved it.
  void cursorMoved();
  void relayoutWanted();
  void focused();
  // The view was scrolled or zoomed.
  void scrolled();
  // The mouse is over this frame, -1 for none.
  void mouseMoved(qint64 frame);
  // A key asks for another tool button.
  void toolWanted(int index);
  // The action menu is about to open, and has closed with the chosen command (0 for none).
  void actionMenuOpening();
  void actionMenuClosed(int command);
  // A pencil stroke was refused.
  void refused(const tembrel::EditResult& result);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void Repaint() override;
  void CursorChanged(std::int64_t oldFrame, std::int64_t newFrame) override;
  void ScrollBarChanged(int percent) override;
  void VerticalScrollChanged(int topRow, int visibleRows, bool enabled) override;
  void VerticalImageScroll(int pixels) override;
  void CounterChanged(std::int64_t frame, std::optional<std::uint32_t> rate) override;
  void CursorNotification(std::int64_t frame) override;
  void ToolPressed(int index) override;
  void SelectionStripChanged(int fromX, int toX) override;
  void MovePointerTo(int x, int y) override;
  void MouseReadout(std::int64_t frame) override;
  void PointerShapeChanged() override;
  bool PencilHit(int x, int y, std::int64_t frame) override;
  bool PencilBegin() override;
  void PencilDraw(int x, int y) override;
  void PencilStripChanged(int fromX, int toX) override;
  void PencilEnd() override;
  void ActionMenuWanted(int x, int y) override;
  void Relayout() override;

  // What the kept picture depends on.
  struct PictureKey {
    PaintArea area;
    std::int64_t first = -1;
    std::int64_t framesOnScreen = -1;
    std::uint64_t revision = 0;

    bool operator==(const PictureKey&) const = default;
  };
  const QImage& Shown() const { return scrolledPicture.isNull() ? picture : scrolledPicture; }
  void KeepPicture(const PaintArea& area);
  void StretchPicture(const PaintArea& area);
  void PaintSelection(QPainter& painter, const QRect& dirty);
  void EndActionMenu();
  void PaintCursor(QPainter& painter);
  void PaintNotice();
  QString NoticeText() const;
  void UpdateCursorStrip(std::int64_t frame);
  PencilArea AreaOfPencil() const;
  MousePoint MouseNow() const;

  Document& document;
  EditView view;
  QImage picture;          // paper, grid and waveform in device pixels, as pictureKey tells
  QImage scrolledPicture;  // the same moved up or down, or stretched; null when it is not
  PictureKey pictureKey;
  int chosenAction = 0;             // what the open action menu was closed with; 0 for nothing
  std::uint64_t soundRevision = 0;  // counts the changes of the sound
  int wheelRest = 0;                // eighths of a degree not yet a whole wheel step
};

}  // namespace tembrel
