// Listening before deciding: the filter's preview and the selection, from the window to the sound player.
#include <cstdint>
#include <memory>

#include <QAbstractButton>
#include <QComboBox>
#include <QObject>
#include <QPushButton>
#include <QTimer>

#include "app/ui/TransportControl.h"
#include "dialogs/ui/FilterDialog.h"
#include "edit/FilterEffect.h"
#include "tests/gui/support/ActionMenu.h"
#include "tests/gui/support/Desk.h"
#include "tests/gui/support/GuiMain.h"
#include "tests/support/EffectSession.h"
#include "tests/support/FakeSoundPlayer.h"
#include "tests/support/FakeTransport.h"
#include "view/ActionMenu.h"
#include "view/StripButtons.h"

namespace tembrel::test {

namespace {

constexpr std::uint32_t kRate = 11025;
constexpr std::uint32_t kTwentySeconds = 20 * kRate;
constexpr std::size_t kSixSeconds = std::size_t{6} * kRate;

class AuditionTest : public QObject {
  Q_OBJECT

 private:
  PlayerLog log;

  std::function<SoundServices()> Services() {
    return [this] {
      SoundServices services = SilentServices();
      services.player = std::make_unique<FakeSoundPlayer>(log);
      return services;
    };
  }

  static QAbstractButton& StopButton(Desk& desk) {
    for (auto* button : desk.Frame().findChildren<QAbstractButton*>()) {
      if (button->accessibleName() == "Stop") {
        return *button;
      }
    }
    qFatal("no Stop button");
  }

  // Selects the frames and chooses the entry in the action menu.
  static void ChooseAction(Desk& desk, std::int64_t first, std::int64_t end, int id) {
    QVERIFY(WithActionMenu(
        [&] {
          desk.View().View().SetSelection(first, end, {0, 0});
        },
        [id](QMenu& menu) { Choose(menu, id); }));
  }

 private Q_SLOTS:
  void init() { log = {}; }

  void PlayPlaysTheSelectionAndNothingElse() {
    Desk desk(Desk::Asks::ByScript, Services());
    AudioWin& window = desk.OpenWave("song.wav", 1000, 16, 2, kRate);
    const Bytes before = SoundOf(window);
    ChooseAction(desk, 100, 300, kActionPlay);
    QTRY_COMPARE(log.played.size(), std::size_t{1});
    QVERIFY(log.played[0].file == WaveFile(kRate, 16, 2, std::span(before).subspan(400, 800)));
    QVERIFY(!log.played[0].looping);
    QVERIFY(SoundOf(window) == before);
    QVERIFY(!window.Doc().Changed());
    QVERIFY(!window.Doc().CanUndo());
    QVERIFY(desk.prompts.errors.empty());
  }

  void TheStopButtonEndsTheSelectionThatIsHeard() {
    Desk desk(Desk::Asks::ByScript, Services());
    desk.OpenWave("song.wav", kTwentySeconds, 16, 1, kRate);
    QVERIFY(!StopButton(desk).isEnabled());
    ChooseAction(desk, 0, kTwentySeconds, kActionPlay);
    QTRY_VERIFY(StopButton(desk).isEnabled());
    QCOMPARE(log.stops, 0);
    QTest::mouseClick(&StopButton(desk), Qt::LeftButton);
    QCOMPARE(log.stops, 1);
    QVERIFY(!StopButton(desk).isEnabled());
  }

  void TheStopButtonRestsWhenTheSelectionIsOver() {
    Desk desk(Desk::Asks::ByScript, Services());
    desk.OpenWave("song.wav", kRate, 16, 1, kRate);
    ChooseAction(desk, 0, kRate, kActionPlay);
    QVERIFY(StopButton(desk).isEnabled());
    QTRY_VERIFY(!StopButton(desk).isEnabled());
    QCOMPARE(log.stops, 0);
  }

  void PlayingTheDocumentEndsTheSelectionThatIsHeard() {
    Desk desk(Desk::Asks::ByScript, Services());
    desk.OpenWave("song.wav", kTwentySeconds, 16, 1, kRate);
    ChooseAction(desk, 0, kTwentySeconds, kActionPlay);
    QTRY_VERIFY(desk.Client().Auditioning());
    desk.Run(kCommandPlay);
    QCOMPARE(log.stops, 1);
    QVERIFY(!desk.Client().Auditioning());
    desk.Run(kCommandPlay);
  }

  void ASelectionEndsTheDocumentThatPlays() {
    Desk desk(Desk::Asks::ByScript, Services());
    desk.OpenWave("song.wav", kTwentySeconds, 16, 1, kRate);
    desk.Run(kCommandPlay);
    ChooseAction(desk, 0, 1000, kActionPlay);
    QTRY_COMPARE(log.played.size(), std::size_t{1});
    QVERIFY(!desk.Client().Transport().Playing());
    desk.Run(kCommandPlay);
    desk.prompts.presetsToHear = {3};
    ChooseAction(desk, 0, 1000, EffectId("filter"));
    QTRY_COMPARE(log.played.size(), std::size_t{2});
    QVERIFY(!desk.Client().Transport().Playing());
  }

  void ARecordingHearsNoAudition() {
    FakeAudioDevice* device = nullptr;
    Desk desk(Desk::Asks::ByScript, [&] {
      SoundServices services = Services()();
      auto made = std::make_unique<FakeAudioDevice>();
      device = made.get();
      services.device = std::move(made);
      return services;
    });
    desk.End();
    WriteText(desk.paths.settingsFile, "[Digital Audio Recording]\r\nShow Dialog=0\r\n");
    desk.Start();
    desk.OpenWave("song.wav", kTwentySeconds, 16, 1, kRate);
    ChooseAction(desk, 0, kTwentySeconds, kActionPlay);
    QTRY_VERIFY(desk.Client().Auditioning());
    int stopsBefore = 0;
    device->onRecord = [&] { stopsBefore = log.stops; };
    desk.Client().Transport().Press(kStripRecord);
    QVERIFY(desk.Client().Transport().Recording());
    QCOMPARE(stopsBefore, 1);
    QVERIFY(!desk.Client().Auditioning());
    log = {};
    desk.prompts.notes.clear();
    ChooseAction(desk, 0, 1000, kActionPlay);
    QTRY_COMPARE(desk.prompts.notes,
                 std::vector<std::string>{"Nothing can be played while a recording runs."});
    desk.prompts.presetsToHear = {3};
    ChooseAction(desk, 0, 1000, EffectId("filter"));
    QTRY_COMPARE(desk.prompts.notes.size(), std::size_t{2});
    QVERIFY(log.played.empty());
    QVERIFY(desk.Client().Transport().Recording());
    desk.Client().Transport().Press(kStripStop);
  }

  void TheSelectionThatIsHeardEndsWithItsDocumentOnly() {
    Desk desk(Desk::Asks::ByScript, Services());
    desk.OpenWave("a.wav", kTwentySeconds, 16, 1, kRate);
    ChooseAction(desk, 0, kTwentySeconds, kActionPlay);
    QTRY_VERIFY(desk.Client().Auditioning());
    desk.OpenWave("b.wav");
    desk.Run(kCommandClose);
    QVERIFY(desk.Client().Auditioning());
    desk.Run(kCommandClose);
    QVERIFY(!desk.Client().Auditioning());
    QCOMPARE(log.stops, 1);
  }

  void SoundThatCanOnlyBeLookedAtIsPlayedToo() {
    Desk desk(Desk::Asks::ByScript, Services());
    desk.OpenWave("song.wav", 1000, 24, 1, kRate);
    ChooseAction(desk, 0, 1000, kActionPlay);
    QTRY_COMPARE(log.played.size(), std::size_t{1});
    QVERIFY(log.played[0].file == WaveFile(kRate, 24, 1, SoundOf(*desk.Active())));
  }

  void WhatCannotBePlayedIsSaid() {
    Desk desk(Desk::Asks::ByScript, Services());
    desk.OpenWave();
    log.canRead = false;
    ChooseAction(desk, 0, 1000, kActionPlay);
    QTRY_COMPARE(desk.prompts.errors, std::vector<std::string>{"This sound cannot be played."});
    desk.prompts.presetsToHear = {3};
    ChooseAction(desk, 0, 1000, EffectId("filter"));
    QTRY_COMPARE(desk.prompts.errors.size(), std::size_t{2});
  }

  void TheFilterIsHeardOverSixSecondsAndTheDocumentStays() {
    Desk desk(Desk::Asks::ByScript, Services());
    AudioWin& window = desk.OpenWave("song.wav", 2 * kSixSeconds, 16, 1, kRate);
    const Bytes before = SoundOf(window);
    desk.prompts.presetsToHear = {4, 8};
    ChooseAction(desk, 1000, static_cast<std::int64_t>(2 * kSixSeconds), EffectId("filter"));
    QTRY_COMPARE(log.stops, 1);  // the sound ends with the dialog
    QCOMPARE(log.played.size(), std::size_t{2});
    const auto six = std::span(before).subspan(2000, 2 * kSixSeconds);
    for (const auto& [index, preset] : {std::pair{0, 4}, std::pair{1, 8}}) {
      const Bytes filtered =
          After(PcmFormat(kRate, 16, 1), six, FilterEdit({0, static_cast<std::int64_t>(six.size())}, preset));
      QVERIFY(log.played[static_cast<std::size_t>(index)].file == WaveFile(kRate, 16, 1, filtered));
    }
    QVERIFY(SoundOf(window) == before);
    QVERIFY(!window.Doc().Changed());
    QVERIFY(!window.Doc().CanUndo());
  }

  void OnlyAPresetChosenWithOkIsShownNextTime() {
    Desk desk(Desk::Asks::ByScript, Services());
    desk.OpenWave();
    desk.prompts.presetsToHear = {4};
    ChooseAction(desk, 0, 1000, EffectId("filter"));
    desk.prompts.filterAnswer = 2;
    ChooseAction(desk, 0, 1000, EffectId("filter"));
    ChooseAction(desk, 0, 1000, EffectId("filter"));
    QTRY_COMPARE(desk.prompts.parametersAsked,
                 (std::vector<std::string>{"filter 0", "filter 0", "filter 2"}));
  }

  void WithoutAnAuditionNoSoundIsEnded() {
    Desk desk(Desk::Asks::ByScript, Services());
    desk.OpenWave();
    ChooseAction(desk, 0, 1000, EffectId("filter"));
    QTRY_COMPARE(desk.prompts.parametersAsked.size(), std::size_t{1});
    QCOMPARE(log.stops, 0);
  }

  void SoundThatCannotBeEditedIsRefusedBeforeAnythingIsAsked() {
    Desk desk(Desk::Asks::ByScript, Services());
    desk.OpenWave("song.wav", 1000, 24, 1, kRate);
    ChooseAction(desk, 0, 1000, EffectId("filter"));
    QTRY_COMPARE(
        desk.prompts.errors,
        std::vector<std::string>{"This sound (24 bits, 1 channel) can be looked at but not edited."});
    QVERIFY(desk.prompts.parametersAsked.empty());
  }

  void TheRealDialogPlaysByKeyAndMouse() {
    Desk desk(Desk::Asks::WithBoxes, Services());
    AudioWin& window = desk.OpenWave("song.wav", 5000, 16, 1, kRate);
    const Bytes before = SoundOf(window);
    bool done = false;
    QTimer looking;
    connect(&looking, &QTimer::timeout, &desk.Frame(), [&] {
      auto* dialog = qobject_cast<FilterDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr || !dialog->isActiveWindow() || done) {
        return;
      }
      looking.stop();
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
      QTest::keyClick(dialog, Qt::Key_A, Qt::AltModifier);
      QTRY_COMPARE(log.played.size(), std::size_t{1});
      for (auto* button : dialog->findChildren<QPushButton*>()) {
        if (button->property("controlId").toInt() == 101) {
          QTest::mouseClick(button, Qt::LeftButton);
        }
      }
      QTRY_COMPARE(log.played.size(), std::size_t{2});
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
      done = true;
    });
    looking.start(1);
    ChooseAction(desk, 0, 5000, EffectId("filter"));
    QTRY_VERIFY(done);
    QTRY_COMPARE(log.stops, 1);
    const Bytes filtered = After(PcmFormat(kRate, 16, 1), before, FilterEdit({0, 10000}, 1));
    QVERIFY(log.played[0].file == WaveFile(kRate, 16, 1, filtered));
    QVERIFY(log.played[1].file == log.played[0].file);
    QVERIFY(SoundOf(window) == before);
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::AuditionTest)

#include "audition_test.moc"
