// Save, Save As, Close and Exit with the questions they ask.
#include <algorithm>

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QObject>
#include <QPushButton>
#include <QTimer>
#include <QTreeView>

#include "edit/LevelEffects.h"
#include "tests/gui/support/Desk.h"
#include "tests/gui/support/GuiMain.h"

namespace tembrel::test {

namespace {

class ClosingAndSavingTest : public QObject {
  Q_OBJECT

 private:
  // Does something to the modal dialog that the next event loop shows.
  template <class Dialog>
  static void InTheNext(Desk& desk, const std::function<void(Dialog&)>& act) {
    QTimer::singleShot(0, &desk.Frame(), [act] {
      auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) {
        QFAIL("no such dialog is open");
      }
      act(*dialog);
    });
  }

  // What a dialog's list has selected counts until something is typed with the focus in the line.
  static void Type(QLineEdit& line, const QString& text) {
    line.window()->activateWindow();
    line.setFocus();
    QTRY_VERIFY(line.hasFocus());
    line.selectAll();
    QTest::keyClicks(&line, text);
  }

  static bool IsOpen(Desk& desk, const QString& name) {
    for (const QMdiSubWindow* child : desk.Children()) {
      const auto* window = qobject_cast<const AudioWin*>(child->widget());
      if (window != nullptr && Text(window->Doc().FileName()).endsWith("/" + name)) {
        return true;
      }
    }
    return false;
  }

 private Q_SLOTS:
  void AnUnchangedDocumentClosesUnasked() {
    Desk desk;
    desk.OpenWave();
    desk.Run(kCommandClose);
    QTRY_VERIFY(desk.Children().isEmpty());
    QVERIFY(desk.prompts.questions.empty());
  }

  void AChangedDocumentAsksInTheStatedWords() {
    Desk desk;
    desk.OpenWave().Doc().SetChanged(true);
    desk.prompts.answers = {Answer::No};
    desk.Run(kCommandClose);
    QCOMPARE(desk.prompts.questions,
             std::vector{(desk.scratch / "song.wav").string() + " has been changed.  Do you wish to save?"});
    QCOMPARE(desk.prompts.titles, std::vector<std::string>{"Leaving Corvane"});
  }

  void NoClosesWithoutSaving() {
    Desk desk;
    desk.OpenWave().Doc().SetChanged(true);
    std::filesystem::remove(desk.scratch / "song.wav");
    desk.prompts.answers = {Answer::No};
    desk.Run(kCommandClose);
    QTRY_VERIFY(desk.Children().isEmpty());
    QVERIFY(!std::filesystem::exists(desk.scratch / "song.wav"));
    QVERIFY(desk.TempFiles().empty());
  }

  void YesSavesAndCloses() {
    Desk desk;
    desk.OpenWave().Doc().SetChanged(true);
    std::filesystem::remove(desk.scratch / "song.wav");
    desk.prompts.answers = {Answer::Yes};
    desk.Run(kCommandClose);
    QTRY_VERIFY(desk.Children().isEmpty());
    QVERIFY(std::filesystem::exists(desk.scratch / "song.wav"));
  }

  void CancelKeepsTheDocumentOpenAndChanged() {
    Desk desk;
    desk.OpenWave().Doc().SetChanged(true);
    desk.prompts.answers = {Answer::Cancel};
    desk.Run(kCommandClose);
    QCOMPARE(desk.Children().size(), 1);
    QVERIFY(desk.Active()->Doc().Changed());
  }

  void AFailedSaveKeepsTheDocumentOpen() {
    Desk desk;
    desk.OpenWave().Doc().SetChanged(true);
    std::filesystem::remove(desk.scratch / "song.wav");
    std::filesystem::create_directories(desk.scratch / "song.wav" / "in the way");
    desk.prompts.answers = {Answer::Yes};
    desk.Run(kCommandClose);
    QCOMPARE(desk.Children().size(), 1);
    QVERIFY(desk.Active()->Doc().Changed());
    QCOMPARE(desk.prompts.errors.size(), 1U);
    QVERIFY(desk.prompts.errors.front().starts_with((desk.scratch / "song.wav").string() +
                                                    " could not be saved: "));
  }

  void TheQuestionIsARealBoxWhoseEscapeIsCancel() {
    Desk desk(Desk::Asks::WithBoxes);
    desk.OpenWave().Doc().SetChanged(true);
    QString title;
    QString text;
    QMessageBox::StandardButtons buttons;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    InTheNext<QMessageBox>(desk, [&](QMessageBox& box) {
      title = box.windowTitle();
      text = box.text();
      buttons = box.standardButtons();
      icon = box.icon();
      QTest::keyClick(&box, Qt::Key_Escape);
    });
    desk.Run(kCommandClose);
    QCOMPARE(title, "Leaving Corvane");
    QCOMPARE(text, Text(desk.scratch / "song.wav") + " has been changed.  Do you wish to save?");
    QCOMPARE(buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    QCOMPARE(icon, QMessageBox::Question);
    QCOMPARE(desk.Children().size(), 1);
    InTheNext<QMessageBox>(
        desk, [](QMessageBox& box) { QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton); });
    desk.Run(kCommandClose);
    QTRY_VERIFY(desk.Children().isEmpty());
  }

  void KeysWorkAgainAfterABox() {
    Desk desk(Desk::Asks::WithBoxes);
    desk.OpenWave().Doc().SetChanged(true);
    InTheNext<QMessageBox>(desk, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    desk.Run(kCommandClose);
    desk.Frame().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&desk.Frame()));
    QTest::keyClick(&desk.View(), Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!desk.Active()->Doc().Changed());
  }

  void CancelAtExitKeepsEverythingOpen() {
    Desk desk;
    desk.OpenWave("a.wav").Doc().SetChanged(true);
    desk.OpenWave("b.wav");
    desk.OpenWave("c.wav").Doc().SetChanged(true);
    desk.prompts.answers = {Answer::No, Answer::Cancel};
    desk.Run(kCommandExit);
    QVERIFY(desk.Frame().isVisible());
    QCOMPARE(desk.Children().size(), 3);
    QCOMPARE(desk.prompts.questions.size(), 2U);
    QVERIFY(desk.Children().at(0)->isVisible());
  }

  void ExitAsksEveryChangedDocumentAndThenEnds() {
    Desk desk;
    desk.OpenWave("a.wav").Doc().SetChanged(true);
    desk.OpenWave("b.wav");
    desk.OpenWave("c.wav").Doc().SetChanged(true);
    desk.prompts.answers = {Answer::No, Answer::No};
    desk.Run(kCommandExit);
    QVERIFY(!desk.Frame().isVisible());
    QCOMPARE(desk.prompts.questions.size(), 2U);
  }

  void YesToEveryQuestionSavesEveryDocument_data() {
    QTest::addColumn<int>("command");
    QTest::addColumn<bool>("maximized");
    QTest::newRow("exit") << kCommandExit << false;
    QTest::newRow("exit, maximised") << kCommandExit << true;
    QTest::newRow("close all") << kCommandCloseAll << false;
  }
  // Yes saves the active document: the one that asks is active by then.
  void YesToEveryQuestionSavesEveryDocument() {
    QFETCH(const int, command);
    QFETCH(const bool, maximized);
    Desk desk;
    std::vector<Bytes> edited;
    for (const char* name : {"a.wav", "b.wav", "c.wav"}) {
      AudioWin& window = desk.OpenWave(name);
      if (maximized) {
        desk.ActiveChild()->showMaximized();
      }
      const auto frame = static_cast<std::int64_t>(40 * (edited.size() + 1));
      QVERIFY(window.Doc().Edit(SilenceEdit({0, frame})).done);
      const auto bytes = window.Doc().Clip()->Bytes();
      edited.emplace_back(bytes.begin(), bytes.end());
    }
    desk.Client().setActiveSubWindow(desk.Children().at(1));
    QStringList active;
    desk.prompts.onQuestion = [&] { active << Text(desk.Active()->Doc().FileName()); };
    desk.prompts.answers = {Answer::Yes, Answer::Yes, Answer::Yes};
    desk.Run(command);
    QCOMPARE(desk.prompts.questions.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
      QVERIFY(
          desk.prompts.questions[i].starts_with(active.at(static_cast<qsizetype>(i)).toStdString() + " "));
      const Bytes file = ReadBytes(desk.scratch / (std::string(1, static_cast<char>('a' + i)) + ".wav"));
      QVERIFY(std::search(file.begin(), file.end(), edited[i].begin(), edited[i].end()) != file.end());
    }
  }

  void ADocumentInTheBackgroundThatIsClosedIsTheOneThatIsSaved() {
    Desk desk;
    AudioWin& asking = desk.OpenWave("a.wav");
    asking.Doc().SetChanged(true);
    desk.OpenWave("b.wav").Doc().SetChanged(true);
    std::filesystem::remove(desk.scratch / "a.wav");
    desk.prompts.answers = {Answer::Yes};
    asking.parentWidget()->close();
    QVERIFY(std::filesystem::exists(desk.scratch / "a.wav"));
    QVERIFY(desk.Active()->Doc().Changed());
  }

  void AChangedDocumentIsSavedWhileTheSpectrumIsActive() {
    Desk desk;
    desk.OpenWave("a.wav").Doc().SetChanged(true);
    desk.Run(kCommandAudioSpectrum);
    QVERIFY(desk.Active() == nullptr);
    std::filesystem::remove(desk.scratch / "a.wav");
    desk.prompts.answers = {Answer::Yes};
    desk.Run(kCommandExit);
    QVERIFY(std::filesystem::exists(desk.scratch / "a.wav"));
  }

  void TheCounterAndTheScrollerForgetAClosedDocument() {
    Desk desk;
    desk.OpenWave();
    auto& counter = *desk.Frame().findChild<QWidget*>("CountWindow");
    auto& scroller = *desk.Frame().findChild<QWidget*>("ScrollerWindow");
    const QString first = counter.accessibleName();
    desk.View().View().Show(700, 100);
    desk.View().View().SetCursorPosition(750, false);
    QVERIFY(counter.accessibleName() != first);
    QVERIFY(scroller.accessibleName() != "Position: 0 percent");
    desk.Run(kCommandClose);
    QTRY_VERIFY(desk.Children().isEmpty());
    QCOMPARE(counter.accessibleName(), "Position: frame 0, 0.000 seconds");
    QCOMPARE(scroller.accessibleName(), "Position: 0 percent");
  }

  void CloseAllAsksAndCancelKeepsAll() {
    Desk desk;
    desk.OpenWave("a.wav").Doc().SetChanged(true);
    desk.OpenWave("b.wav");
    desk.prompts.answers = {Answer::Cancel};
    desk.Run(kCommandCloseAll);
    QCOMPARE(desk.Children().size(), 2);
    desk.prompts.answers = {Answer::No};
    desk.Run(kCommandCloseAll);
    QTRY_VERIFY(desk.Children().isEmpty());
    QVERIFY(!desk.Command(kCommandClose)->isEnabled());
    QVERIFY(desk.Frame().isVisible());
  }

  void AChangedDocumentIsMarkedUntilItIsSaved() {
    Desk desk;
    AudioWin& window = desk.OpenWave();
    window.Doc().SetChanged(true);
    window.RefreshTitle();
    QVERIFY(desk.ActiveChild()->isWindowModified());
    desk.Run(kCommandSave);
    QVERIFY(!desk.ActiveChild()->isWindowModified());
  }

  void SaveAsThroughTheDialogTakesTheFiltersExtension() {
    Desk desk(Desk::Asks::WithBoxes);
    desk.OpenWave();
    QString first;
    QStringList filters;
    InTheNext<QFileDialog>(desk, [&](QFileDialog& dialog) {
      auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
      QVERIFY(name != nullptr);
      first = name->text();
      filters = dialog.nameFilters();
      Type(*name, "copy.mp3");
      QTest::keyClick(name, Qt::Key_Return);
    });
    desk.Run(kCommandSaveAs);
    QCOMPARE(first, "song.wav");
    QCOMPARE(filters, (QStringList{"Wave files (*.wav)", "MP3 files (*.mp3)", "Ogg Vorbis files (*.ogg)",
                                   "AIFF files (*.aiff)", "CDR files (*.cdr)"}));
    QVERIFY(std::filesystem::exists(desk.scratch / "copy.wav"));
    QVERIFY(!std::filesystem::exists(desk.scratch / "copy.mp3"));
    QCOMPARE(ReadBytes(desk.scratch / "copy.wav"), ReadBytes(desk.scratch / "song.wav"));
    // The document keeps its name: Save goes to the old file again.
    QCOMPARE(desk.Active()->Doc().FileName(), (desk.scratch / "song.wav").string());
    QCOMPARE(desk.ActiveChild()->widget()->windowTitle(), Text(desk.scratch / "song.wav") + "[*]");
  }

  void SaveAsAsksOnceBeforeItOverwrites() {
    for (const bool yes : {false, true}) {
      Desk desk(Desk::Asks::WithBoxes);
      desk.OpenWave();
      WriteText(desk.scratch / "there.wav", "old");
      QString question;
      InTheNext<QFileDialog>(desk, [&](QFileDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        Type(*name, "there.wav");
        InTheNext<QMessageBox>(desk, [&](QMessageBox& box) {
          question = box.text();
          QTest::mouseClick(box.button(yes ? QMessageBox::Yes : QMessageBox::No), Qt::LeftButton);
        });
        QTest::keyClick(name, Qt::Key_Return);
      });
      desk.Run(kCommandSaveAs);
      QCOMPARE(question, Text(desk.scratch / "there.wav") + " exists. Overwrite?");
      QCOMPARE(ReadText(desk.scratch / "there.wav") == "old", !yes);
    }
  }

  void OpenThroughTheDialog() {
    Desk desk(Desk::Asks::WithBoxes);
    const std::filesystem::path path = desk.MakeWave("chosen.wav");
    QStringList filters;
    InTheNext<QFileDialog>(desk, [&](QFileDialog& dialog) {
      filters = dialog.nameFilters();
      auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
      Type(*name, Text(path));
      QTest::keyClick(name, Qt::Key_Return);
    });
    desk.Run(kCommandOpen);
    QCOMPARE(filters.size(), 6);
    QCOMPARE(filters.front(), "Audio files (*.wav *.mp3 *.ogg *.aiff *.cdr)");
    QVERIFY(desk.Active() != nullptr);
    QCOMPARE(desk.Active()->Doc().FileName(), path.string());
  }

  void TheDialogsShowSizesTypesAndDatesInFull() {
    Desk desk(Desk::Asks::WithBoxes);
    desk.OpenWave();
    for (const int command : {kCommandOpen, kCommandSaveAs}) {
      bool seen = false;
      InTheNext<QFileDialog>(desk, [&](QFileDialog& dialog) {
        dialog.setDirectory(Text(desk.scratch.Path()));
        auto* list = dialog.findChild<QTreeView*>("treeView");
        QTRY_VERIFY(list->model()->rowCount(list->rootIndex()) > 0);
        const QAbstractItemView& view = *list;
        QTRY_VERIFY(view.sizeHintForColumn(3) > 60);
        for (int column = 0; column < 4; ++column) {
          QTRY_VERIFY(list->header()->sectionSize(column) >= view.sizeHintForColumn(column));
        }
        QVERIFY(list->header()->length() <= list->viewport()->width());
        seen = true;
        dialog.reject();
      });
      desk.Run(command);
      QVERIFY(seen);
    }
  }

  void SteppingBackFromTheDialogsChangesNothing() {
    Desk desk(Desk::Asks::WithBoxes);
    desk.OpenWave();
    for (const int command : {kCommandOpen, kCommandSaveAs}) {
      InTheNext<QFileDialog>(desk, [](QFileDialog& dialog) { dialog.reject(); });
      desk.Run(command);
    }
    QCOMPARE(desk.Children().size(), 1);
    QVERIFY(IsOpen(desk, "song.wav"));
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::ClosingAndSavingTest)

#include "closing_and_saving_test.moc"
