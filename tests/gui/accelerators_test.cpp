// The keys of the accelerator table, pressed with the focus in the waveform.
#include <QKeyEvent>
#include <QObject>

#include "app/AcceleratorTable.h"
#include "app/CommandTable.h"
#include "tests/gui/support/Desk.h"
#include "tests/gui/support/GuiMain.h"

namespace tembrel::test {

namespace {

// Counts the presses of one key that reach a widget.
class KeyCounter : public QObject {
 public:
  explicit KeyCounter(int countedKey) : key(countedKey) {}
  int presses = 0;

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == key) {
      ++presses;
    }
    return false;
  }

 private:
  int key;
};

void Press(QWidget& widget, const QKeySequence& keys) {
  const QKeyCombination combination = keys[0];
  QTest::keyClick(&widget, combination.key(), combination.keyboardModifiers());
}

class AcceleratorsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TheWaveformHasTheFocusAfterOpening() {
    Desk desk;
    desk.OpenWave();
    QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget*>(&desk.View()));
  }

  void EveryKeyOfTheTableStandsForItsCommandAndNoOther() {
    Desk desk;
    for (const Accelerator& row : AcceleratorTable()) {
      const QKeySequence keys(QString::fromUtf8(row.key.data(), static_cast<qsizetype>(row.key.size())),
                              QKeySequence::PortableText);
      QList<int> owners;
      for (const QAction* action : desk.Frame().findChildren<QAction*>()) {
        if (action->shortcuts().contains(keys)) {
          owners << action->property("commandId").toInt();
        }
      }
      QCOMPARE(owners, QList<int>{row.id});
      QCOMPARE(desk.Command(row.id)->autoRepeat(), row.autoRepeat);
    }
  }

  void ControlOAsksForAFile() {
    Desk desk;
    desk.OpenWave();
    Press(desk.View(), QKeySequence("Ctrl+O"));
    QVERIFY(!desk.prompts.filtersShown.empty());
    QCOMPARE(desk.prompts.filtersShown.front().name, std::string("Audio files "));
  }

  void ControlOOpensTheChosenFile() {
    Desk desk;
    desk.OpenWave();
    desk.prompts.openPath = desk.MakeWave("other.wav");
    Press(desk.View(), QKeySequence("Ctrl+O"));
    QCOMPARE(desk.Active()->Doc().FileName(), (desk.scratch / "other.wav").string());
  }

  void ControlSSaves() {
    Desk desk;
    desk.OpenWave().Doc().SetChanged(true);
    std::filesystem::remove(desk.scratch / "song.wav");
    Press(desk.View(), QKeySequence("Ctrl+S"));
    QVERIFY(std::filesystem::exists(desk.scratch / "song.wav"));
    QVERIFY(!desk.Active()->Doc().Changed());
  }

  void ControlQEndsTheProgram() {
    Desk desk;
    desk.OpenWave();
    Press(desk.View(), QKeySequence("Ctrl+Q"));
    QTRY_VERIFY(!desk.Frame().isVisible());
  }

  void F1ShowsTheHelp() {
    Desk desk;
    desk.OpenWave();
    Press(desk.View(), QKeySequence("F1"));
    const auto* help = desk.Frame().findChild<QWidget*>("HelpWindow");
    QVERIFY(help != nullptr);
    QVERIFY(help->isVisible());
  }

  void DeadKeys_data() {
    QTest::addColumn<QString>("key");
    for (const char* key : {"Del", "Shift+Del", "Ctrl+Ins", "Ctrl+Del", "F3"}) {
      QTest::newRow(key) << QString(key);
    }
  }
  void DeadKeys() {
    QFETCH(const QString, key);
    Desk desk;
    const Document& document = desk.OpenWave().Doc();
    const auto before = std::vector(document.Clip()->Bytes().begin(), document.Clip()->Bytes().end());
    const QImage shown = OnScreen(desk.Frame());
    KeyCounter counter(QKeySequence(key)[0].key());
    desk.View().installEventFilter(&counter);
    Press(desk.View(), QKeySequence(key));
    QCOMPARE(counter.presses, 0);  // consumed before any widget sees it
    QVERIFY(!document.Changed());
    QVERIFY(std::ranges::equal(document.Clip()->Bytes(), before));
    QCOMPARE(OnScreen(desk.Frame()), shown);
  }

  void KeysOfDisabledCommandsDoNothing_data() {
    QTest::addColumn<QString>("key");
    for (const Accelerator& row : AcceleratorTable()) {
      const CommandRow* command = FindCommand(row.id);
      if (command != nullptr && command->handler == CommandHandler::NotBuilt) {
        const std::string key(row.key);
        QTest::newRow(key.c_str()) << QString::fromStdString(key);
      }
    }
    QTest::newRow("none at all") << QString("Ctrl+J");
  }
  void KeysOfDisabledCommandsDoNothing() {
    QFETCH(const QString, key);
    Desk desk;
    const Document& document = desk.OpenWave().Doc();
    const QImage shown = OnScreen(desk.Frame());
    Press(desk.View(), QKeySequence(key));
    QVERIFY(!document.Changed());
    QCOMPARE(desk.Children().size(), 1);
    QCOMPARE(OnScreen(desk.Frame()), shown);
  }

  void SaveHasNoEffectWithoutADocument() {
    Desk desk;
    Press(desk.Client(), QKeySequence("Ctrl+S"));
    QVERIFY(desk.prompts.errors.empty());
  }

  void KeysWorkWithTheFocusInAnyDocument() {
    Desk desk;
    AudioWin& first = desk.OpenWave("a.wav");
    desk.OpenWave("b.wav").Doc().SetChanged(true);
    first.Doc().SetChanged(true);
    Press(desk.View(), QKeySequence("Ctrl+S"));
    QVERIFY(!desk.Active()->Doc().Changed());
    QVERIFY(first.Doc().Changed());
    desk.Client().setActiveSubWindow(desk.Children().at(0));
    Press(desk.View(), QKeySequence("Ctrl+S"));
    QVERIFY(!first.Doc().Changed());
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::AcceleratorsTest)

#include "accelerators_test.moc"
