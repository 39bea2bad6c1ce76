#include "document/ui/AudioWin.h"

#include <algorithm>
#include <array>
#include <utility>

#include <QEvent>
#include <QPainter>
#include <QToolButton>

#include "view/ui/AudioEditWindow.h"
#include "view/ui/TMyScrollBar.h"
#include "view/ui/ThemedIcon.h"

namespace tembrel {

namespace {

constexpr int kScrollBarId = 0x2100;
constexpr int kBarSize = 17;
constexpr int kBorder = 1;
constexpr int kIconSize = 15;

struct ZoomButtonRow {
  int id;
  const char* icon;
  const char* name;
  void (EditView::*command)();
};

constexpr std::array kZoomButtons{
    ZoomButtonRow{0x2001, "zoom-out", "Zoom out", &EditView::ZoomOut},
    ZoomButtonRow{0x2002, "zoom-in", "Zoom in", &EditView::ZoomIn},
    ZoomButtonRow{0x2003, "zoom-all", "Zoom to the whole file", &EditView::ZoomAll},
};

}  // namespace

AudioWin::AudioWin(const ProgramPaths& paths, long long handle, QString shownTitle, QWidget* parent)
    : QWidget(parent),
      document(paths, handle),
      title(std::move(shownTitle)),
      editWindow(new AudioEditWindow(document, this)) {
  setObjectName("AudioWin");
  setFocusProxy(editWindow);
  CreateScrollBars();
  CreateZoomButtons();
  connect(editWindow, &AudioEditWindow::focused, this, &AudioWin::TellStatusTexts);
  connect(editWindow, &AudioEditWindow::counterChanged, this, &AudioWin::counterChanged);
  connect(editWindow, &AudioEditWindow::cursorNotified, this, &AudioWin::cursorNotified);
  connect(editWindow, &AudioEditWindow::relayoutWanted, this, &AudioWin::LayOut);
  RefreshTitle();
  LayOut();
}

void AudioWin::CreateScrollBars() {
  horizontalScrollBar = new TMyScrollBar(Qt::Horizontal, this);
  horizontalScrollBar->setProperty("controlId", kScrollBarId);
  horizontalScrollBar->setAccessibleName("Position in the sound");
  connect(horizontalScrollBar, &TMyScrollBar::scrollRequested, this, [this](int code, int percent) {
    editWindow->View().HorizontalScroll(static_cast<ScrollCode>(code), percent);
  });
  connect(editWindow, &AudioEditWindow::scrollBarChanged, this,
          [this](int percent) { horizontalScrollBar->ShowPosition(percent, editWindow->VisibleShare()); });
  verticalScrollBar = new TMyScrollBar(Qt::Vertical, this);
  verticalScrollBar->setAccessibleName("Amplitude rows shown");
  verticalScrollBar->setEnabled(false);
  connect(verticalScrollBar, &TMyScrollBar::scrollRequested, this, [this](int code, int percent) {
    editWindow->View().VerticalScroll(static_cast<VerticalScrollCode>(code), percent);
  });
  connect(editWindow, &AudioEditWindow::verticalScrollChanged, this,
          [this](int topRow, int visibleRows, bool enabled) {
            verticalScrollBar->setEnabled(enabled);
            const int hidden = kAmplitudeRows - visibleRows;
            verticalScrollBar->ShowPosition(hidden > 0 ? topRow * 100 / hidden : 0,
                                            static_cast<double>(visibleRows) / kAmplitudeRows);
          });
}

void AudioWin::CreateZoomButtons() {
  for (const ZoomButtonRow& row : kZoomButtons) {
    auto* button = new QToolButton(this);
    button->setProperty("controlId", row.id);
    button->setAccessibleName(row.name);
    button->setToolTip(row.name);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAutoRaise(false);
    button->setIconSize({kIconSize, kIconSize});
    connect(button, &QToolButton::clicked, this,
            [this, command = row.command] { (editWindow->View().*command)(); });
    zoomButtons << button;
  }
  RefreshIcons();
}

void AudioWin::RefreshIcons() {
  for (std::size_t i = 0; i < kZoomButtons.size(); ++i) {
    zoomButtons.at(static_cast<qsizetype>(i))->setIcon(ThemedIcon(kZoomButtons.at(i).icon, palette()));
  }
}

void AudioWin::ShowLoadedDocument() {
  editWindow->ShowSound();
  TellStatusTexts();
}

void AudioWin::TellStatusTexts() {
  if (const AudioClip* clip = document.Clip()) {
    const WaveFormat& format = clip->format;
    Q_EMIT statusTextsChanged(
        FormatStatusTexts(format.nSamplesPerSec, format.wBitsPerSample, format.nChannels));
  }
}

void AudioWin::RefreshTitle() {
  QString shown = title;
  setWindowTitle(shown.replace("[*]", "[*][*]") + "[*]");
  setWindowModified(document.Changed());
}

void AudioWin::LayOut() {
  const int buttons = static_cast<int>(zoomButtons.size()) * kBarSize;
  const int right = width() - kBarSize;
  horizontalScrollBar->setGeometry(0, 0, std::max(0, width() - buttons), kBarSize);
  for (int i = 0; i < static_cast<int>(zoomButtons.size()); ++i) {
    zoomButtons.at(i)->setGeometry(width() - buttons + i * kBarSize, 0, kBarSize, kBarSize);
  }
  verticalScrollBar->setGeometry(right, kBarSize, kBarSize, std::max(0, height() - kBarSize));
  editWindow->View().SetDocumentWidth(width());
  editWindow->setGeometry(kBorder, kBarSize + kBorder, std::max(0, right - 2 * kBorder),
                          std::max(0, height() - kBarSize - 2 * kBorder));
}

void AudioWin::resizeEvent(QResizeEvent* /*event*/) {
  LayOut();
}

// The thin border around the waveform view.
void AudioWin::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(editWindow->geometry().adjusted(-kBorder, -kBorder, kBorder, kBorder),
                   palette().color(QPalette::Shadow));
}

void AudioWin::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange && !zoomButtons.isEmpty()) {
    RefreshIcons();
  }
  QWidget::changeEvent(event);
}

}  // namespace tembrel
