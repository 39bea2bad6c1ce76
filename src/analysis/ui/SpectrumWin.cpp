#include "analysis/ui/SpectrumWin.h"

#include <array>
#include <cmath>
#include <optional>
#include <utility>

#include <QAction>
#include <QBuffer>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QToolButton>

#include "analysis/SpectrumAxis.h"
#include "analysis/SpectrumCsv.h"
#include "analysis/SpectrumLayout.h"
#include "analysis/ui/SingleFrequencyWindow.h"
#include "analysis/ui/SpectrumDisplayWin.h"
#include "analysis/ui/SpectrumFrequencyWindow.h"
#include "document/Export.h"
#include "view/ui/TMyScrollBar.h"
#include "view/ui/ZoomButton.h"

namespace tembrel {

namespace {

constexpr std::uint32_t kRateWithoutSound = 44100;  // hertz
constexpr int kScrollBarId = 0x2100;
constexpr int kWheelStep = 120;

constexpr char kExportName[] = "spectrum";
const ExportKind kPictureFile{{"PNG pictures (*.png)", {"*.png"}}, ".png"};
const ExportKind kNumbersFile{{"Comma-separated values (*.csv)", {"*.csv"}}, ".csv"};

// From left to right, as those of the document windows.
constexpr std::array kZoomButtons{
    ZoomButtonRow{kSpectrumZoomOut, "zoom-out", "Zoom out"},
    ZoomButtonRow{kSpectrumZoomIn, "zoom-in", "Zoom in"},
    ZoomButtonRow{kSpectrumZoomReset, "zoom-reset", "Reset zoom"},
};

QRect ToRect(const PixelRect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

// 0 for keys that do not zoom.
int ZoomCommandOf(int key) {
  switch (key) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return kSpectrumZoomIn;
    case Qt::Key_Minus:
    case Qt::Key_Underscore:
      return kSpectrumZoomOut;
    case Qt::Key_0:
      return kSpectrumZoomReset;
    default:
      return 0;
  }
}

std::optional<MarkerMove> MarkerMoveOf(int key) {
  switch (key) {
    case Qt::Key_Left:
      return MarkerMove::Left;
    case Qt::Key_Right:
      return MarkerMove::Right;
    case Qt::Key_PageUp:
      return MarkerMove::PageLeft;
    case Qt::Key_PageDown:
      return MarkerMove::PageRight;
    case Qt::Key_Home:
      return MarkerMove::First;
    case Qt::Key_End:
      return MarkerMove::Last;
    default:
      return std::nullopt;
  }
}

}  // namespace

SpectrumWin::SpectrumWin(Prompts& questions, QWidget* parent)
    : QWidget(parent),
      prompts(questions),
      spectrum{kRateWithoutSound, SpectrumBins(kSpectrumPoints), {}},
      readout(new SingleFrequencyWindow(this)),
      display(new SpectrumDisplayWin(spectrum, view, this)),
      axis(new SpectrumFrequencyWindow(spectrum, view, this)) {
  setObjectName("SpectrumWin");
  setWindowTitle("Audio Spectrum");
  setAccessibleName("Audio spectrum");
  setAccessibleDescription(readout->Text());
  setFocusPolicy(Qt::StrongFocus);
  connect(display, &SpectrumDisplayWin::mouseMoved, this, &SpectrumWin::PickUnderMouse);
  connect(display, &SpectrumDisplayWin::mousePressed, this, &SpectrumWin::PlaceMarker);
  CreateScrollBar();
  CreateZoomButtons();
  CreateActions();
  LayOut();
  Repaint();
}

void SpectrumWin::CreateScrollBar() {
  scrollBar = new TMyScrollBar(Qt::Horizontal, this);
  scrollBar->setProperty("controlId", kScrollBarId);
  scrollBar->setAccessibleName("Frequencies shown");
  scrollBar->setToolTip("Frequencies shown");
  connect(scrollBar, &TMyScrollBar::scrollRequested, this, [this](int code, int percent) {
    Scroll(static_cast<SpectrumScroll>(code), static_cast<std::uint32_t>(percent));
  });
}

void SpectrumWin::CreateZoomButtons() {
  for (const ZoomButtonRow& row : kZoomButtons) {
    auto* button = new ZoomButton(row, this);
    connect(button, &QToolButton::clicked, this, [this, row] { RunZoom(row.id); });
    zoomButtons << button;
  }
}

void SpectrumWin::CreateActions() {
  followAction = new QAction("&Follow the cursor", this);
  followAction->setCheckable(true);
  followAction->setChecked(true);
  connect(followAction, &QAction::toggled, this, [this](bool on) {
    if (on) {
      Q_EMIT followingBegan();
    }
  });
  copyAction = new QAction("&Copy picture", this);
  copyAction->setShortcut(QKeySequence("Ctrl+C"));
  copyAction->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  addAction(copyAction);
  connect(copyAction, &QAction::triggered, this, &SpectrumWin::CopyPicture);
  savePictureAction = new QAction("Save &picture as PNG...", this);
  connect(savePictureAction, &QAction::triggered, this, &SpectrumWin::SavePicture);
  saveNumbersAction = new QAction("Save &numbers as CSV...", this);
  connect(saveNumbersAction, &QAction::triggered, this, &SpectrumWin::SaveNumbers);
}

void SpectrumWin::Compute(const AudioClip* clip, std::int64_t cursorFrame) {
  std::optional<Spectrum> computed = clip == nullptr ? std::nullopt : ComputeSpectrum(*clip, cursorFrame);
  if (computed) {
    const bool otherRate = computed->rate != spectrum.rate;
    spectrum = std::move(*computed);
    soundFile = nextFile;
    soundName = nextName;
    readout->ShowNotice(soundName);
    if (otherRate && display->MarkerShown()) {
      Pick(view.MarkerBin());
    }
  } else if (clip == nullptr) {
    readout->ShowNotice("The document holds no sound.");
  } else {
    readout->ShowNotice("Only sound with 8 or 16 bits, mono or stereo, has a spectrum.");
  }
  display->update();
  axis->update();
}

void SpectrumWin::SetSound(std::filesystem::path file, QString name) {
  nextFile = std::move(file);
  nextName = std::move(name);
}

bool SpectrumWin::FollowsCursor() const {
  return followAction->isChecked();
}

void SpectrumWin::DocumentClosed() {
  readout->ShowNotice("The document is closed; this is its last spectrum.");
}

void SpectrumWin::Repaint() {
  scrollBar->ShowPosition(view.ScrollPosition(), view.VisibleShare());
  display->update();
  axis->update();
}

// A marker that was left behind is not seen again before it is moved or placed.
void SpectrumWin::Change(const std::function<bool()>& change) {
  const int marker = view.MarkerBin();
  if (change()) {
    if (view.MarkerBin() != marker) {
      display->ShowMarker(false);
    }
    Repaint();
  }
}

void SpectrumWin::RunZoom(int command) {
  Change([&] { return view.RunCommand(command); });
}

void SpectrumWin::Scroll(SpectrumScroll code, std::uint32_t position) {
  Change([&] { return view.Scroll(code, position); });
}

void SpectrumWin::Pick(double bin) {
  readout->ShowPick(PickFrequency(spectrum.rate, bin, bands));
  setAccessibleDescription(readout->Text());
}

void SpectrumWin::PickUnderMouse(double x) {
  if (const std::optional<float> bin = BinUnderPointer(x, display->width(), view)) {
    Pick(*bin);
  }
}

// Where the keys go on from.
void SpectrumWin::PlaceMarker(double x) {
  if (const std::optional<float> bin = BinUnderPointer(x, display->width(), view)) {
    view.PlaceMarker(static_cast<int>(*bin));
    Pick(view.MarkerBin());
    display->ShowMarker(true);
  }
}

bool SpectrumWin::MoveMarkerByKey(int key) {
  const std::optional<MarkerMove> move = MarkerMoveOf(key);
  if (move) {
    view.MoveMarker(*move);
    Pick(view.MarkerBin());
    display->ShowMarker(true);
    Repaint();
  }
  return move.has_value();
}

// Zoom keys work with and without Control, as pressed in a document window.
void SpectrumWin::keyPressEvent(QKeyEvent* event) {
  const Qt::KeyboardModifiers modifiers = event->modifiers();
  if (event->key() == Qt::Key_F10 && modifiers == Qt::ShiftModifier) {
    OpenMenu(mapToGlobal(display->geometry().topLeft()));
  } else if (const int zoom = ZoomCommandOf(event->key())) {
    RunZoom(zoom);
  } else if (event->key() == Qt::Key_Escape) {
    display->ShowMarker(false);
  } else if (!MoveMarkerByKey(event->key())) {
    QWidget::keyPressEvent(event);
  }
}

// Wheel: a quarter of the visible bins; with Shift all of them; with Control the zoom.
void SpectrumWin::wheelEvent(QWheelEvent* event) {
  const QPoint delta = event->angleDelta();
  wheelRest += delta.y() != 0 ? delta.y() : delta.x();
  const int steps = wheelRest / kWheelStep;
  wheelRest %= kWheelStep;
  const bool up = steps > 0;
  for (int i = 0; i < std::abs(steps); ++i) {
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
      RunZoom(up ? kSpectrumZoomIn : kSpectrumZoomOut);
    } else if (event->modifiers().testFlag(Qt::ShiftModifier)) {
      Scroll(up ? SpectrumScroll::PageLeft : SpectrumScroll::PageRight);
    } else {
      Scroll(up ? SpectrumScroll::LineLeft : SpectrumScroll::LineRight);
    }
  }
  event->accept();
}

void SpectrumWin::contextMenuEvent(QContextMenuEvent* event) {
  const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
  OpenMenu(byMouse ? event->globalPos() : mapToGlobal(display->geometry().topLeft()));
}

void SpectrumWin::OpenMenu(const QPoint& globalPlace) {
  auto* menu = new QMenu(this);
  menu->setObjectName("spectrumMenu");
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addAction(followAction);
  menu->addSeparator();
  menu->addActions({copyAction, savePictureAction, saveNumbersAction});
  menu->popup(globalPlace);
}

// The readout, the plot and the axis as they are seen.
QPixmap SpectrumWin::Picture() {
  const double scale = devicePixelRatioF();
  const QRect shown(0, 0, width(), axis->geometry().bottom() + 1);
  QPixmap picture((QSizeF(shown.size()) * scale).toSize());
  picture.setDevicePixelRatio(scale);
  picture.fill(palette().color(QPalette::Window));
  render(&picture, {}, shown, RenderFlags());
  for (QWidget* part :
       {static_cast<QWidget*>(readout), static_cast<QWidget*>(display), static_cast<QWidget*>(axis)}) {
    part->render(&picture, part->pos());
  }
  return picture;
}

void SpectrumWin::CopyPicture() {
  QGuiApplication::clipboard()->setPixmap(Picture());
}

void SpectrumWin::SavePicture() {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  if (!Picture().save(&buffer, "PNG")) {
    prompts.Error("The picture could not be made.");
    return;
  }
  SaveExport(prompts, kPictureFile, ExportName(soundFile, kExportName, kPictureFile),
             {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

void SpectrumWin::SaveNumbers() {
  SaveExport(prompts, kNumbersFile, ExportName(soundFile, kExportName, kNumbersFile), SpectrumCsv(spectrum));
}

void SpectrumWin::LayOut() {
  const SpectrumLayout layout = LayOutSpectrum(width(), height());
  readout->setGeometry(ToRect(layout.readout));
  // Its border is painted around it.
  display->setGeometry(
      ToRect(layout.display).adjusted(kSpectrumBorder, kSpectrumBorder, -kSpectrumBorder, -kSpectrumBorder));
  axis->setGeometry(ToRect(layout.axis));
  scrollBar->setGeometry(ToRect(layout.scrollBar));
  for (std::size_t i = 0; i < layout.buttons.size(); ++i) {
    zoomButtons.at(static_cast<qsizetype>(i))->setGeometry(ToRect(layout.buttons.at(i)));
  }
}

void SpectrumWin::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(0, axis->y(), width(), axis->height(), QColor::fromRgb(kSpectrumAxisPaperColor));
  painter.setPen(palette().color(QPalette::Shadow));
  painter.drawRect(display->geometry().adjusted(-1, -1, 0, 0));
}

void SpectrumWin::resizeEvent(QResizeEvent* /*event*/) {
  LayOut();
}

void SpectrumWin::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  Q_EMIT closing();
}

}  // namespace tembrel
