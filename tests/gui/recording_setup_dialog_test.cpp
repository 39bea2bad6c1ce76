// The recording setup as a dialog: what it shows, how keyboard and mouse lead through it, and what the
// program keeps of it.
#include <functional>
#include <memory>
#include <utility>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QObject>
#include <QPointer>
#include <QPushButton>
#include <QSlider>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTimer>

#include "audio/Settings.h"
#include "device/ui/DigitalAudioDialog.h"
#include "tests/gui/support/Desk.h"
#include "tests/gui/support/GuiMain.h"
#include "tests/support/FakeMixer.h"

namespace tembrel::test {

namespace {

template <class Control>
Control* ControlOf(const QWidget& dialog, int id) {
  for (Control* control : dialog.findChildren<Control*>()) {
    if (control->property("controlId").toInt() == id) {
      return control;
    }
  }
  qFatal("no control %d", id);
}

QComboBox& List(const QWidget& dialog, int id) {
  return *ControlOf<QComboBox>(dialog, id);
}
QSlider& Slider(const QWidget& dialog, int id) {
  return *ControlOf<QSlider>(dialog, id);
}

QStringList Entries(const QComboBox& list) {
  QStringList texts;
  for (int i = 0; i < list.count(); ++i) {
    texts << list.itemText(i);
  }
  return texts;
}

QString Hint(const QWidget& dialog) {
  const auto* hint = dialog.findChild<QLabel*>("hint");
  return hint->isHidden() ? QString() : hint->text();
}

FakeMixer TwoMixers() {
  FakeMixer mixer;
  mixer.devices.push_back(RecordingDevice("Sound card", {{"CD", VolumeControl{0, 65535, 100}},
                                                         {"Line In", VolumeControl{0, 65535, 20000}},
                                                         {"Microphone", VolumeControl{0, 65535, 40000}}}));
  mixer.devices.push_back(
      RecordingDevice("Headset", {{"Left", VolumeControl{10, 110, 30}}, {"Right", std::nullopt}}));
  return mixer;
}

Settings Stored() {
  Settings settings;
  settings.playback = {22050, 8, 1};
  settings.recording = {0, 1, 500, 2, 600, true};
  return settings;
}

SoundServices WithTwoMixers() {
  SoundServices services = SilentServices();
  services.mixer = std::make_unique<FakeMixer>(TwoMixers());
  return services;
}

class RecordingSetupDialogTest : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<QWidget> window;
  FakeMixer mixer;

  static void Show(QDialog& dialog) {
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
  }

  // Does `work` with the dialog that `opens` runs.
  static void WithDialog(const std::function<void()>& opens,
                         const std::function<void(DigitalAudioDialog&)>& work) {
    bool seen = false;
    QTimer looking;
    connect(&looking, &QTimer::timeout, [&] {
      auto* dialog = qobject_cast<DigitalAudioDialog*>(QApplication::activeModalWidget());
      if (dialog != nullptr && !seen) {
        seen = true;
        looking.stop();
        QVERIFY(QTest::qWaitForWindowActive(dialog));
        work(*dialog);
        if (dialog->isVisible()) {
          dialog->reject();
        }
      }
    });
    looking.start(1);
    opens();
    QVERIFY(seen);
  }

 private Q_SLOTS:
  void init() {
    window = std::make_unique<QWidget>();
    window->setGeometry(50, 40, 700, 600);
    window->show();
    mixer = TwoMixers();
  }

  void ShowsTheSetup() {
    RecordingSetup setup(mixer, Stored());
    const DigitalAudioDialog dialog(window.get(), setup);
    QCOMPARE(dialog.objectName(), QString("DigitalAudioDialog"));
    QCOMPARE(dialog.property("resourceId").toInt(), 3747);
    QCOMPARE(dialog.windowTitle(), QString("Recording Audio Setup"));
    QCOMPARE(Entries(List(dialog, 103)), (QStringList{"Sound card", "Headset"}));
    QCOMPARE(List(dialog, 103).currentIndex(), 0);
    QCOMPARE(Entries(List(dialog, 104)), (QStringList{"CD", "Line In", "Microphone"}));
    QCOMPARE(Entries(List(dialog, 106)), Entries(List(dialog, 104)));
    QCOMPARE(List(dialog, 104).currentIndex(), 1);
    QCOMPARE(List(dialog, 106).currentIndex(), 2);
    QCOMPARE(Entries(List(dialog, 108)), (QStringList{"11025 Hz", "22050 Hz", "44100 Hz"}));
    QCOMPARE(Entries(List(dialog, 109)), (QStringList{"8 Bits", "16 Bits"}));
    QCOMPARE(Entries(List(dialog, 110)), (QStringList{"Mono", "Stereo"}));
    QCOMPARE(List(dialog, 108).currentIndex(), 1);
    QCOMPARE(List(dialog, 109).currentIndex(), 0);
    QCOMPARE(List(dialog, 110).currentIndex(), 0);
    QCOMPARE(ControlOf<QCheckBox>(dialog, 105)->text(), QString("&Don't show when recording"));
    QVERIFY(!ControlOf<QCheckBox>(dialog, 105)->isChecked());
    QCOMPARE(ControlOf<QPushButton>(dialog, 1)->text(), QString("OK"));
    QCOMPARE(ControlOf<QPushButton>(dialog, 2)->text(), QString("Cancel"));
    QCOMPARE(ControlOf<QPushButton>(dialog, 9)->text(), QString("&Help"));
    QCOMPARE(Hint(dialog), QString());
  }

  void TheSlidersSpanTheControls() {
    RecordingSetup setup(mixer, Stored());
    const DigitalAudioDialog dialog(window.get(), setup);
    const QSlider& recording = Slider(dialog, 101);
    QCOMPARE(recording.orientation(), Qt::Horizontal);
    QCOMPARE(recording.minimum(), 0);
    QCOMPARE(recording.maximum(), 65535);
    QCOMPARE(recording.pageStep(), 6553);
    QCOMPARE(recording.singleStep(), 655);
    QCOMPARE(recording.value(), 500);
    const QSlider& second = Slider(dialog, 102);
    QCOMPARE(second.orientation(), Qt::Vertical);
    QCOMPARE(second.value(), 600);  // the loudest is at the top
    QVERIFY(!second.invertedAppearance());
    QCOMPARE(setup.Slider(SetupLine::Saving).position, 65535 - 600);
  }

  void KeysThatPointUpMakeTheSecondLineLouder() {
    RecordingSetup setup(mixer, Stored());
    DigitalAudioDialog dialog(window.get(), setup);
    Show(dialog);
    Slider(dialog, 102).setFocus();
    const int before = setup.Percent(SetupLine::Saving);
    QTest::keyClick(&Slider(dialog, 102), Qt::Key_PageUp);
    QCOMPARE(setup.Slider(SetupLine::Saving).position, 65535 - 600 - 6553);
    QVERIFY(setup.Percent(SetupLine::Saving) > before);
    QTest::keyClick(&Slider(dialog, 102), Qt::Key_Up);
    QCOMPARE(setup.Slider(SetupLine::Saving).position, 65535 - 600 - 6553 - 655);
    QTest::keyClick(&Slider(dialog, 102), Qt::Key_End);  // the top
    QCOMPARE(setup.Percent(SetupLine::Saving), 100);
  }

  void SlidingShowsTheShareOfTheVolume() {
    RecordingSetup setup(mixer, Stored());
    DigitalAudioDialog dialog(window.get(), setup);
    Slider(dialog, 101).setValue(32768);
    Slider(dialog, 102).setValue(49151);
    QStringList percents;
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
      if (label->text().endsWith(" %")) {
        percents << label->text();
      }
    }
    percents.sort();
    QCOMPARE(percents, (QStringList{"50 %", "75 %"}));
  }

  void AnotherMixerFillsTheListsAnewAndCrossesTheLines() {
    Settings settings = Stored();
    settings.recording.recordingLine = 0;
    settings.recording.savingLine = 1;
    RecordingSetup setup(mixer, settings);
    DigitalAudioDialog dialog(window.get(), setup);
    Show(dialog);
    List(dialog, 103).setFocus();
    QTest::keyClick(&List(dialog, 103), Qt::Key_Down);
    QCOMPARE(Entries(List(dialog, 104)), (QStringList{"Left", "Right"}));
    QCOMPARE(Entries(List(dialog, 106)), (QStringList{"Left", "Right"}));
    QCOMPARE(List(dialog, 104).currentIndex(), 1);
    QCOMPARE(List(dialog, 106).currentIndex(), 0);
    QCOMPARE(Slider(dialog, 101).value(), 500);
  }

  void AnotherLineShowsItsPresentVolume() {
    RecordingSetup setup(mixer, Stored());
    DigitalAudioDialog dialog(window.get(), setup);
    Show(dialog);
    List(dialog, 104).setFocus();
    QTest::keyClick(&List(dialog, 104), Qt::Key_Down);
    QCOMPARE(Slider(dialog, 101).value(), 40000);
    List(dialog, 106).setFocus();
    QTest::keyClick(&List(dialog, 106), Qt::Key_Up);
    QCOMPARE(Slider(dialog, 102).value(), 20000);
  }

  void ALineWithoutAVolumeDisablesItsSlider() {
    Settings settings = Stored();
    settings.recording.mixer = 1;
    settings.recording.recordingLine = 0;
    RecordingSetup setup(mixer, settings);
    DigitalAudioDialog dialog(window.get(), setup);
    Show(dialog);
    QVERIFY(Slider(dialog, 101).isEnabled());
    List(dialog, 104).setCurrentIndex(1);
    QVERIFY(!Slider(dialog, 101).isEnabled());
    List(dialog, 104).setCurrentIndex(0);
    QVERIFY(Slider(dialog, 101).isEnabled());
    QCOMPARE(Slider(dialog, 101).value(), 40);
  }

  void WithoutALineTheSliderShowsAVolumeAndRests() {
    Settings settings = Stored();
    settings.recording.recordingLine = -1;
    RecordingSetup setup(mixer, settings);
    QVERIFY(setup.Slider(SetupLine::Recording).exists);
    DigitalAudioDialog dialog(window.get(), setup);
    Show(dialog);
    QVERIFY(!Slider(dialog, 101).isEnabled());
    QCOMPARE(Slider(dialog, 101).value(), setup.Slider(SetupLine::Recording).position);
    QVERIFY(Slider(dialog, 102).isEnabled());
    List(dialog, 104).setCurrentIndex(0);
    QVERIFY(Slider(dialog, 101).isEnabled());
  }

  void TheSliderOfALineThatIsCrossedAwayRests() {
    Settings settings = Stored();
    settings.recording.recordingLine = 0;
    settings.recording.savingLine = -1;
    RecordingSetup setup(mixer, settings);
    DigitalAudioDialog dialog(window.get(), setup);
    Show(dialog);
    QVERIFY(Slider(dialog, 101).isEnabled());
    QVERIFY(!Slider(dialog, 102).isEnabled());
    List(dialog, 103).setCurrentIndex(1);
    QVERIFY(!Slider(dialog, 101).isEnabled());
  }

  void TabVisitsEveryControlAndComesRound() {
    RecordingSetup setup(mixer, Stored());
    DigitalAudioDialog dialog(window.get(), setup);
    Show(dialog);
    QList<int> order;
    for (int i = 0; i < 13; ++i) {
      order << QApplication::focusWidget()->property("controlId").toInt();
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(order, (QList<int>{103, 104, 101, 108, 109, 110, 106, 102, 105, 1, 2, 9, 103}));
  }

  void EveryControlHasALetterOfItsOwn() {
    RecordingSetup setup(mixer, Stored());
    DigitalAudioDialog dialog(window.get(), setup);
    Show(dialog);
    for (const auto& [key, id] :
         {std::pair{Qt::Key_M, 103}, std::pair{Qt::Key_L, 104}, std::pair{Qt::Key_V, 101},
          std::pair{Qt::Key_R, 108}, std::pair{Qt::Key_E, 109}, std::pair{Qt::Key_C, 110},
          std::pair{Qt::Key_I, 106}, std::pair{Qt::Key_O, 102}}) {
      QTest::keyClick(&dialog, key, Qt::AltModifier);
      QCOMPARE(QApplication::focusWidget()->property("controlId").toInt(), id);
    }
    QTest::keyClick(&dialog, Qt::Key_D, Qt::AltModifier);
    QTRY_VERIFY(ControlOf<QCheckBox>(dialog, 105)->isChecked());
    QVERIFY(!setup.ShowsBeforeRecording());
  }

  void EnterAcceptsAndEscapeCancels() {
    for (const bool enter : {true, false}) {
      RecordingSetup setup(mixer, Stored());
      DigitalAudioDialog dialog(window.get(), setup);
      Show(dialog);
      QTest::keyClick(QApplication::focusWidget(), enter ? Qt::Key_Return : Qt::Key_Escape);
      QVERIFY(!dialog.isVisible());
      QCOMPARE(dialog.result(), static_cast<int>(enter ? QDialog::Accepted : QDialog::Rejected));
    }
  }

  void WithoutAMixerTheDialogStaysUsable() {
    mixer.devices.clear();
    RecordingSetup setup(mixer, Stored());
    DigitalAudioDialog dialog(window.get(), setup);
    Show(dialog);
    QCOMPARE(Hint(dialog), QString("No sound server was found. Only the format can be chosen."));
    for (const int id : {103, 104, 106}) {
      QCOMPARE(List(dialog, id).count(), 0);
      QVERIFY(!List(dialog, id).isEnabled());
    }
    QVERIFY(!Slider(dialog, 101).isEnabled());
    QVERIFY(!Slider(dialog, 102).isEnabled());
    QCOMPARE(QApplication::focusWidget(), &List(dialog, 108));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    Settings settings = Stored();
    setup.Accept(settings);
    QCOMPARE(settings.playback.rate, 44100U);
    QCOMPARE(settings.recording.recordingVolume, 500);
  }

  void TheCommandKeepsWhatIsChosenAndTheProgramStoresIt() {
    Desk desk(Desk::Asks::ByScript, WithTwoMixers);
    QVERIFY(desk.Command(kCommandAudioSetup)->isEnabled());
    WithDialog([&] { desk.Run(kCommandAudioSetup); },
               [](DigitalAudioDialog& dialog) {
                 List(dialog, 104).setCurrentIndex(2);
                 List(dialog, 106).setCurrentIndex(1);
                 Slider(dialog, 101).setValue(1234);
                 List(dialog, 108).setCurrentIndex(0);
                 List(dialog, 109).setCurrentIndex(0);
                 List(dialog, 110).setCurrentIndex(0);
                 ControlOf<QCheckBox>(dialog, 105)->setChecked(true);
                 ControlOf<QPushButton>(dialog, 1)->click();
               });
    QCOMPARE(desk.Gadgets(), QString("11025 Hz, 8 Bits, Mono"));
    QVERIFY(!std::filesystem::exists(desk.paths.settingsFile));
    desk.End();
    Settings expected;
    expected.playback = {11025, 8, 1};
    expected.recording = {0, 2, 1234, 1, 20000, false};
    QVERIFY(LoadSettings(desk.paths.settingsFile) == expected);
    desk.Start();
    WithDialog([&] { desk.Run(kCommandAudioSetup); },
               [](DigitalAudioDialog& dialog) {
                 QCOMPARE(List(dialog, 104).currentIndex(), 2);
                 QCOMPARE(Slider(dialog, 101).value(), 1234);
                 QVERIFY(ControlOf<QCheckBox>(dialog, 105)->isChecked());
               });
  }

  void CancelKeepsNothing() {
    Desk desk(Desk::Asks::ByScript, WithTwoMixers);
    const QString before = desk.Gadgets();
    WithDialog([&] { desk.Run(kCommandAudioSetup); },
               [](DigitalAudioDialog& dialog) {
                 List(dialog, 104).setCurrentIndex(2);
                 List(dialog, 108).setCurrentIndex(0);
                 QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
               });
    QCOMPARE(desk.Gadgets(), before);
    desk.End();
    QVERIFY(LoadSettings(desk.paths.settingsFile).recording == RecordingSettings{});
  }

  void HelpShowsTheManualAtItsTopic() {
    Desk desk(Desk::Asks::ByScript, WithTwoMixers);
    for (const bool byKey : {false, true}) {
      WithDialog([&] { desk.Run(kCommandAudioSetup); },
                 [byKey](DigitalAudioDialog& dialog) {
                   if (byKey) {
                     QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
                   } else {
                     ControlOf<QPushButton>(dialog, 9)->click();
                   }
                   const QPointer<QWidget> help = dialog.findChild<QWidget*>("HelpWindow");
                   QVERIFY(help != nullptr && help->isVisible());
                   const QTextCursor at = help->findChild<QTextBrowser*>()->textCursor();
                   QCOMPARE(at.block().text(), QString("Recording setup"));
                   QTRY_VERIFY(help->isActiveWindow());  // the dialog does not take its input
                   QTest::keyClick(help, Qt::Key_Escape);
                   QVERIFY(help == nullptr || !help->isVisible());
                   QVERIFY(dialog.isVisible());
                 });
    }
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::RecordingSetupDialogTest)

#include "recording_setup_dialog_test.moc"
