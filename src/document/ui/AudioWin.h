// The widget of one document window: the waveform view with its scroll bars and zoom buttons, around one
// document.
#pragma once

#include <utility>

#include <QWidget>

#include "document/Document.h"
#include "document/DocumentListener.h"
#include "document/StatusTexts.h"
#include "edit/EditStep.h"

class QToolButton;

namespace tembrel {

class AudioEditWindow;
class DecibalWin;
class RulerWindow;
class TMyScrollBar;

class AudioWin : public QWidget, private DocumentListener {
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
  // Tells everything the main frame shows of its active document.
  void TellState();
  // The document's title as it was given.
  const QString& Title() const { return title; }
  void SetTitle(QString newTitle) { title = std::move(newTitle); }
  // The window title, with a mark while the document has unsaved changes.
  void RefreshTitle();

  QSize sizeHint() const override { return {624, 310}; }
  // Room for all tools and buttons, and for a view in which something can be seen.
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void statusTextsChanged(const tembrel::StatusTexts& texts);
  // The position counter: a frame and the rate in hertz, -1 without sound.
  void counterChanged(qint64 frame, qint64 rate);
  // The horizontal scroll position, 0 to 100.
  void scrollBarChanged(int percent);
  // The sound, its history or its changed flag is another.
  void edited();
  // The action menu opens, and has closed with the chosen command (0 for none).
  void actionMenuOpening();
  void actionMenuClosed(int command);
  void refused(const tembrel::EditResult& result);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void SoundChanged(bool lengthsRefreshed) override;
  void ConnectView();
  void CreateRulers();
  void CreateScrollBars();
  void CreateToolButtons();
  void CreateZoomButtons();
  void ShowTool(int index);
  void LayOut();
  void RefreshIcons();

  Document document;
  QString title;
  AudioEditWindow* editWindow;
  TMyScrollBar* horizontalScrollBar = nullptr;
  TMyScrollBar* verticalScrollBar = nullptr;
  QList<QToolButton*> toolButtons;
  QList<QToolButton*> zoomButtons;
  RulerWindow* timeRuler = nullptr;
  RulerWindow* sampleRuler = nullptr;
  DecibalWin* amplitudeScale = nullptr;
};

}  // namespace tembrel
