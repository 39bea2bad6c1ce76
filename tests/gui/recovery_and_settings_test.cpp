// What the program writes when it ends, and what it offers when its last run died.
#include <QObject>

#include "audio/Settings.h"
#include "document/TempCopy.h"
#include "tests/gui/support/Desk.h"
#include "tests/gui/support/GuiMain.h"

namespace tembrel::test {

namespace {

class RecoveryAndSettingsTest : public QObject {
  Q_OBJECT

 private:
  // What a run leaves behind that dies with unsaved changes in `document`.
  static std::filesystem::path Abandon(Desk& desk, int number, const std::string& document) {
    std::filesystem::path copy = desk.paths.TempWavePath(number);
    WriteBytes(copy, WaveFile(22050, 16, 1, CountingBytes(400)));
    WriteText(NotePath(copy), document);
    return copy;
  }

 private Q_SLOTS:
  void SettingsAreWrittenAtTheEnd() {
    Desk desk;
    QVERIFY(!std::filesystem::exists(desk.paths.settingsFile));
    desk.OpenWave();
    desk.End();
    QCOMPARE(LoadSettings(desk.paths.settingsFile).playback.rate, 22050U);
    const SettingStore store(desk.StoreFile());
    QCOMPARE(LoadLastFiles(store).front(), (desk.scratch / "song.wav").string());
  }

  void SettingsSurviveARestart() {
    Desk desk;
    desk.End();
    Settings settings;
    settings.playback = {11025, 8, 1};
    SaveSettings(desk.paths.settingsFile, settings);
    desk.Start();
    desk.Start();
    QVERIFY(LoadSettings(desk.paths.settingsFile).playback == settings.playback);
    QVERIFY(desk.Client().Playback() == settings.playback);
  }

  void TheFolderIsTheLastOneAgain() {
    Desk desk;
    std::filesystem::create_directories(desk.scratch / "music");
    std::filesystem::current_path(desk.scratch / "music");
    desk.End();
    std::filesystem::current_path("/");
    desk.Start();
    QVERIFY(std::filesystem::equivalent(std::filesystem::current_path(), desk.scratch / "music"));
  }

  void TheSharedTemporaryFileIsRemovedAtTheEnd() {
    Desk desk;
    WriteText(desk.paths.sharedTempPath, "left over");
    desk.End();
    QVERIFY(!std::filesystem::exists(desk.paths.sharedTempPath));
  }

  void NothingIsOfferedAfterAProperEnd() {
    Desk desk;
    desk.OpenWave();
    desk.Start();
    desk.Client().OfferRecovery();
    QVERIFY(desk.prompts.questions.empty());
    QVERIFY(desk.Children().isEmpty());
  }

  void YesRecoversTheDocumentAsChanged() {
    Desk desk;
    const std::string name = (desk.scratch / "lost.wav").string();
    Abandon(desk, 7, name);
    desk.prompts.answers = {Answer::Yes};
    desk.Client().OfferRecovery();
    QCOMPARE(desk.prompts.questions.size(), 1U);
    QVERIFY(desk.prompts.questions.front().find(name) != std::string::npos);
    QCOMPARE(desk.Children().size(), 1);
    const Document& document = desk.Active()->Doc();
    QCOMPARE(document.FileName(), name);
    QVERIFY(document.Changed());
    QVERIFY(desk.ActiveChild()->isWindowModified());
    QCOMPARE(document.Clip()->Frames(), 200U);
    QCOMPARE(desk.Gadgets(), "22050 Hz, 16 Bits, Mono");
    // Its new copy is the only one left, and would be found again.
    QVERIFY(document.TempFileName() != desk.paths.TempWavePath(7));
    QCOMPARE(desk.TempFiles().size(), 2U);
    QCOMPARE(ReadText(NotePath(document.TempFileName())), name);
    desk.Run(kCommandSave);
    QVERIFY(std::filesystem::exists(name));
  }

  void NoRemovesTheCopies() {
    Desk desk;
    Abandon(desk, 7, "/a.wav");
    Abandon(desk, 8, "/b.wav");
    desk.prompts.answers = {Answer::No};
    desk.Client().OfferRecovery();
    QVERIFY(desk.Children().isEmpty());
    QVERIFY(desk.TempFiles().empty());
  }

  void CancelKeepsTheCopiesForTheNextStart() {
    Desk desk;
    const std::filesystem::path copy = Abandon(desk, 7, "/a.wav");
    desk.prompts.answers = {Answer::Cancel};
    desk.Client().OfferRecovery();
    QVERIFY(desk.Children().isEmpty());
    QVERIFY(std::filesystem::exists(copy));
    desk.Start();
    desk.prompts.questions.clear();
    desk.prompts.answers = {Answer::Yes};
    desk.Client().OfferRecovery();
    QCOMPARE(desk.prompts.questions.size(), 1U);
    QCOMPARE(desk.Children().size(), 1);
  }

  void SeveralDocumentsAreRecovered() {
    Desk desk;
    Abandon(desk, 1, "/a.wav");
    Abandon(desk, 2, "");
    desk.prompts.answers = {Answer::Yes};
    desk.Client().OfferRecovery();
    QCOMPARE(desk.Children().size(), 2);
    for (const QMdiSubWindow* child : desk.Children()) {
      QVERIFY(qobject_cast<AudioWin*>(child->widget())->Doc().Changed());
      QVERIFY(child->widget()->windowTitle() != "[*]");
    }
    QVERIFY(!std::filesystem::exists("/a.wav"));
  }

  void ANamelessDocumentIsCalledAfterItsFirstFile() {
    Desk desk;
    Abandon(desk, 2, "");
    desk.prompts.answers = {Answer::Yes};
    desk.Client().OfferRecovery();
    QVERIFY(desk.Active()->Title().startsWith("Document - "));
    desk.prompts.saveChoice = SaveChoice{desk.scratch / "found.wav", 1};
    desk.Run(kCommandSave);
    QCOMPARE(desk.Active()->Title(), QString::fromStdString((desk.scratch / "found.wav").string()));
    QVERIFY(desk.Active()->windowTitle().contains("found.wav"));
    desk.prompts.saveChoice = SaveChoice{desk.scratch / "other.wav", 1};
    desk.Run(kCommandSaveAs);
    QVERIFY(desk.Active()->Title().endsWith("found.wav"));
  }

  void ACancelledRecoveryKeepsTheCopy() {
    Desk desk;
    const std::filesystem::path copy = Abandon(desk, 7, "/lost.wav");
    desk.prompts.answers = {Answer::Yes};
    desk.prompts.onProgress = [](std::uint64_t, std::uint64_t) { return false; };
    desk.Client().OfferRecovery();
    QTRY_VERIFY(desk.Children().isEmpty());
    QVERIFY(std::filesystem::exists(copy));
    QVERIFY(std::filesystem::exists(NotePath(copy)));
  }

  void ACopyThatCannotBeReadIsPutAsideAndSaid() {
    Desk desk;
    const std::filesystem::path copy = Abandon(desk, 7, "/lost.wav");
    WriteText(copy, "cut short");
    desk.prompts.answers = {Answer::Yes};
    desk.Client().OfferRecovery();
    QTRY_VERIFY(desk.Children().isEmpty());
    QCOMPARE(desk.prompts.errors.size(), 1U);
    QVERIFY(desk.prompts.errors.front().find("/lost.wav") != std::string::npos);
    const std::filesystem::path broken = std::filesystem::path(copy).replace_extension(".broken");
    QCOMPARE(ReadText(broken), "cut short");
    QCOMPARE(desk.TempFiles().size(), 1U);
    desk.Client().OfferRecovery();
    QCOMPARE(desk.prompts.questions.size(), 1U);
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::RecoveryAndSettingsTest)

#include "recovery_and_settings_test.moc"
