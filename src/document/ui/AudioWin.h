// The widget of one document window: the waveform view with its scroll bars and zoom buttons, around one
// document.
#pragma once

#include <QWidget>

#include "document/Document.h"
#include "document/StatusTexts.h"

class QToolButton;

namespace tembrel {

class AudioEditWindow;
class TMyScrollBar;

class AudioWin : public QWidget {
  Q_OBJECT

 public:
  // An empty document window. `handle` is its number, unique in this run.
  AudioWin(const ProgramPaths& paths, long long handle, QString shownTitle, QWidget* parent = nullptr);

  Document& Doc() { return document; }
  const Document& Doc() const { return document; }
  AudioEditWindow* EditWindow() { return editWindow; }

  // The document's sound was replaced: the view shows the whole of it, the status texts follow.
  void ShowLoadedDocument();
  // Tells the three status gadgets; nothing is told for an empty document.
  void TellStatusTexts();
  // The window title, with a mark while the document has unsaved changes.
  void RefreshTitle();

  QSize sizeHint() const override { return {624, 310}; }
  QSize minimumSizeHint() const override { return {120, 100}; }

 Q_SIGNALS:
  void statusTextsChanged(const tembrel::StatusTexts& texts);
  // The position counter: a frame and the rate in hertz, -1 without sound.
  void counterChanged(qint64 frame, qint64 rate);
  // The view's notification after every cursor move by the user (message 0x1509, wParam 10).
  void cursorNotified(qint64 frame);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void CreateScrollBars();
  void CreateZoomButtons();
  void LayOut();
  void RefreshIcons();

  Document document;
  QString title;
  AudioEditWindow* editWindow;
  TMyScrollBar* horizontalScrollBar = nullptr;
  TMyScrollBar* verticalScrollBar = nullptr;
  QList<QToolButton*> zoomButtons;
};

}  // namespace tembrel
