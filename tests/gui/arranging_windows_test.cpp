// Several documents: cascade, tile, icons, the window list, and what follows the active one.
#include <QObject>
#include <QToolButton>

#include "tests/gui/support/Desk.h"
#include "tests/gui/support/GuiMain.h"
#include "tests/gui/support/Input.h"

namespace tembrel::test {

namespace {

class ArrangingWindowsTest : public QObject {
  Q_OBJECT

 private:
  static void OpenThree(Desk& desk) {
    for (const char* name : {"a.wav", "b.wav", "c.wav"}) {
      desk.OpenWave(name, 100);
    }
  }

 private Q_SLOTS:
  void CascadedWindowsAreStaggeredAndKeepARealSize() {
    Desk desk;
    OpenThree(desk);
    for (QMdiSubWindow* child : desk.Children()) {
      child->setGeometry(0, 0, 200, 150);
    }
    desk.Run(kCommandCascade);
    const QList<QMdiSubWindow*> children = desk.Children();
    for (int i = 1; i < 3; ++i) {
      QVERIFY(children.at(i)->x() > children.at(i - 1)->x());
      QVERIFY(children.at(i)->y() > children.at(i - 1)->y());
    }
    for (const QMdiSubWindow* child : children) {
      QVERIFY(child->width() >= 400);
      QVERIFY(child->height() >= 200);
    }
  }

  void TiledWindowsFillTheAreaWithoutOverlap() {
    Desk desk;
    OpenThree(desk);
    desk.Run(kCommandTile);
    const QList<QMdiSubWindow*> children = desk.Children();
    int area = 0;
    for (int i = 0; i < 3; ++i) {
      area += children.at(i)->width() * children.at(i)->height();
      for (int j = i + 1; j < 3; ++j) {
        QVERIFY(!children.at(i)->geometry().intersects(children.at(j)->geometry()));
      }
    }
    const QSize room = desk.Client().viewport()->size();
    QVERIFY(area > room.width() * room.height() * 9 / 10);
  }

  void AWindowCannotBePulledSmallerThanItsTools() {
    Desk desk;
    desk.OpenWave("a.wav", 100);
    QMdiSubWindow& child = *desk.ActiveChild();
    const QPointF corner = QPointF(child.rect().bottomRight()) - QPointF(1, 1);
    SendMouse(child, QEvent::MouseMove, corner, Qt::NoButton);
    SendMouse(child, QEvent::MouseButtonPress, corner);
    SendMouse(child, QEvent::MouseMove, {20.0, 40.0});
    SendMouse(child, QEvent::MouseButtonRelease, {20.0, 40.0});
    QCOMPARE(child.size(), child.minimumSizeHint());
    int buttons = 0;
    for (const QToolButton* button : desk.Active()->findChildren<QToolButton*>()) {
      QVERIFY(desk.Active()->rect().contains(button->geometry()));
      ++buttons;
    }
    QCOMPARE(buttons, 11);  // eight tools, three zoom buttons
    QVERIFY(desk.View().height() >= 72);
    QVERIFY(desk.View().width() >= 120);
  }

  void NineDocumentsCanBeTiledInASmallFrame() {
    Desk desk;
    desk.Frame().resize(640, 420);
    for (int i = 0; i < 9; ++i) {
      desk.OpenWave(std::to_string(i) + ".wav", 50);
    }
    desk.Run(kCommandTile);
    const QList<QMdiSubWindow*> children = desk.Children();
    for (int i = 0; i < 9; ++i) {
      const QSize least = children.at(i)->minimumSizeHint();
      // Qt rounds the rows of tiles up, at the cost of the last one.
      QVERIFY(children.at(i)->width() >= least.width());
      QVERIFY(children.at(i)->height() >= least.height() - 2);
      for (int j = i + 1; j < 9; ++j) {
        QVERIFY(!children.at(i)->geometry().intersects(children.at(j)->geometry()));
      }
    }
  }

  void IconsAreArrangedAlongTheBottom() {
    Desk desk;
    OpenThree(desk);
    for (QMdiSubWindow* child : desk.Children()) {
      child->showMinimized();
      child->move(50, 50);
    }
    desk.Run(kCommandArrangeIcons);
    const QList<QMdiSubWindow*> children = desk.Children();
    for (int i = 0; i < 3; ++i) {
      QCOMPARE(children.at(i)->geometry().bottom(), desk.Client().viewport()->rect().bottom());
      QVERIFY(i == 0 || !children.at(i)->geometry().intersects(children.at(i - 1)->geometry()));
    }
  }

  void IconsThatDoNotFitStartASecondRow() {
    Desk desk;
    desk.Frame().resize(700, 600);
    for (int i = 0; i < 6; ++i) {
      desk.OpenWave(std::to_string(i) + ".wav", 50);
      desk.ActiveChild()->showMinimized();
    }
    desk.Run(kCommandArrangeIcons);
    const QRect room = desk.Client().viewport()->rect();
    const QList<QMdiSubWindow*> children = desk.Children();
    for (int i = 0; i < 6; ++i) {
      QVERIFY(room.contains(children.at(i)->geometry()));
      for (int j = i + 1; j < 6; ++j) {
        QVERIFY(!children.at(i)->geometry().intersects(children.at(j)->geometry()));
      }
    }
    QVERIFY(children.at(5)->y() < children.at(0)->y());
  }

  void OpenWindowsStayWhenIconsAreArranged() {
    Desk desk;
    OpenThree(desk);
    desk.Children().at(0)->showMinimized();
    const QRect before = desk.Children().at(1)->geometry();
    desk.Run(kCommandArrangeIcons);
    QCOMPARE(desk.Children().at(1)->geometry(), before);
  }

  void TheStatusGadgetsFollowTheActiveDocument() {
    Desk desk;
    desk.OpenWave("a.wav", 100, 8, 1, 8000);
    desk.OpenWave("b.wav", 100, 16, 2, 44100);
    QCOMPARE(desk.Gadgets(), "44100 Hz, 16 Bits, Stereo");
    desk.Client().setActiveSubWindow(desk.Children().at(0));
    QCOMPARE(desk.Gadgets(), "8000 Hz, 8 Bits, Mono");
    desk.Run(kCommandClose);
    QTRY_COMPARE(desk.Gadgets(), "44100 Hz, 16 Bits, Stereo");
  }

  void TheWindowListNamesEveryDocumentAndChecksTheActiveOne() {
    Desk desk;
    OpenThree(desk);
    desk.Client().setActiveSubWindow(desk.Children().at(1));
    const QStringList texts = desk.OpenedMenu("&Window");
    const QStringList expected{"&Cascade",
                               "&Tile",
                               "Arrange &Icons",
                               "C&lose All",
                               "-",
                               "&1 " + Text(desk.scratch / "a.wav"),
                               "&2 " + Text(desk.scratch / "b.wav"),
                               "&3 " + Text(desk.scratch / "c.wav")};
    QCOMPARE(texts, expected);
    const QList<QAction*> actions = desk.MenuNamed("&Window")->actions();
    QCOMPARE(actions.at(5)->isChecked(), false);
    QCOMPARE(actions.at(6)->isChecked(), true);
    QCOMPARE(actions.at(7)->isChecked(), false);
  }

  void ChoosingFromTheWindowListActivates() {
    Desk desk;
    OpenThree(desk);
    desk.OpenedMenu("&Window");
    desk.MenuNamed("&Window")->actions().at(5)->trigger();
    QCOMPARE(desk.Active()->Doc().FileName(), (desk.scratch / "a.wav").string());
  }

  void ChoosingAnIconFromTheWindowListOpensIt() {
    Desk desk;
    OpenThree(desk);
    desk.Children().at(0)->showMinimized();
    desk.Client().setActiveSubWindow(desk.Children().at(2));
    desk.OpenedMenu("&Window");
    desk.MenuNamed("&Window")->actions().at(5)->trigger();
    QCOMPARE(desk.Active()->Doc().FileName(), (desk.scratch / "a.wav").string());
    QVERIFY(!desk.ActiveChild()->isMinimized());
  }

  void TheWindowListMarksChangesAndShowsNamesLiterally() {
    Desk desk;
    AudioWin& window = desk.OpenWave("this & that [*].wav", 50);
    window.Doc().SetChanged(true);
    window.RefreshTitle();
    QCOMPARE(desk.OpenedMenu("&Window").last(), "&1 " + Text(desk.scratch / "this && that [*].wav") + "*");
  }

  void TheWindowListIsEmptyAgainWhenAllAreClosed() {
    Desk desk;
    OpenThree(desk);
    desk.Run(kCommandCloseAll);
    QTRY_VERIFY(desk.Children().isEmpty());
    QCOMPARE(desk.OpenedMenu("&Window").size(), 4);
  }

  void AMaximisedDocumentCanBeRestoredAndTheNextOneIsMaximisedToo() {
    Desk desk;
    OpenThree(desk);
    desk.ActiveChild()->showMaximized();
    QVERIFY(desk.Frame().windowTitle().contains("c.wav") || desk.Frame().windowTitle() == "Tembrel");
    desk.Run(kCommandClose);
    QTRY_COMPARE(desk.Children().size(), 2);
    QTRY_VERIFY(desk.ActiveChild()->isMaximized());
    desk.ActiveChild()->showNormal();
    QVERIFY(!desk.ActiveChild()->isMaximized());
    QTRY_COMPARE(desk.Frame().windowTitle(), "Tembrel");
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::ArrangingWindowsTest)

#include "arranging_windows_test.moc"
