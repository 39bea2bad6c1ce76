// Drawing samples with the pencil, and the eight tool buttons.
#include <QObject>
#include <QToolButton>

#include "tests/gui/support/ActionMenu.h"
#include "tests/gui/support/Desk.h"
#include "tests/gui/support/ExpectedView.h"
#include "tests/gui/support/GuiMain.h"
#include "view/ToolButtons.h"

namespace tembrel::test {

namespace {

constexpr std::size_t kFrames = 1000;
constexpr int kFirst = 100;
constexpr int kShown = 500;

class PencilAndToolsTest : public QObject {
  Q_OBJECT

 private:
  // Opens silence, shown from frame 100 to 600.
  static AudioWin& OpenSilence(Desk& desk, std::uint32_t bits, std::uint32_t channels) {
    const Bytes sound(kFrames * channels * (bits / 8), std::byte(bits == 8 ? 128 : 0));
    WriteBytes(desk.scratch / "silence.wav", WaveFile(44100, bits, channels, sound));
    desk.Client().OpenDocument(desk.scratch / "silence.wav");
    desk.View().View().Show(kFirst, kShown);
    QCoreApplication::processEvents();
    return *desk.Active();
  }
  static void MoveTo(Desk& desk, double x, double y) { DragTo(desk.View(), {x, y}); }
  static QToolButton* Tool(Desk& desk, int index) {
    for (QToolButton* button : desk.Active()->findChildren<QToolButton*>()) {
      if (button->property("controlId").toInt() == 8224 + index) {
        return button;
      }
    }
    return nullptr;
  }
  static QList<int> CheckedTools(Desk& desk) {
    QList<int> checked;
    for (int i = 0; i < 8; ++i) {
      if (Tool(desk, i)->isChecked()) {
        checked << i;
      }
    }
    return checked;
  }

 private Q_SLOTS:
  void HoveringNearASampleArmsThePencil() {
    Desk desk;
    OpenSilence(desk, 16, 1);
    const int middle = desk.View().height() / 2;
    QVERIFY(!desk.View().View().PencilArmed());
    const Qt::CursorShape before = desk.View().cursor().shape();
    MoveTo(desk, 200, middle);
    QVERIFY(desk.View().View().PencilArmed());
    const Qt::CursorShape armed = desk.View().cursor().shape();
    QVERIFY(armed != before);
    MoveTo(desk, 200, middle / 2.0);
    QVERIFY(!desk.View().View().PencilArmed());
    QCOMPARE(desk.View().cursor().shape(), before);
    MoveTo(desk, 200, middle);
    QCOMPARE(desk.View().cursor().shape(), armed);
    QEvent left(QEvent::Leave);
    QApplication::sendEvent(&desk.View(), &left);
    QCOMPARE(desk.View().cursor().shape(), before);
  }

  void FarOutThePencilIsNotArmed() {
    Desk desk;
    WriteBytes(desk.scratch / "long.wav", WaveFile(44100, 16, 1, Bytes(200000, std::byte{0})));
    desk.Client().OpenDocument(desk.scratch / "long.wav");
    QCoreApplication::processEvents();
    MoveTo(desk, 200, desk.View().height() / 2.0);
    QVERIFY(!desk.View().View().PencilArmed());
    desk.View().View().Show(0, 4L * desk.Active()->width());
    MoveTo(desk, 201, desk.View().height() / 2.0);
    QVERIFY(desk.View().View().PencilArmed());
  }

  void SoundThatCanOnlyBeLookedAtIsNotDrawn() {
    Desk desk;
    desk.OpenWave("deep.wav", kFrames, 24);
    for (int y = 0; y < desk.View().height(); ++y) {
      MoveTo(desk, 200, y);
      QVERIFY(!desk.View().View().PencilArmed());
    }
  }

  // The level under the mouse goes to the frames between the columns beside it.
  void AStrokeSetsTheSamplesUnderIt() {
    Desk desk;
    AudioWin& window = OpenSilence(desk, 16, 1);
    const int width = desk.View().width();
    const int height = desk.View().height();
    Bytes expected = SoundOf(window);
    MoveTo(desk, 200, height / 2.0);
    PressAt(desk.View(), {200.0, height / 2.0});
    QCOMPARE(SoundOf(window), expected);
    for (int x = 200; x < 260; ++x) {
      const int y = height / 4 + (x - 200);
      MoveTo(desk, x, y);
      const int level = -(y * 65535 / height - 32767) * 11 / 10;
      const auto from = static_cast<int>(kFirst + double(kShown) * (x - 1) / width);
      const auto to = static_cast<int>(kFirst + double(kShown) * (x + 1) / width);
      for (int frame = from; frame < to; ++frame) {
        Put16(expected, static_cast<std::size_t>(frame) * 2, static_cast<std::uint32_t>(level));
      }
      QCOMPARE(SoundOf(window), expected);
    }
    QVERIFY(expected != Bytes(kFrames * 2, std::byte{0}));
    const QImage drawing = OnScreen(desk.View());
    QCOMPARE(drawing, ExpectedView(window, drawing.size(), false));
    ReleaseAt(desk.View(), {259.0, height / 2.0});
    QVERIFY(window.Doc().Changed());
    QVERIFY(desk.ActiveChild()->isWindowModified());
    QCOMPARE(ReadBytes(window.Doc().TempFileName()), WaveFile(44100, 16, 1, expected));
    const QImage shown = OnScreen(desk.View());
    QCOMPARE(shown, ExpectedView(window, shown.size()));
    QVERIFY(!desk.View().View().HasLastRange());
  }

  void AStrokeIsOneStepOfUndo() {
    Desk desk;
    AudioWin& window = OpenSilence(desk, 8, 2);
    const Bytes before = SoundOf(window);
    const int height = desk.View().height();
    const int left = 3 + (height - 12) / 4;
    MoveTo(desk, 300, left);
    QVERIFY(desk.View().View().PencilArmed());
    PressAt(desk.View(), {300.0, double(left)});
    for (int i = 0; i < 40; ++i) {
      const int y = left - i / 2;
      MoveTo(desk, 300 + i, y);
    }
    ReleaseAt(desk.View(), {339.0, double(left)});
    const Bytes after = SoundOf(window);
    QVERIFY(after != before);
    for (std::size_t right = 1; right < after.size(); right += 2) {
      QCOMPARE(after[right], before[right]);
    }
    desk.Run(kCommandUndo);
    QCOMPARE(SoundOf(window), before);
    QVERIFY(!desk.Command(kCommandUndo)->isEnabled());
    const QImage shown = OnScreen(desk.View());
    QCOMPARE(shown, ExpectedView(window, shown.size()));
    desk.Run(kCommandRedo);
    QCOMPARE(SoundOf(window), after);
  }

  void EachToolButtonReleasesTheOthers() {
    Desk desk;
    desk.OpenWave();
    QCOMPARE(CheckedTools(desk), QList<int>{0});
    QList<Qt::CursorShape> shapes;
    for (const int index : {3, 7, 1, 2, 4, 5, 6, 0, 0}) {
      QTest::mouseClick(Tool(desk, index), Qt::LeftButton);
      QCOMPARE(CheckedTools(desk), QList<int>{index});
      QCOMPARE(desk.View().View().ToolIndex(), index);
      if (!shapes.contains(desk.View().cursor().shape())) {
        shapes << desk.View().cursor().shape();
      }
    }
    QVERIFY(shapes.size() >= 7);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(&desk.View()));
  }

  void ShiftWithTheArrowsGoesRoundTheTools() {
    Desk desk;
    desk.OpenWave();
    const std::int64_t cursor = desk.View().View().CursorFrame();
    for (const int expected : {1, 2, 3, 4, 5, 6, 7, 0, 1}) {
      QTest::keyClick(&desk.View(), Qt::Key_Right, Qt::ShiftModifier);
      QCOMPARE(CheckedTools(desk), QList<int>{expected});
      QCOMPARE(desk.View().View().ToolIndex(), expected);
      QCOMPARE(desk.View().cursor().shape() == Qt::IBeamCursor, expected == 0);
    }
    for (const int expected : {0, 7, 6}) {
      QTest::keyClick(&desk.View(), Qt::Key_Left, Qt::ShiftModifier);
      QCOMPARE(CheckedTools(desk), QList<int>{expected});
    }
    QCOMPARE(desk.View().View().CursorFrame(), cursor);
  }

  void DuringADragTheToolStays() {
    Desk desk;
    desk.OpenWave("long.wav", 100000);
    BeginDrag(desk.View(), 100, 300);
    QTest::keyClick(&desk.View(), Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(CheckedTools(desk), QList<int>{0});
    desk.View().View().CancelDrag();
  }

  void EachDocumentHasItsOwnTool() {
    Desk desk;
    desk.OpenWave("a.wav");
    QTest::mouseClick(Tool(desk, 3), Qt::LeftButton);
    desk.OpenWave("b.wav");
    QCOMPARE(CheckedTools(desk), QList<int>{0});
    desk.Client().setActiveSubWindow(desk.Children().at(0));
    QCOMPARE(CheckedTools(desk), QList<int>{3});
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::PencilAndToolsTest)

#include "pencil_and_tools_test.moc"
