// The document's scroll bar speaks in scroll codes, follows the view, and has three zoom buttons at its end.
#include <QObject>
#include <QSignalSpy>
#include <QToolButton>

#include "tests/gui/support/Desk.h"
#include "tests/gui/support/GuiMain.h"
#include "tests/gui/support/Input.h"

namespace tembrel::test {

namespace {

constexpr int kFrames = 100000;
constexpr double kArrow = 4;  // a pixel inside the arrow at either end

class ScrollBarTest : public QObject {
  Q_OBJECT

 private:
  using Request = QPair<int, int>;

  static QList<Request> Requests(const QSignalSpy& spy) {
    QList<Request> requests;
    for (const QList<QVariant>& arguments : spy) {
      requests << Request(arguments.at(0).toInt(), arguments.at(1).toInt());
    }
    return requests;
  }

  static QToolButton* ZoomButton(Desk& desk, int id) {
    for (QToolButton* button : desk.Active()->findChildren<QToolButton*>()) {
      if (button->property("controlId").toInt() == id) {
        return button;
      }
    }
    return nullptr;
  }

  // A quarter of the sound from frame `first` on is on the screen.
  static EditView& OpenQuarter(Desk& desk, std::int64_t first = 0) {
    desk.OpenWave("long.wav", kFrames);
    EditView& view = desk.View().View();
    view.Show(first, kFrames / 4);
    QCoreApplication::processEvents();
    return view;
  }

 private Q_SLOTS:
  void OneThatHasBeenToldNothingHasNothingToScroll() {
    const TMyScrollBar bar(Qt::Horizontal, nullptr);
    QVERIFY(bar.pageStep() > 100 * bar.maximum());
    QCOMPARE(bar.value(), 0);
  }

  void ItHasTheStatedIdRangeAndPlace() {
    Desk desk;
    desk.OpenWave();
    const TMyScrollBar& bar = desk.ScrollBar();
    QCOMPARE(bar.minimum(), 0);
    QCOMPARE(bar.maximum(), 100);
    QCOMPARE(bar.geometry().topLeft(), QPoint(-1, 16));
    QCOMPARE(bar.height(), 17);
    int right = bar.geometry().right() + 1;
    for (const int id : {0x2001, 0x2002, 0x2003}) {
      const QToolButton* button = ZoomButton(desk, id);
      QVERIFY(button != nullptr);
      QCOMPARE(button->geometry(), QRect(right, 16, 17, 17));
      right += 17;
    }
    QCOMPARE(right, desk.Active()->width());
  }

  void ItsArrowsScrollAQuarterScreen() {
    Desk desk;
    const EditView& view = OpenQuarter(desk);
    TMyScrollBar& bar = desk.ScrollBar();
    const QSignalSpy spy(&bar, &TMyScrollBar::scrollRequested);
    Click(bar, {bar.width() - kArrow, 8.0});
    QCOMPARE(view.FirstVisibleFrame(), kFrames / 16);
    QCOMPARE(bar.value(), 8);  // 6250 of 75000
    Click(bar, {kArrow, 8.0});
    QCOMPARE(view.FirstVisibleFrame(), 0);
    QCOMPARE(Requests(spy).at(0).first, 1);
    QCOMPARE(Requests(spy).at(1).first, 0);
    QCOMPARE(spy.size(), 2);
  }

  void AClickBesideTheThumbScrollsAScreen() {
    Desk desk;
    const EditView& view = OpenQuarter(desk);
    TMyScrollBar& bar = desk.ScrollBar();
    const QSignalSpy spy(&bar, &TMyScrollBar::scrollRequested);
    Click(bar, {bar.width() - 30.0, 8.0});
    QCOMPARE(view.FirstVisibleFrame(), kFrames / 4);
    QCOMPARE(bar.value(), 33);
    Click(bar, {bar.width() - 30.0, 8.0});
    Click(bar, {30.0, 8.0});
    QCOMPARE(view.FirstVisibleFrame(), kFrames / 4);
    QCOMPARE(spy.size(), 3);
    QCOMPARE(Requests(spy).at(0).first, 3);
    QCOMPARE(Requests(spy).at(2).first, 2);
  }

  void DraggingTheThumbTracksWithTheCounterAndScrollsAtTheRelease() {
    Desk desk;
    const EditView& view = OpenQuarter(desk);
    TMyScrollBar& bar = desk.ScrollBar();
    const QSignalSpy spy(&bar, &TMyScrollBar::scrollRequested);
    const QSignalSpy counter(&desk.View(), &AudioEditWindow::counterChanged);
    SendMouse(bar, QEvent::MouseButtonPress, {30.0, 8.0});
    SendMouse(bar, QEvent::MouseMove, {120.0, 8.0});
    SendMouse(bar, QEvent::MouseMove, {180.0, 8.0});
    QCOMPARE(spy.size(), 2);
    const int percent = Requests(spy).last().second;
    QVERIFY(percent > 20 && percent < 60);
    QCOMPARE(Requests(spy).first().first, 5);
    QCOMPARE(Requests(spy).last().first, 5);
    QCOMPARE(view.FirstVisibleFrame(), 0);  // only the counter follows
    QCOMPARE(counter.last().first().toLongLong(), qint64{75000} * percent / 100);
    SendMouse(bar, QEvent::MouseButtonRelease, {180.0, 8.0});
    QCOMPARE(spy.size(), 3);
    QCOMPARE(Requests(spy).last(), Request(4, percent));
    QCOMPARE(view.FirstVisibleFrame(), 75000 * percent / 100);
    QCOMPARE(bar.value(), percent);
    QCOMPARE(view.CursorFrame(), view.FirstVisibleFrame());  // it had gone off the screen
  }

  void AClickOnTheThumbAsksForNothing() {
    Desk desk;
    const EditView& view = OpenQuarter(desk, 333);  // between two percents
    TMyScrollBar& bar = desk.ScrollBar();
    const QSignalSpy spy(&bar, &TMyScrollBar::scrollRequested);
    Click(bar, {40.0, 8.0});
    QVERIFY(spy.isEmpty());
    QCOMPARE(view.FirstVisibleFrame(), 333);
  }

  void AThumbDraggedAndBroughtBackScrollsToItsPercent() {
    Desk desk;
    const EditView& view = OpenQuarter(desk, 333);
    TMyScrollBar& bar = desk.ScrollBar();
    const QSignalSpy counter(&desk.View(), &AudioEditWindow::counterChanged);
    SendMouse(bar, QEvent::MouseButtonPress, {40.0, 8.0});
    SendMouse(bar, QEvent::MouseMove, {150.0, 8.0});
    SendMouse(bar, QEvent::MouseMove, {40.0, 8.0});
    SendMouse(bar, QEvent::MouseButtonRelease, {40.0, 8.0});
    QCOMPARE(view.FirstVisibleFrame(), 0);
    QCOMPARE(counter.last().first().toLongLong(), view.CursorFrame());  // not where the thumb was
  }

  void TheThumbFollowsTheViewWithoutAskingForAnything() {
    Desk desk;
    EditView& view = OpenQuarter(desk);
    TMyScrollBar& bar = desk.ScrollBar();
    const QSignalSpy spy(&bar, &TMyScrollBar::scrollRequested);
    view.HorizontalScroll(ScrollCode::RightEnd, 100);
    QCOMPARE(bar.value(), 100);
    view.HorizontalScroll(ScrollCode::ShowFrame, 30000);
    QCOMPARE(bar.value(), 33);
    QVERIFY(spy.isEmpty());
  }

  void TheThumbIsAsLongAsTheVisibleShare() {
    Desk desk;
    EditView& view = OpenQuarter(desk);
    const TMyScrollBar& bar = desk.ScrollBar();
    const double share = static_cast<double>(bar.pageStep()) / (bar.pageStep() + 100);
    QVERIFY(std::abs(share - 0.25) < 0.01);
    view.ZoomAll();
    QVERIFY(static_cast<double>(bar.pageStep()) / (bar.pageStep() + 100) > 0.99);
  }

  void InTheWholeFileNothingScrolls() {
    Desk desk;
    desk.OpenWave("long.wav", kFrames);
    TMyScrollBar& bar = desk.ScrollBar();
    Click(bar, {bar.width() - kArrow, 8.0});
    QCOMPARE(desk.View().View().FirstVisibleFrame(), 0);
    QCOMPARE(bar.value(), 0);
  }

  void AnEmptyDocumentCanBeScrolledAndZoomedWithoutHarm() {
    Desk desk;
    desk.Client().RunCommand(kCommandNew);
    TMyScrollBar& bar = desk.ScrollBar();
    for (const int id : {0x2002, 0x2001, 0x2001, 0x2003, 0x2002}) {
      ZoomButton(desk, id)->click();
      Click(bar, {bar.width() - kArrow, 8.0});
      Click(bar, {kArrow, 8.0});
    }
    QVERIFY(desk.View().View().FirstVisibleFrame() >= 0);
    QCOMPARE(desk.View().View().CursorFrame(), 0);
  }

  void TheZoomButtonsHalveDoubleAndShowAll() {
    Desk desk;
    const EditView& view = OpenQuarter(desk);
    ZoomButton(desk, 0x2002)->click();
    QCOMPARE(view.FramesOnScreen(), kFrames / 8);
    ZoomButton(desk, 0x2001)->click();
    ZoomButton(desk, 0x2001)->click();
    QCOMPARE(view.FramesOnScreen(), kFrames / 2);
    ZoomButton(desk, 0x2002)->click();
    ZoomButton(desk, 0x2003)->click();
    QCOMPARE(view.FramesOnScreen(), kFrames);
    QCOMPARE(view.FirstVisibleFrame(), 0);
  }

  void ThePositionIsRightAfterAResize() {
    Desk desk;
    const EditView& view = OpenQuarter(desk, 75000);
    QCOMPARE(desk.ScrollBar().value(), 100);
    desk.ActiveChild()->resize(400, 300);
    QCoreApplication::processEvents();
    QCOMPARE(view.FirstVisibleFrame(), 75000);
    QCOMPARE(desk.ScrollBar().value(), 100);
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::ScrollBarTest)

#include "scroll_bar_test.moc"
