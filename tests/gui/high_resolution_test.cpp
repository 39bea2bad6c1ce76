// The waveform view on screens with 1, 1.5 and 2 device pixels a pixel: painted in device pixels, crisp. The
// factor comes from the environment; the program runs once with each.
#include <cmath>
#include <set>

#include <QObject>

#include "tests/gui/support/Desk.h"
#include "tests/gui/support/ExpectedView.h"
#include "tests/gui/support/GuiMain.h"
#include "tests/gui/support/SpectrumDesk.h"

namespace tembrel::test {

namespace {

double ScaleAskedFor() {
  const double scale = qEnvironmentVariable("QT_SCALE_FACTOR").toDouble();
  return scale > 0 ? scale : 1.0;
}

class HighResolutionTest : public QObject {
  Q_OBJECT

 private:
  // Places and sizes at which edges fall between device pixels.
  static QList<QRect> OddPlaces() {
    return {{0, 0, 500, 300}, {1, 1, 501, 301}, {13, 7, 333, 222}, {3, 2, 400, 255}};
  }

 private Q_SLOTS:
  void TheFactorIsTheOneAskedFor() {
    Desk desk;
    desk.OpenWave();
    QCOMPARE(desk.View().devicePixelRatioF(), ScaleAskedFor());
  }

  void ThePictureHasDevicePixelSizeAndIsTheComputedOne() {
    Desk desk;
    AudioWin& window = desk.OpenWave("a.wav", 20000);
    for (const QRect& place : OddPlaces()) {
      desk.ActiveChild()->setGeometry(place);
      for (const std::int64_t frames : {20000, 300, 9}) {
        desk.View().View().Show(0, frames);
        const QImage shown = OnScreen(desk.View());
        QVERIFY(std::abs(shown.width() - desk.View().width() * ScaleAskedFor()) <= 1);
        QVERIFY(std::abs(shown.height() - desk.View().height() * ScaleAskedFor()) <= 1);
        QCOMPARE(shown, ExpectedView(window, shown.size()));
      }
    }
  }

  // A blurred picture has mixed colours.
  void OnlyPureColoursAreSeen() {
    Desk desk;
    desk.OpenWave("a.wav", 20000);
    std::set<QRgb> pure{kPaperColor, kGridColor, kCentreColor, kTimeColor, kWaveColor};
    for (const QRgb color : std::set(pure)) {
      pure.insert(0xFF000000U | (~(color ^ kCursorColor) & 0xFFFFFFU));
    }
    for (const QRect& place : OddPlaces()) {
      desk.ActiveChild()->setGeometry(place);
      const QImage shown = OnScreen(desk.View());
      std::set<QRgb> seen;
      for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
          seen.insert(shown.pixel(x, y));
        }
      }
      QVERIFY(std::ranges::includes(pure, seen));
      QVERIFY(seen.contains(kWaveColor));
    }
  }

  void TheCursorIsThreePixelsScaledAndLeavesNoTrace() {
    Desk desk;
    AudioWin& window = desk.OpenWave("a.wav", 20000);
    EditView& view = desk.View().View();
    for (const QRect& place : OddPlaces()) {
      desk.ActiveChild()->setGeometry(place);
      view.SetCursorPosition(0, false);
      OnScreen(desk.View());
      for (const std::int64_t frame : {5000, 5033, 10001, 19999, 20000, 1, 70, 6666}) {
        view.SetCursorPosition(frame, false);
        const QImage shown = OnScreen(desk.View());
        QCOMPARE(shown, ExpectedView(window, shown.size()));
      }
      const QImage shown = OnScreen(desk.View());
      const QImage without = ExpectedView(window, shown.size(), false);
      QCOMPARE(DifferingColumns(shown, without).size(), std::lround(3 * ScaleAskedFor()));
    }
  }

  void TheSpectrumIsPaintedInDevicePixels() {
    SpectrumDesk desk;
    AudioWin& window = desk.OpenSine("a.wav", 16, 440, 2000);
    desk.OpenSpectrum();
    for (const QRect& place : OddPlaces()) {
      desk.Child().setGeometry(place);
      const QImage shown = OnScreen(desk.Display());
      QVERIFY(std::abs(shown.width() - desk.Display().width() * ScaleAskedFor()) <= 1);
      QCOMPARE(shown, desk.ExpectedDisplay(SpectrumDesk::SpectrumOf(window), shown.size()));
    }
  }

  void AClickHitsTheFrameUnderTheMouse() {
    Desk desk;
    desk.OpenWave("a.wav", 20000);
    QTest::mouseClick(&desk.View(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 20));
    const double scale = desk.View().devicePixelRatioF();
    const QImage shown = OnScreen(desk.View());
    const QImage without = ExpectedView(*desk.Active(), shown.size(), false);
    const QList<int> columns = DifferingColumns(shown, without);
    QVERIFY(columns.first() <= 100 * scale + 1);
    QVERIFY(columns.last() >= 100 * scale - 1);
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::HighResolutionTest)

#include "high_resolution_test.moc"
