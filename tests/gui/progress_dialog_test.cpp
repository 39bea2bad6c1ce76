// The progress dialog of long tasks: when it comes, what Cancel does, and that it can be forbidden.
#include <QElapsedTimer>
#include <QObject>
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>

#include "tests/gui/support/Desk.h"
#include "tests/gui/support/GuiMain.h"

namespace tembrel::test {

namespace {

constexpr qint64 kLongestMs = 20000;

class ProgressDialogTest : public QObject {
  Q_OBJECT

 private:
  // The dialog that is on the screen and takes keys; null for none.
  static QProgressDialog* Shown() {
    auto* dialog = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) {
      return nullptr;
    }
    dialog->activateWindow();
    return dialog->isActiveWindow() ? dialog : nullptr;
  }

  // Runs an edit that overwrites everything and then goes on until it is stopped, in the real dialog, where
  // `stop` does what a user does.
  static EditResult EditUntilStopped(Desk& desk, const std::function<void(QProgressDialog&)>& stop) {
    QTimer looking;
    connect(&looking, &QTimer::timeout, &desk.Frame(), [&] {
      if (QProgressDialog* dialog = Shown()) {
        looking.stop();
        stop(*dialog);
      }
    });
    looking.start(10);
    const auto display = QtPrompts(&desk.Frame()).ShowProgress("Filter");
    const EditStep step{.check = {},
                        .change =
                            [](ClipEditor& editor) {
                              std::ranges::fill(*editor.Overwrite(0, editor.Clip().dataSize), std::byte{1});
                              QElapsedTimer sinceStart;
                              sinceStart.start();
                              while (editor.Proceed(1, 2)) {
                                if (sinceStart.elapsed() > kLongestMs) {
                                  return EditResult::Refused("nobody stopped it");
                                }
                              }
                              return EditResult::Cancelled();
                            },
                        .marksChanged = true,
                        .refreshesLengths = false};
    return desk.Active()->Doc().Edit(
        step, [&display](std::uint64_t done, std::uint64_t total) { return display->Report(done, total); },
        [&display] { display->ForbidCancel(); });
  }

 private Q_SLOTS:
  void IsKnownFromItsBeginToItsEnd() {
    QWidget window;
    QtPrompts prompts(&window);
    QVERIFY(!prompts.ShowsProgress());
    auto outer = prompts.ShowProgress("Opening");
    auto inner = prompts.ShowProgress("Filter");
    QVERIFY(prompts.ShowsProgress());
    inner.reset();
    QVERIFY(prompts.ShowsProgress());
    outer.reset();
    QVERIFY(!prompts.ShowsProgress());
  }

  void ComesAfterHalfASecondAndShowsHowFarTheTaskIs() {
    QWidget window;
    window.show();
    QElapsedTimer sinceStart;
    sinceStart.start();
    auto display = QtPrompts(&window).ShowProgress("Filter");
    QTRY_VERIFY(display->Report(3, 10) && Shown() != nullptr);
    QVERIFY(sinceStart.elapsed() >= 500);
    QCOMPARE(Shown()->labelText(), QString("Filter"));
    QCOMPARE(Shown()->value() * 10, Shown()->maximum() * 3);
    QTRY_VERIFY(display->Report(6, 10) && Shown()->value() * 10 == Shown()->maximum() * 6);
    display.reset();
    QVERIFY(Shown() == nullptr);
  }

  void CancelByButtonAndByKeyTakesTheEditBack() {
    for (const bool byKey : {false, true}) {
      Desk desk(Desk::Asks::WithBoxes);
      AudioWin& window = desk.OpenWave();
      const auto bytes = window.Doc().Clip()->Bytes();
      const std::vector<std::byte> before(bytes.begin(), bytes.end());
      const EditResult result = EditUntilStopped(desk, [byKey](QProgressDialog& dialog) {
        if (byKey) {
          QTest::keyClick(&dialog, Qt::Key_Escape);
        } else {
          QTest::mouseClick(dialog.findChild<QPushButton*>(), Qt::LeftButton);
        }
      });
      QVERIFY(!result.done);
      QCOMPARE(result.message, std::string());
      QVERIFY(std::ranges::equal(window.Doc().Clip()->Bytes(), before));
      QVERIFY(!window.Doc().Changed());
      QVERIFY(!window.Doc().CanUndo());
      QVERIFY(!window.isWindowModified());
    }
  }

  void OnceCancelIsForbiddenNeitherButtonNorKeyStopTheTask() {
    QWidget window;
    window.show();
    for (const bool early : {true, false}) {
      const auto display = QtPrompts(&window).ShowProgress("Filter");
      if (early) {
        display->ForbidCancel();
      }
      QTRY_VERIFY(display->Report(1, 10) && Shown() != nullptr);
      auto* button = Shown()->findChild<QPushButton*>();
      QCOMPARE(button->isEnabled(), !early);
      display->ForbidCancel();
      QVERIFY(!button->isEnabled());
      QTest::mouseClick(button, Qt::LeftButton);
      QTest::keyClick(Shown(), Qt::Key_Escape);
      QVERIFY(Shown() != nullptr);
      QTRY_VERIFY(display->Report(7, 10) && Shown()->value() * 10 == Shown()->maximum() * 7);
    }
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::ProgressDialogTest)

#include "progress_dialog_test.moc"
