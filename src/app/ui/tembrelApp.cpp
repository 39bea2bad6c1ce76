#include "app/ui/tembrelApp.h"

#include <string>
#include <system_error>
#include <vector>

#include <QExposeEvent>
#include <QWindow>

#include "app/CommandLine.h"
#include "app/ui/QtPrompts.h"
#include "app/ui/TMainWindow.h"
#include "app/ui/tembrelMDIClient.h"
#include "audio/ProgramPaths.h"
#include "audio/SettingStore.h"
#include "device/SoundServices.h"

namespace tembrel {

namespace {

// A window that the desktop does not show, such as one that starts as an icon, is not waited for longer.
constexpr int kLongestWaitMs = 1000;
constexpr char kScreenshotOption[] = "--screenshot";

}  // namespace

tembrelApp::tembrelApp(int& argc, char** argv) : QApplication(argc, argv) {
  setApplicationName("Tembrel");
  setDesktopFileName("tembrel");
  TakeCommandLine({argv + 1, argv + argc});
  InitMainWindow();
}

tembrelApp::~tembrelApp() = default;

// "--screenshot PNG [FILE]" saves a picture of the main window once FILE is shown, and quits.
void tembrelApp::TakeCommandLine(std::vector<std::string> arguments) {
  std::error_code error;
  const std::filesystem::path startFolder = std::filesystem::current_path(error);
  if (arguments.size() >= 2 && arguments.front() == kScreenshotOption) {
    screenshot = FullPath(arguments[1], startFolder);
    arguments.erase(arguments.begin(), arguments.begin() + 2);
  }
  const std::string name = StartUpFileName(arguments, [](const std::string& path) {
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
  });
  startUpFile = FullPath(name, startFolder);
}

void tembrelApp::InitMainWindow() {
  Prompts* questions = screenshot.empty() ? nullptr : &consolePrompts;
  const ProgramPaths paths = FindProgramPaths();
  mainWindow = std::make_unique<TMainWindow>(paths, SettingStore(SettingStorePath()), questions,
                                             OpenSoundServices(paths.tempFolder));
}

void tembrelApp::SetUpClient() {
  tembrelMDIClient* client = mainWindow->Client();
  client->SetUp();
  if (screenshot.empty()) {
    client->OfferRecovery();
  }
  if (!startUpFile.empty()) {
    client->OpenDocument(startUpFile);
  }
}

void tembrelApp::SaveScreenshotAndQuit() {
  const bool saved = mainWindow->grab().save(PathToText(screenshot), "PNG");
  mainWindow->close();
  exit(saved ? 0 : 1);
}

int tembrelApp::Run() {
  mainWindow->show();
  // Once the window is on the screen: it is there while a long load goes on, and what has to be said is said
  // in its middle.
  mainWindow->windowHandle()->installEventFilter(this);
  setUp.setSingleShot(true);
  setUp.start(kLongestWaitMs);
  connect(&setUp, &QTimer::timeout, this, [this] {
    mainWindow->windowHandle()->removeEventFilter(this);
    SetUpClient();
    if (!screenshot.empty()) {
      QTimer::singleShot(0, this, &tembrelApp::SaveScreenshotAndQuit);
    }
  });
  const int status = exec();
  mainWindow.reset();
  return status;
}

bool tembrelApp::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Expose && mainWindow->windowHandle()->isExposed() && setUp.isActive()) {
    setUp.start(0);
  }
  return QApplication::eventFilter(watched, event);
}

}  // namespace tembrel
