// The About box and the help window.
#include <QDialog>
#include <QObject>
#include <QPushButton>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <QTimer>

#include "app/AboutText.h"
#include "app/VersionInfo.h"
#include "tests/gui/support/Desk.h"
#include "tests/gui/support/GuiMain.h"

namespace tembrel::test {

namespace {

class AboutAndHelpTest : public QObject {
  Q_OBJECT

 private:
  static QWidget* Help(Desk& desk) { return desk.Frame().findChild<QWidget*>("HelpWindow"); }

 private Q_SLOTS:
  void AboutShowsTheVersionRecordCentredOnTheFrame() {
    Desk desk;
    QMap<int, QString> fields;
    QList<int> shown;
    QStringList buttons;
    int id = 0;
    QPoint distance;
    QTimer::singleShot(0, &desk.Frame(), [&] {
      auto* about = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      QVERIFY(about != nullptr);
      id = about->property("controlId").toInt();
      for (const QLabel* label : about->findChildren<QLabel*>()) {
        if (label->property("controlId").isValid()) {
          const int field = label->property("controlId").toInt();
          fields[field] = label->text();
          if (label->isVisible()) {
            shown << field;
          }
        }
      }
      for (QPushButton* button : about->findChildren<QPushButton*>()) {
        buttons << button->text().remove('&');
      }
      distance = about->frameGeometry().center() - desk.Frame().frameGeometry().center();
      QTest::keyClick(about, Qt::Key_Escape);
    });
    desk.Run(kCommandAbout);
    const CVersionInfo version;
    QCOMPARE(id, kAboutDialogResource);
    QCOMPARE(fields.size(), 8);
    QCOMPARE(fields[kAboutApplicationName], "Tembrel");
    QCOMPARE(fields[kAboutVersion],
             "Version  " + QString::fromStdString(*version.Value(VersionKey::FileVersion)));
    QCOMPARE(fields[kAboutCopyright], QString::fromStdString(*version.Value(VersionKey::LegalCopyright)));
    QCOMPARE(fields[kAboutBuildDate], QString::fromStdString(*version.Value(VersionKey::BuildDate)));
    QVERIFY(!shown.contains(kAboutPrivateBuild));  // an empty field takes no room
    QVERIFY(shown.contains(kAboutVersion));
    QCOMPARE(buttons, QStringList{"OK"});
    QVERIFY(distance.manhattanLength() <= 4);  // the box is placed before the desktop puts a frame around it
  }

  void AboutReadsFromTheNameDownToTheDate() {
    Desk desk;
    QMap<int, QString> byHeight;
    QTimer::singleShot(0, &desk.Frame(), [&] {
      QWidget* about = QApplication::activeModalWidget();
      QVERIFY(about != nullptr);
      for (const QLabel* label : about->findChildren<QLabel*>()) {
        if (label->isVisible() && !label->text().isEmpty()) {
          QString& line = byHeight[label->mapTo(about, QPoint(0, 0)).y()];
          line = label->property("controlId").isValid() ? line + label->text() : label->text() + " " + line;
        }
      }
      QTest::keyClick(about, Qt::Key_Escape);
    });
    desk.Run(kCommandAbout);
    const CVersionInfo version;
    const auto Value = [&](VersionKey key) { return QString::fromStdString(*version.Value(key)); };
    QCOMPARE(byHeight.values(), (QStringList{"Tembrel", "Version  " + Value(VersionKey::FileVersion),
                                             Value(VersionKey::Comments), Value(VersionKey::LegalCopyright),
                                             "Built " + Value(VersionKey::BuildDate)}));
  }

  void TablesOfTheManualHaveAirInTheirCells() {
    Desk desk;
    desk.Run(kCommandHelpContents);
    const QTextDocument& manual = *Help(desk)->findChild<QTextBrowser*>()->document();
    int tables = 0;
    for (const QTextFrame* frame : manual.rootFrame()->childFrames()) {
      if (const auto* table = qobject_cast<const QTextTable*>(frame)) {
        ++tables;
        QVERIFY(table->format().cellPadding() >= 4);
        QCOMPARE(table->format().cellSpacing(), 0.0);
        QVERIFY(table->format().borderCollapse());
      }
    }
    QVERIFY(tables > 5);
  }

  void HelpOpensTheManualOnce() {
    Desk desk;
    desk.Run(kCommandHelpContents);
    QPointer<QWidget> help = Help(desk);
    QVERIFY(help);
    QVERIFY(help->isVisible());
    QVERIFY(help->findChild<QTextBrowser*>()->toPlainText().contains("Tembrel"));
    desk.Run(kCommandHelpContents);
    QCOMPARE(desk.Frame().findChildren<QWidget*>("HelpWindow").size(), 1);
    QCOMPARE(Help(desk), help.data());
    QTest::keyClick(help, Qt::Key_Escape);
    QTRY_VERIFY(help.isNull());
    desk.Run(kCommandHelpContents);
    QVERIFY(Help(desk) != nullptr);
  }

  void AHelpFileInTheProgramFolderTakesTheManualsPlace() {
    Desk desk;
    WriteText(desk.paths.helpPath, "# Another manual\n\nin the program folder");
    desk.Run(kCommandHelpContents);
    QVERIFY(Help(desk)->findChild<QTextBrowser*>()->toPlainText().contains("in the program folder"));
  }

  void AHelpFileThatIsNoTextIsLeftAlone() {
    Desk desk;
    WriteText(desk.paths.helpPath, std::string_view("ITSF\0\0\3\0", 8));
    desk.Run(kCommandHelpContents);
    QVERIFY(Help(desk)->findChild<QTextBrowser*>()->toPlainText().size() > 100);
  }

  void ClosingTheFrameClosesTheHelp() {
    Desk desk;
    desk.Run(kCommandHelpContents);
    QPointer<QWidget> help = Help(desk);
    desk.Run(kCommandExit);
    desk.End();
    QVERIFY(help.isNull());
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::AboutAndHelpTest)

#include "about_and_help_test.moc"
