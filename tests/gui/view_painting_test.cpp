// What is on the screen in the waveform view, pixel by pixel.
#include <QObject>
#include <QPaintEvent>

#include "tests/gui/support/Desk.h"
#include "tests/gui/support/ExpectedView.h"
#include "tests/gui/support/GuiMain.h"
#include "tests/gui/support/Input.h"

namespace tembrel::test {

namespace {

// Gathers the parts of a widget that are painted.
class PaintWatch : public QObject {
 public:
  QRegion painted;

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      painted += static_cast<QPaintEvent*>(event)->region();
    }
    return false;
  }
};

class ViewPaintingTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TheScreenShowsTheComputedPicture_data() {
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("channels");
    for (const int bits : {8, 16}) {
      for (const int channels : {1, 2}) {
        QTest::addRow("%d bits, %d channels", bits, channels) << bits << channels;
      }
    }
  }
  void TheScreenShowsTheComputedPicture() {
    QFETCH(const int, bits);
    QFETCH(const int, channels);
    Desk desk;
    AudioWin& window =
        desk.OpenWave("a.wav", 5000, static_cast<std::uint32_t>(bits), static_cast<std::uint32_t>(channels));
    for (const std::int64_t frames : {5000, 1000, 40, 2}) {
      window.EditWindow()->View().Show(0, frames);
      const QImage shown = OnScreen(desk.View());
      QCOMPARE(shown.size(), desk.View().size());
      QCOMPARE(shown, ExpectedView(window, shown.size()));
    }
  }

  void AnEmptyDocumentShowsTheGridAndTheCursor() {
    Desk desk;
    desk.Client().RunCommand(kCommandNew);
    const QImage shown = OnScreen(desk.View());
    QCOMPARE(shown, ExpectedView(*desk.Active(), shown.size()));
    QCOMPARE(shown.pixel(1, 0), QRgb{kCursorColor});
    QCOMPARE(shown.pixel(10, 0), QRgb{kPaperColor});
  }

  void TheCursorInvertsThreeColumns() {
    Desk desk;
    AudioWin& window = desk.OpenWave("a.wav", 50000);
    const int x = 200;
    Click(desk.View(), {static_cast<double>(x), 20.0});
    const QImage shown = OnScreen(desk.View());
    const QImage without = ExpectedView(window, shown.size(), false);
    const QList<int> columns = DifferingColumns(shown, without);
    QCOMPARE(columns.size(), 3);
    QCOMPARE(columns.last(), columns.first() + 2);
    QVERIFY(std::abs(columns.at(1) - x) <= 1);
    for (int y = 0; y < shown.height(); ++y) {
      for (const int column : columns) {
        const QRgb below = without.pixel(column, y);
        QCOMPARE(shown.pixel(column, y), 0xFF000000U | (~(below ^ 0xFF00FFU) & 0xFFFFFFU));
      }
    }
  }

  void TheCursorLeavesNoTrace() {
    Desk desk;
    AudioWin& window = desk.OpenWave("a.wav", 50000);
    EditView& view = desk.View().View();
    const QImage before = OnScreen(desk.View());
    for (const std::int64_t frame : {1, 700, 701, 20000, 49999, 50000, 25000}) {
      view.SetCursorPosition(frame, false);
      const QImage shown = OnScreen(desk.View());
      QCOMPARE(shown, ExpectedView(window, shown.size()));
    }
    view.SetCursorPosition(0, false);
    QCOMPARE(OnScreen(desk.View()), before);
  }

  void TheCursorIsGoneWhileAButtonIsHeld() {
    Desk desk;
    AudioWin& window = desk.OpenWave("a.wav", 50000);
    SendMouse(desk.View(), QEvent::MouseButtonPress, {100.0, 20.0}, Qt::RightButton);
    const QImage held = OnScreen(desk.View());
    QCOMPARE(held, ExpectedView(window, held.size(), false));
    SendMouse(desk.View(), QEvent::MouseButtonRelease, {100.0, 20.0}, Qt::RightButton);
    const QImage after = OnScreen(desk.View());
    QCOMPARE(after, ExpectedView(window, after.size()));
  }

  // The samples change behind the view's back: only a waveform that is painted anew can show it.
  void AMovingCursorDoesNotPaintTheWaveformAnew() {
    Desk desk;
    AudioWin& window = desk.OpenWave("a.wav", 50000);
    EditView& view = desk.View().View();
    OnScreen(desk.View());
    const QImage oldPicture = ExpectedView(window, desk.View().size(), false);
    auto* clip = const_cast<AudioClip*>(window.Doc().Clip());
    std::ranges::fill(clip->Bytes(), std::byte{0});
    const QImage newPicture = ExpectedView(window, desk.View().size(), false);
    QVERIFY(oldPicture != newPicture);
    for (std::int64_t frame = 0; frame <= 50000; frame += 500) {
      view.SetCursorPosition(frame, false);
      QCoreApplication::processEvents();
    }
    QImage shown = OnScreen(desk.View());
    QVERIFY(DifferingColumns(shown, oldPicture).size() <= 3);
    window.EditWindow()->SoundEdited(false);
    shown = OnScreen(desk.View());
    QVERIFY(DifferingColumns(shown, newPicture).size() <= 3);
  }

  void AMovingCursorPaintsTwoNarrowStripsOnly() {
    Desk desk;
    desk.OpenWave("a.wav", 50000);
    EditView& view = desk.View().View();
    OnScreen(desk.View());
    PaintWatch watch;
    desk.View().installEventFilter(&watch);
    view.SetCursorPosition(25000, false);
    QCoreApplication::processEvents();
    QVERIFY(!watch.painted.isEmpty());
    int pixels = 0;
    for (const QRect& rect : watch.painted) {
      pixels += rect.width() * rect.height();
    }
    QVERIFY2(pixels <= 2 * 5 * desk.View().height(), qPrintable(QString::number(pixels)));
  }

  void AResizedViewIsPaintedWhole() {
    Desk desk;
    AudioWin& window = desk.OpenWave("a.wav", 50000);
    OnScreen(desk.View());
    for (const QSize& size : {QSize(700, 400), QSize(301, 203), QSize(150, 120), QSize(640, 360)}) {
      desk.ActiveChild()->resize(size);
      const QImage shown = OnScreen(desk.View());
      QVERIFY(!shown.isNull());
      QCOMPARE(shown.size(), desk.View().size());
      QCOMPARE(shown, ExpectedView(window, shown.size()));
    }
  }

  void ScrollingAndZoomingPaintTheNewPart() {
    Desk desk;
    AudioWin& window = desk.OpenWave("a.wav", 50000);
    TurnWheel(desk.View(), 3, Qt::ControlModifier);
    TurnWheel(desk.View(), -5);
    const QImage shown = OnScreen(desk.View());
    QVERIFY(window.EditWindow()->View().FirstVisibleFrame() > 0);
    QCOMPARE(shown, ExpectedView(window, shown.size()));
  }

  void OneRowDownMovesThePictureUp() {
    Desk desk;
    AudioWin& window = desk.OpenWave("a.wav", 50000);
    EditView& view = window.EditWindow()->View();
    view.VerticalZoomIn();
    view.VerticalScroll(VerticalScrollCode::Top);
    const QImage before = OnScreen(desk.View());
    const int step = view.VerticalZoom();
    view.VerticalScroll(VerticalScrollCode::RowDown);
    const QImage after = OnScreen(desk.View());
    const int rest = before.height() - step;
    QCOMPARE(after.copy(0, 0, before.width(), rest), before.copy(0, step, before.width(), rest));
  }

  void AViewNarrowerThanAGridStepAndOneFrameOfSoundArePainted() {
    Desk desk;
    AudioWin& window = desk.OpenWave("one.wav", 1);
    desk.ActiveChild()->resize(150, 130);
    const QImage shown = OnScreen(desk.View());
    QVERIFY(desk.View().width() < 120);
    QCOMPARE(shown, ExpectedView(window, shown.size()));
    for (int i = 0; i < 5; ++i) {
      TurnWheel(desk.View(), -1, Qt::ControlModifier);
    }
    TurnWheel(desk.View(), 9, Qt::ControlModifier);
    QCOMPARE(OnScreen(desk.View()), ExpectedView(window, shown.size()));
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::ViewPaintingTest)

#include "view_painting_test.moc"
