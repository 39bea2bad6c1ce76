// The spectrum window among the documents: opening, following the cursor, closing, and what commands do
// meanwhile.
#include <QObject>

#include "app/ui/TransportControl.h"
#include "tests/gui/support/ActionMenu.h"
#include "tests/gui/support/GuiMain.h"
#include "tests/gui/support/SpectrumDesk.h"
#include "view/StripButtons.h"

namespace tembrel::test {

namespace {

constexpr std::uint32_t kMinute = 60U * 44100U;  // frames

class SpectrumWindowTest : public QObject {
  Q_OBJECT

 private:
  static void SetFollowing(SpectrumDesk& desk, bool on) {
    for (QAction* action : desk.Window().findChildren<QAction*>()) {
      if (action->isCheckable()) {
        action->setChecked(on);
      }
    }
  }
  static EditView& ViewOf(AudioWin& document) { return document.EditWindow()->View(); }

 private Q_SLOTS:
  void TheCommandOpensOneWindowAndNoSecondOne() {
    SpectrumDesk desk;
    QVERIFY(!desk.Command(kCommandAudioSpectrum)->isEnabled());
    desk.OpenSine("a.wav", 16, 440);
    QVERIFY(desk.Command(kCommandAudioSpectrum)->isEnabled());
    desk.OpenSpectrum();
    QCOMPARE(desk.Child().windowTitle(), "Audio Spectrum");
    QCOMPARE(desk.Window().objectName(), "SpectrumWin");
    QCOMPARE(desk.Client().currentSubWindow(), &desk.Child());
    QCOMPARE(desk.Children().size(), 2);
    QVERIFY(!desk.Command(kCommandAudioSpectrum)->isEnabled());
    desk.Client().RunCommand(kCommandAudioSpectrum);
    desk.Client().setActiveSubWindow(desk.Children().at(0));
    desk.Client().RunCommand(kCommandAudioSpectrum);
    QCOMPARE(desk.Children().size(), 2);
  }

  void ItShowsTheSoundAtTheCursor() {
    SpectrumDesk desk;
    AudioWin& document = desk.OpenSine("a.wav", 16, 440);
    ViewOf(document).SetCursorPosition(12345, false);
    desk.OpenSpectrum();
    QVERIFY(desk.Shows(SpectrumDesk::SpectrumOf(document)));
    // The sine's two bins reach highest, and nothing is below mid-height.
    const QImage shown = OnScreen(desk.Display());
    const int width = shown.width();
    int leftmost = width;
    int rightmost = 0;
    for (int x = 0; x < width; ++x) {
      if (shown.pixel(x, shown.height() / 4) == kSpectrumLeftColor) {
        leftmost = std::min(leftmost, x);
        rightmost = std::max(rightmost, x);
      }
      QVERIFY(shown.pixel(x, shown.height() * 3 / 4) != kSpectrumRightColor);
    }
    QVERIFY(leftmost >= width * 19 / 256 && leftmost <= width * 20 / 256 + 1);
    QVERIFY(rightmost >= width * 20 / 256 && rightmost <= width * 22 / 256 + 1);
  }

  void StereoWithSixteenBitsShowsTheLeftUpAndTheRightDown() {
    SpectrumDesk desk;
    AudioWin& document = desk.OpenSine("a.wav", 16, 440, 2000);
    desk.OpenSpectrum();
    QCOMPARE(desk.Window().Shown().right.size(), kSpectrumPoints);
    QVERIFY(desk.Shows(SpectrumDesk::SpectrumOf(document)));
    const QImage shown = OnScreen(desk.Display());
    const int quarter = shown.height() / 4;
    QList<int> up;
    QList<int> down;
    for (int x = 0; x < shown.width(); ++x) {
      if (shown.pixel(x, quarter) == kSpectrumLeftColor) {
        up << x;
      }
      if (shown.pixel(x, 3 * quarter) == kSpectrumRightColor) {
        down << x;
      }
    }
    QVERIFY(!up.isEmpty() && up.last() < shown.width() * 23 / 256);
    QVERIFY(!down.isEmpty() && down.first() > shown.width() * 90 / 256);
  }

  void StereoWithEightBitsShowsTheRightChannelAlone() {
    SpectrumDesk desk;
    AudioWin& document = desk.OpenSine("a.wav", 8, 440, 2000);
    desk.OpenSpectrum();
    QVERIFY(desk.Window().Shown().right.empty());
    QVERIFY(desk.Shows(SpectrumDesk::SpectrumOf(document)));
    QVERIFY(BinPower(desk.Window().Shown().bins[93]) > 100 * BinPower(desk.Window().Shown().bins[20]));
  }

  void ItIsMaximisedWhenTheDocumentIs() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    QVERIFY(!desk.Child().isMaximized());
    desk.Run(kCommandClose);
    desk.ActiveChild()->showMaximized();
    desk.OpenSpectrum();
    QVERIFY(desk.Child().isMaximized());
  }

  void ItCountsAsADocument() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    desk.Client().RunCommand(kCommandNew);
    QCOMPARE(desk.Active()->Title(), "Document - 2");
    desk.Run(kCommandClose);
    desk.Client().setActiveSubWindow(&desk.Child());
    desk.Run(kCommandClose);
    QVERIFY(desk.Client().Spectrum() == nullptr);
    desk.Client().RunCommand(kCommandNew);
    QCOMPARE(desk.Active()->Title(), "Document - 1");
  }

  void ItClosesWithItsOwnButtonAndCanBeOpenedAgain() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    desk.Child().close();
    QTRY_COMPARE(desk.Children().size(), 1);
    QTRY_VERIFY(desk.Command(kCommandAudioSpectrum)->isEnabled());
    desk.OpenSpectrum();
    QCOMPARE(desk.Children().size(), 2);
  }

  void TheCloseCommandClosesTheActiveOneOfThem() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    desk.Run(kCommandClose);
    QTRY_COMPARE(desk.Children().size(), 1);
    QVERIFY(desk.Active() != nullptr);
    desk.Run(kCommandClose);
    QTRY_VERIFY(desk.Children().isEmpty());
    QTRY_VERIFY(!desk.Command(kCommandClose)->isEnabled());
  }

  void CloseAllClosesIt() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    desk.Run(kCommandCloseAll);
    QTRY_VERIFY(desk.Children().isEmpty());
    QVERIFY(desk.Client().Spectrum() == nullptr);
    QTRY_VERIFY(!desk.Command(kCommandAudioSpectrum)->isEnabled());
  }

  void EveryCursorMoveIsFollowed() {
    SpectrumDesk desk;
    AudioWin& document = desk.OpenWave("a.wav", 20000, 16, 1);
    desk.OpenSpectrum();
    for (const std::int64_t frame : {1, 777, 17951, 17952, 17953, 20000, 0}) {
      ViewOf(document).SetCursorPosition(frame, false);
      QCOMPARE(desk.Window().Shown().bins, SpectrumDesk::SpectrumOf(document).bins);
      QVERIFY(desk.Shows(SpectrumDesk::SpectrumOf(document)));
    }
    desk.Client().setActiveSubWindow(desk.Children().at(0));
    QTest::keyClick(document.EditWindow(), Qt::Key_Right);
    QVERIFY(ViewOf(document).CursorFrame() > 0);
    QCOMPARE(desk.Window().Shown().bins, SpectrumDesk::SpectrumOf(document).bins);
    QTest::mouseClick(document.EditWindow(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 20));
    QVERIFY(ViewOf(document).CursorFrame() > 5000);
    QCOMPARE(desk.Window().Shown().bins, SpectrumDesk::SpectrumOf(document).bins);
  }

  void PlayingIsFollowedAndCanBeStoppedWhileItIsActive() {
    SpectrumDesk desk;
    AudioWin& document = desk.OpenWave("a.wav", kMinute, 16, 1);
    ViewOf(document).Show(0, kMinute);
    desk.OpenSpectrum();
    const SpectrumBins start = desk.Window().Shown().bins;
    desk.Client().setActiveSubWindow(desk.Children().at(0));
    desk.Run(kCommandPlay);
    QVERIFY(desk.Client().Transport().Playing());
    desk.Client().setActiveSubWindow(&desk.Child());
    int moves = 0;
    connect(document.EditWindow(), &AudioEditWindow::cursorMoved, this, [&moves] { ++moves; });
    QTRY_VERIFY(moves >= 3);
    QCOMPARE(desk.Window().Shown().bins, SpectrumDesk::SpectrumOf(document).bins);
    QVERIFY(desk.Window().Shown().bins != start);
    desk.Client().Transport().Press(kStripStop);
    QVERIFY(!desk.Client().Transport().Playing());
    QVERIFY(ViewOf(document).CursorFrame() > 0);
    desk.Client().Transport().Press(kStripPlay);  // no document is active
    QVERIFY(!desk.Client().Transport().Playing());
  }

  void SoundThatIsBeingEditedIsLookedAtWhenThatIsDone() {
    SpectrumDesk desk;
    AudioWin& document = desk.OpenWave("a.wav", 20000, 16, 1);
    desk.OpenSpectrum();
    const SpectrumBins start = desk.Window().Shown().bins;
    SpectrumBins meanwhile;
    EditStep step;
    step.change = [&](ClipEditor& /*editor*/) {
      ViewOf(document).SetCursorPosition(10000, false);  // as a tick of playing does
      meanwhile = desk.Window().Shown().bins;
      return EditResult::Done();
    };
    QVERIFY(document.Doc().Edit(step).done);
    QVERIFY(meanwhile == start);
    QCOMPARE(desk.Window().Shown().bins, SpectrumDesk::SpectrumOf(document).bins);
    QVERIFY(desk.Window().Shown().bins != start);
  }

  void WithoutFollowingItStandsAsComputedUntilFollowingIsOnAgain() {
    SpectrumDesk desk;
    AudioWin& document = desk.OpenWave("a.wav", 20000, 16, 1);
    desk.OpenSpectrum();
    const Spectrum first = SpectrumDesk::SpectrumOf(document);
    SetFollowing(desk, false);
    ViewOf(document).SetCursorPosition(5001, false);
    QVERIFY(SpectrumDesk::SpectrumOf(document).bins != first.bins);
    QCOMPARE(desk.Window().Shown().bins, first.bins);
    QVERIFY(desk.Shows(first));
    SetFollowing(desk, true);
    QCOMPARE(desk.Window().Shown().bins, SpectrumDesk::SpectrumOf(document).bins);
  }

  void TheCursorOfTheActiveDocumentTakesItOver() {
    SpectrumDesk desk;
    AudioWin& first = desk.OpenWave("a.wav", 20000, 16, 1);
    AudioWin& second = desk.OpenWave("b.wav", 20000, 8, 2);
    desk.Client().setActiveSubWindow(desk.Children().at(0));
    desk.OpenSpectrum();
    QCOMPARE(desk.Readout().accessibleDescription(), "a.wav");
    // The first document's own cursor goes on being followed in the background, the other one's does not.
    ViewOf(second).SetCursorPosition(5001, false);
    QCOMPARE(desk.Window().Shown().bins, SpectrumDesk::SpectrumOf(first).bins);
    ViewOf(first).SetCursorPosition(3000, false);
    QCOMPARE(desk.Window().Shown().bins, SpectrumDesk::SpectrumOf(first).bins);
    desk.Client().setActiveSubWindow(desk.Children().at(1));
    QCOMPARE(desk.Window().Shown().bins, SpectrumDesk::SpectrumOf(first).bins);
    ViewOf(second).SetCursorPosition(5002, false);
    QCOMPARE(desk.Window().Shown().bins, SpectrumDesk::SpectrumOf(second).bins);
    QVERIFY(desk.Window().Shown().bins != SpectrumDesk::SpectrumOf(first).bins);
    QCOMPARE(desk.Readout().accessibleDescription(), "b.wav");
    const SpectrumBins shown = desk.Window().Shown().bins;
    ViewOf(first).SetCursorPosition(7000, false);
    QCOMPARE(desk.Window().Shown().bins, shown);
  }

  void AShownMarkerReadsTheNewRate() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    QTest::keyClick(&desk.Window(), Qt::Key_Home);
    for (int i = 0; i < 20; ++i) {
      QTest::keyClick(&desk.Window(), Qt::Key_Right);
    }
    QCOMPARE(desk.Readout().Text(), "430 Hz, A5 (69)");
    desk.Client().setActiveSubWindow(desk.Children().at(0));
    desk.prompts.formatAnswer = FormatChoice{22050, 16, 1};
    desk.Run(kCommandFormat);
    QVERIFY(desk.Readout().Text().startsWith("215 Hz"));
  }

  void AnEditIsFollowedAndFreedSoundNeverLookedAt() {
    SpectrumDesk desk;
    AudioWin& document = desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    const SpectrumBins before = desk.Window().Shown().bins;
    desk.Client().setActiveSubWindow(desk.Children().at(0));
    desk.prompts.formatAnswer = FormatChoice{22050, 8, 2};
    desk.Run(kCommandFormat);
    QCOMPARE(document.Doc().Clip()->format.nSamplesPerSec, 22050U);
    QCOMPARE(desk.Window().Shown().rate, 22050U);
    QCOMPARE(desk.Window().Shown().bins, SpectrumDesk::SpectrumOf(document).bins);
    QVERIFY(desk.Window().Shown().bins != before);
    desk.Run(kCommandUndo);
    QCOMPARE(desk.Window().Shown().rate, 44100U);
    QCOMPARE(desk.Window().Shown().bins, before);
  }

  void TheLastSpectrumStaysWhenTheDocumentCloses() {
    SpectrumDesk desk;
    AudioWin& document = desk.OpenSine("a.wav", 16, 440);
    const Spectrum last = SpectrumDesk::SpectrumOf(document);
    desk.OpenSpectrum();
    desk.Client().setActiveSubWindow(desk.Children().at(0));
    desk.Run(kCommandClose);
    QTRY_COMPARE(desk.Children().size(), 1);
    QTRY_VERIFY(desk.Readout().accessibleDescription().contains("closed"));
    QVERIFY(desk.Shows(last));
    // Another document is followed from its first cursor move on.
    AudioWin& other = desk.OpenSine("b.wav", 16, 2000);
    QCOMPARE(desk.Window().Shown().bins, last.bins);
    ViewOf(other).SetCursorPosition(100, false);
    QCOMPARE(desk.Window().Shown().bins, SpectrumDesk::SpectrumOf(other).bins);
    QCOMPARE(desk.Readout().accessibleDescription(), "b.wav");
  }

  void WithoutSoundItIsFlatAndSaysWhy() {
    SpectrumDesk desk;
    desk.Client().RunCommand(kCommandNew);
    desk.OpenSpectrum();
    QVERIFY(desk.Readout().accessibleDescription().contains("no sound"));
    QVERIFY(desk.Shows({44100, SpectrumBins(kSpectrumPoints), {}}));
    desk.Run(kCommandClose);
    desk.OpenWave("c.wav", 5000, 24, 2);
    desk.OpenSpectrum();
    QVERIFY(desk.Readout().accessibleDescription().contains("8 or 16 bits"));
    QVERIFY(desk.Shows({44100, SpectrumBins(kSpectrumPoints), {}}));
  }

  void CommandsOnASoundAreDisabledWhileItIsActive() {
    SpectrumDesk desk;
    AudioWin& document = desk.OpenSine("a.wav", 16, 440);
    ViewOf(document).Show(0, 20000);
    desk.OpenSpectrum();
    for (const int id : {kCommandPlay, kCommandPlayFromCursor, kCommandPlayScreen, kCommandUndo, kCommandRedo,
                         kCommandPasteInsert, kCommandPasteMerge, kCommandPasteOverwrite, kCommandFormat,
                         kCommandSelectAll, kCommandSelectLastRange}) {
      QVERIFY2(!desk.Command(id)->isEnabled(), qPrintable(QString::number(id)));
      desk.Client().RunCommand(id);
    }
    for (const int id : {kCommandOpen, kCommandClose, kCommandSave, kCommandSaveAs, kCommandTile}) {
      QVERIFY2(desk.Command(id)->isEnabled(), qPrintable(QString::number(id)));
    }
    desk.Run(kCommandSave);
    desk.Run(kCommandSaveAs);
    desk.Client().RunCommand(8262);  // an effect of the action menu
    desk.Client().ScrollActive(3, 0);
    QVERIFY(desk.prompts.errors.empty());
    QVERIFY(desk.prompts.startShown.empty());
    QVERIFY(!document.Doc().Changed());
    QCOMPARE(ViewOf(document).FirstVisibleFrame(), 0);
  }

  void TheStatusGadgetsStayThoseOfTheDocument() {
    SpectrumDesk desk;
    desk.OpenWave("a.wav", 5000, 8, 1, 8000);
    desk.OpenSpectrum();
    QCOMPARE(desk.Gadgets(), "8000 Hz, 8 Bits, Mono");
  }

  void ItIsArrangedAndListedLikeADocument() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    QCOMPARE(desk.OpenedMenu("&Window").last(), "&2 Audio Spectrum");
    QVERIFY(desk.MenuNamed("&Window")->actions().last()->isChecked());
    desk.Run(kCommandTile);
    QVERIFY(!desk.Children().at(0)->geometry().intersects(desk.Children().at(1)->geometry()));
    desk.Run(kCommandCascade);
    QVERIFY(desk.Child().height() > 150);
    desk.Child().showMinimized();
    desk.Run(kCommandArrangeIcons);
    QCOMPARE(desk.Child().geometry().bottom(), desk.Client().viewport()->rect().bottom());
    desk.OpenedMenu("&Window");
    desk.MenuNamed("&Window")->actions().last()->trigger();
    QVERIFY(!desk.Child().isMinimized());
    QCOMPARE(desk.Client().currentSubWindow(), &desk.Child());
  }

  void LeavingWhileItIsActiveSavesTheDocumentThatAsks() {
    SpectrumDesk desk;
    AudioWin& document = desk.OpenSine("a.wav", 16, 440);
    document.Doc().SetChanged(true);
    desk.OpenSpectrum();
    desk.prompts.answers = {Answer::Cancel};
    QVERIFY(!desk.Frame().close());
    QVERIFY(desk.Client().Spectrum() != nullptr);
    desk.prompts.answers = {Answer::Yes};
    const auto before = std::filesystem::last_write_time(desk.scratch / "a.wav");
    std::filesystem::last_write_time(desk.scratch / "a.wav", before - std::chrono::hours(1));
    QVERIFY(desk.Frame().close());
    QVERIFY(std::filesystem::last_write_time(desk.scratch / "a.wav") >= before);
    QVERIFY(desk.Client().Spectrum() == nullptr);
  }

  void TheProgramEndsWithItOpen() {
    SpectrumDesk desk;
    desk.OpenSine("a.wav", 16, 440);
    desk.OpenSpectrum();
    desk.End();
    desk.Start();
    desk.OpenSine("a.wav", 16, 440);
    QVERIFY(desk.Command(kCommandAudioSpectrum)->isEnabled());
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::SpectrumWindowTest)

#include "spectrum_window_test.moc"
