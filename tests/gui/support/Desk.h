// The program as a user has it in front of them: the real main window over a program folder and a settings
// file of its own, with scripted answers to its questions.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <QAction>
#include <QImage>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPoint>
#include <QScreen>
#include <QStatusBar>
#include <QTest>

#include "app/CommandIds.h"
#include "app/ui/QtPrompts.h"
#include "app/ui/TMainWindow.h"
#include "app/ui/tembrelMDIClient.h"
#include "audio/ProgramPaths.h"
#include "audio/SettingStore.h"
#include "device/SilentServices.h"
#include "document/ui/AudioWin.h"
#include "document/ui/tembrelMDIChild.h"
#include "edit/EffectTable.h"
#include "tests/support/FileBytes.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/WaveBytes.h"
#include "view/ui/AudioEditWindow.h"
#include "view/ui/TMyScrollBar.h"

namespace tembrel::test {

class Desk {
 public:
  enum class Asks { ByScript, WithBoxes };

  // `services` opens the sound services of every start.
  explicit Desk(Asks asks = Asks::ByScript, std::function<SoundServices()> services = SilentServices)
      : how(asks), openSound(std::move(services)) {
    std::filesystem::create_directories(paths.tempFolder);
    Start();
  }

  // Starts the program; a running one ends first.
  void Start() {
    frame.reset();
    frame = std::make_unique<TMainWindow>(paths, SettingStore(StoreFile()),
                                          how == Asks::ByScript ? &prompts : nullptr, openSound());
    frame->resize(1000, 800);
    frame->show();
    frame->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(frame.get()));
    Client().SetUp();
  }
  void End() { frame.reset(); }

  TMainWindow& Frame() { return *frame; }
  tembrelMDIClient& Client() { return *frame->Client(); }
  std::filesystem::path StoreFile() const { return scratch / "settings" / "store.ini"; }

  // A WAVE file of `frames` frames of rising samples, below the scratch folder.
  std::filesystem::path MakeWave(const std::string& name, std::size_t frames = 1000, std::uint32_t bits = 16,
                                 std::uint32_t channels = 2, std::uint32_t rate = 44100) const {
    std::filesystem::path path = scratch / name;
    WriteBytes(path, WaveFile(rate, bits, channels, CountingBytes(frames * channels * ((bits + 7) / 8))));
    return path;
  }
  // Makes such a file and opens it.
  AudioWin& OpenWave(const std::string& name = "song.wav", std::size_t frames = 1000, std::uint32_t bits = 16,
                     std::uint32_t channels = 2, std::uint32_t rate = 44100) {
    Client().OpenDocument(MakeWave(name, frames, bits, channels, rate));
    QCoreApplication::processEvents();
    return *Client().ActiveDocument();
  }

  AudioWin* Active() { return Client().ActiveDocument(); }
  AudioEditWindow& View() { return *Active()->EditWindow(); }
  tembrelMDIChild* ActiveChild() { return qobject_cast<tembrelMDIChild*>(Client().currentSubWindow()); }
  QList<QMdiSubWindow*> Children() { return Client().subWindowList(QMdiArea::CreationOrder); }
  TMyScrollBar& ScrollBar() {
    for (TMyScrollBar* bar : Active()->findChildren<TMyScrollBar*>()) {
      if (bar->property("controlId").toInt() == 0x2100) {
        return *bar;
      }
    }
    qFatal("no scroll bar");
  }

  QAction* Command(int id) {
    for (QAction* action : frame->QWidget::actions()) {
      if (action->property("commandId").toInt() == id) {
        return action;
      }
    }
    return nullptr;
  }
  void Run(int id) {
    Command(id)->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
  }
  QMenu* MenuNamed(const QString& text) {
    for (QAction* action : frame->menuBar()->actions()) {
      if (action->text() == text) {
        return action->menu();
      }
    }
    return nullptr;
  }
  // The menu's texts as it opens, separators as "-".
  QStringList OpenedMenu(const QString& text) {
    QMenu* menu = MenuNamed(text);
    Q_EMIT menu->aboutToShow();
    QStringList texts;
    for (const QAction* action : menu->actions()) {
      texts << (action->isSeparator() ? "-" : action->text());
    }
    return texts;
  }

  // The three status gadgets, joined by commas.
  QString Gadgets() {
    QStringList texts;
    for (int id = 0; id < 3; ++id) {
      for (const QLabel* label : frame->statusBar()->findChildren<QLabel*>()) {
        if (label->property("controlId").isValid() && label->property("controlId").toInt() == id) {
          texts << label->text();
        }
      }
    }
    return texts.join(", ");
  }

  // The names of the temporary copies and notes.
  std::vector<std::string> TempFiles() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(paths.tempFolder)) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }

  ScratchFolder scratch;
  ScriptedPrompts prompts;
  ProgramPaths paths = PathsBelow(scratch / "program");

 private:
  Asks how;
  std::function<SoundServices()> openSound;
  std::unique_ptr<TMainWindow> frame;
};

// The command id of the effect that scripts call so; 0 for none.
inline int EffectId(std::string_view word) {
  const EffectRow* effect = FindEffect(word);
  return effect == nullptr ? 0 : effect->commandId;
}

inline QString Text(const std::filesystem::path& path) {
  return PathToText(path);
}

// What is on the screen where the widget is, in device pixels.
inline QImage OnScreen(QWidget& widget) {
  QCoreApplication::processEvents();
  QWidget* window = widget.window();
  QImage all = window->screen()->grabWindow(window->winId()).toImage().convertToFormat(QImage::Format_RGB32);
  const double scale = widget.devicePixelRatioF();
  const QPoint corner = widget.mapTo(window, QPoint(0, 0));
  const int left = qRound(corner.x() * scale);
  const int top = qRound(corner.y() * scale);
  const int right = qRound((corner.x() + widget.width()) * scale);
  const int bottom = qRound((corner.y() + widget.height()) * scale);
  all.setDevicePixelRatio(1);
  return all.copy(left, top, right - left, bottom - top);
}

}  // namespace tembrel::test
