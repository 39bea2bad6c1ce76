// The application: it takes the command line, makes the main window and runs it.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <QApplication>
#include <QTimer>

#include "app/ConsolePrompts.h"

namespace tembrel {

class TMainWindow;

class tembrelApp : public QApplication {
  Q_OBJECT

 public:
  tembrelApp(int& argc, char** argv);
  ~tembrelApp() override;

  // Shows the main window, opens the start-up file and runs until the window closes. Returns the process's
  // status.
  int Run();

 protected:
  // Watches for the main window's first appearance on the screen.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // `arguments` without the program's name and without Qt's own options, as bytes.
  void TakeCommandLine(std::vector<std::string> arguments);
  void InitMainWindow();
  void SetUpClient();
  void SaveScreenshotAndQuit();

  std::filesystem::path startUpFile;
  std::filesystem::path screenshot;  // empty: run until the user quits
  ConsolePrompts consolePrompts;     // who answers while a picture is made
  std::unique_ptr<TMainWindow> mainWindow;
  QTimer setUp;  // runs until the main window is on the screen
};

}  // namespace tembrel
