// Wheel, keys and mouse in the waveform view.
#include <QObject>
#include <QSignalSpy>

#include "tests/gui/support/Desk.h"
#include "tests/gui/support/GuiMain.h"
#include "tests/gui/support/Input.h"

namespace tembrel::test {

namespace {

constexpr int kFrames = 100000;

class ViewInputTest : public QObject {
  Q_OBJECT

 private:
  static EditView& OpenQuarter(Desk& desk, std::int64_t first) {
    desk.OpenWave("long.wav", kFrames);
    EditView& view = desk.View().View();
    view.Show(first, kFrames / 4);
    view.SetCursorPosition(first, false);
    QCoreApplication::processEvents();
    return view;
  }

 private Q_SLOTS:
  void TheWheelScrollsAQuarterScreen() {
    Desk desk;
    const EditView& view = OpenQuarter(desk, 50000);
    TurnWheel(desk.View(), 1);
    QCOMPARE(view.FirstVisibleFrame(), 50000 - 6250);
    TurnWheel(desk.View(), -2);
    QCOMPARE(view.FirstVisibleFrame(), 50000 + 6250);
    QCOMPARE(view.FramesOnScreen(), kFrames / 4);
  }

  void WithShiftItScrollsAScreen() {
    Desk desk;
    const EditView& view = OpenQuarter(desk, 50000);
    TurnWheel(desk.View(), 1, Qt::ShiftModifier);
    QCOMPARE(view.FirstVisibleFrame(), 25000);
    TurnWheel(desk.View(), -1, Qt::ShiftModifier);
    QCOMPARE(view.FirstVisibleFrame(), 50000);
  }

  void WithControlItZooms() {
    Desk desk;
    const EditView& view = OpenQuarter(desk, 50000);
    TurnWheel(desk.View(), 1, Qt::ControlModifier);
    QCOMPARE(view.FramesOnScreen(), kFrames / 8);
    TurnWheel(desk.View(), -2, Qt::ControlModifier);
    QCOMPARE(view.FramesOnScreen(), kFrames / 2);
  }

  void WithBothItZoomsTheAmplitude() {
    Desk desk;
    const EditView& view = OpenQuarter(desk, 50000);
    TurnWheel(desk.View(), 1, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(view.VerticalZoom(), 4);
    TurnWheel(desk.View(), -1, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(view.VerticalZoom(), 1);
  }

  void PartsOfAWheelStepAddUp() {
    Desk desk;
    const EditView& view = OpenQuarter(desk, 50000);
    for (int i = 0; i < 3; ++i) {
      TurnWheel(desk.View(), -0.25);
    }
    QCOMPARE(view.FirstVisibleFrame(), 50000);
    TurnWheel(desk.View(), -0.25);
    QCOMPARE(view.FirstVisibleFrame(), 50000 + 6250);
  }

  void Keys_data() {
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("firstFrame");
    QTest::addColumn<int>("cursor");
    const int control = Qt::ControlModifier;
    // 25000 frames from 50000 on, cursor at 50000.
    QTest::newRow("Page Up") << int(Qt::Key_PageUp) << 0 << 50000 << 50000;
    QTest::newRow("Ctrl+Page Up") << int(Qt::Key_PageUp) << control << 43750 << 50000;
    QTest::newRow("Ctrl+Page Down") << int(Qt::Key_PageDown) << control << 56250 << 56250;
    QTest::newRow("Home") << int(Qt::Key_Home) << 0 << 0 << 0;
    QTest::newRow("End") << int(Qt::Key_End) << 0 << 0 << 0;
    QTest::newRow("Ctrl+Home") << int(Qt::Key_Home) << control << 50000 << 50000;
    QTest::newRow("Ctrl+End") << int(Qt::Key_End) << control << 50000 << 50000;
    QTest::newRow("F11") << int(Qt::Key_F11) << 0 << 25000 << 25000;
    QTest::newRow("F12") << int(Qt::Key_F12) << 0 << 75000 << 75000;
    QTest::newRow("Tab") << int(Qt::Key_Tab) << 0 << 50000 << 50000;
    QTest::newRow("a letter") << int(Qt::Key_K) << 0 << 50000 << 50000;
  }
  void Keys() {
    QFETCH(const int, key);
    QFETCH(const int, modifiers);
    QFETCH(const int, firstFrame);
    QFETCH(const int, cursor);
    Desk desk;
    const EditView& view = OpenQuarter(desk, 50000);
    QTest::keyClick(&desk.View(), static_cast<Qt::Key>(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(view.FirstVisibleFrame(), firstFrame);
    QCOMPARE(view.CursorFrame(), cursor);
    QCOMPARE(view.FramesOnScreen(), kFrames / 4);
  }

  void LeftAndRightStepAScreenPixel() {
    Desk desk;
    EditView& view = OpenQuarter(desk, 50000);
    const std::int64_t step = kFrames / 4 / desk.View().width();
    const QSignalSpy moved(&desk.View(), &AudioEditWindow::cursorMoved);
    QTest::keyClick(&desk.View(), Qt::Key_Right);
    QTest::keyClick(&desk.View(), Qt::Key_Right);
    QCOMPARE(view.CursorFrame(), 50000 + 2 * step);
    QTest::keyClick(&desk.View(), Qt::Key_Left);
    QCOMPARE(view.CursorFrame(), 50000 + step);
    QCOMPARE(moved.size(), 3);
    view.Show(0, 50);
    view.SetCursorPosition(1, false);
    const qsizetype before = moved.size();
    QTest::keyClick(&desk.View(), Qt::Key_Left);
    QTest::keyClick(&desk.View(), Qt::Key_Left);
    QCOMPARE(view.CursorFrame(), 0);
    QCOMPARE(moved.size(), before + 1);  // the last press moved nothing
  }

  void AmplitudeKeysScrollTheRowsOnceZoomed() {
    Desk desk;
    EditView& view = OpenQuarter(desk, 0);
    QTest::keyClick(&desk.View(), Qt::Key_Down);
    const int before = view.VerticalTopRow();
    QCOMPARE(view.VisibleRows(), kAmplitudeRows);
    view.VerticalZoomIn();
    QVERIFY(view.VisibleRows() < kAmplitudeRows);
    QTest::keyClick(&desk.View(), Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(view.VerticalTopRow(), 0);
    QTest::keyClick(&desk.View(), Qt::Key_Down);
    QCOMPARE(view.VerticalTopRow(), 1);
    QTest::keyClick(&desk.View(), Qt::Key_PageDown);
    QCOMPARE(view.VerticalTopRow(), 13);
    QTest::keyClick(&desk.View(), Qt::Key_PageUp);
    QTest::keyClick(&desk.View(), Qt::Key_Up);
    QCOMPARE(view.VerticalTopRow(), 0);
    QTest::keyClick(&desk.View(), Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(view.VerticalTopRow(), kAmplitudeRows - view.VisibleRows());
    QVERIFY(before >= 0);
  }

  void AClickPlacesTheCursor_data() {
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("left") << Qt::LeftButton;
    QTest::newRow("right") << Qt::RightButton;
  }
  void AClickPlacesTheCursor() {
    QFETCH(const Qt::MouseButton, button);
    Desk desk;
    const EditView& view = OpenQuarter(desk, 50000);
    Click(desk.View(), {200.0, 30.0}, button);
    const std::int64_t frame = 50000 + std::int64_t{200} * 25000 / desk.View().width();
    QCOMPARE(view.CursorFrame(), frame);
    QCOMPARE(view.FirstVisibleFrame(), 50000);
    QVERIFY(!view.HasSelection());
    QVERIFY(QApplication::activePopupWidget() == nullptr);
  }

  void TheMiddleButtonDoesNothing() {
    Desk desk;
    const EditView& view = OpenQuarter(desk, 50000);
    Click(desk.View(), {200.0, 30.0}, Qt::MiddleButton);
    QCOMPARE(view.CursorFrame(), 50000);
  }

  void TheSecondPressOfADoubleClickIsIgnored() {
    Desk desk;
    const EditView& view = OpenQuarter(desk, 50000);
    SendMouse(desk.View(), QEvent::MouseButtonDblClick, {200.0, 30.0});
    QVERIFY(!view.Dragging());
    SendMouse(desk.View(), QEvent::MouseButtonRelease, {200.0, 30.0});
    QCOMPARE(view.CursorFrame(), 50000);
  }

  void AReleaseOutsideStaysInside() {
    Desk desk;
    const EditView& view = OpenQuarter(desk, 0);
    const int width = desk.View().width();
    SendMouse(desk.View(), QEvent::MouseButtonPress, {100.0, 30.0}, Qt::RightButton);
    SendMouse(desk.View(), QEvent::MouseButtonRelease, {width + 400.0, 500.0}, Qt::RightButton);
    QCOMPARE(view.CursorFrame(), std::int64_t{width - 1} * 25000 / width);
    SendMouse(desk.View(), QEvent::MouseButtonPress, {100.0, 30.0}, Qt::RightButton);
    SendMouse(desk.View(), QEvent::MouseButtonRelease, {-400.0, -500.0}, Qt::RightButton);
    QCOMPARE(view.CursorFrame(), 0);
  }

  void TheCounterFollowsTheCursor() {
    Desk desk;
    OpenQuarter(desk, 50000);
    const QSignalSpy counter(&desk.Client(), &tembrelMDIClient::counterChanged);
    Click(desk.View(), {0.0, 30.0});
    QCOMPARE(counter.last().at(0).toLongLong(), 50000);
    QCOMPARE(counter.last().at(1).toLongLong(), 44100);
    const auto* shown = desk.Frame().findChild<QWidget*>("CountWindow");
    QVERIFY(shown != nullptr);
    QCOMPARE(shown->accessibleName(), "Position: frame 50000, 1.134 seconds");
  }

  void ZoomKeysDoWhatTheButtonsDo() {
    Desk desk;
    const EditView& view = OpenQuarter(desk, 0);
    QTest::keyClick(&desk.View(), Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(view.FramesOnScreen(), kFrames / 8);
    QTest::keyClick(&desk.View(), Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(view.FramesOnScreen(), kFrames / 4);
    QTest::keyClick(&desk.View(), Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(view.FramesOnScreen(), kFrames);
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::ViewInputTest)

#include "view_input_test.moc"
