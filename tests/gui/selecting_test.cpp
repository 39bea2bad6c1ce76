// Making a selection: the dragged strip, the action menu it leads to, scrolling under a drag, Select All and
// Select Last Range.
#include <cmath>

#include <QCursor>
#include <QObject>
#include <QWindow>

#include "tests/gui/support/ActionMenu.h"
#include "tests/gui/support/Desk.h"
#include "tests/gui/support/ExpectedView.h"
#include "tests/gui/support/GuiMain.h"
#include "tests/gui/support/Input.h"
#include "view/ActionMenu.h"

namespace tembrel::test {

namespace {

constexpr int kFrames = 100000;

QRgb Inverse(QRgb colour) {
  return 0xFF000000U | (~colour & 0xFFFFFFU);
}

// The picture with its columns [from, to) inverted.
QImage Inverted(QImage picture, int from, int to) {
  for (int x = from; x < to; ++x) {
    for (int y = 0; y < picture.height(); ++y) {
      picture.setPixel(x, y, Inverse(picture.pixel(x, y)));
    }
  }
  return picture;
}

QStringList Texts(const QMenu& menu) {
  QStringList texts;
  for (const QAction* action : menu.actions()) {
    texts << action->text();
  }
  return texts;
}

QList<int> EnabledIds(const QMenu& menu) {
  QList<int> ids;
  for (const QAction* action : menu.actions()) {
    if (action->isEnabled()) {
      ids << action->data().toInt();
    }
  }
  return ids;
}

// Of a 16-bit stereo sound.
FrameRange SelectedFrames(AudioEditWindow& window) {
  constexpr std::int64_t frameSize = 4;
  return {window.View().SelectionStart() / frameSize, window.View().SelectionEnd() / frameSize};
}

class SelectingTest : public QObject {
  Q_OBJECT

 private:
  static AudioWin& OpenQuarter(Desk& desk, std::int64_t first) {
    AudioWin& window = desk.OpenWave("long.wav", kFrames);
    desk.View().View().Show(first, kFrames / 4);
    desk.View().View().SetCursorPosition(first, false);
    QCoreApplication::processEvents();
    return window;
  }
  static QImage EditItem(Desk& desk) {
    const QMenuBar* bar = desk.Frame().menuBar();
    return OnScreen(*desk.Frame().menuBar()).copy(bar->actionGeometry(bar->actions().at(1)));
  }
  static bool DragFromTo(
      Desk& desk, double from, double to, const std::function<void(QMenu&)>& answer = [](QMenu&) {}) {
    return WithActionMenu(
        [&] {
          BeginDrag(desk.View(), from, to);
          EndDrag(desk.View(), to);
        },
        answer);
  }

 private Q_SLOTS:
  void TheStripIsTheInverseOfWhatIsUnderIt_data() {
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::newRow("to the right") << 100 << 300;
    QTest::newRow("to the left") << 300 << 100;
    QTest::newRow("one column") << 200 << 201;
    QTest::newRow("beyond the left edge") << 50 << -20;
  }
  void TheStripIsTheInverseOfWhatIsUnderIt() {
    QFETCH(const int, from);
    QFETCH(const int, to);
    Desk desk;
    AudioWin& window = desk.OpenWave("long.wav", kFrames);
    BeginDrag(desk.View(), from, to);
    const QImage shown = OnScreen(desk.View());
    const QImage plain = ExpectedView(window, shown.size(), false);
    QCOMPARE(shown, Inverted(plain, std::max(0, std::min(from, to)), std::max(from, to)));
    desk.View().View().CancelDrag();
    const QImage after = OnScreen(desk.View());
    QCOMPARE(after, ExpectedView(window, after.size()));
  }

  void TheStripFollowsTheMouseToAndFro() {
    Desk desk;
    AudioWin& window = desk.OpenWave("long.wav", kFrames);
    BeginDrag(desk.View(), 200, 220);
    for (const int x : {400, 210, 150, 20, 199, 200, 201, 333}) {
      DragTo(desk.View(), {static_cast<double>(x), kDragRow});
      const QImage shown = OnScreen(desk.View());
      const QImage plain = ExpectedView(window, shown.size(), false);
      QCOMPARE(shown, Inverted(plain, std::min(200, x), std::max(200, x)));
    }
    QVERIFY(WithActionMenu([&desk] { EndDrag(desk.View(), 333); }));
  }

  void AfterTheMenuNoTraceIsLeft() {
    Desk desk;
    AudioWin& window = desk.OpenWave("long.wav", kFrames);
    const QImage before = OnScreen(desk.View());
    QVERIFY(DragFromTo(desk, 100, 300, [&desk, &window](QMenu&) {
      const QImage open = OnScreen(desk.View());
      const QImage plain = ExpectedView(window, open.size(), false);
      // The cursor stands at the selection's start.
      const QImage strip = Inverted(plain, 100, 300);
      for (const int column : DifferingColumns(open, strip)) {
        QVERIFY(column >= 98 && column <= 101);
      }
    }));
    QVERIFY(!desk.View().View().HasSelection());
    const QImage after = OnScreen(desk.View());
    QCOMPARE(after, ExpectedView(window, after.size()));
    desk.View().View().SetCursorPosition(0, false);
    QCOMPARE(OnScreen(desk.View()), before);
  }

  void TheMenuOpensBesideTheReleasedMouse() {
    Desk desk;
    desk.OpenWave("long.wav", kFrames);
    QPoint place;
    QVERIFY(DragFromTo(desk, 40, 140, [&place](QMenu& menu) { place = menu.pos(); }));
    QCOMPARE(place, desk.View().mapToGlobal(QPoint(140 + 28, int(kDragRow) - 1)));
  }

  void TheMenuHoldsTheActionsInOrder() {
    Desk desk;
    desk.OpenWave("long.wav", kFrames);
    QStringList texts;
    QList<int> ids;
    QList<int> enabled;
    QVERIFY(DragFromTo(desk, 40, 140, [&](QMenu& menu) {
      texts = Texts(menu);
      for (const QAction* action : menu.actions()) {
        ids << action->data().toInt();
      }
      enabled = EnabledIds(menu);
    }));
    QCOMPARE(texts, QStringList({"&Cut", "Co&py", "&Insert", "&Amplify...", "Si&lence", "Fade &In",
                                 "Fade &Out", "&Normalize", "&Compress", "&Reverb", "&Filter...",
                                 "Remove N&oise", "&Duration...", "&Pitch...", "&Play"}));
    QCOMPARE(ids, QList<int>({8246, 8248, 8249, 8262, 8268, 8264, 8266, 8267, 8261, 8263, 8269, 8271, 8338,
                              8256, 8260}));
    for (const int id : ids) {
      QCOMPARE(enabled.contains(id), IsActionBuilt(id));
    }
    QVERIFY(enabled.contains(kActionCut) && enabled.contains(kActionCopy) && enabled.contains(kActionInsert));
  }

  void TheEditItemOfTheMenuBarIsHighlightedWhileTheMenuIsOpen() {
    Desk desk;
    desk.OpenWave("long.wav", kFrames);
    const QImage before = EditItem(desk);
    QImage open;
    QVERIFY(DragFromTo(desk, 40, 140, [&](QMenu&) { open = EditItem(desk); }));
    QVERIFY(open != before);
    QCOMPARE(EditItem(desk), before);
  }

  void EscapeClosesTheMenuAndClearsTheSelection() {
    Desk desk;
    AudioWin& window = desk.OpenWave("long.wav", kFrames);
    const auto before = SoundOf(window);
    bool selected = false;
    bool closed = false;
    QVERIFY(DragFromTo(desk, 40, 140, [&](QMenu& menu) {
      selected = desk.View().View().HasSelection();
      QTest::keyClick(&menu, Qt::Key_Escape);
      closed = QApplication::activePopupWidget() == nullptr;
    }));
    QVERIFY(selected);
    QVERIFY(closed);
    QVERIFY(!desk.View().View().HasSelection());
    QCOMPARE(SoundOf(window), before);
    QVERIFY(!window.Doc().CanUndo());
  }

  void AClickElsewhereClosesTheMenuAndClearsTheSelection() {
    Desk desk;
    AudioWin& window = desk.OpenWave("long.wav", kFrames);
    bool closed = false;
    QVERIFY(DragFromTo(desk, 40, 140, [&](QMenu&) {
      const QPoint elsewhere = desk.View().mapTo(&desk.Frame(), QPoint(20, 100));
      QTest::mouseClick(desk.Frame().windowHandle(), Qt::LeftButton, {}, elsewhere);
      closed = QApplication::activePopupWidget() == nullptr;
    }));
    QVERIFY(closed);
    QVERIFY(!desk.View().View().HasSelection());
    QVERIFY(!desk.View().View().Dragging());
    QVERIFY(!window.Doc().CanUndo());
    const QImage shown = OnScreen(desk.View());
    QCOMPARE(shown, ExpectedView(window, shown.size()));
    QVERIFY(DragFromTo(desk, 40, 140));  // and the next selection is made as ever
  }

  void TheCursorGoesToTheSmallerEnd() {
    Desk desk;
    desk.OpenWave("long.wav", kFrames);
    const FrameRange range = FramesBetween(desk.View(), 100, 300);
    QVERIFY(DragFromTo(desk, 300, 100));
    QCOMPARE(desk.View().View().CursorFrame(), range.start);
    desk.View().View().SetCursorPosition(0, false);
    QVERIFY(DragFromTo(desk, 100, 300));
    QCOMPARE(desk.View().View().CursorFrame(), range.start);
    QCOMPARE(SelectedFrames(desk.View()), range);
  }

  void ADragOfFourPixelsIsAClick() {
    Desk desk;
    desk.OpenWave("long.wav", kFrames);
    const std::int64_t fourPixels = std::int64_t{4} * kFrames / desk.View().width();
    for (int from = 100; from < 104; ++from) {
      for (int pixels = 3; pixels < 6; ++pixels) {
        const FrameRange range = FramesBetween(desk.View(), from, from + pixels);
        const bool counts = range.end - range.start > fourPixels;
        QCOMPARE(DragFromTo(desk, from, from + pixels), counts);
        QCOMPARE(DragFromTo(desk, from + pixels, from), counts);
        QCOMPARE(desk.View().View().CursorFrame(), range.start);
      }
    }
  }

  void AClickForgetsNoRange() {
    Desk desk;
    desk.OpenWave("long.wav", kFrames);
    Click(desk.View(), {100.0, kDragRow});
    QVERIFY(!desk.View().View().HasLastRange());
    QVERIFY(DragFromTo(desk, 100, 300));
    Click(desk.View(), {200.0, kDragRow});
    QVERIFY(desk.View().View().HasLastRange());
  }

  void ZoomedInADragOfFourFramesIsAClick() {
    Desk desk;
    desk.OpenWave("long.wav", kFrames);
    desk.View().View().Show(1000, 20);
    const double width = desk.View().width();
    const auto columnOf = [width](int frame) { return std::ceil(width * frame / 20) + 1; };
    QVERIFY(!DragFromTo(desk, columnOf(5), columnOf(9)));
    QVERIFY(DragFromTo(desk, columnOf(5), columnOf(10)));
    QCOMPARE(SelectedFrames(desk.View()), (FrameRange{1005, 1010}));
  }

  void TheRightButtonOpensNoMenu() {
    Desk desk;
    AudioWin& window = desk.OpenWave("long.wav", kFrames);
    const bool menu = WithActionMenu([&desk] {
      SendMouse(desk.View(), QEvent::MouseButtonPress, {100.0, kDragRow}, Qt::RightButton);
      SendMouse(desk.View(), QEvent::MouseMove, {300.0, kDragRow});
      SendMouse(desk.View(), QEvent::MouseButtonRelease, {300.0, kDragRow}, Qt::RightButton);
    });
    QVERIFY(!menu);
    QVERIFY(!desk.View().View().HasLastRange());
    QCOMPARE(desk.View().View().CursorFrame(), FramesBetween(desk.View(), 300, 300).start);
    const QImage shown = OnScreen(desk.View());
    QCOMPARE(shown, ExpectedView(window, shown.size()));
  }

  void OtherToolsSelectNothing() {
    Desk desk;
    desk.OpenWave("long.wav", kFrames);
    for (int tool = 1; tool < 8; ++tool) {
      desk.View().View().SetTool(tool);
      QVERIFY(!DragFromTo(desk, 100, 300));
    }
    QVERIFY(!desk.View().View().HasLastRange());
  }

  void ADragBeyondTheLeftEdgeScrollsBackAndSelectsOn() {
    Desk desk;
    AudioWin& window = OpenQuarter(desk, 50000);
    EditView& view = desk.View().View();
    const FrameRange anchor = FramesBetween(desk.View(), 300, 300);
    // By events of the frame's window: those the platform makes for the pointer that is put back then tell,
    // too, that the button is held.
    QWindow* frame = desk.Frame().windowHandle();
    const auto InFrame = [&desk](int x) {
      return desk.View().mapTo(&desk.Frame(), QPoint(x, int(kDragRow)));
    };
    QTest::mousePress(frame, Qt::LeftButton, {}, InFrame(300));
    QTest::mouseMove(frame, InFrame(10));
    const std::int64_t beyond = view.FrameAt(-8);
    DragTo(desk.View(), {-8.0, kDragRow});
    QCOMPARE(view.FirstVisibleFrame(), 50000 - kFrames / 16);
    const std::int64_t pointerX =
        FrameToPixel(beyond, view.FirstVisibleFrame(), kFrames / 4, desk.View().width());
    QCOMPARE(desk.View().mapFromGlobal(QCursor::pos()).x(), pointerX);
    const QImage shown = OnScreen(desk.View());
    const QImage plain = ExpectedView(window, shown.size(), false);
    const std::int64_t anchorX =
        FrameToPixel(anchor.start, view.FirstVisibleFrame(), kFrames / 4, desk.View().width());
    QCOMPARE(shown, Inverted(plain, static_cast<int>(pointerX), static_cast<int>(anchorX)));
    const FrameRange end = FramesBetween(desk.View(), 20, 20);
    DragTo(desk.View(), {20.0, kDragRow});
    QVERIFY(WithActionMenu([&] { QTest::mouseRelease(frame, Qt::LeftButton, {}, InFrame(20)); }));
    QCOMPARE(SelectedFrames(desk.View()), (FrameRange{end.start, anchor.start}));
  }

  void ADragBeyondTheRightEdgeScrollsOn() {
    Desk desk;
    OpenQuarter(desk, 50000);
    EditView& view = desk.View().View();
    const int width = desk.View().width();
    const FrameRange anchor = FramesBetween(desk.View(), 100, 100);
    BeginDrag(desk.View(), 100, width - 5);
    for (const std::int64_t first : {56250, 62500, 68750, 75000, 75000}) {
      DragTo(desk.View(), {width + 8.0, kDragRow});
      QCOMPARE(view.FirstVisibleFrame(), first);
    }
    QVERIFY(WithActionMenu([&desk, width] { EndDrag(desk.View(), width + 8.0); }));
    QCOMPARE(SelectedFrames(desk.View()), (FrameRange{anchor.start, kFrames}));
  }

  void SelectAllLeadsStraightToTheMenu() {
    Desk desk;
    AudioWin& window = desk.OpenWave("long.wav", kFrames);
    QStringList texts;
    QVERIFY(WithActionMenu([&desk] { QTest::keyClick(&desk.View(), Qt::Key_A, Qt::ControlModifier); },
                           [&](QMenu& menu) {
                             texts = Texts(menu);
                             const QImage shown = OnScreen(desk.View());
                             const QImage plain = ExpectedView(window, shown.size(), false);
                             const QImage strip = Inverted(plain, 0, shown.width());
                             QVERIFY(DifferingColumns(shown, strip).size() <= 3);
                           }));
    QCOMPARE(texts.size(), 15);
    QCOMPARE(SelectedFrames(desk.View()), (FrameRange{0, kFrames}));
    QVERIFY(!desk.View().View().HasSelection());
  }

  void SelectLastRangeComesWithTheFirstSelection() {
    Desk desk;
    desk.OpenWave("long.wav", kFrames);
    desk.OpenedMenu("&Edit");
    QVERIFY(!desk.Command(kCommandSelectLastRange)->isEnabled());
    QVERIFY(!WithActionMenu([&desk] { desk.Run(kCommandSelectLastRange); }));
    QVERIFY(DragFromTo(desk, 100, 300));
    QVERIFY(desk.Command(kCommandSelectLastRange)->isEnabled());
    const FrameRange range = SelectedFrames(desk.View());
    desk.View().View().SetCursorPosition(90000, true);
    QVERIFY(WithActionMenu([&desk] { desk.Run(kCommandSelectLastRange); },
                           [&desk](QMenu&) { QVERIFY(desk.View().View().HasSelection()); }));
    QCOMPARE(SelectedFrames(desk.View()), range);
    // Another document has a range of its own.
    desk.OpenWave("other.wav");
    desk.OpenedMenu("&Edit");
    QVERIFY(!desk.Command(kCommandSelectLastRange)->isEnabled());
  }

  void AnEmptyDocumentHasNothingToSelect() {
    Desk desk;
    desk.Client().RunCommand(kCommandNew);
    QVERIFY(!DragFromTo(desk, 100, 300));
    QVERIFY(!WithActionMenu([&desk] { desk.Run(kCommandSelectAll); }));
  }

  void TheMouseTakenAwayEndsTheDragWithoutAMenu() {
    Desk desk;
    AudioWin& window = desk.OpenWave("long.wav", kFrames);
    BeginDrag(desk.View(), 100, 300);
    QEvent gone(QEvent::UngrabMouse);
    QApplication::sendEvent(&desk.View(), &gone);
    QVERIFY(!desk.View().View().Dragging());
    QVERIFY(!WithActionMenu([&desk] { EndDrag(desk.View(), 300); }));
    const QImage shown = OnScreen(desk.View());
    QCOMPARE(shown, ExpectedView(window, shown.size()));
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::SelectingTest)

#include "selecting_test.moc"
