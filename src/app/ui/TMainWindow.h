// The main frame: menu bar, accelerators, top strip, document area and status bar.
#pragma once

#include <QHash>
#include <QMainWindow>

#include "app/MenuTable.h"
#include "app/ui/QtPrompts.h"
#include "audio/ProgramPaths.h"
#include "audio/SettingStore.h"
#include "device/SilentServices.h"

class QAction;
class QLabel;
class QMdiSubWindow;
class QMenu;

namespace tembrel {

class FrameMenuBar;
class RecordingGadget;
class StatusGadgets;
class TopStrip;
class tembrelMDIClient;

class TMainWindow : public QMainWindow {
  Q_OBJECT

 public:
  // Asks through `questions`, which outlives the window; without them with boxes of its own. None of the
  // sound services is null.
  TMainWindow(ProgramPaths programPaths, SettingStore store, Prompts* questions = nullptr,
              SoundServices sound = SilentServices());
  ~TMainWindow() override;

  tembrelMDIClient* Client() { return client; }

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  QAction* CommandAction(int id);
  void CreateMenus();
  void FillMenu(QMenu* menu, const std::vector<MenuItem>& items);
  void CreateAccelerators();
  void CreateTopStrip();
  void ConnectTransport();
  void ShowTransport();
  QList<QWidget*> KeyboardStops() const;
  void RefreshBackground();
  void RebuildRecentFiles();
  void RebuildWindowList();
  void ActivateDocument(QMdiSubWindow* window);
  void RefreshCommands();
  void ShowAbout();
  void ShowHelp();

  QtPrompts prompts;
  ProgramPaths paths;
  tembrelMDIClient* client;
  StatusGadgets* gadgets;
  FrameMenuBar* frameMenuBar;
  TopStrip* strip = nullptr;
  RecordingGadget* recordingGadget = nullptr;
  QLabel* silentNotice = nullptr;
  QMenu* fileMenu = nullptr;
  QMenu* windowMenu = nullptr;
  QHash<int, QAction*> actions;
  QList<QAction*> recentActions;
  QList<QAction*> windowActions;
};

}  // namespace tembrel
