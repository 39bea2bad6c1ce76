#include "view/ui/AudioEditWindow.h"

#include <algorithm>
#include <cmath>

#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QTextOption>
#include <QWheelEvent>

#include "view/ActionMenu.h"
#include "view/PixelMap.h"
#include "view/SelectionStrip.h"
#include "view/ToolButtons.h"
#include "view/ViewCommands.h"
#include "view/WavePicture.h"
#include "view/ui/DevicePixels.h"

namespace tembrel {

namespace {

constexpr int kWheelStep = 120;
constexpr int kNoticeMargin = 6;

std::optional<EditKey> EditKeyOf(int key) {
  switch (key) {
    case Qt::Key_Left:
      return EditKey::Left;
    case Qt::Key_Right:
      return EditKey::Right;
    case Qt::Key_Up:
      return EditKey::Up;
    case Qt::Key_Down:
      return EditKey::Down;
    case Qt::Key_PageUp:
      return EditKey::PageUp;
    case Qt::Key_PageDown:
      return EditKey::PageDown;
    case Qt::Key_Home:
      return EditKey::Home;
    case Qt::Key_End:
      return EditKey::End;
    case Qt::Key_F11:
      return EditKey::F11;
    case Qt::Key_F12:
      return EditKey::F12;
    default:
      return std::nullopt;
  }
}

// Keys of the zoom, pressed with Control: plus, minus and zero; with Shift the arrows for the vertical one. 0
// for others.
int ZoomCommandOf(int key, bool shift) {
  switch (key) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return kViewZoomIn;
    case Qt::Key_Minus:
    case Qt::Key_Underscore:
      return kViewZoomOut;
    case Qt::Key_0:
      return kViewZoomAll;
    case Qt::Key_Up:
      return shift ? kViewVerticalZoomIn : 0;
    case Qt::Key_Down:
      return shift ? kViewVerticalZoomOut : 0;
    default:
      return 0;
  }
}

std::optional<MouseButton> ButtonOf(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return MouseButton::Left;
    case Qt::RightButton:
      return MouseButton::Right;
    default:
      return std::nullopt;
  }
}

Qt::CursorShape CursorShapeOf(PointerShape shape) {
  switch (shape) {
    case PointerShape::IBeam:
      return Qt::IBeamCursor;
    case PointerShape::Arrow:
      return Qt::ArrowCursor;
    case PointerShape::FourWay:
      return Qt::SizeAllCursor;
    case PointerShape::Cross:
    case PointerShape::Pencil:
      return Qt::CrossCursor;
    case PointerShape::UpArrow:
      return Qt::UpArrowCursor;
    case PointerShape::LeftRight:
      return Qt::SizeHorCursor;
    case PointerShape::Hand:
      return Qt::PointingHandCursor;
  }
  return Qt::ArrowCursor;
}

MousePoint PointOf(const QMouseEvent& event) {
  return {event.position().x(), event.position().y()};
}

void AddActions(QMenu& menu, const std::vector<ActionItem>& items) {
  for (const ActionItem& item : items) {
    if (!item.popup.empty()) {
      AddActions(*menu.addMenu(QString::fromStdString(item.text)), item.popup);
      continue;
    }
    QAction* action = menu.addAction(QString::fromStdString(item.text));
    action->setData(item.id);
    action->setEnabled(item.enabled);
  }
}

}  // namespace

AudioEditWindow::AudioEditWindow(Document& shownDocument, QWidget* parent)
    : QWidget(parent), document(shownDocument), view(*this) {
  setObjectName("AudioEditWindow");
  setAccessibleName("Waveform");
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  PointerShapeChanged();
}

void AudioEditWindow::ShowSound() {
  const AudioClip* clip = document.Clip();
  ++soundRevision;
  view.SetSound(clip == nullptr ? 0 : document.FrameCount(),
                clip == nullptr ? std::nullopt : std::optional(clip->format.nSamplesPerSec),
                clip == nullptr ? 0 : clip->format.nBlockAlign);
}

void AudioEditWindow::SoundEdited(bool lengthsChanged) {
  const AudioClip* clip = document.Clip();
  ++soundRevision;
  if (clip == nullptr) {
    view.SoundChanged(0, std::nullopt, 0);
  } else if (lengthsChanged) {
    view.SoundChanged(document.FrameCount(), clip->format.nSamplesPerSec, clip->format.nBlockAlign);
  }
  Repaint();
}

MousePoint AudioEditWindow::MouseNow() const {
  const QPoint at = mapFromGlobal(QCursor::pos());
  return {static_cast<double>(at.x()), static_cast<double>(at.y())};
}

void AudioEditWindow::SelectAll() {
  view.SelectAll(MouseNow());
}

void AudioEditWindow::SelectLastRange() {
  view.SelectLastRange(MouseNow());
}

void AudioEditWindow::ShowNotice() {
  const QString notice = NoticeText();
  setAccessibleDescription(notice);
  setToolTip(notice.isEmpty() ? QString() : "<qt>" + notice.toHtmlEscaped() + "</qt>");
  update();
}

// On one line, as the file may have given it control characters.
QString AudioEditWindow::NoticeText() const {
  QString notice = QString::fromStdString(document.Notice());
  std::replace_if(
      notice.begin(), notice.end(), [](QChar c) { return c.category() == QChar::Other_Control; }, u' ');
  return notice;
}

double AudioEditWindow::VisibleShare() const {
  return static_cast<double>(view.FramesOnScreen()) / static_cast<double>(view.TotalFrames());
}

void AudioEditWindow::KeepPicture(const PaintArea& area) {
  const PictureKey wanted{area, view.FirstVisibleFrame(), view.FramesOnScreen(), soundRevision};
  if (wanted == pictureKey) {
    return;
  }
  if (document.Editing()) {
    StretchPicture(area);
    return;
  }
  if (picture.size() != QSize(area.width, area.height)) {
    picture = QImage(area.width, area.height, QImage::Format_RGB32);
  }
  pictureKey = wanted;
  scrolledPicture = QImage();
  if (!picture.isNull()) {
    PaintPicture(RasterOf(picture), document.Clip(), area, wanted.first, wanted.framesOnScreen);
  }
}

// While the sound is being written the last picture has to do. It is no one's key, so that the next paint
// after the edit makes a new one.
void AudioEditWindow::StretchPicture(const PaintArea& area) {
  const QSize size(area.width, area.height);
  if (Shown().size() != size && !size.isEmpty()) {
    scrolledPicture = picture.scaled(size);
    if (scrolledPicture.isNull()) {
      scrolledPicture = QImage(size, QImage::Format_RGB32);
      scrolledPicture.fill(kPaperColor);
    }
  }
  pictureKey = {.area = area};
}

// Only the part inside `dirty`, device pixels: a drag invalidates a few columns of a wide strip.
void AudioEditWindow::PaintSelection(QPainter& painter, const QRect& dirty) {
  const PixelRect whole = StripOf(pictureKey.area, view.SelectionStrip());
  const QRect part = QRect(whole.x, whole.y, whole.width, whole.height).intersected(dirty);
  const PixelRect strip{part.x(), part.y(), part.width(), part.height()};
  if (strip.Empty()) {
    return;
  }
  QImage under = Shown().copy(strip.x, strip.y, strip.width, strip.height);
  InvertStrip(RasterOf(under), {0, 0, strip.width, strip.height});
  painter.drawImage(strip.x, strip.y, under);
}

void AudioEditWindow::PaintCursor(QPainter& painter) {
  const std::int64_t x = FrameToPixel(view.CursorFrame(), view.FirstVisibleFrame(), view.FramesOnScreen(),
                                      pictureKey.area.width);
  const PixelRect strip = CursorStrip(pictureKey.area, x);
  if (strip.Empty()) {
    return;
  }
  QImage under = Shown().copy(strip.x, strip.y, strip.width, strip.height);
  LayCursor(RasterOf(under), {0, 0, strip.width, strip.height});
  painter.drawImage(strip.x, strip.y, under);
}

void AudioEditWindow::PaintNotice() {
  if (document.Notice().empty()) {
    return;
  }
  QTextOption look;
  look.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  QPainter painter(this);
  const QRect room = rect().adjusted(2 * kNoticeMargin, 3 * kNoticeMargin / 2, -2 * kNoticeMargin, 0);
  const QString notice = NoticeText();
  const QRect text = painter.boundingRect(QRectF(room), notice, look).toAlignedRect();
  const QRect box = text.adjusted(-kNoticeMargin, -kNoticeMargin / 2, kNoticeMargin, kNoticeMargin / 2);
  painter.fillRect(box, QColor::fromRgb(kPaperColor));
  painter.setPen(QColor::fromRgb(kTimeColor));
  painter.drawRect(box);
  painter.drawText(QRectF(text), notice, look);
}

void AudioEditWindow::paintEvent(QPaintEvent* event) {
  {
    QPainter painter(this);
    KeepPicture(UseDevicePixels(painter, *this));
    painter.drawImage(0, 0, Shown());
    const double scale = pictureKey.area.Scale();
    const QRectF dirty(QPointF(event->rect().topLeft()) * scale, QSizeF(event->rect().size()) * scale);
    PaintSelection(painter, dirty.toAlignedRect().adjusted(-1, -1, 1, 1));
    if (view.CursorShown()) {
      PaintCursor(painter);
    }
  }
  PaintNotice();
}

void AudioEditWindow::resizeEvent(QResizeEvent* /*event*/) {
  view.SetClientSize(width(), height());
}

bool AudioEditWindow::event(QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::UngrabMouse || type == QEvent::WindowBlocked || type == QEvent::WindowDeactivate) {
    view.CancelDrag();
  }
  return QWidget::event(event);
}

// Wheel: a quarter screen; with Shift a screen; with Control the zoom, with both the vertical zoom.
void AudioEditWindow::wheelEvent(QWheelEvent* event) {
  const QPoint delta = event->angleDelta();
  wheelRest += delta.y() != 0 ? delta.y() : delta.x();
  const int steps = wheelRest / kWheelStep;
  wheelRest %= kWheelStep;
  const bool control = event->modifiers().testFlag(Qt::ControlModifier);
  const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
  for (int i = 0; i < std::abs(steps); ++i) {
    const bool up = steps > 0;
    if (control && shift) {
      up ? view.VerticalZoomIn() : view.VerticalZoomOut();
    } else if (control) {
      up ? view.ZoomIn() : view.ZoomOut();
    } else if (shift) {
      view.HorizontalScroll(up ? ScrollCode::PageLeft : ScrollCode::PageRight);
    } else {
      view.HorizontalScroll(up ? ScrollCode::LineLeft : ScrollCode::LineRight);
    }
  }
  event->accept();
}

void AudioEditWindow::mousePressEvent(QMouseEvent* event) {
  const std::optional<MouseButton> button = ButtonOf(event->button());
  if (button) {
    setFocus(Qt::MouseFocusReason);
    view.Press(*button, PointOf(*event));
  }
}

void AudioEditWindow::ShowTool(int index) {
  view.SetTool(index);
  PointerShapeChanged();
}

void AudioEditWindow::mouseMoveEvent(QMouseEvent* event) {
  if (view.Dragging() && event->buttons() == Qt::NoButton) {
    view.CancelDrag();  // the release went to somebody else
  }
  view.Move(PointOf(*event));
}

void AudioEditWindow::leaveEvent(QEvent* /*event*/) {
  view.Leave();
  Q_EMIT mouseMoved(-1);
}

void AudioEditWindow::mouseReleaseEvent(QMouseEvent* event) {
  if (const std::optional<MouseButton> button = ButtonOf(event->button())) {
    view.Release(*button, PointOf(*event));
  }
}

void AudioEditWindow::mouseDoubleClickEvent(QMouseEvent* /*event*/) {}

void AudioEditWindow::keyPressEvent(QKeyEvent* event) {
  const bool control = event->modifiers().testFlag(Qt::ControlModifier);
  const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
  if (control && RunViewCommand(view, ZoomCommandOf(event->key(), shift))) {
    return;
  }
  const std::optional<EditKey> key = EditKeyOf(event->key());
  const bool handled = key && view.KeyPress(*key, shift, control);
  if (!handled) {
    QWidget::keyPressEvent(event);
  }
}

void AudioEditWindow::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  Q_EMIT focused();
}

void AudioEditWindow::Repaint() {
  scrolledPicture = QImage();
  update();
  Q_EMIT scrolled();
}

void AudioEditWindow::UpdateCursorStrip(std::int64_t frame) {
  const PaintArea area{width(), height(), 1.0};
  const std::int64_t x = FrameToPixel(frame, view.FirstVisibleFrame(), view.FramesOnScreen(), width());
  const PixelRect strip = CursorStrip(area, x);
  if (!strip.Empty()) {
    // One pixel more on each side covers the rounding of fractional scale factors.
    update(strip.x - 1, strip.y, strip.width + 2, strip.height);
  }
}

void AudioEditWindow::CursorChanged(std::int64_t oldFrame, std::int64_t newFrame) {
  UpdateCursorStrip(oldFrame);
  UpdateCursorStrip(newFrame);
  if (newFrame != oldFrame) {
    Q_EMIT cursorMoved();
  }
}

void AudioEditWindow::ScrollBarChanged(int percent) {
  Q_EMIT scrollBarChanged(percent);
}

void AudioEditWindow::VerticalScrollChanged(int topRow, int visibleRows, bool enabled) {
  Q_EMIT verticalScrollChanged(topRow, visibleRows, enabled);
}

// The image moves and the uncovered strip shows what belongs there at full height; the next repaint shows all
// of it so.
void AudioEditWindow::VerticalImageScroll(int pixels) {
  if (picture.isNull()) {
    return;
  }
  const int rows = pictureKey.area.Scaled(pixels);
  const QImage before = Shown();
  QImage moved = picture.copy();
  {
    QPainter painter(&moved);
    painter.drawImage(0, rows, before);
  }
  scrolledPicture = moved;
  update();
}

void AudioEditWindow::CounterChanged(std::int64_t frame, std::optional<std::uint32_t> rate) {
  Q_EMIT counterChanged(frame, rate ? static_cast<qint64>(*rate) : -1);
}

// Counter and spectrum follow the cursor itself, whoever moves it.
void AudioEditWindow::CursorNotification(std::int64_t /*frame*/) {}

void AudioEditWindow::ToolPressed(int index) {
  Q_EMIT toolWanted(index);
}

void AudioEditWindow::SelectionStripChanged(int fromX, int toX) {
  // One pixel more on each side covers the rounding of fractional scale factors.
  update(fromX - 1, 0, toX - fromX + 2, height());
}

void AudioEditWindow::MovePointerTo(int x, int y) {
  QCursor::setPos(mapToGlobal(QPoint(x, y)));
}

void AudioEditWindow::MouseReadout(std::int64_t frame) {
  Q_EMIT mouseMoved(frame);
}

void AudioEditWindow::PointerShapeChanged() {
  setCursor(CursorShapeOf(PointerOf(view.ToolIndex(), view.PencilArmed())));
}

PencilArea AudioEditWindow::AreaOfPencil() const {
  return {view.FirstVisibleFrame(), view.FramesOnScreen(), width(), height()};
}

bool AudioEditWindow::PencilHit(int x, int y, std::int64_t /*frame*/) {
  return document.Editable() && !document.Editing() &&
         PencilTouches(*document.Clip(), AreaOfPencil(), parentWidget()->width(), x, y);
}

bool AudioEditWindow::PencilBegin() {
  const EditResult result = document.BeginPencil();
  if (!result.done) {
    Q_EMIT refused(result);
  }
  return result.done;
}

void AudioEditWindow::PencilDraw(int x, int y) {
  document.DrawPencil(AreaOfPencil(), x, y);
}

void AudioEditWindow::PencilStripChanged(int fromX, int toX) {
  ++soundRevision;
  update(fromX - 1, 0, toX - fromX + 2, height());
}

void AudioEditWindow::PencilEnd() {
  document.EndPencil();
}

// The menu lives on its own: the document may close while it is open. What was chosen is answered once the
// menu is gone.
void AudioEditWindow::ActionMenuWanted(int x, int y) {
  auto* menu = new QMenu(this);
  menu->setObjectName("actionMenu");
  menu->setAttribute(Qt::WA_DeleteOnClose);
  AddActions(*menu, ActionMenu());
  chosenAction = 0;
  connect(menu, &QMenu::triggered, this,
          [this](const QAction* chosen) { chosenAction = chosen->data().toInt(); });
  connect(menu, &QMenu::aboutToHide, this, &AudioEditWindow::EndActionMenu, Qt::QueuedConnection);
  Q_EMIT actionMenuOpening();
  menu->popup(mapToGlobal(QPoint(x, y)));
}

void AudioEditWindow::EndActionMenu() {
  view.ActionMenuClosed();
  Q_EMIT actionMenuClosed(chosenAction);
}

void AudioEditWindow::Relayout() {
  Repaint();
  Q_EMIT relayoutWanted();
}

}  // namespace tembrel
