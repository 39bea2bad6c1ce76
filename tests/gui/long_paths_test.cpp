// Where there is little room a long path is shortened, and the file's name is seen.
#include <QAction>
#include <QObject>

#include "document/ui/ShortPath.h"
#include "tests/gui/support/Desk.h"
#include "tests/gui/support/GuiMain.h"

namespace tembrel::test {

namespace {

class LongPathsTest : public QObject {
  Q_OBJECT

 private:
  // A file deep down in folders with long names.
  static std::filesystem::path MakeDeepWave(Desk& desk, const std::string& name) {
    const std::filesystem::path folder =
        desk.scratch / std::string(90, 'a') / ("b & " + std::string(90, 'c'));
    std::filesystem::create_directories(folder);
    std::filesystem::copy_file(desk.MakeWave("made.wav", 100), folder / name);
    return folder / name;
  }

  static QAction* Entry(Desk& desk, const QString& menu, const QString& ending) {
    desk.OpenedMenu(menu);
    for (QAction* action : desk.MenuNamed(menu)->actions()) {
      if (action->text().endsWith(ending)) {
        return action;
      }
    }
    return nullptr;
  }

 private Q_SLOTS:
  void ShortPathKeepsTheName_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("longest");
    QTest::addColumn<QString>("shown");
    QTest::newRow("fits") << "/home/me/song.wav" << 17 << "/home/me/song.wav";
    QTest::newRow("one too many") << "/home/me/song.wav" << 16 << u"/home/…/song.wav"_qs;
    QTest::newRow("hardly a folder") << "/home/me/song.wav" << 11 << u"/…/song.wav"_qs;
    QTest::newRow("no folder") << "/home/me/song.wav" << 10 << u"…/song.wav"_qs;
    QTest::newRow("the name alone") << "/home/me/song.wav" << 9 << "song.wav";
    QTest::newRow("not even the name") << "/home/me/song.wav" << 7 << u"son…wav"_qs;
    QTest::newRow("nothing") << "/home/me/song.wav" << 0 << u"…"_qs;
    QTest::newRow("no path") << "Document - 0" << 8 << u"Docu…- 0"_qs;
    QTest::newRow("in the root") << "/song.wav" << 8 << "song.wav";
    QTest::newRow("two halves") << u"/\U0001F3B5\U0001F3B5/x"_qs << 6 << u"/\U0001F3B5…/x"_qs;
    QTest::newRow("no half") << u"/\U0001F3B5\U0001F3B5/x"_qs << 5 << u"/…/x"_qs;
  }
  void ShortPathKeepsTheName() {
    QFETCH(const QString, path);
    QFETCH(const int, longest);
    QFETCH(const QString, shown);
    QCOMPARE(ShortPath(path, longest), shown);
  }

  void MenusShowTheNameAndOpenTheWholePath() {
    Desk desk;
    const std::filesystem::path path = MakeDeepWave(desk, "song & dance.wav");
    QVERIFY(desk.Client().OpenDocument(path));
    desk.Active()->Doc().SetChanged(true);
    desk.Active()->RefreshTitle();
    for (const auto& [menu, ending] :
         {std::pair("&File", "/song && dance.wav"), std::pair("&Window", "/song && dance.wav*")}) {
      const QAction* entry = Entry(desk, menu, ending);
      QVERIFY(entry != nullptr);
      QVERIFY(entry->text().size() < 85);
      QCOMPARE(entry->toolTip(), "<qt>" + Text(path).toHtmlEscaped() + "</qt>");
      QVERIFY(desk.MenuNamed(menu)->toolTipsVisible());
    }
    Entry(desk, "&File", "/song && dance.wav")->trigger();
    QCOMPARE(desk.Children().size(), 2);
    QCOMPARE(desk.Active()->Doc().FileName(), path.string());
  }

  void NarrowWindowsAndIconsShowTheNameInTheirTitle() {
    Desk desk;
    const std::filesystem::path path = MakeDeepWave(desk, "song.wav");
    QVERIFY(desk.Client().OpenDocument(path));
    const QMdiSubWindow* child = desk.ActiveChild();
    const QString whole = Text(path) + "[*]";
    const auto Titles = [&] { return child->windowTitle() + " " + child->widget()->windowTitle(); };
    QVERIFY(child->windowTitle().endsWith("/song.wav[*]"));
    desk.ActiveChild()->resize(240, 200);
    QVERIFY(child->windowTitle().size() < 40);
    QVERIFY(Titles().endsWith("song.wav[*] " + whole));
    desk.ActiveChild()->showMinimized();
    QVERIFY(Titles().endsWith("song.wav[*] " + whole));
    desk.ActiveChild()->showMaximized();
    QCOMPARE(Titles(), whole + " " + whole);
    QTRY_VERIFY(desk.Frame().windowTitle().contains(Text(path)));
    desk.ActiveChild()->showNormal();
    QVERIFY(child->windowTitle().size() < 40);
    QVERIFY(child->windowTitle().endsWith("song.wav[*]"));
  }

  void ADocumentThatTakesANameShowsIt() {
    Desk desk;
    desk.Client().RunCommand(kCommandNew);
    QCOMPARE(desk.ActiveChild()->windowTitle(), "Document - 0[*]");
    desk.Active()->SetTitle("/home/me/song.wav");
    desk.Active()->RefreshTitle();
    QCOMPARE(desk.ActiveChild()->windowTitle(), "/home/me/song.wav[*]");
    desk.ActiveChild()->resize(150, 200);
    desk.Active()->SetTitle("/home/me/other.wav");
    desk.Active()->RefreshTitle();
    QVERIFY(!desk.ActiveChild()->windowTitle().contains("song"));
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::LongPathsTest)

#include "long_paths_test.moc"
