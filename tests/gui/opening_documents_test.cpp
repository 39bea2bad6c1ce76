// What the user sees of a file that was opened, and of one that could not be.
#include <QMessageBox>
#include <QObject>
#include <QPushButton>
#include <QTimer>

#include "tests/gui/support/Desk.h"
#include "tests/gui/support/GuiMain.h"
#include "view/WavePicture.h"

namespace tembrel::test {

namespace {

class OpeningDocumentsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TheWindowIsTitledWithThePath() {
    Desk desk;
    desk.OpenWave("a & b [*] c.wav");
    QVERIFY(desk.ActiveChild() != nullptr);
    const QString path = Text(desk.scratch / "a & b [*] c.wav");
    QCOMPARE(desk.ActiveChild()->windowTitle().replace("[*][*]", "\1").remove("[*]").replace("\1", "[*]"),
             path);
    QVERIFY(!desk.ActiveChild()->isWindowModified());
  }

  void ADocumentIs624By334InARoomyFrame() {
    Desk desk;
    desk.OpenWave();
    QCOMPARE(desk.ActiveChild()->size(), QSize(624, 334));
    QVERIFY(desk.Client().viewport()->rect().contains(desk.ActiveChild()->geometry()));
  }

  void ADocumentFitsIntoASmallFrame() {
    Desk desk;
    desk.Frame().resize(500, 300);
    QCoreApplication::processEvents();
    desk.OpenWave();
    const QSize room = desk.Client().viewport()->size();
    QVERIFY(desk.ActiveChild()->width() <= room.width());
    QVERIFY(desk.ActiveChild()->height() <= room.height());
  }

  void TheWholeFileIsShownWithTheCursorAtItsStart() {
    Desk desk;
    desk.OpenWave("long.wav", 54321);
    const EditView& view = desk.View().View();
    QCOMPARE(view.FirstVisibleFrame(), 0);
    QCOMPARE(view.FramesOnScreen(), 54321);
    QCOMPARE(view.CursorFrame(), 0);
    QCOMPARE(desk.ScrollBar().value(), 0);
  }

  void TheStatusGadgetsTellItsFormat() {
    Desk desk;
    desk.OpenWave("a.wav", 100, 8, 1, 11025);
    QCOMPARE(desk.Gadgets(), "11025 Hz, 8 Bits, Mono");
    desk.OpenWave("b.wav", 100, 16, 2, 48000);
    QCOMPARE(desk.Gadgets(), "48000 Hz, 16 Bits, Stereo");
  }

  void WithoutADocumentTheGadgetsTellThePlaybackFormat() {
    Desk desk;
    desk.End();
    WriteText(desk.paths.settingsFile, "");
    desk.Start();
    QCOMPARE(desk.Gadgets(), "22050 Hz, 16 Bits, Stereo");
  }

  void ADocumentOpensMaximisedWhenTheActiveOneIs() {
    Desk desk;
    desk.OpenWave("a.wav");
    desk.ActiveChild()->showMaximized();
    desk.OpenWave("b.wav");
    QVERIFY(desk.ActiveChild()->isMaximized());
    QCOMPARE(desk.Active()->Doc().FileName(), (desk.scratch / "b.wav").string());
    desk.ActiveChild()->showNormal();
    desk.OpenWave("c.wav");
    QVERIFY(!desk.ActiveChild()->isMaximized());
  }

  void AFileThatIsNotThereIsNamedAndNothingElseChanges() {
    Desk desk;
    const std::filesystem::path missing = desk.scratch / "missing.wav";
    QVERIFY(!desk.Client().OpenDocument(missing));
    QCOMPARE(desk.prompts.errors, std::vector{missing.string() + " does not exist."});
    QVERIFY(desk.Children().isEmpty());
    QVERIFY(!desk.Command(kCommandClose)->isEnabled());
    QCOMPARE(desk.Client().Recent().Slots().front(), std::string());
  }

  void TheBoxAboutItIsTitledTembrelAndHasOkOnly() {
    Desk desk(Desk::Asks::WithBoxes);
    const std::filesystem::path missing = desk.scratch / "missing <b>.wav";
    QString title;
    QString text;
    bool okOnly = false;
    QTimer::singleShot(0, &desk.Frame(), [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      QVERIFY(box != nullptr);
      title = box->windowTitle();
      text = box->text();
      okOnly = box->standardButtons() == QMessageBox::Ok && box->textFormat() == Qt::PlainText;
      QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
    QVERIFY(!desk.Client().OpenDocument(missing));
    QCOMPARE(title, "Tembrel");
    QCOMPARE(text, Text(missing) + " does not exist.");
    QVERIFY(okOnly);
  }

  void AnUnreadableFileIsShownEmptyWithTheReasonInTheView() {
    Desk desk;
    WriteText(desk.scratch / "bad.wav", "this is no sound");
    QVERIFY(desk.Client().OpenDocument(desk.scratch / "bad.wav"));
    QVERIFY(desk.Active()->Doc().Clip() == nullptr);
    const std::string notice = desk.Active()->Doc().Notice();
    QVERIFY(notice.starts_with("bad.wav could not be read: "));
    QVERIFY(NoticeIsPainted(desk));
    QVERIFY(desk.prompts.errors.empty());
    QCOMPARE(desk.Client().Recent().Slots().front(), std::string());
  }

  void AFormatOfALaterVersionIsShownEmptyWithANotice() {
    Desk desk;
    WriteText(desk.scratch / "song.MP3", "ID3");
    QVERIFY(desk.Client().OpenDocument(desk.scratch / "song.MP3"));
    QVERIFY(desk.Active()->Doc().Clip() == nullptr);
    QVERIFY(NoticeIsPainted(desk));
  }

  void SoundOf24BitsIsShownWithANotice() {
    Desk desk;
    AudioWin& window = desk.OpenWave("deep.wav", 500, 24, 2, 96000);
    QVERIFY(window.Doc().Clip() != nullptr);
    QVERIFY(!window.Doc().Editable());
    QCOMPARE(desk.View().View().FramesOnScreen(), 500);
    QVERIFY(NoticeIsPainted(desk));
    QCOMPARE(desk.Gadgets(), "96000 Hz, 8 Bits, Stereo");
    const QImage shown = OnScreen(desk.View());
    int wavePixels = 0;
    for (int y = 0; y < shown.height(); ++y) {
      for (int x = 0; x < shown.width(); ++x) {
        wavePixels += shown.pixel(x, y) == kWaveColor ? 1 : 0;
      }
    }
    QVERIFY(wavePixels > 1000);
  }

  void ALongNoticeIsWrappedAndToldAsToolTip() {
    Desk desk;
    WriteText(desk.scratch / "<b>bad.wav", "this is no sound");
    QVERIFY(desk.Client().OpenDocument(desk.scratch / "<b>bad.wav"));
    const auto BoxHeight = [&desk] {
      const QImage shown = OnScreen(desk.View());
      int y = 0;
      while (y < shown.height() && shown.pixel(9, y) != kTimeColor) {
        ++y;
      }
      int bottom = y + 1;
      while (bottom < shown.height() && shown.pixel(9, bottom) != kTimeColor) {
        ++bottom;
      }
      return bottom - y;
    };
    const int oneLine = BoxHeight();
    const QString notice = QString::fromStdString(desk.Active()->Doc().Notice());
    QCOMPARE(desk.View().toolTip(), "<qt>" + notice.toHtmlEscaped() + "</qt>");
    desk.ActiveChild()->resize(230, 300);
    QVERIFY(BoxHeight() > oneLine + 10);
    desk.OpenWave();
    QCOMPARE(desk.View().toolTip(), QString());
  }

  void OrdinarySoundHasNoNotice() {
    Desk desk;
    desk.OpenWave();
    QVERIFY(!NoticeIsPainted(desk));
  }

  void CancellingLeavesNoDocumentBehind() {
    Desk desk;
    desk.OpenWave("kept.wav");
    const std::vector<std::string> tempFiles = desk.TempFiles();
    desk.prompts.onProgress = [](std::uint64_t, std::uint64_t) { return false; };
    QVERIFY(!desk.Client().OpenDocument(desk.MakeWave("cancelled.wav", 200000)));
    QTRY_COMPARE(desk.Children().size(), 1);
    QCOMPARE(desk.Active()->Doc().FileName(), (desk.scratch / "kept.wav").string());
    QCOMPARE(desk.Client().Recent().Slots().front(), (desk.scratch / "kept.wav").string());
    QCOMPARE(desk.TempFiles(), tempFiles);
    desk.Run(kCommandClose);
    QVERIFY(!desk.Command(kCommandClose)->isEnabled());
  }

  void CancellingWhileTheCopyIsWrittenLeavesNothingEither() {
    Desk desk;
    desk.prompts.onProgress = [](std::uint64_t done, std::uint64_t total) { return done * 4 < total * 3; };
    QVERIFY(!desk.Client().OpenDocument(desk.MakeWave("cancelled.wav", 2000000)));
    QTRY_VERIFY(desk.Children().isEmpty());
    QVERIFY(desk.TempFiles().empty());
    QTRY_VERIFY(!desk.Command(kCommandClose)->isEnabled());
  }

  void TheWaitCursorShowsWhileLoadingOnly() {
    Desk desk;
    Qt::CursorShape during = Qt::ArrowCursor;
    desk.prompts.onProgress = [&during](std::uint64_t, std::uint64_t) {
      during = QApplication::overrideCursor() == nullptr ? Qt::ArrowCursor
                                                         : QApplication::overrideCursor()->shape();
      return true;
    };
    desk.OpenWave("song.wav", 200000);
    QCOMPARE(during, Qt::WaitCursor);
    QVERIFY(QApplication::overrideCursor() == nullptr);
  }

  void TemporaryCopiesGoWithTheirDocuments() {
    Desk desk;
    desk.OpenWave("a.wav");
    desk.OpenWave("b.wav");
    QCOMPARE(desk.TempFiles().size(), 2U);
    desk.Run(kCommandClose);
    QTRY_COMPARE(desk.TempFiles().size(), 1U);
    desk.End();
    QVERIFY(desk.TempFiles().empty());
  }

  void TheSameFileOpensTwice() {
    Desk desk;
    desk.OpenWave();
    desk.OpenWave();
    QCOMPARE(desk.Children().size(), 2);
    QCOMPARE(desk.Client().Recent().Slots().at(1), std::string());
  }

  void HostileFileNamesOpen() {
    Desk desk;
    for (const std::string name :
         {"-dash.wav", "two  blanks.wav", "\"quoted\".wav", "%s%d.wav", "\xE6\x97\xA5\xE6\x9C\xAC.wav",
          "caf\xC3\xA9.wav", "a&b.wav", "latin1 \xE9.wav"}) {
      const AudioWin& window = desk.OpenWave(name, 50);
      QVERIFY2(window.Doc().Clip() != nullptr, name.c_str());
      QCOMPARE(desk.Client().Recent().Slots().front(), (desk.scratch / name).string());
    }
  }

  void ANewDocumentIsEmptyAndNumbered() {
    Desk desk;
    desk.Client().RunCommand(kCommandNew);
    desk.Client().RunCommand(kCommandNew);
    QCOMPARE(desk.Children().at(0)->widget()->windowTitle(), "Document - 0[*]");
    QCOMPARE(desk.Children().at(1)->widget()->windowTitle(), "Document - 1[*]");
    QVERIFY(desk.Active()->Doc().Clip() == nullptr);
    QVERIFY(desk.Command(kCommandClose)->isEnabled());
    QVERIFY(!NoticeIsPainted(desk));
  }

 private:
  // A notice is a framed box in the view's upper left corner.
  static bool NoticeIsPainted(Desk& desk) {
    const QImage shown = OnScreen(desk.View());
    int dark = 0;
    for (int x = 6; x < 60; ++x) {
      dark += shown.pixel(x, 6) == kTimeColor ? 1 : 0;
    }
    return dark == 54;
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::OpeningDocumentsTest)

#include "opening_documents_test.moc"
