// Reading a spectrum: zooming, scrolling, picking frequencies by mouse and keys, and taking picture and
// numbers away.
#include <QBuffer>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QObject>

#include "analysis/SpectrumAxis.h"
#include "analysis/SpectrumCsv.h"
#include "analysis/SpectrumLayout.h"
#include "picture/AxisLabel.h"
#include "tests/gui/support/GuiMain.h"
#include "tests/gui/support/Input.h"
#include "tests/gui/support/SpectrumDesk.h"

namespace tembrel::test {

namespace {

class SpectrumReadingTest : public QObject {
  Q_OBJECT

 private:
  static void MoveMouse(SpectrumDesk& desk, double x) {
    SendMouse(desk.Display(), QEvent::MouseMove, {x, 20.0});
  }
  static void Press(SpectrumDesk& desk, int key, int times = 1) {
    for (int i = 0; i < times; ++i) {
      QTest::keyClick(&desk.Window(), static_cast<Qt::Key>(key));
    }
  }
  static int MarkerPixels(SpectrumDesk& desk) {
    const QImage shown = OnScreen(desk.Display());
    int count = 0;
    for (int y = 0; y < shown.height(); ++y) {
      for (int x = 0; x < shown.width(); ++x) {
        count += shown.pixel(x, y) == kSpectrumMarkerColor ? 1 : 0;
      }
    }
    return count;
  }
  static QAction* MenuAction(SpectrumDesk& desk, const QString& words) {
    for (QAction* action : desk.Window().findChildren<QAction*>()) {
      if (action->text().remove('&').contains(words)) {
        return action;
      }
    }
    return nullptr;
  }
  static QMenu* OpenMenu() {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    return menu != nullptr && menu->objectName() == "spectrumMenu" ? menu : nullptr;
  }

 private Q_SLOTS:
  void ThePartsStandAsLaidOut() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    for (const QSize& size : {QSize(624, 334), QSize(333, 222), QSize(800, 600)}) {
      desk.Child().resize(size);
      QCoreApplication::processEvents();
      const int width = desk.Window().width();
      const int height = desk.Window().height();
      QCOMPARE(desk.Readout().geometry(), QRect(0, 0, width, 28));
      // Inside its border.
      const int axisHeight = kSpectrumAxisHeight;
      QCOMPARE(desk.Display().geometry(), QRect(1, 29, width - 2, height - 28 - 15 - axisHeight - 2));
      QCOMPARE(desk.Axis().geometry(), QRect(1, height - 15 - axisHeight, width - 2, axisHeight));
      for (const int id : {8193, 8194, 8195}) {
        QCOMPARE(desk.Button(id)->size(), QSize(17, 17));
        QCOMPARE(desk.Button(id)->geometry().bottom(), height - 1);
        QVERIFY(!desk.Button(id)->icon().isNull());
        QVERIFY(!desk.Button(id)->toolTip().isEmpty());
      }
      QCOMPARE(desk.Bar().height(), 17);
      QCOMPARE(desk.Bar().width() + 3 * 17, width);
      QCOMPARE(desk.Bar().minimum(), 0);
      QCOMPARE(desk.Bar().maximum(), 100);
    }
  }

  void TheTicksStandUnderTheGridAtEveryWidth() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    for (const int width : {480, 481, 482, 600, 601, 602, 603, 721, 840}) {
      desk.Child().resize(width, 300);
      const QImage plot = OnScreen(desk.Display());
      const QImage axis = OnScreen(desk.Axis());
      QCOMPARE(axis.width(), plot.width());
      for (int x = 61; x < plot.width(); ++x) {
        QCOMPARE(axis.pixel(x, 0) == kTickColor, plot.pixel(x, 0) == kSpectrumBinColor);
      }
    }
  }

  void TheButtonsZoomAndRepaint() {
    SpectrumDesk desk;
    AudioWin& document = desk.OpenSine("a.wav", 16, 440, 1000);
    desk.OpenSpectrum();
    const QImage axis = OnScreen(desk.Axis());
    desk.Button(8194)->click();
    QCOMPARE(desk.Window().View().VisibleBins(), 128);
    QVERIFY(desk.Shows(SpectrumDesk::SpectrumOf(document)));
    QVERIFY(OnScreen(desk.Axis()) != axis);
    desk.Button(8193)->click();
    desk.Button(8193)->click();
    QCOMPARE(desk.Window().View().Zoom(), 4);
    desk.Button(8195)->click();
    QCOMPARE(desk.Window().View().Zoom(), 8);
    QVERIFY(desk.Shows(SpectrumDesk::SpectrumOf(document)));
    QCOMPARE(OnScreen(desk.Axis()), axis);
  }

  void TheScrollBarMovesThePlotWhenItsThumbIsReleased() {
    SpectrumDesk desk;
    AudioWin& document = desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    TMyScrollBar& bar = desk.Bar();
    bar.setSliderDown(true);
    bar.setSliderPosition(100);
    QCOMPARE(desk.Window().View().FirstBin(), 0);
    bar.setSliderDown(false);
    QCOMPARE(desk.Window().View().FirstBin(), 768);
    QCOMPARE(bar.value(), 100);
    QVERIFY(desk.Shows(SpectrumDesk::SpectrumOf(document)));
    bar.triggerAction(QAbstractSlider::SliderSingleStepSub);
    QCOMPARE(desk.Window().View().FirstBin(), 704);
    QCOMPARE(bar.value(), 91);
    bar.triggerAction(QAbstractSlider::SliderPageStepSub);
    QCOMPARE(desk.Window().View().FirstBin(), 448);
    bar.triggerAction(QAbstractSlider::SliderToMinimum);
    QCOMPARE(desk.Window().View().FirstBin(), 0);
  }

  void TheMouseReadsFrequencyAndNote() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    QCOMPARE(desk.Readout().Text(), "0 Hz, C0 (0)");
    const QImage before = OnScreen(desk.Readout());
    const int width = desk.Display().width();
    const double x = std::ceil(20.44 * width / 256);
    MoveMouse(desk, x);
    const auto hertz = static_cast<int>(44100.0 * 256 * x / width / 2048);
    QVERIFY(hertz > 428 && hertz < 452);
    QCOMPARE(desk.Readout().Text(), QString::number(hertz) + " Hz, A5 (69)");
    QVERIFY(OnScreen(desk.Readout()) != before);
    QCOMPARE(desk.Window().accessibleDescription(), desk.Readout().Text());
    MoveMouse(desk, width - 2);
    const QString last = desk.Readout().Text();
    QVERIFY(last.endsWith("No Pitch"));
    MoveMouse(desk, 100);
    const QString inside = desk.Readout().Text();
    QVERIFY(inside != last);
    MoveMouse(desk, width - 1);
    QCOMPARE(desk.Readout().Text(), inside);
  }

  void MinusOneKeepsWhatTheReadoutShows() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    desk.Readout().ShowPick({440, 69});
    desk.Readout().ShowPick({-1, -1});
    QCOMPARE(desk.Readout().Text(), "440 Hz, A5 (69)");
    desk.Readout().ShowPick({441, -1});
    QCOMPARE(desk.Readout().Text(), "441 Hz, A5 (69)");
    desk.Readout().ShowPick({-1, kNoNote});
    QCOMPARE(desk.Readout().Text(), "441 Hz, No Pitch");
  }

  void TheArrowKeysMoveTheMarkerAndTheReadoutFollows() {
    SpectrumDesk desk;
    AudioWin& document = desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    QVERIFY(desk.Window().hasFocus());
    QCOMPARE(MarkerPixels(desk), 0);
    Press(desk, Qt::Key_Right, 20);
    QCOMPARE(desk.Window().View().MarkerBin(), 20);
    QCOMPARE(desk.Readout().Text(), "430 Hz, A5 (69)");  // 430.66
    QVERIFY(MarkerPixels(desk) > 0);
    Press(desk, Qt::Key_Left);
    QCOMPARE(desk.Readout().Text(), "409 Hz, G#5 (68)");
    Press(desk, Qt::Key_PageDown);
    QCOMPARE(desk.Window().View().MarkerBin(), 275);
    QCOMPARE(desk.Window().View().FirstBin(), 256);
    QCOMPARE(desk.Bar().value(), 33);
    Press(desk, Qt::Key_End);
    QCOMPARE(desk.Window().View().MarkerBin(), 1023);
    QCOMPARE(desk.Readout().Text(), "22028 Hz, No Pitch");
    QCOMPARE(desk.Bar().value(), 100);
    Press(desk, Qt::Key_PageUp);
    QCOMPARE(desk.Window().View().MarkerBin(), 767);
    Press(desk, Qt::Key_Home);
    QCOMPARE(desk.Window().View().MarkerBin(), 0);
    QCOMPARE(desk.Readout().Text(), "0 Hz, No Pitch");
    // The mouse reads elsewhere and leaves the marker where it is.
    MoveMouse(desk, 50);
    QVERIFY(desk.Readout().Text() != "0 Hz, No Pitch");
    QVERIFY(MarkerPixels(desk) > 0);
    Press(desk, Qt::Key_Escape);
    QVERIFY(desk.Shows(SpectrumDesk::SpectrumOf(document)));
  }

  void AMarkerLeftBehindIsNotSeen() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    Press(desk, Qt::Key_Right, 70);
    desk.Bar().triggerAction(QAbstractSlider::SliderSingleStepAdd);
    QCOMPARE(desk.Window().View().MarkerBin(), 70);
    QVERIFY(MarkerPixels(desk) > 0);
    desk.Bar().triggerAction(QAbstractSlider::SliderSingleStepAdd);
    QCOMPARE(desk.Window().View().MarkerBin(), 128);
    QCOMPARE(MarkerPixels(desk), 0);
    Press(desk, Qt::Key_Right);
    QCOMPARE(desk.Window().View().MarkerBin(), 129);
    QVERIFY(MarkerPixels(desk) > 0);
  }

  void KeysAndWheelZoomAndScroll() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    const SpectrumView& view = desk.Window().View();
    Press(desk, Qt::Key_Plus);
    QCOMPARE(view.Zoom(), 16);
    Press(desk, Qt::Key_Minus, 2);
    QCOMPARE(view.Zoom(), 4);
    Press(desk, Qt::Key_0);
    QCOMPARE(view.Zoom(), 8);
    QTest::keyClick(&desk.Window(), Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(view.Zoom(), 16);
    TurnWheel(desk.Window(), -1, Qt::ControlModifier);
    QCOMPARE(view.Zoom(), 8);
    TurnWheel(desk.Window(), -1);
    QCOMPARE(view.FirstBin(), 64);
    TurnWheel(desk.Window(), -1, Qt::ShiftModifier);
    QCOMPARE(view.FirstBin(), 320);
    TurnWheel(desk.Window(), 0.5);
    QCOMPARE(view.FirstBin(), 320);
    TurnWheel(desk.Window(), 0.5);
    QCOMPARE(view.FirstBin(), 256);
  }

  void AClickPlacesTheMarker() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    const int x = desk.Display().width() / 2 + 1;
    Click(desk.Display(), {static_cast<double>(x), 20.0});
    QCOMPARE(desk.Window().View().MarkerBin(), 256 * x / desk.Display().width());
    QVERIFY(MarkerPixels(desk) > 0);
    const int marker = desk.Window().View().MarkerBin();
    Press(desk, Qt::Key_Right);
    QCOMPARE(desk.Window().View().MarkerBin(), marker + 1);
  }

  void TheContextMenuOpensByMouseAndByKeys() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    const QStringList texts{"&Follow the cursor", "", "&Copy picture", "Save &picture as PNG...",
                            "Save &numbers as CSV..."};
    const auto check = [&] {
      QMenu* menu = OpenMenu();
      QVERIFY(menu != nullptr);
      QStringList shown;
      for (const QAction* action : menu->actions()) {
        shown << action->text();
      }
      QCOMPARE(shown, texts);
      QVERIFY(menu->actions().at(0)->isChecked());
      menu->close();
    };
    const QPoint at = desk.Display().rect().center();
    QContextMenuEvent byMouse(QContextMenuEvent::Mouse, at, desk.Display().mapToGlobal(at));
    QApplication::sendEvent(&desk.Display(), &byMouse);
    check();
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, at, desk.Window().mapToGlobal(at));
    QApplication::sendEvent(&desk.Window(), &byKey);
    check();
    QTest::keyClick(&desk.Window(), Qt::Key_F10, Qt::ShiftModifier);
    check();
  }

  void FollowingIsSwitchedInTheMenu() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    QVERIFY(desk.Window().FollowsCursor());
    QTest::keyClick(&desk.Window(), Qt::Key_F10, Qt::ShiftModifier);
    QVERIFY(OpenMenu() != nullptr);
    QTest::keyClick(OpenMenu(), Qt::Key_F);
    QVERIFY(!desk.Window().FollowsCursor());
  }

  void ThePictureGoesToTheClipboard() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    MenuAction(desk, "Copy picture")->trigger();
    const QImage copied = QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32);
    const QImage seen = OnScreen(desk.Window()).copy(0, 0, desk.Window().width(), desk.Axis().y());
    QCOMPARE(copied.size(), QSize(desk.Window().width(), desk.Axis().geometry().bottom() + 1));
    QCOMPARE(copied.copy(0, 0, seen.width(), seen.height()), seen);
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(&desk.Window(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->image().size(), copied.size());
  }

  void ThePictureIsSavedAsPng() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    desk.prompts.saveChoice = SaveChoice{desk.scratch / "bild ä", 1};
    MenuAction(desk, "as PNG")->trigger();
    QVERIFY(desk.prompts.errors.empty());
    QCOMPARE(desk.prompts.startShown.string(), (desk.scratch / "a-spectrum.png").string());
    const QImage saved(Text(desk.scratch / "bild ä.png"), "PNG");
    QCOMPARE(saved.size(), QSize(desk.Window().width(), desk.Axis().geometry().bottom() + 1));
    const QRect display = desk.Display().geometry();
    QCOMPARE(saved.convertToFormat(QImage::Format_RGB32).copy(display), OnScreen(desk.Display()));
  }

  void TheNumbersAreSavedAsTheBatchProgramPrintsThem() {
    SpectrumDesk desk;
    AudioWin& document = desk.OpenSine("a.wav", 16, 440, 2000);
    desk.OpenSpectrum();
    desk.prompts.saveChoice = SaveChoice{desk.scratch / "numbers.csv", 1};
    MenuAction(desk, "as CSV")->trigger();
    QCOMPARE(desk.prompts.startShown.string(), (desk.scratch / "a-spectrum.csv").string());
    QVERIFY(desk.prompts.questions.empty());
    const Bytes bytes = ReadBytes(desk.scratch / "numbers.csv");
    const std::string text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    QCOMPARE(text, SpectrumCsv(SpectrumDesk::SpectrumOf(document)));
    QVERIFY(text.starts_with("bin,hz,power,power_right\n"));
  }

  void WhatIsSavedIsCalledAfterTheSoundThatIsShown() {
    SpectrumDesk desk;
    AudioWin& shown = desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    AudioWin& other = desk.OpenWave("b.wav", 5000, 24, 2);
    other.EditWindow()->View().SetCursorPosition(100, false);
    QVERIFY(desk.Readout().accessibleDescription().contains("8 or 16 bits"));
    MenuAction(desk, "as CSV")->trigger();
    QCOMPARE(desk.prompts.startShown.string(), (desk.scratch / "a-spectrum.csv").string());
    desk.Client().setActiveSubWindow(desk.Children().at(0));
    shown.EditWindow()->View().SetCursorPosition(100, false);
    QCOMPARE(desk.Readout().accessibleDescription(), "a.wav");
  }

  void AFileThatCannotBeWrittenIsNamed() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    const std::filesystem::path path = desk.scratch / "missing" / "x.csv";
    desk.prompts.saveChoice = SaveChoice{path, 1};
    MenuAction(desk, "as CSV")->trigger();
    QCOMPARE(desk.prompts.errors.size(), 1U);
    QVERIFY(desk.prompts.errors.front().starts_with(path.string() + " could not be saved: "));
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::SpectrumReadingTest)

#include "spectrum_reading_test.moc"
