#include "document/ui/AudioWin.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include <QEvent>
#include <QToolButton>

#include "view/ToolButtons.h"
#include "view/ViewCommands.h"
#include "view/WaveLines.h"
#include "view/ui/AudioEditWindow.h"
#include "view/ui/CustomRadio2.h"
#include "view/ui/DecibalWin.h"
#include "view/ui/RulerWindow.h"
#include "view/ui/TMyScrollBar.h"
#include "view/ui/ThemedIcon.h"
#include "view/ui/ZoomButton.h"

namespace tembrel {

namespace {

constexpr int kScrollBarId = 0x2100;
constexpr int kBarSize = 17;
constexpr int kIconSize = 16;  // a size that icons are drawn for
constexpr int kToolRow = 16;   // height of the tool buttons' row; the scroll bar begins below it
constexpr int kViewTop = 55;
constexpr int kLeastViewWidth = 120;  // one time mark
constexpr int kLeastViewHeight = 72;  // three levels a channel

QString ToText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

constexpr std::array kZoomButtons{
    ZoomButtonRow{kViewZoomOut, "zoom-out", "Zoom out"},
    ZoomButtonRow{kViewZoomIn, "zoom-in", "Zoom in"},
    ZoomButtonRow{kViewZoomAll, "zoom-all", "Zoom to the whole file"},
};

}  // namespace

AudioWin::AudioWin(const ProgramPaths& paths, long long handle, QString shownTitle, QWidget* parent)
    : QWidget(parent),
      document(paths, handle),
      title(std::move(shownTitle)),
      editWindow(new AudioEditWindow(document, this)) {
  setObjectName("AudioWin");
  setFocusProxy(editWindow);
  CreateToolButtons();
  CreateScrollBars();
  CreateZoomButtons();
  CreateRulers();
  ConnectView();
  document.SetListener(this);
  RefreshTitle();
  LayOut();
}

void AudioWin::ConnectView() {
  connect(editWindow, &AudioEditWindow::focused, this, &AudioWin::TellStatusTexts);
  connect(editWindow, &AudioEditWindow::counterChanged, this, &AudioWin::counterChanged);
  connect(editWindow, &AudioEditWindow::scrollBarChanged, this, &AudioWin::scrollBarChanged);
  connect(editWindow, &AudioEditWindow::relayoutWanted, this, &AudioWin::LayOut);
  connect(editWindow, &AudioEditWindow::toolWanted, this, &AudioWin::ShowTool);
  connect(editWindow, &AudioEditWindow::actionMenuOpening, this, &AudioWin::actionMenuOpening);
  connect(editWindow, &AudioEditWindow::actionMenuClosed, this, &AudioWin::actionMenuClosed);
  connect(editWindow, &AudioEditWindow::refused, this, &AudioWin::refused);
  connect(editWindow, &AudioEditWindow::scrolled, this, [this] {
    timeRuler->update();
    sampleRuler->update();
  });
  connect(editWindow, &AudioEditWindow::mouseMoved, this, [this](qint64 frame) {
    const std::optional<std::int64_t> shown = frame < 0 ? std::nullopt : std::optional<std::int64_t>(frame);
    timeRuler->ShowMouse(shown);
    sampleRuler->ShowMouse(shown);
  });
}

void AudioWin::CreateRulers() {
  amplitudeScale = new DecibalWin(this);
  sampleRuler = new AudioSamplesWindow(editWindow->View(), this);
  timeRuler = new AudioTimeWindow(editWindow->View(), document, this);
}

void AudioWin::CreateToolButtons() {
  for (const ToolButton& tool : ToolButtons()) {
    auto* button = new CustomRadio2(this);
    button->setProperty("controlId", tool.controlId);
    button->setAccessibleName(ToText(tool.name));
    button->setToolTip(ToText(tool.tip));
    button->setIconSize({kIconSize, kIconSize});
    const int index = tool.controlId - kFirstToolButton;
    connect(button, &QToolButton::clicked, this, [this, index] { ShowTool(index); });
    toolButtons << button;
  }
  toolButtons.at(kSelectionTool)->setChecked(true);
  RefreshIcons();
}

void AudioWin::ShowTool(int index) {
  toolButtons.at(index)->setChecked(true);
  editWindow->ShowTool(index);
}

void AudioWin::CreateScrollBars() {
  horizontalScrollBar = new TMyScrollBar(Qt::Horizontal, this);
  horizontalScrollBar->setProperty("controlId", kScrollBarId);
  horizontalScrollBar->setAccessibleName("Position in the sound");
  horizontalScrollBar->setToolTip("Position in the sound");
  connect(horizontalScrollBar, &TMyScrollBar::scrollRequested, this, [this](int code, int percent) {
    editWindow->View().HorizontalScroll(static_cast<ScrollCode>(code), percent);
  });
  connect(editWindow, &AudioEditWindow::scrollBarChanged, this,
          [this](int percent) { horizontalScrollBar->ShowPosition(percent, editWindow->VisibleShare()); });
  verticalScrollBar = new TMyScrollBar(Qt::Vertical, this);
  verticalScrollBar->setAccessibleName("Amplitude rows shown");
  verticalScrollBar->setToolTip("Amplitude rows, when vertically zoomed");
  verticalScrollBar->setEnabled(false);
  connect(verticalScrollBar, &TMyScrollBar::scrollRequested, this, [this](int code, int percent) {
    editWindow->View().VerticalScroll(static_cast<VerticalScrollCode>(code), percent);
  });
  connect(editWindow, &AudioEditWindow::verticalScrollChanged, this,
          [this](int topRow, int visibleRows, bool enabled) {
            verticalScrollBar->setEnabled(enabled && visibleRows < kAmplitudeRows);
            const int hidden = kAmplitudeRows - visibleRows;
            verticalScrollBar->ShowPosition(hidden > 0 ? topRow * 100 / hidden : 0,
                                            static_cast<double>(visibleRows) / kAmplitudeRows);
          });
}

void AudioWin::CreateZoomButtons() {
  for (const ZoomButtonRow& row : kZoomButtons) {
    auto* button = new ZoomButton(row, this);
    connect(button, &QToolButton::clicked, this, [this, row] { RunViewCommand(editWindow->View(), row.id); });
    zoomButtons << button;
  }
}

void AudioWin::RefreshIcons() {
  for (std::size_t i = 0; i < kToolCount; ++i) {
    toolButtons.at(static_cast<qsizetype>(i))
        ->setIcon(ThemedIcon(ToText(ToolButtons()[i].icon), palette(), PressedLook::Highlighted));
  }
}

void AudioWin::ShowLoadedDocument() {
  editWindow->ShowSound();
  editWindow->ShowNotice();
  amplitudeScale->ShowStereo(document.Clip() != nullptr && DrawsAsStereo(document.Clip()->format));
  TellStatusTexts();
}

void AudioWin::SoundChanged(bool lengthsRefreshed) {
  editWindow->SoundEdited(lengthsRefreshed);
  amplitudeScale->ShowStereo(document.Clip() != nullptr && DrawsAsStereo(document.Clip()->format));
  if (lengthsRefreshed) {
    TellStatusTexts();
  }
  RefreshTitle();
  Q_EMIT edited();
}

void AudioWin::TellStatusTexts() {
  if (const AudioClip* clip = document.Clip()) {
    const WaveFormat& format = clip->format;
    Q_EMIT statusTextsChanged(
        FormatStatusTexts(format.nSamplesPerSec, format.wBitsPerSample, format.nChannels));
  }
}

void AudioWin::TellState() {
  const EditView& view = editWindow->View();
  const AudioClip* clip = document.Clip();
  TellStatusTexts();
  Q_EMIT counterChanged(view.CursorFrame(),
                        clip == nullptr ? -1 : static_cast<qint64>(clip->format.nSamplesPerSec));
  Q_EMIT scrollBarChanged(horizontalScrollBar->value());
}

void AudioWin::RefreshTitle() {
  QString shown = title;
  setWindowTitle(shown.replace("[*]", "[*][*]") + "[*]");
  setWindowModified(document.Changed());
}

QSize AudioWin::minimumSizeHint() const {
  return {DecibalWin::kWidth - 1 + kLeastViewWidth + kBarSize,
          kViewTop + kLeastViewHeight + RulerWindow::kHeight};
}

void AudioWin::LayOut() {
  const int zoomWidth = static_cast<int>(zoomButtons.size()) * kBarSize;
  for (int i = 0; i < static_cast<int>(toolButtons.size()); ++i) {
    toolButtons.at(i)->setGeometry(i * kBarSize, 0, kBarSize, kToolRow);
  }
  horizontalScrollBar->setGeometry(-1, kToolRow, std::max(0, width() - zoomWidth + 1), kBarSize);
  for (int i = 0; i < static_cast<int>(zoomButtons.size()); ++i) {
    zoomButtons.at(i)->setGeometry(width() - zoomWidth + i * kBarSize, kToolRow, kBarSize, kBarSize);
  }
  const int viewHeight = std::max(0, height() - kViewTop - RulerWindow::kHeight);
  const int viewLeft = DecibalWin::kWidth - 1;
  const int viewWidth = std::max(0, width() - kBarSize - viewLeft);
  amplitudeScale->setGeometry(-1, kViewTop, DecibalWin::kWidth, viewHeight);
  sampleRuler->setGeometry(viewLeft, kViewTop - RulerWindow::kHeight, viewWidth, RulerWindow::kHeight);
  timeRuler->setGeometry(viewLeft, kViewTop + viewHeight, viewWidth, RulerWindow::kHeight);
  verticalScrollBar->setGeometry(viewLeft + viewWidth, kViewTop, kBarSize, viewHeight);
  editWindow->View().SetDocumentWidth(width());
  editWindow->setGeometry(viewLeft, kViewTop, viewWidth, viewHeight);
}

void AudioWin::resizeEvent(QResizeEvent* /*event*/) {
  LayOut();
}

void AudioWin::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange && !toolButtons.isEmpty()) {
    RefreshIcons();
  }
  QWidget::changeEvent(event);
}

}  // namespace tembrel
