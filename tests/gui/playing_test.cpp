// Playing and recording in the real window, over a sound device that writes down what it is told.
#include <memory>

#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include "analysis/ui/SpectrumWin.h"
#include "app/ui/RecordingGadget.h"
#include "app/ui/TopStrip.h"
#include "app/ui/TransportControl.h"
#include "device/SilentServices.h"
#include "document/ui/AudioWin.h"
#include "edit/ClipEdits.h"
#include "tests/gui/support/Desk.h"
#include "tests/gui/support/GuiMain.h"
#include "tests/gui/support/Input.h"
#include "tests/support/FakeTransport.h"
#include "view/ui/AudioEditWindow.h"
#include "view/ui/ToggleButton.h"

namespace tembrel::test {
namespace {

constexpr std::size_t kSecond = 44100;
constexpr std::size_t kLong = kSecond * 60;

QString Strings(const std::vector<std::string>& texts) {
  QStringList list;
  for (const std::string& text : texts) {
    list << QString::fromStdString(text);
  }
  return list.join(", ");
}

// A desk whose sound device is in the test's hands.
class SoundDesk {
 public:
  SoundDesk() : desk(Desk::Asks::ByScript, [this] { return Services(); }) {}

  Desk& operator*() { return desk; }
  Desk* operator->() { return &desk; }
  FakeAudioDevice& Device() { return *device; }
  TransportControl& Transport() { return desk.Client().Transport(); }

  QToolButton& Button(const QString& name) {
    for (QToolButton* button : desk.Frame().findChild<TopStrip*>()->findChildren<QToolButton*>()) {
      if (button->accessibleName() == name) {
        return *button;
      }
    }
    qFatal("no such button");
  }
  void Click(const QString& name) { QTest::mouseClick(&Button(name), Qt::LeftButton); }
  // A key of the keyboard, wherever that is.
  void Type(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(desk.Frame().windowHandle(), key, modifiers);
  }
  QString WithKeyboard() {
    const QWidget* widget = QApplication::focusWidget();
    return widget == nullptr ? "nothing" : widget->accessibleName();
  }
  // The names of the buttons that are down.
  QString Down() {
    QStringList names;
    for (const char* name : {"Rewind", "Play", "Pause", "Stop", "Record"}) {
      if (Button(name).isChecked()) {
        names << name;
      }
    }
    return names.join(" ");
  }
  QString Enabled() {
    QStringList names;
    for (const char* name : {"Rewind", "Play", "Pause", "Stop", "Record", "Move In Time", "Time Display"}) {
      if (Button(name).isEnabled()) {
        names << name;
      }
    }
    return names.join(" ");
  }
  void DoNotShowTheSetup() {
    desk.End();  // writes its settings
    WriteText(desk.paths.settingsFile, "[Digital Audio Recording]\r\nShow Dialog=0\r\n");
    desk.Start();
  }

 private:
  SoundServices Services() {
    SoundServices services = SilentServices();
    auto made = std::make_unique<FakeAudioDevice>();
    device = made.get();
    services.device = std::move(made);
    return services;
  }

  FakeAudioDevice* device = nullptr;
  Desk desk;
};

void Press(Desk& desk, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QTest::keyClick(&desk.View(), key, modifiers);
}

class PlayingTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ButtonsFollowWhatCanBeDone() {
    SoundDesk desk;
    QCOMPARE(desk.Enabled(), "Record");
    desk->OpenWave("song.wav", kLong);
    QCOMPARE(desk.Enabled(), "Rewind Play Record");
    desk.Click("Play");
    QCOMPARE(desk.Enabled(), "Play Pause Stop Record");
    QCOMPARE(desk.Down(), "Play");
    desk.Click("Pause");
    QCOMPARE(desk.Down(), "Play Pause");
    desk.Click("Stop");
    QCOMPARE(desk.Down(), "");
    QCOMPARE(desk.Enabled(), "Rewind Play Record");
    desk->Run(kCommandClose);
    QCOMPARE(desk.Enabled(), "Record");
  }

  void PlayPlaysTheWorkingFileFromTheLeftEdge() {
    SoundDesk desk;
    AudioWin& window = desk->OpenWave("song.wav", kLong);
    window.EditWindow()->View().Show(kSecond * 5, kSecond * 2);
    desk.Click("Play");
    const QString file = Text(window.Doc().TempFileName());
    QCOMPARE(Strings(desk.Device().calls), "open " + file + " 5000, play");
    QTRY_VERIFY(window.EditWindow()->View().CursorFrame() > static_cast<std::int64_t>(kSecond * 5));
    desk.Click("Play");
    QVERIFY(!desk.Transport().Playing());
    const std::int64_t stopped = window.EditWindow()->View().CursorFrame();
    QVERIFY(stopped > static_cast<std::int64_t>(kSecond * 5));
  }

  void ButtonsActWhenTheyAreLetGo() {
    SoundDesk desk;
    desk->OpenWave("song.wav", kLong);
    QToolButton& play = desk.Button("Play");
    QTest::mousePress(&play, Qt::LeftButton);
    QVERIFY(!desk.Transport().Playing());
    QTest::mouseRelease(&play, Qt::LeftButton);
    QVERIFY(desk.Transport().Playing());
    QTest::mousePress(&play, Qt::LeftButton);
    QTest::mouseMove(&play, {-30, -30});
    QTest::mouseRelease(&play, Qt::LeftButton, Qt::NoModifier, {-30, -30});
    QVERIFY(desk.Transport().Playing());
    QCOMPARE(desk.Down(), "Play");
  }

  void SpacePlaysAndStops() {
    SoundDesk desk;
    desk->OpenWave("song.wav", kLong);
    Press(*desk, Qt::Key_Space);
    QVERIFY(desk.Transport().Playing());
    QCOMPARE(desk.Down(), "Play");
    Press(*desk, Qt::Key_Space);
    QVERIFY(!desk.Transport().Playing());
    QCOMPARE(desk.Down(), "");
  }

  void SpaceHeldDownPlaysOnce() {
    SoundDesk desk;
    desk->OpenWave("song.wav", kLong);
    QVERIFY(!desk->Command(kCommandPlay)->autoRepeat());
    Press(*desk, Qt::Key_Space);
    for (int i = 0; i < 3; ++i) {
      QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ", true);
      QApplication::sendEvent(&desk->View(), &repeat);
    }
    QVERIFY(desk.Transport().Playing());
  }

  void KeysPlayFromTheCursorAndTheScreen() {
    SoundDesk desk;
    AudioWin& window = desk->OpenWave("song.wav", kLong);
    EditView& view = window.EditWindow()->View();
    view.Show(kSecond * 10, kSecond * 20);
    view.SetCursorPosition(kSecond * 12, false);
    Press(*desk, Qt::Key_P, Qt::ShiftModifier);
    QVERIFY(Strings(desk.Device().TakeCalls()).endsWith(" 12000, play"));
    Press(*desk, Qt::Key_P);
    QVERIFY(desk.Device().calls.empty());
    Press(*desk, Qt::Key_Space);
    desk.Device().TakeCalls();
    Press(*desk, Qt::Key_P);
    QVERIFY(Strings(desk.Device().TakeCalls()).endsWith(" 10000, play"));
    QVERIFY(desk.Transport().Playing());
  }

  void AtTheEndOfTheScreenTheCursorGoesBack() {
    SoundDesk desk;
    AudioWin& window = desk->OpenWave("song.wav", kLong);
    EditView& view = window.EditWindow()->View();
    view.Show(kSecond, kSecond / 4);
    desk->Run(kCommandPlayScreen);
    QTRY_VERIFY(!desk.Transport().Playing());
    QCOMPARE(view.CursorFrame(), static_cast<std::int64_t>(kSecond));
    QCOMPARE(view.FirstVisibleFrame(), static_cast<std::int64_t>(kSecond));
    QCOMPARE(desk.Down(), "");
    QCOMPARE(Strings(desk.Device().calls).section(", ", 1), "play, stop, close");
  }

  void TheCounterRunsWithTheCursor() {
    SoundDesk desk;
    desk->OpenWave("song.wav", kLong);
    QSignalSpy counted(&desk->Client(), &tembrelMDIClient::counterChanged);
    desk.Click("Play");
    QTRY_VERIFY(counted.count() >= 3);
    QCOMPARE(counted.last().at(0).toLongLong(), desk->View().View().CursorFrame());
  }

  void ClosingTheDocumentStopsPlaying() {
    SoundDesk desk;
    desk->OpenWave("song.wav", kLong);
    desk.Click("Play");
    desk->Run(kCommandClose);
    QVERIFY(!desk.Transport().Playing());
    QVERIFY(Strings(desk.Device().calls).endsWith("play, stop, close"));
    QCOMPARE(desk.Enabled(), "Record");
  }

  void ClosingAnotherDocumentDoesNot() {
    SoundDesk desk;
    AudioWin& song = desk->OpenWave("song.wav", kLong);
    desk.Click("Play");
    desk->OpenWave("other.wav", kSecond);
    desk->Run(kCommandClose);
    QVERIFY(desk.Transport().Playing());
    QTRY_VERIFY(song.EditWindow()->View().CursorFrame() > 0);
  }

  void ADocumentInTheBackgroundPlaysOn() {
    SoundDesk desk;
    AudioWin& song = desk->OpenWave("song.wav", kLong);
    desk.Click("Play");
    AudioWin& other = desk->OpenWave("other.wav", kSecond);
    QTRY_VERIFY(song.EditWindow()->View().CursorFrame() > 0);
    QCOMPARE(other.EditWindow()->View().CursorFrame(), 0);
    Press(*desk, Qt::Key_Space);
    QVERIFY(!desk.Transport().Playing());
  }

  void TheCounterRunsWithTheBackgroundAndThenShowsTheActiveDocumentAgain() {
    SoundDesk desk;
    AudioWin& song = desk->OpenWave("song.wav", kLong);
    desk.Click("Play");
    AudioWin& other = desk->OpenWave("other.wav", kSecond);
    other.EditWindow()->View().SetCursorPosition(441, false);
    const auto& counter = *desk->Frame().findChild<QWidget*>("CountWindow");
    auto& scroller = *desk->Frame().findChild<QWidget*>("ScrollerWindow");
    QTRY_VERIFY(counter.accessibleName().contains(
        "frame " + QString::number(song.EditWindow()->View().CursorFrame()) + ","));
    QCOMPARE(scroller.accessibleName(), "Position: 0 percent");
    desk.Click("Stop");
    QCOMPARE(counter.accessibleName(), "Position: frame 441, 0.010 seconds");
  }

  void AnEditMeanwhileIsHarmless() {
    SoundDesk desk;
    AudioWin& window = desk->OpenWave("song.wav", kLong);
    desk.Click("Play");
    QTRY_VERIFY(window.EditWindow()->View().CursorFrame() > 0);
    Clipboard clipboard;
    const ByteRange most{400, static_cast<std::int64_t>(window.Doc().Clip()->dataSize)};
    QVERIFY(window.Doc().Edit(CutEdit(most, clipboard)).done);
    QTRY_COMPARE(window.EditWindow()->View().CursorFrame(), 100);
    QVERIFY(desk.Transport().Playing());
    desk.Click("Stop");
    QVERIFY(!desk.Transport().Playing());
  }

  void QuittingMeanwhileIsHarmless() {
    SoundDesk desk;
    desk->OpenWave("song.wav", kLong);
    desk.Click("Play");
    QVERIFY(desk->Frame().close());
    QVERIFY(!desk.Transport().Playing());
    desk->End();
  }

  void ProgramsThatEndWithoutClosingStopTheDevice() {
    SoundDesk desk;
    std::vector<std::string> calls;
    desk.Device().callsAtItsEnd = &calls;
    desk->OpenWave("song.wav", kLong);
    desk.Click("Play");
    QVERIFY(Strings(desk.Device().calls).endsWith(", play"));
    desk->End();
    QVERIFY(Strings(calls).endsWith(", play, stop, close"));
  }

  void AnEmptyDocumentPlaysNothing() {
    SoundDesk desk;
    desk->Client().RunCommand(kCommandNew);
    desk.Click("Play");
    QTRY_VERIFY(!desk.Transport().Playing());
    QVERIFY(!Strings(desk.Device().calls).contains("open"));
  }

  void WithoutACopyToPlayTheCursorRunsAndTheStatusBarSaysSo() {
    SoundDesk desk;
    std::filesystem::remove_all(desk->paths.tempFolder);
    WriteText(desk->paths.tempFolder, "in the way");
    AudioWin& window = desk->OpenWave("song.wav", kLong);
    QVERIFY(!window.Doc().HasTempCopy());
    auto* notice = desk->Frame().findChild<QLabel*>("silentNotice");
    QVERIFY(notice != nullptr && !notice->isVisible());
    desk.Click("Play");
    QVERIFY(notice->isVisible());
    QTRY_VERIFY(window.EditWindow()->View().CursorFrame() > 0);
    QVERIFY(desk.Device().calls.empty());
    desk.Click("Stop");
    QVERIFY(!notice->isVisible());
  }

  void RewindGoesToTheStart() {
    SoundDesk desk;
    AudioWin& window = desk->OpenWave("song.wav", kLong);
    EditView& view = window.EditWindow()->View();
    view.Show(kSecond * 10, kSecond);
    view.SetCursorPosition(kSecond * 10 + 5, false);
    desk.Click("Rewind");
    QCOMPARE(view.CursorFrame(), 0);
    QCOMPARE(view.FirstVisibleFrame(), 0);
  }

  void TheKeyboardReachesTheButtons() {
    SoundDesk desk;
    desk->OpenWave("song.wav", kLong);
    QToolButton& play = desk.Button("Play");
    QCOMPARE(play.accessibleDescription(), "Key: Space");
    QVERIFY(play.focusPolicy() == Qt::TabFocus);
    desk.Type(Qt::Key_Tab);
    QCOMPARE(desk.WithKeyboard(), "Rewind");
    desk.Type(Qt::Key_Tab);
    QVERIFY(play.hasFocus());
    desk.Type(Qt::Key_Return);
    QVERIFY(desk.Transport().Playing());
    desk.Type(Qt::Key_Space);
    QVERIFY(!desk.Transport().Playing());
    QVERIFY(play.hasFocus());
  }

  void TabGoesFromTheViewThroughTheButtonsAndBack() {
    SoundDesk desk;
    desk->OpenWave("other.wav", kLong);
    desk->OpenWave("song.wav", kLong);
    QStringList forth;
    QStringList back;
    for (int i = 0; i < 4; ++i) {
      desk.Type(Qt::Key_Tab);
      forth << desk.WithKeyboard();
    }
    for (int i = 0; i < 4; ++i) {
      desk.Type(Qt::Key_Tab, Qt::ShiftModifier);
      back << desk.WithKeyboard();
    }
    QCOMPARE(forth, (QStringList{"Rewind", "Play", "Record", "Waveform"}));
    QCOMPARE(back, (QStringList{"Record", "Play", "Rewind", "Waveform"}));
    QVERIFY(desk->Active()->Title().endsWith("song.wav"));
    QVERIFY(desk->View().hasFocus());
    desk.Type(Qt::Key_Right);
    QVERIFY(desk->View().View().CursorFrame() > 0);
  }

  void TabLeavesTheSpectrumToo() {
    SoundDesk desk;
    desk->OpenWave("song.wav", kLong);
    desk->Run(kCommandAudioSpectrum);
    desk.Type(Qt::Key_Tab);
    QCOMPARE(desk.WithKeyboard(), "Record");
    desk.Type(Qt::Key_Tab);
    QVERIFY(QApplication::focusWidget() == desk->Client().Spectrum());
  }

  void SpacePressesTheButtonThatHasTheKeyboard() {
    SoundDesk desk;
    desk.DoNotShowTheSetup();
    desk->OpenWave("song.wav", kLong);
    desk.Type(Qt::Key_Tab, Qt::ShiftModifier);
    QCOMPARE(desk.WithKeyboard(), "Record");
    desk.Type(Qt::Key_Space);
    QVERIFY(desk.Transport().Recording());
    QVERIFY(!desk.Transport().Playing());
    desk->prompts.answers = {Answer::No};
    desk->Frame().close();
  }

  void EscapeGivesTheKeyboardBackToTheView() {
    SoundDesk desk;
    desk->OpenWave("song.wav", kLong);
    desk.Type(Qt::Key_Tab);
    desk.Type(Qt::Key_Escape);
    QVERIFY(desk->View().hasFocus());
  }

  // The next button could be pressed unawares.
  void AButtonThatGetsDisabledGivesTheKeyboardToTheView() {
    SoundDesk desk;
    desk->OpenWave("song.wav", kLong);
    desk.Click("Play");
    for (int i = 0; i < 3; ++i) {
      desk.Type(Qt::Key_Tab);
    }
    QCOMPARE(desk.WithKeyboard(), "Stop");
    desk.Type(Qt::Key_Return);
    QVERIFY(!desk.Transport().Playing());
    QVERIFY(desk->View().hasFocus());
  }

  void WithoutADocumentTabStaysInTheStrip() {
    SoundDesk desk;
    desk.Type(Qt::Key_Tab);
    QCOMPARE(desk.WithKeyboard(), "Record");
    desk.Type(Qt::Key_Tab);
    QCOMPARE(desk.WithKeyboard(), "Record");
  }

  void AButtonThatIsDownLooksIt_data() {
    QTest::addColumn<bool>("dark");
    QTest::newRow("light") << false;
    QTest::newRow("dark") << true;
  }
  void AButtonThatIsDownLooksIt() {
    QFETCH(const bool, dark);
    SoundDesk desk;
    if (dark) {
      QPalette palette(QColor(0x35, 0x35, 0x35));
      palette.setColor(QPalette::Highlight, QColor(0x2A, 0x82, 0xDA));
      desk->Frame().setPalette(palette);
    }
    desk->OpenWave("song.wav", kLong);
    QToolButton& play = desk.Button("Play");
    const QColor paper = play.palette().color(QPalette::Highlight);
    const auto Pixels = [&play, paper] {
      const QImage image = OnScreen(play);
      int count = 0;
      for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
          count += image.pixelColor(x, y) == paper ? 1 : 0;
        }
      }
      return count * 100 / (image.width() * image.height());
    };
    QCOMPARE(Pixels(), 0);
    desk.Click("Play");
    QVERIFY(Pixels() > 50);
    desk.Click("Stop");
    QCOMPARE(Pixels(), 0);
  }

  // ---- Recording

  void ARecordingIsShownSavedAndOpened() {
    SoundDesk desk;
    desk.DoNotShowTheSetup();
    auto& gadget = *desk->Frame().findChild<RecordingGadget*>();
    auto& time = *gadget.findChild<QLabel*>("recordingTime");
    QVERIFY(!gadget.isVisible());
    desk.Click("Record");
    QCOMPARE(desk.Down(), "Record");
    QCOMPARE(desk.Enabled(), "Pause Stop Record");
    QVERIFY(gadget.isVisible());
    QCOMPARE(time.text(), "0:00.0");
    desk.Device().state = {12'345, 0.5, 0.25, false, kDeviceSuccess};
    QTRY_COMPARE(time.text(), "0:12.3");
    QCOMPARE(gadget.findChild<QWidget*>("LevelMeter")->accessibleName(),
             "Recording level: Left -6 dB, right -12 dB");
    const std::filesystem::path take = desk->scratch / "take.WAV";
    desk->prompts.saveChoice = SaveChoice{desk->scratch / "take", 1};
    desk.Device().onSave = [](const std::filesystem::path& path) {
      WriteBytes(path, WaveFile(44100, 16, 2, CountingBytes(4000)));
    };
    desk.Click("Stop");
    QCOMPARE(desk.Down(), "");
    QVERIFY(!gadget.isVisible());
    QVERIFY(desk->Active() != nullptr);
    QCOMPARE(desk->Active()->Title(), Text(take));
    QCOMPARE(desk->Active()->Doc().FrameCount(), 1000U);
    QVERIFY(!desk->Active()->Doc().Changed());
  }

  void TheMeterShowsTheLevel() {
    SoundDesk desk;
    desk.DoNotShowTheSetup();
    desk.Click("Record");
    auto& bars = *desk->Frame().findChild<QWidget*>("LevelMeter");
    const auto Green = [&bars] {
      const QImage image = OnScreen(bars);
      int count = 0;
      for (int x = 0; x < image.width(); ++x) {
        count += qGreen(image.pixel(x, 4)) > 150 ? 1 : 0;
      }
      return count;
    };
    QCOMPARE(Green(), 0);
    desk.Device().state.peakLeft = 0.1;
    QTRY_VERIFY(Green() > bars.width() / 2);
    QVERIFY(Green() < bars.width() * 3 / 4);
  }

  void TheMeterSaysThatNoSoundArrives() {
    SoundDesk desk;
    desk.DoNotShowTheSetup();
    desk.Click("Record");
    auto& bars = *desk->Frame().findChild<QWidget*>("LevelMeter");
    const auto Reddish = [&bars] {
      const QImage image = OnScreen(bars);
      int count = 0;
      for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
          count += qRed(image.pixel(x, y)) > 150 ? 1 : 0;
        }
      }
      return count;
    };
    desk.Device().state.milliseconds = 100;
    QTRY_COMPARE(desk->Frame().findChild<QLabel*>("recordingTime")->text(), "0:00.1");
    QCOMPARE(Reddish(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(bars.accessibleName(), "Recording level: No sound arrives", 20'000);
    QVERIFY(Reddish() > 20);
    QVERIFY(desk->prompts.errors.empty());
    desk.Device().state.milliseconds = 200;
    QTRY_COMPARE(bars.accessibleName(), "Recording level: Left silent, right silent");
    QCOMPARE(Reddish(), 0);
  }

  void TheClipLightStaysOnUntilItIsClicked() {
    SoundDesk desk;
    desk.DoNotShowTheSetup();
    desk.Click("Record");
    auto& gadget = *desk->Frame().findChild<RecordingGadget*>();
    auto& light = *gadget.findChild<QToolButton*>("ClipLight");
    QVERIFY(!light.isChecked() && !light.isEnabled());
    desk.Device().state.clipped = true;
    QTRY_VERIFY(light.isChecked());
    desk.Device().state.clipped = false;
    desk.Click("Stop");
    QVERIFY(light.isVisible() && light.isChecked());
    auto& time = *gadget.findChild<QLabel*>("recordingTime");
    auto& bars = *gadget.findChild<QWidget*>("LevelMeter");
    QVERIFY(!time.isVisible() && !bars.isVisible());
    desk.Click("Record");
    QVERIFY(light.isVisible() && time.isVisible() && bars.isVisible());
    desk.Device().state.clipped = true;
    QTRY_VERIFY(light.isChecked());
    desk.Device().state.clipped = false;
    desk.Click("Stop");
    QTest::mouseClick(&light, Qt::LeftButton);
    QVERIFY(!light.isChecked());
    QVERIFY(!gadget.isVisible());
  }

  void ANewRecordingPutsTheClipLightOut() {
    SoundDesk desk;
    desk.DoNotShowTheSetup();
    desk.Click("Record");
    auto& light = *desk->Frame().findChild<QToolButton*>("ClipLight");
    desk.Device().state.clipped = true;
    QTRY_VERIFY(light.isChecked());
    desk.Device().state.clipped = false;
    desk.Click("Stop");
    desk.Click("Record");
    QVERIFY(!light.isChecked());
    QVERIFY(light.isVisible());
  }

  void ARecordingThatCannotStartSaysWhy() {
    SoundDesk desk;
    desk.DoNotShowTheSetup();
    desk.Device().recordResult = 1;
    desk.Click("Record");
    QCOMPARE(Strings(desk->prompts.errors), "The device is on fire.");
    QCOMPARE(desk.Down(), "");
    QVERIFY(!desk->Frame().findChild<RecordingGadget*>()->isVisible());
  }

  void ARecordingThatBreaksOffIsKept() {
    SoundDesk desk;
    desk.DoNotShowTheSetup();
    desk.Click("Record");
    desk->prompts.saveChoice = SaveChoice{desk->scratch / "rest", 1};
    desk.Device().onSave = [](const std::filesystem::path& path) {
      WriteBytes(path, WaveFile(44100, 16, 2, CountingBytes(4000)));
    };
    desk.Device().state.failure = 9;
    QTRY_COMPARE(Strings(desk->prompts.errors), "The device is on fire.");
    QTRY_VERIFY(desk->Active() != nullptr);
    QVERIFY(!desk.Transport().Recording());
    QCOMPARE(desk->Children().size(), 1);
  }

  void TheProgramDoesNotEndOverARecordingUnasked() {
    SoundDesk desk;
    desk.DoNotShowTheSetup();
    desk.Click("Record");
    desk->prompts.answers = {Answer::Cancel};
    QVERIFY(!desk->Frame().close());
    QVERIFY(desk->Frame().isVisible());
    QVERIFY(desk.Transport().Recording());
    desk->prompts.answers = {Answer::No};
    QVERIFY(desk->Frame().close());
    QVERIFY(!desk.Transport().Recording());
    QCOMPARE(desk->prompts.questions.size(), 2U);
  }

  void TheSetupComesBeforeTheFirstRecording() {
    SoundDesk desk;
    bool seen = false;
    QTimer::singleShot(0, &desk->Frame(), [&] {
      QWidget* dialog = QApplication::activeModalWidget();
      seen = dialog != nullptr && dialog->objectName() == "DigitalAudioDialog";
      QVERIFY(!desk.Transport().Recording());
      QTest::keyClick(dialog, Qt::Key_Escape);
    });
    desk.Click("Record");
    QVERIFY(seen);
    QVERIFY(desk.Transport().Recording());  // whatever was answered
    desk->prompts.answers = {Answer::No};
    desk->Frame().close();
  }
};

}  // namespace
}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::PlayingTest)

#include "playing_test.moc"
