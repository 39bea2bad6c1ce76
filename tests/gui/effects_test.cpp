// Effects and the format conversion from the window: asked for, done, undone, stopped.
#include <algorithm>

#include <QObject>
#include <QTimer>

#include "dialogs/ui/SliderDialog.h"
#include "tests/gui/support/Desk.h"
#include "tests/gui/support/ExpectedView.h"
#include "tests/gui/support/GuiMain.h"
#include "view/ActionMenu.h"

namespace tembrel::test {

namespace {

std::vector<std::byte> BytesOf(const Document& document) {
  const auto bytes = document.Clip()->Bytes();
  return {bytes.begin(), bytes.end()};
}

bool Holds(const Document& document, const std::vector<std::byte>& bytes) {
  return std::ranges::equal(document.Clip()->Bytes(), bytes);
}

class EffectsTest : public QObject {
  Q_OBJECT

 private:
  // Selects the frames and chooses the entry of this id in the action menu, as a user does; 0 closes the
  // menu.
  static void ChooseAction(Desk& desk, std::int64_t first, std::int64_t end, int id) {
    desk.View().View().SetSelection(first, end, {0, 0});
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu != nullptr);
    for (QAction* action : menu->actions()) {
      if (action->isEnabled() && id != 0 && action->data().toInt() == id) {
        menu->setActiveAction(action);
        QTest::keyClick(menu, Qt::Key_Return);
        return;
      }
    }
    menu->close();
    QTRY_VERIFY(!desk.View().View().HasSelection());
  }

 private Q_SLOTS:
  void EveryEffectOfTheMenuChangesTheSelectionAndCanBeUndone() {
    for (const int id :
         {EffectId("amplify"), EffectId("silence"), EffectId("fade-in"), EffectId("fade-out"),
          EffectId("normalize"), EffectId("compress"), EffectId("reverb"), EffectId("filter")}) {
      Desk desk;
      desk.prompts.amplifyAnswer = 50;
      desk.prompts.filterAnswer = 4;
      AudioWin& window = desk.OpenWave("song.wav", 20000);
      const auto before = BytesOf(window.Doc());
      ChooseAction(desk, 1000, 19000, id);
      QTRY_VERIFY2(!Holds(window.Doc(), before), qPrintable(QString::number(id)));
      QVERIFY(window.Doc().Changed());
      QVERIFY(desk.prompts.errors.empty());
      QVERIFY(desk.Command(kCommandUndo)->isEnabled());
      desk.Run(kCommandUndo);
      QVERIFY(Holds(window.Doc(), before));
    }
  }

  void ACancelledQuestionLeavesTheDocumentAlone() {
    Desk desk;
    AudioWin& window = desk.OpenWave();
    const auto before = BytesOf(window.Doc());
    ChooseAction(desk, 0, 1000, EffectId("amplify"));
    QTRY_COMPARE(desk.prompts.parametersAsked, std::vector<std::string>{"amplify 100"});
    QVERIFY(Holds(window.Doc(), before));
    QVERIFY(!window.Doc().Changed());
    QVERIFY(!window.Doc().CanUndo());
  }

  void AStoppedEffectLeavesTheDocumentAndItsHistoryAsTheyWere() {
    Desk desk;
    desk.prompts.onProgress = [](std::uint64_t, std::uint64_t) { return true; };
    AudioWin& window = desk.OpenWave("song.wav", 400000);
    ChooseAction(desk, 0, 1000, EffectId("silence"));
    QTRY_VERIFY(window.Doc().CanUndo());
    desk.Run(kCommandUndo);
    const auto before = BytesOf(window.Doc());
    desk.prompts.onProgress = [](std::uint64_t, std::uint64_t) { return false; };
    desk.prompts.filterAnswer = 0;
    ChooseAction(desk, 0, 400000, EffectId("filter"));
    QTRY_VERIFY(!desk.prompts.parametersAsked.empty());
    QVERIFY(Holds(window.Doc(), before));
    QVERIFY(!window.Doc().CanUndo());
    QVERIFY(window.Doc().CanRedo());
    QVERIFY(desk.prompts.errors.empty());
  }

  void WhileAnEffectRunsTheOldPictureStaysAndAfterCancelItIsRight() {
    Desk desk;
    AudioWin& window = desk.OpenWave("song.wav", 600000);
    ChooseAction(desk, 0, 300000, EffectId("silence"));
    QTRY_VERIFY(window.Doc().CanUndo());
    const auto before = BytesOf(window.Doc());
    QImage shownBefore;
    QImage shownMeanwhile;
    QSize sizeMeanwhile;
    desk.prompts.filterAnswer = 5;
    desk.prompts.onProgress = [&](std::uint64_t, std::uint64_t) {
      if (Holds(window.Doc(), before)) {
        shownBefore = OnScreen(desk.View());
        return true;
      }
      // Another part of the sound would be shown, were it not just being written.
      desk.View().View().ZoomIn();
      shownMeanwhile = OnScreen(desk.View());
      desk.Frame().resize(900, 700);
      desk.ActiveChild()->showMaximized();
      sizeMeanwhile = OnScreen(desk.View()).size();
      return false;
    };
    ChooseAction(desk, 0, 600000, EffectId("filter"));
    QTRY_VERIFY(!sizeMeanwhile.isEmpty());
    QVERIFY(sizeMeanwhile != shownBefore.size());
    QVERIFY(shownMeanwhile == shownBefore);
    QVERIFY(Holds(window.Doc(), before));
    QVERIFY(!window.Doc().Editing());
    const QImage after = OnScreen(desk.View());
    QCOMPARE(DifferingColumns(after, ExpectedView(window, after.size())), QList<int>());
  }

  void TheFiltersWithoutAMenuEntryAnswerTheirCommands() {
    for (const int id : {8270, 8272}) {
      Desk desk;
      AudioWin& window = desk.OpenWave("song.wav", 20000);
      const auto before = BytesOf(window.Doc());
      ChooseAction(desk, 0, 20000, 0);
      desk.Client().RunCommand(id);
      QVERIFY2(!Holds(window.Doc(), before), qPrintable(QString::number(id)));
    }
  }

  void ACommandThatDoesNothingDoesNothing() {
    Desk desk;
    AudioWin& window = desk.OpenWave();
    ChooseAction(desk, 0, 1000, 0);
    desk.Client().RunCommand(8258);
    QVERIFY(!window.Doc().CanUndo());
  }

  void ThePresetIsRememberedAcrossDocuments() {
    Desk desk;
    desk.prompts.filterAnswer = 6;
    desk.OpenWave("a.wav");
    ChooseAction(desk, 0, 1000, EffectId("filter"));
    QTRY_COMPARE(desk.prompts.parametersAsked.size(), std::size_t{1});
    desk.OpenWave("b.wav");
    ChooseAction(desk, 0, 1000, EffectId("filter"));
    QTRY_COMPARE(desk.prompts.parametersAsked, (std::vector<std::string>{"filter 0", "filter 6"}));
  }

  void FormatConvertsTheDocumentAndTellsTheStatusBar() {
    Desk desk;
    AudioWin& window = desk.OpenWave("song.wav", 1000);
    QVERIFY(desk.Command(kCommandFormat)->isEnabled());
    desk.prompts.formatAnswer = FormatChoice{22050, 16, 1};
    desk.Run(kCommandFormat);
    QCOMPARE(desk.prompts.parametersAsked, std::vector<std::string>{"format 44100 16 2"});
    QCOMPARE(desk.Gadgets(), QString("22050 Hz, 16 Bits, Mono"));
    QCOMPARE(window.Doc().Clip()->format, PcmFormat(22050, 16, 1));
    QCOMPARE(window.Doc().FrameCount(), 500U);
    QCOMPARE(desk.View().View().SoundFrames(), std::int64_t{500});
    QVERIFY(window.Doc().Changed());
    desk.Run(kCommandUndo);
    QCOMPARE(desk.Gadgets(), QString("44100 Hz, 16 Bits, Stereo"));
    QCOMPARE(window.Doc().FrameCount(), 1000U);
  }

  void WithoutSoundNothingIsAsked() {
    Desk desk;
    desk.Client().RunCommand(kCommandNew);
    desk.Run(kCommandFormat);
    QVERIFY(desk.prompts.parametersAsked.empty());
  }

  void TheRealAmplifyDialogIsAskedOverTheMainWindow() {
    Desk desk(Desk::Asks::WithBoxes);
    AudioWin& window = desk.OpenWave("song.wav", 1000, 16, 1);
    QWindow* frame = desk.Frame().windowHandle();
    const auto clickTheView = [&desk, frame](int x) {
      QTest::mouseClick(frame, Qt::LeftButton, {}, desk.View().mapTo(&desk.Frame(), QPoint(x, 40)));
    };
    clickTheView(200);
    const std::int64_t cursor = desk.View().View().CursorFrame();
    QVERIFY(cursor > 0);
    QString seen;
    std::int64_t cursorMeanwhile = -1;
    QTimer looking;
    connect(&looking, &QTimer::timeout, &desk.Frame(), [&] {
      auto* dialog = qobject_cast<CtlScaleDialog*>(QApplication::activeModalWidget());
      if (dialog != nullptr && QApplication::focusWidget() != nullptr) {
        looking.stop();
        seen = dialog->windowTitle();
        clickTheView(400);
        cursorMeanwhile = desk.View().View().CursorFrame();
        QTest::keyClicks(QApplication::focusWidget(), "0");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
      }
    });
    looking.start(10);
    ChooseAction(desk, 0, 1000, EffectId("amplify"));
    QTRY_COMPARE(seen, QString("Amplify"));
    QTRY_COMPARE(BytesOf(window.Doc()), std::vector<std::byte>(2000));
    QCOMPARE(cursorMeanwhile, cursor);
    clickTheView(400);
    QVERIFY(desk.View().View().CursorFrame() > cursor);
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::EffectsTest)

#include "effects_test.moc"
