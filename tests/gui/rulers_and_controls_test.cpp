// What stands around the waveform: rulers, amplitude scale, position counter, and the top strip with its
// buttons, scroller and tool tips.
#include <QElapsedTimer>
#include <QObject>
#include <QToolButton>

#include "app/ui/TopStrip.h"
#include "picture/AxisLabel.h"
#include "tests/gui/support/ActionMenu.h"
#include "tests/gui/support/Desk.h"
#include "tests/gui/support/GuiMain.h"
#include "tests/gui/support/Input.h"
#include "view/ActionMenu.h"
#include "view/PixelMap.h"
#include "view/RulerMarks.h"
#include "view/StripButtons.h"
#include "view/ui/CountWin.h"
#include "view/ui/RulerWindow.h"
#include "view/ui/ScrollerWindow.h"

namespace tembrel::test {

namespace {

constexpr int kFrames = 441000;  // ten seconds

// The columns with this colour in these rows.
QList<int> ColumnsOf(const QImage& picture, QRgb colour, int fromRow, int toRow) {
  QList<int> columns;
  for (int x = 0; x < picture.width(); ++x) {
    for (int y = fromRow; y < toRow; ++y) {
      if (picture.pixel(x, y) == colour) {
        columns << x;
        break;
      }
    }
  }
  return columns;
}

bool IsFilled(const QImage& picture, int column, QRgb colour) {
  for (int y = 0; y < picture.height(); ++y) {
    if (picture.pixel(column, y) != colour) {
      return false;
    }
  }
  return true;
}

// How many stretches of rows have anything on the paper. The first column lies outside the window.
int TextRows(const QImage& picture) {
  int count = 0;
  bool inside = false;
  for (int y = 0; y < picture.height(); ++y) {
    bool ink = false;
    for (int x = 1; x < picture.width(); ++x) {
      ink = ink || picture.pixel(x, y) != kRulerPaperColor;
    }
    count += ink && !inside ? 1 : 0;
    inside = ink;
  }
  return count;
}

// How many pixels of a column are not paper.
int Ink(const QImage& picture, int column) {
  int count = 0;
  for (int y = 0; y < picture.height(); ++y) {
    count += picture.pixel(column, y) != kRulerPaperColor ? 1 : 0;
  }
  return count;
}

class PaintCounter : public QObject {
 public:
  int paints = 0;

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    paints += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
};

class RulersAndControlsTest : public QObject {
  Q_OBJECT

 private:
  static QWidget& Part(Desk& desk, const char* name) { return *desk.Active()->findChild<QWidget*>(name); }
  static RulerWindow& SampleRulerOf(Desk& desk) {
    return static_cast<RulerWindow&>(Part(desk, "AudioSamplesWindow"));
  }
  static RulerWindow& TimeRulerOf(Desk& desk) {
    return static_cast<RulerWindow&>(Part(desk, "AudioTimeWindow"));
  }
  static TopStrip& Strip(Desk& desk) { return *desk.Frame().findChild<TopStrip*>(); }
  static QToolButton* StripButtonNamed(Desk& desk, std::string_view name) {
    for (QToolButton* button : Strip(desk).findChildren<QToolButton*>()) {
      if (button->accessibleName() == QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()))) {
        return button;
      }
    }
    return nullptr;
  }
  // The left end of the scroller's thumb.
  static int Thumb(Desk& desk) {
    ScrollerWindow& scroller = *Strip(desk).Scroller();
    const QColor colour = scroller.palette().color(QPalette::Highlight);
    const QList<int> columns = ColumnsOf(OnScreen(scroller), colour.rgb(), 5, 9);
    return columns.isEmpty() ? -1 : columns.first();
  }
  static void LeaveView(Desk& desk) {
    QEvent left(QEvent::Leave);
    QApplication::sendEvent(&desk.View(), &left);
  }
  static void PutMouse(Desk& desk, QWidget& over) {
    QTest::mouseMove(desk.Frame().windowHandle(), over.mapTo(&desk.Frame(), over.rect().center()));
  }

 private Q_SLOTS:
  void TheRulersShowTheTicksOfTheView() {
    Desk desk;
    desk.OpenWave("a.wav", kFrames);
    desk.View().View().Show(44100, 44100);
    const int width = desk.View().width();
    QCOMPARE(SampleRulerOf(desk).width(), width);
    QVERIFY(width / 120 == 4);  // so a tick every 10,000 frames and every 0.2 seconds
    QList<int> sampleTicks;
    for (int frame = 50000; frame < 88200; frame += 10000) {
      const int x = static_cast<int>(double(frame - 44100) * width / 44100);
      if (x > 50) {
        sampleTicks << x;
      }
    }
    const QImage samples = OnScreen(SampleRulerOf(desk));
    QCOMPARE(ColumnsOf(samples, kTickColor, samples.height() - 3, samples.height()), sampleTicks);
    const QImage times = OnScreen(TimeRulerOf(desk));
    const QList<int> timeTicks = ColumnsOf(times, kTickColor, 0, 3);
    QCOMPARE(timeTicks.size(), 4);
    for (int i = 0; i < 4; ++i) {
      QVERIFY(std::abs(timeTicks.at(i) - (i + 1) * 0.2 * width) <= 1);
    }
  }

  void TheRulersFollowEveryScrollAndZoom() {
    Desk desk;
    desk.OpenWave("a.wav", kFrames);
    EditView& view = desk.View().View();
    view.Show(0, kFrames / 8);
    for (RulerWindow* ruler : {&SampleRulerOf(desk), &TimeRulerOf(desk)}) {
      const QImage start = OnScreen(*ruler);
      TurnWheel(desk.View(), -1);
      const QImage scrolled = OnScreen(*ruler);
      QVERIFY(scrolled != start);
      TurnWheel(desk.View(), 1);
      QCOMPARE(OnScreen(*ruler), start);
      view.ZoomIn();
      QVERIFY(OnScreen(*ruler) != start);
      view.Show(0, kFrames / 8);
      QCOMPARE(OnScreen(*ruler), start);
      desk.ScrollBar().triggerAction(QAbstractSlider::SliderPageStepAdd);
      QVERIFY(OnScreen(*ruler) != start);
      view.Show(0, kFrames / 8);
    }
  }

  void TheRulersFollowAnEdit() {
    Desk desk;
    desk.OpenWave("a.wav", kFrames);
    const QImage before = OnScreen(SampleRulerOf(desk));
    QVERIFY(DragAndChoose(desk.View(), 100, 400, kActionCut));
    LeaveView(desk);
    QVERIFY(OnScreen(SampleRulerOf(desk)) != before);
    desk.Run(kCommandUndo);
    desk.View().View().ZoomAll();
    QCOMPARE(OnScreen(SampleRulerOf(desk)), before);
  }

  void TheRulersMarkTheFrameUnderTheMouse() {
    Desk desk;
    desk.OpenWave("a.wav", kFrames);
    for (RulerWindow* ruler : {&SampleRulerOf(desk), &TimeRulerOf(desk)}) {
      const QImage before = OnScreen(*ruler);
      for (const int x : {77, 200, 333}) {
        SendMouse(desk.View(), QEvent::MouseMove, {double(x), 40.0});
        const QImage marked = OnScreen(*ruler);
        const auto column =
            static_cast<int>(FrameToPixel(desk.View().View().FrameAt(x), 0, kFrames, desk.View().width()));
        QVERIFY(std::abs(column - x) <= 1);
        QVERIFY(IsFilled(marked, column, kRulerTextColor));
        QVERIFY(!IsFilled(before, column, kRulerTextColor));
      }
      LeaveView(desk);
      QCOMPARE(OnScreen(*ruler), before);
    }
  }

  void TheAmplitudeScaleHasOneSetOfLabelsAChannel() {
    Desk desk;
    desk.OpenWave("mono.wav", 1000, 16, 1);
    const int height = desk.View().height();
    QVERIFY(height >= 143 && height < 2 * 143);  // all labels for one channel, three each for two
    QCOMPARE(TextRows(OnScreen(Part(desk, "DecibalWin"))), 11);
    desk.OpenWave("stereo.wav", 1000, 16, 2);
    QCOMPARE(desk.View().height(), height);
    QCOMPARE(TextRows(OnScreen(Part(desk, "DecibalWin"))), 6);
    desk.ActiveChild()->setGeometry(0, 0, 624, 450);
    QCOMPARE(TextRows(OnScreen(Part(desk, "DecibalWin"))), 22);
  }

  // A number that lost its last digits at the edge would be another number.
  void TheRulersCutNoNumberOff() {
    Desk desk;
    desk.OpenWave("a.wav", kFrames);
    int labels = 0;
    for (int width = 200; width < 700; width += 7) {
      desk.ActiveChild()->resize(width, 300);
      const QImage samples = OnScreen(SampleRulerOf(desk));
      const QImage times = OnScreen(TimeRulerOf(desk));
      for (const QImage& text : {samples.copy(0, 0, samples.width(), samples.height() - 4),
                                 times.copy(0, 4, times.width(), times.height() - 4)}) {
        QCOMPARE(Ink(text, text.width() - 1), 0);
        labels += Ink(text, text.width() / 2);
      }
    }
    QVERIFY(labels > 0);
  }

  void TheAmplitudeScaleOfALowWindowHasItsThreeLevels() {
    Desk desk;
    desk.OpenWave("stereo.wav", 1000, 16, 2);
    desk.ActiveChild()->resize(desk.ActiveChild()->minimumSizeHint());
    const QImage scale = OnScreen(Part(desk, "DecibalWin"));
    QVERIFY(scale.height() < 100);
    QCOMPARE(TextRows(scale), 6);
  }

  void TheCounterTellsFrameAndSeconds() {
    Desk desk;
    desk.OpenWave("a.wav", kFrames);
    CountWin& counter = *Strip(desk).Counter();
    PaintCounter watch;
    QCoreApplication::processEvents();
    const QImage start = OnScreen(counter);
    counter.installEventFilter(&watch);
    QTest::keyClick(&desk.View(), Qt::Key_Home);
    QCoreApplication::processEvents();
    QCOMPARE(watch.paints, 0);  // nothing new to tell
    Click(desk.View(), {200.0, 40.0});
    const std::int64_t frame = desk.View().View().CursorFrame();
    QVERIFY(frame > 0);
    QCOMPARE(counter.accessibleName(), QString("Position: frame %1, %2 seconds")
                                           .arg(frame)
                                           .arg(static_cast<double>(frame) / 44100, 0, 'f', 3));
    QVERIFY(OnScreen(counter) != start);
    QVERIFY(watch.paints > 0);
    desk.OpenWave("slow.wav", 1000, 16, 1, 8000);
    desk.View().View().SetCursorPosition(400, false);
    QCOMPARE(counter.accessibleName(), "Position: frame 400, 0.050 seconds");
  }

  void TheTransportButtonsHaveTheirNames() {
    Desk desk;
    desk.OpenWave();
    QStringList names;
    for (const StripButton& row : StripButtons()) {
      const QToolButton* button = StripButtonNamed(desk, StripButtonName(row));
      QVERIFY(button != nullptr);
      QVERIFY(row.built || !button->isEnabled());
      names << button->accessibleName();
    }
    QCOMPARE(names,
             QStringList({"Rewind", "Play", "Pause", "Stop", "Record", "Move In Time", "Time Display"}));
  }

  void ATipComesUpWhereTheMouseRests() {
    Desk desk;
    auto* tip = desk.Frame().findChild<QWidget*>("ToolTipWindow");
    QVERIFY(tip != nullptr && !tip->isVisible());
    QToolButton& play = *StripButtonNamed(desk, "Play");
    QToolButton& stop = *StripButtonNamed(desk, "Stop");
    PutMouse(desk, *Strip(desk).Counter());
    QElapsedTimer rested;
    rested.start();
    PutMouse(desk, play);
    QTRY_VERIFY_WITH_TIMEOUT(tip->isVisible(), 5000);
    QVERIFY(rested.elapsed() >= 1000);  // not while the mouse passes by
    QCOMPARE(tip->accessibleName(), "Play");
    const QPoint under = play.mapTo(&desk.Frame(), play.rect().center()) + QPoint(0, 16);
    QCOMPARE(tip->pos(), under);
    QCOMPARE(tip->size(), QSize(tip->fontMetrics().horizontalAdvance("Play") + 6, 16));
    PutMouse(desk, stop);
    QTRY_COMPARE_WITH_TIMEOUT(tip->accessibleName(), "Stop", 500);  // moves on without a delay
    QVERIFY(tip->isVisible());
    QCOMPARE(tip->x(), stop.mapTo(&desk.Frame(), stop.rect().center()).x());
    PutMouse(desk, *Strip(desk).Counter());
    QTRY_VERIFY_WITH_TIMEOUT(!tip->isVisible(), 1000);
  }

  void PositionControlsNeedADocument() {
    Desk desk;
    const auto Enabled = [&desk] {
      QList<bool> states{Strip(desk).Scroller()->isEnabled()};
      for (const PositionButton& row : PositionButtons()) {
        states << StripButtonNamed(desk, row.name)->isEnabled();
      }
      return states;
    };
    QCOMPARE(Enabled(), QList<bool>({false, false, false, false, false}));
    desk.OpenWave();
    QCOMPARE(Enabled(), QList<bool>({true, true, true, true, true}));
    desk.Run(kCommandClose);
    QCOMPARE(Enabled(), QList<bool>({false, false, false, false, false}));
  }

  void PositionButtonsScrollTheActiveDocument() {
    Desk desk;
    AudioWin& other = desk.OpenWave("other.wav", kFrames);
    other.EditWindow()->View().Show(1000, 1000);
    desk.OpenWave("a.wav", kFrames);
    const EditView& view = desk.View().View();
    desk.View().View().Show(0, 40000);
    const auto Push = [&desk](std::string_view name) {
      QTest::mouseClick(StripButtonNamed(desk, name), Qt::LeftButton);
    };
    Push("A quarter screen right");
    QCOMPARE(view.FirstVisibleFrame(), 10000);
    Push("A quarter screen right");
    Push("A quarter screen left");
    QCOMPARE(view.FirstVisibleFrame(), 10000);
    Push("To the end");
    QCOMPARE(view.FirstVisibleFrame(), kFrames - 40000);
    Push("To the start");
    QCOMPARE(view.FirstVisibleFrame(), 0);
    QCOMPARE(other.EditWindow()->View().FirstVisibleFrame(), 1000);
  }

  void TheScrollerScrollsTheActiveDocument() {
    Desk desk;
    desk.OpenWave("a.wav", kFrames);
    const EditView& view = desk.View().View();
    desk.View().View().Show(0, 41000);
    ScrollerWindow& scroller = *Strip(desk).Scroller();
    Click(scroller, {45.0, 7.0});  // beside the thumb
    QCOMPARE(view.FirstVisibleFrame(), 41000);
    const int thumb = Thumb(desk);
    Click(scroller, {1.0, 7.0});
    QCOMPARE(view.FirstVisibleFrame(), 0);
    QVERIFY(Thumb(desk) < thumb);
    SendMouse(scroller, QEvent::MouseButtonPress, {Thumb(desk) + 5.0, 7.0});
    SendMouse(scroller, QEvent::MouseMove, {Thumb(desk) + 24.0, 7.0});
    QCOMPARE(view.FirstVisibleFrame(), 0);  // it goes where the thumb is let go
    SendMouse(scroller, QEvent::MouseButtonRelease, {25.0, 7.0});
    QCOMPARE(view.FirstVisibleFrame(), (kFrames - 41000) / 2);
  }

  void TheScrollerFollowsTheActiveDocument() {
    Desk desk;
    desk.OpenWave("a.wav", kFrames);
    QCOMPARE(Thumb(desk), 1);
    desk.View().View().Show(kFrames / 2, kFrames / 2);
    QCOMPARE(Thumb(desk), 40);
    desk.OpenWave("b.wav", kFrames);
    QCOMPARE(Thumb(desk), 1);
    desk.Client().setActiveSubWindow(desk.Children().at(0));
    QCOMPARE(Thumb(desk), 40);
    TurnWheel(desk.View(), 4);
    QCOMPARE(Thumb(desk), 1);
  }

  void EveryControlHasANameAndATip() {
    Desk desk;
    desk.OpenWave();
    int controls = 0;
    for (const QWidget* root : QList<QWidget*>{desk.Active(), &Strip(desk)}) {
      for (const QWidget* widget : root->findChildren<QWidget*>()) {
        const bool tipOfItsOwn = widget->property("tipId").isValid();
        const QByteArray what = widget->objectName().toUtf8() + " " + widget->metaObject()->className() +
                                " " + widget->accessibleName().toUtf8();
        QVERIFY2(!widget->accessibleName().isEmpty(), what);
        QVERIFY2(widget == &desk.View() || tipOfItsOwn || !widget->toolTip().isEmpty(), what);
        ++controls;
      }
    }
    // The view, two scroll bars, three zoom and eight tool buttons, three rulers; seven transport and four
    // position buttons, scroller, counter.
    QCOMPARE(controls, 17 + 13);
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::RulersAndControlsTest)

#include "rulers_and_controls_test.moc"
