// Themes, names for screen readers, tool tips and the numbers that controls carry.
#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAccessible>
#include <QObject>
#include <QToolButton>

#include "tests/gui/support/Desk.h"
#include "tests/gui/support/ExpectedView.h"
#include "tests/gui/support/GuiMain.h"
#include "tests/gui/support/SpectrumDesk.h"

namespace tembrel::test {

namespace {

QPalette DarkPalette() {
  QPalette palette(QColor(50, 50, 54), QColor(30, 30, 34));
  palette.setColor(QPalette::ButtonText, QColor(231, 232, 233));
  palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(120, 121, 122));
  palette.setColor(QPalette::Dark, QColor(11, 12, 13));
  return palette;
}

bool HoldsColor(const QImage& image, const QColor& color) {
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixelColor(x, y) == color) {
        return true;
      }
    }
  }
  return false;
}

QString NameForReaders(QWidget& widget) {
  const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&widget);
  return interface == nullptr ? QString() : interface->text(QAccessible::Name);
}

// Changes the application's palette until the end of the scope.
class Theme {
 public:
  explicit Theme(const QPalette& palette) : before(QApplication::palette()) {
    QApplication::setPalette(palette);
    QCoreApplication::processEvents();
  }
  ~Theme() { QApplication::setPalette(before); }
  Theme(const Theme&) = delete;
  Theme& operator=(const Theme&) = delete;

 private:
  QPalette before;
};

class AppearanceTest : public QObject {
  Q_OBJECT

 private:
  static void CheckIcons(Desk& desk, const QPalette& palette) {
    int icons = 0;
    for (const QToolButton* button : desk.Frame().findChildren<QToolButton*>()) {
      if (button->icon().isNull() || !button->property("controlId").isValid()) {
        continue;
      }
      ++icons;
      const QImage on = button->icon().pixmap(64, 64, QIcon::Normal).toImage();
      QVERIFY(HoldsColor(on, palette.color(QPalette::Active, QPalette::ButtonText)));
      const QImage off = button->icon().pixmap(64, 64, QIcon::Disabled).toImage();
      const QImage down = button->icon().pixmap(64, 64, QIcon::Normal, QIcon::On).toImage();
      if (button->isCheckable()) {
        QVERIFY(HoldsColor(down, palette.color(QPalette::Active, QPalette::HighlightedText)));
      } else {
        QCOMPARE(down, on);
      }
      QVERIFY(HoldsColor(off, palette.color(QPalette::Disabled, QPalette::ButtonText)));
    }
    QVERIFY(icons >= 3);
  }

 private Q_SLOTS:
  void TheTakenToolIsClearlySeen_data() {
    QTest::addColumn<bool>("dark");
    QTest::newRow("light") << false;
    QTest::newRow("dark") << true;
  }
  void TheTakenToolIsClearlySeen() {
    QFETCH(const bool, dark);
    const Theme theme(dark ? DarkPalette() : QApplication::palette());
    Desk desk;
    AudioWin& window = desk.OpenWave();
    const QList<QToolButton*> tools = window.findChildren<QToolButton*>("CustomRadio2");
    QCOMPARE(tools.size(), 8);
    const QColor ground = window.palette().color(QPalette::Active, QPalette::Highlight);
    const auto Seen = [&] {
      QList<int> seen;
      for (qsizetype i = 0; i < tools.size(); ++i) {
        const QImage image = OnScreen(*tools.at(i));
        int pixels = 0;
        for (int y = 0; y < image.height(); ++y) {
          for (int x = 0; x < image.width(); ++x) {
            pixels += image.pixelColor(x, y) == ground ? 1 : 0;
          }
        }
        if (pixels * 3 > image.width() * image.height()) {
          seen << static_cast<int>(i);
        }
      }
      return seen;
    };
    QCOMPARE(Seen(), QList<int>{0});
    QTest::mouseClick(tools.at(3), Qt::LeftButton);
    QCOMPARE(Seen(), QList<int>{3});
  }

  void TheWaveformKeepsItsColoursInADarkTheme() {
    Desk desk;
    AudioWin& window = desk.OpenWave();
    const QImage light = OnScreen(desk.View());
    const Theme dark(DarkPalette());
    const QImage shown = OnScreen(desk.View());
    QCOMPARE(shown, light);
    QCOMPARE(shown, ExpectedView(window, shown.size()));
  }

  void TheIconsFollowTheButtonTextColour() {
    Desk desk;
    desk.OpenWave();
    CheckIcons(desk, QApplication::palette());
    const Theme dark(DarkPalette());
    CheckIcons(desk, DarkPalette());
  }

  void TheAreaBehindTheDocumentsFollowsTheTheme() {
    Desk desk;
    const Theme dark(DarkPalette());
    QCOMPARE(desk.Client().background().color(), DarkPalette().color(QPalette::Dark));
    QCOMPARE(OnScreen(*desk.Client().viewport()).pixelColor(5, 5), DarkPalette().color(QPalette::Dark));
  }

  void AProgramStartedInADarkThemeIsDark() {
    const Theme dark(DarkPalette());
    Desk desk;
    AudioWin& window = desk.OpenWave();
    CheckIcons(desk, DarkPalette());
    const QImage shown = OnScreen(desk.View());
    QCOMPARE(shown, ExpectedView(window, shown.size()));
    QCOMPARE(desk.Frame().palette().color(QPalette::Window), QColor(30, 30, 34));
  }

  void EveryControlHasANameForScreenReaders() {
    Desk desk;
    desk.OpenWave();
    int controls = 0;
    for (QWidget* widget : desk.Frame().findChildren<QWidget*>()) {
      const bool control = qobject_cast<QAbstractButton*>(widget) != nullptr ||
                           qobject_cast<QAbstractSlider*>(widget) != nullptr ||
                           widget->property("controlId").isValid();
      if (!control || !widget->isVisible()) {
        continue;
      }
      ++controls;
      QVERIFY2(!NameForReaders(*widget).isEmpty(),
               qPrintable(QString("%1 %2").arg(widget->metaObject()->className(), widget->objectName())));
    }
    QVERIFY(controls >= 8);
    QCOMPARE(NameForReaders(desk.View()), "Waveform");
    QVERIFY(!NameForReaders(*desk.Frame().findChild<QWidget*>("CountWindow")).isEmpty());
  }

  void TheSpectrumKeepsItsColoursInADarkThemeAndItsIconsFollow() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440, 2000);
    desk.OpenSpectrum();
    const QRect painted(1, 0, desk.Window().width() - 2, desk.Bar().y());
    const auto inside = [&] { return OnScreen(desk.Window()).copy(painted); };
    const QImage light = inside();
    const Theme dark(DarkPalette());
    const QImage shown = inside();
    // The borders above and below the plot are the theme's.
    const int top = desk.Display().y() - 1;
    const int bottom = desk.Axis().y() - 1;
    for (const auto& [from, to] : {std::pair(0, top), {top + 1, bottom}, {bottom + 1, painted.height()}}) {
      QCOMPARE(shown.copy(0, from, painted.width(), to - from),
               light.copy(0, from, painted.width(), to - from));
    }
    CheckIcons(desk, DarkPalette());
  }

  void ThePartsOfTheSpectrumHaveNamesForScreenReaders() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    for (QWidget* part : desk.Window().findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
      QVERIFY2(!NameForReaders(*part).isEmpty(), qPrintable(part->objectName()));
    }
    QCOMPARE(NameForReaders(desk.Window()), "Audio spectrum");
    desk.Readout().ShowPick({440, 69});
    QCOMPARE(NameForReaders(desk.Readout()), "440 Hz, A5 (69)");
  }

  void TheStatusGadgetsTellTheirValueToReaders() {
    Desk desk;
    desk.OpenWave("a.wav", 100, 16, 2, 48000);
    QStringList names;
    for (QLabel* label : desk.Frame().findChildren<QLabel*>("TTextGadget")) {
      names << NameForReaders(*label);
    }
    QCOMPARE(names.size(), 3);
    QVERIFY(names.at(0).contains("48000 Hz"));
    QVERIFY(names.at(1).contains("16 Bits"));
    QVERIFY(names.at(2).contains("Stereo"));
  }

  // The transport's buttons have tips of their own kind, named by a number.
  void NoButtonIsWithoutAToolTip() {
    Desk desk;
    desk.OpenWave();
    int buttons = 0;
    for (const QAbstractButton* button : desk.Frame().findChildren<QAbstractButton*>()) {
      if (button->isVisible()) {
        ++buttons;
        QVERIFY2(!button->toolTip().isEmpty() || button->property("tipId").isValid(),
                 qPrintable(button->accessibleName()));
      }
    }
    QVERIFY(buttons >= 3);
  }

  void ControlsCarryTheirNumbers() {
    Desk desk;
    desk.OpenWave();
    QList<int> inDocument;
    for (const QWidget* widget : desk.Active()->findChildren<QWidget*>()) {
      if (widget->property("controlId").isValid()) {
        inDocument << widget->property("controlId").toInt();
      }
    }
    for (const int id : {0x2100, 0x2001, 0x2002, 0x2003}) {
      QCOMPARE(inDocument.count(id), 1);
    }
    QList<int> gadgets;
    for (const QLabel* label : desk.Frame().findChildren<QLabel*>("TTextGadget")) {
      gadgets << label->property("controlId").toInt();
    }
    QCOMPARE(gadgets, (QList<int>{0, 1, 2}));
  }

  void WidgetsAreNamedAfterTheirClasses() {
    Desk desk;
    desk.OpenWave();
    QCOMPARE(desk.Frame().objectName(), "TMainWindow");
    QCOMPARE(desk.Client().objectName(), "tembrelMDIClient");
    QCOMPARE(desk.ActiveChild()->objectName(), "tembrelMDIChild");
    QCOMPARE(desk.Active()->objectName(), "AudioWin");
    QCOMPARE(desk.View().objectName(), "AudioEditWindow");
    QVERIFY(desk.Frame().findChild<QWidget*>("GrayStatic") != nullptr);
  }

  void TheTopStripHasItsSizeAndTheGadgetsStandInOrder() {
    Desk desk;
    const auto* strip = desk.Frame().findChild<QWidget*>("GrayStatic");
    QCOMPARE(strip->size(), QSize(640, 49));
    int left = -1;
    for (const QLabel* label : desk.Frame().findChildren<QLabel*>("TTextGadget")) {
      QVERIFY(label->x() > left);
      left = label->x();
      QCOMPARE(label->frameShadow(), QFrame::Sunken);
      QCOMPARE(label->font().pointSize(), 10);
      QVERIFY(label->sizeHint().width() <= label->width());
    }
    QCOMPARE(desk.Frame().windowTitle(), "Tembrel");
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::AppearanceTest)

#include "appearance_test.moc"
