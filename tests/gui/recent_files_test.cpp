// The recent files in the File menu.
#include <QObject>

#include "tests/gui/support/Desk.h"
#include "tests/gui/support/GuiMain.h"

namespace tembrel::test {

namespace {

const QStringList kFixedItems{"&Open...\tCtl+O", "&Close", "-",           "&Save\tCtl+S",
                              "Save &As...",     "-",      "E&xit\tCtl+Q"};

class RecentFilesTest : public QObject {
  Q_OBJECT

 private:
  static QStringList MenuWith(Desk& desk, std::initializer_list<const char*> names) {
    QStringList texts = kFixedItems;
    if (names.size() > 0) {
      texts << "-";
    }
    for (const char* name : names) {
      texts << Text(desk.scratch / name);
    }
    return texts;
  }

 private Q_SLOTS:
  void NoneMeansNoSeparatorEither() {
    Desk desk;
    QCOMPARE(desk.OpenedMenu("&File"), kFixedItems);
  }

  void FiveFilesLeaveTheLastFourNewestFirst() {
    Desk desk;
    for (const char* name : {"1.wav", "2.wav", "3.wav", "4.wav", "5.wav"}) {
      desk.OpenWave(name, 10);
    }
    QCOMPARE(desk.OpenedMenu("&File"), MenuWith(desk, {"5.wav", "4.wav", "3.wav", "2.wav"}));
  }

  void AFileOpenedAgainMovesToTheTop() {
    Desk desk;
    for (const char* name : {"1.wav", "2.wav", "3.wav", "1.wav"}) {
      desk.OpenWave(name, 10);
    }
    QCOMPARE(desk.OpenedMenu("&File"), MenuWith(desk, {"1.wav", "3.wav", "2.wav"}));
  }

  void AMaximisedDocumentChangesNothing() {
    Desk desk;
    desk.OpenWave("1.wav", 10);
    desk.ActiveChild()->showMaximized();
    const qsizetype systemItems = desk.ActiveChild()->systemMenu()->actions().size();
    desk.OpenWave("2.wav", 10);
    QCOMPARE(desk.OpenedMenu("&File"), MenuWith(desk, {"2.wav", "1.wav"}));
    QCOMPARE(desk.ActiveChild()->systemMenu()->actions().size(), systemItems);
  }

  void ChoosingOneOpensIt() {
    Desk desk;
    desk.OpenWave("1.wav", 10);
    desk.OpenWave("2.wav", 10);
    desk.Run(kCommandRecentFile2);
    QCOMPARE(desk.Children().size(), 3);
    QCOMPARE(desk.Active()->Doc().FileName(), (desk.scratch / "1.wav").string());
    QCOMPARE(desk.OpenedMenu("&File"), MenuWith(desk, {"1.wav", "2.wav"}));
  }

  void ChoosingOneThatIsGoneSaysSoAndKeepsTheList() {
    Desk desk;
    desk.OpenWave("1.wav", 10);
    std::filesystem::remove(desk.scratch / "1.wav");
    desk.Run(kCommandRecentFile1);
    QCOMPARE(desk.prompts.errors.size(), 1U);
    QCOMPARE(desk.Children().size(), 1);
    QCOMPARE(desk.OpenedMenu("&File"), MenuWith(desk, {"1.wav"}));
  }

  void TheListSurvivesARestart() {
    Desk desk;
    desk.OpenWave("1.wav", 10);
    desk.OpenWave("2.wav", 10);
    desk.Start();
    QVERIFY(desk.Children().isEmpty());
    QCOMPARE(desk.OpenedMenu("&File"), MenuWith(desk, {"2.wav", "1.wav"}));
    desk.Run(kCommandRecentFile1);
    QCOMPARE(desk.Active()->Doc().FileName(), (desk.scratch / "2.wav").string());
  }

  void SaveAsPutsTheNewPathOnTop() {
    Desk desk;
    desk.OpenWave("1.wav", 10);
    desk.prompts.saveChoice = SaveChoice{desk.scratch / "copy.wav", 1};
    desk.Run(kCommandSaveAs);
    QVERIFY(std::filesystem::exists(desk.scratch / "copy.wav"));
    QCOMPARE(desk.OpenedMenu("&File"), MenuWith(desk, {"copy.wav", "1.wav"}));
  }

  void NamesStandInTheMenuLiterally() {
    Desk desk;
    desk.OpenWave("this & that.wav", 10);
    QCOMPARE(desk.OpenedMenu("&File").last(), Text(desk.scratch / "this && that.wav"));
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::RecentFilesTest)

#include "recent_files_test.moc"
