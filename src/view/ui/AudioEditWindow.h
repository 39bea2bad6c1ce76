// The widget of the waveform view: it paints what the view's rules and the picture functions give, and
// forwards mouse, wheel and keys to them. The painted waveform and grid are kept; the cursor is laid over
// them.
#pragma once

#include <QImage>
#include <QWidget>

#include "document/Document.h"
#include "view/EditView.h"
#include "view/Raster.h"

namespace tembrel {

class AudioEditWindow : public QWidget, private EditViewListener {
  Q_OBJECT

 public:
  // Shows the sound of `shownDocument`, which outlives the widget.
  AudioEditWindow(const Document& shownDocument, QWidget* parent);

  EditView& View() { return view; }
  const EditView& View() const { return view; }

  // The document's sound was replaced: shows the whole of it with the cursor at its start.
  void ShowSound();
  // How much of the sound is on the screen, 0 to 1.
  double VisibleShare() const;

  QSize sizeHint() const override { return {593, 175}; }

 Q_SIGNALS:
  void scrollBarChanged(int percent);
  void verticalScrollChanged(int topRow, int visibleRows, bool enabled);
  void counterChanged(qint64 frame, qint64 rate);
  void cursorNotified(qint64 frame);
  void relayoutWanted();
  void focused();
  // The view was scrolled or zoomed.
  void scrolled();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
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

  // The widget's place on the screen's pixels: the picture is painted on whole ones at every scale factor.
  struct DevicePlace {
    QPointF offset;  // logical pixels from the widget's corner to the picture's
    PaintArea area;
  };
  DevicePlace Place(const QPainter& painter) const;
  void KeepPicture(const PaintArea& area);
  void PaintCursor(QPainter& painter, const QPointF& offset);
  void PaintNotice(QPainter& painter);
  void UpdateCursorStrip(std::int64_t frame);

  const Document& document;
  EditView view;
  QImage picture;  // paper, grid and waveform in device pixels
  PaintArea pictureArea;
  bool pictureValid = false;
  int wheelRest = 0;  // eighths of a degree not yet a whole wheel step
};

}  // namespace tembrel
