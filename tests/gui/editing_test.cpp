// Edits from the menus and by keys: what they do to the document, its title, its history and its window, and
// what is said when they are refused.
#include <fstream>
#include <sys/resource.h>
#include <unistd.h>

#include <QMessageBox>
#include <QObject>
#include <QTimer>

#include "tests/gui/support/ActionMenu.h"
#include "tests/gui/support/Desk.h"
#include "tests/gui/support/ExpectedView.h"
#include "tests/gui/support/GuiMain.h"
#include "view/ActionMenu.h"

namespace tembrel::test {

namespace {

constexpr std::size_t kFrames = 1000;
constexpr std::size_t kFrameSize = 4;  // 16 bits, stereo

Bytes Part(const Bytes& sound, std::size_t from, std::size_t to) {
  return {sound.begin() + static_cast<std::ptrdiff_t>(from), sound.begin() + static_cast<std::ptrdiff_t>(to)};
}

Bytes Joined(std::initializer_list<Bytes> parts) {
  Bytes all;
  for (const Bytes& part : parts) {
    Append(all, part);
  }
  return all;
}

// `sound` with `inserted` at `at`: the byte behind it is the one that stood there before.
Bytes WithInserted(const Bytes& sound, std::size_t at, const Bytes& inserted) {
  Bytes all = Joined({Part(sound, 0, at), inserted, Part(sound, at, sound.size())});
  if (at + inserted.size() < sound.size()) {
    all[at + inserted.size()] = sound[at + inserted.size()];
  }
  return all;
}

Bytes Silence(std::size_t count, int value) {
  return Bytes(count, static_cast<std::byte>(value));
}

// For as long as it lives the process gets at most `room` bytes more of address space.
class AddressLimit {
 public:
  explicit AddressLimit(std::size_t room) {
    getrlimit(RLIMIT_AS, &before);
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlimit limited{pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) + room, before.rlim_max};
    setrlimit(RLIMIT_AS, &limited);
  }
  ~AddressLimit() { setrlimit(RLIMIT_AS, &before); }
  AddressLimit(const AddressLimit&) = delete;
  AddressLimit& operator=(const AddressLimit&) = delete;

 private:
  rlimit before{};
};

class EditingTest : public QObject {
  Q_OBJECT

 private:
  struct Range {
    std::size_t start;
    std::size_t end;
  };
  // The bytes that a drag over the columns 100 to 300 selects.
  static Range Dragged(Desk& desk, std::size_t frameSize = kFrameSize) {
    const FrameRange range = FramesBetween(desk.View(), 100, 300);
    return {static_cast<std::size_t>(range.start) * frameSize,
            static_cast<std::size_t>(range.end) * frameSize};
  }
  static bool Act(Desk& desk, int id) { return DragAndChoose(desk.View(), 100, 300, id); }
  static bool TitleHasStar(Desk& desk) { return desk.ActiveChild()->isWindowModified(); }
  static bool ViewIsCurrent(Desk& desk) {
    const QImage shown = OnScreen(desk.View());
    return shown == ExpectedView(*desk.Active(), shown.size());
  }
  // The document as a file of its own would hold it.
  static Bytes FileOf(const AudioWin& window) {
    const WaveFormat& format = window.Doc().Clip()->format;
    return WaveFile(format.nSamplesPerSec, format.wBitsPerSample, format.nChannels, SoundOf(window));
  }
  // Runs what shows a message box and returns it as "icon: text"; the box is answered with Return.
  static QString SaidBy(const std::function<void()>& act) {
    QString said;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&said] {
      if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        const char* icon = box->icon() == QMessageBox::Information ? "information: "
                           : box->icon() == QMessageBox::Critical  ? "error: "
                                                                   : "other: ";
        said += icon + box->windowTitle() + ": " + box->text();
        QTest::keyClick(box, Qt::Key_Return);
      }
    });
    watch.start(1);
    act();
    watch.stop();
    return said;
  }

 private Q_SLOTS:
  void CutTakesTheSelectionOut() {
    Desk desk;
    AudioWin& window = desk.OpenWave("song.wav", kFrames);
    const Bytes before = SoundOf(window);
    const Range range = Dragged(desk);
    QVERIFY(!TitleHasStar(desk));
    QVERIFY(Act(desk, kActionCut));
    const Bytes after = Joined({Part(before, 0, range.start), Part(before, range.end, before.size())});
    QCOMPARE(SoundOf(window), after);
    QVERIFY(window.Doc().Changed());
    QVERIFY(TitleHasStar(desk));
    QCOMPARE(window.Doc().FrameCount(), std::uint32_t(after.size() / kFrameSize));
    QCOMPARE(desk.View().View().TotalFrames(), std::int64_t(after.size() / kFrameSize));
    QCOMPARE(ReadBytes(window.Doc().TempFileName()), FileOf(window));
    QVERIFY(ViewIsCurrent(desk));
  }

  void CopyLeavesTheDocumentAsItIsButCountsAsAStep() {
    Desk desk;
    AudioWin& window = desk.OpenWave("song.wav", kFrames);
    const Bytes before = SoundOf(window);
    QVERIFY(!desk.Command(kCommandPasteInsert)->isEnabled());
    QVERIFY(Act(desk, kActionCopy));
    QCOMPARE(SoundOf(window), before);
    QVERIFY(!TitleHasStar(desk));
    QVERIFY(desk.Command(kCommandUndo)->isEnabled());
    for (const int id : {kCommandPasteInsert, kCommandPasteMerge, kCommandPasteOverwrite}) {
      QVERIFY(desk.Command(id)->isEnabled());
    }
    desk.Run(kCommandUndo);
    QCOMPARE(SoundOf(window), before);
    QVERIFY(!desk.Command(kCommandUndo)->isEnabled());
  }

  void InsertPutsSilenceBeforeTheSelection() {
    Desk desk;
    AudioWin& window = desk.OpenWave("song.wav", kFrames);
    const Bytes before = SoundOf(window);
    const Range range = Dragged(desk);
    QVERIFY(Act(desk, kActionInsert));
    QCOMPARE(SoundOf(window), WithInserted(before, range.start, Silence(range.end - range.start, 0)));
    QVERIFY(TitleHasStar(desk));
    QCOMPARE(ReadBytes(window.Doc().TempFileName()), FileOf(window));
    QVERIFY(ViewIsCurrent(desk));
  }

  void SilenceOf8BitsIs127() {
    Desk desk;
    AudioWin& window = desk.OpenWave("song.wav", kFrames, 8, 1);
    const Bytes before = SoundOf(window);
    const Range range = Dragged(desk, 1);
    QVERIFY(Act(desk, kActionInsert));
    QCOMPARE(SoundOf(window), WithInserted(before, range.start, Silence(range.end - range.start, 127)));
  }

  void CuttingAllLeavesOneByte() {
    Desk desk;
    AudioWin& window = desk.OpenWave("song.wav", kFrames);
    const Bytes before = SoundOf(window);
    QVERIFY(WithActionMenu([&desk] { desk.Run(kCommandSelectAll); },
                           [](QMenu& menu) { Choose(menu, kActionCut); }));
    QCOMPARE(SoundOf(window), Part(before, 0, 1));
    QVERIFY(ViewIsCurrent(desk));
    desk.Run(kCommandUndo);
    QCOMPARE(SoundOf(window), before);
    QVERIFY(ViewIsCurrent(desk));
  }

  void UndoAndRedo_data() {
    QTest::addColumn<QString>("undoKeys");
    QTest::newRow("by the menu") << QString();
    QTest::newRow("Ctrl+Z") << QString("Ctrl+Z");
    QTest::newRow("Alt+Backspace") << QString("Alt+Backspace");
  }
  void UndoAndRedo() {
    QFETCH(const QString, undoKeys);
    Desk desk;
    AudioWin& window = desk.OpenWave("song.wav", kFrames);
    const auto Press = [&desk](const QString& keys) {
      const QKeyCombination combination = QKeySequence(keys)[0];
      QTest::keyClick(&desk.View(), combination.key(), combination.keyboardModifiers());
    };
    const auto Undo = [&] { undoKeys.isEmpty() ? desk.Run(kCommandUndo) : Press(undoKeys); };
    const auto Redo = [&] { undoKeys.isEmpty() ? desk.Run(kCommandRedo) : Press("Ctrl+Y"); };
    QVERIFY(!desk.Command(kCommandUndo)->isEnabled() && !desk.Command(kCommandRedo)->isEnabled());
    QList<Bytes> states{SoundOf(window)};
    for (const int id : {kActionCut, kActionInsert, kActionCut}) {
      QVERIFY(Act(desk, id));
      states << SoundOf(window);
    }
    for (qsizetype i = states.size() - 2; i >= 0; --i) {
      QVERIFY(desk.Command(kCommandUndo)->isEnabled());
      Undo();
      QCOMPARE(SoundOf(window), states.at(i));
      QCOMPARE(ReadBytes(window.Doc().TempFileName()), FileOf(window));
      QVERIFY(ViewIsCurrent(desk));
    }
    QVERIFY(!desk.Command(kCommandUndo)->isEnabled());
    for (qsizetype i = 1; i < states.size(); ++i) {
      QVERIFY(desk.Command(kCommandRedo)->isEnabled());
      Redo();
      QCOMPARE(SoundOf(window), states.at(i));
      QVERIFY(ViewIsCurrent(desk));
    }
    QVERIFY(!desk.Command(kCommandRedo)->isEnabled());
    QVERIFY(TitleHasStar(desk));
  }

  void ThirtyTwoStepsCanBeUndone() {
    Desk desk;
    AudioWin& window = desk.OpenWave("song.wav", 100000);
    QList<Bytes> states;
    for (int i = 0; i < 34; ++i) {
      states << SoundOf(window);
      QVERIFY(Act(desk, i % 2 == 0 ? kActionCut : kActionInsert));
      desk.View().View().ZoomAll();
    }
    int steps = 0;
    while (desk.Command(kCommandUndo)->isEnabled() && steps < 40) {
      ++steps;
      desk.Run(kCommandUndo);
      QCOMPARE(SoundOf(window), states.at(34 - steps));
    }
    QCOMPARE(steps, 32);
  }

  void PasteInsertBetweenTwoDocuments() {
    Desk desk;
    const AudioWin& from = desk.OpenWave("from.wav", kFrames);
    const Range range = Dragged(desk);
    QVERIFY(Act(desk, kActionCopy));
    const Bytes clipboard = Part(SoundOf(from), range.start, range.end);
    AudioWin& into = desk.OpenWave("into.wav", 700);
    const Bytes before = SoundOf(into);
    desk.View().View().SetCursorPosition(50, false);
    desk.Run(kCommandPasteInsert);
    const Bytes once = WithInserted(before, 50 * kFrameSize, clipboard);
    QCOMPARE(SoundOf(into), once);
    QVERIFY(TitleHasStar(desk));
    QVERIFY(ViewIsCurrent(desk));
    for (const Qt::KeyboardModifier modifier : {Qt::ControlModifier, Qt::ShiftModifier}) {
      const Bytes sound = SoundOf(into);
      QTest::keyClick(&desk.View(), modifier == Qt::ControlModifier ? Qt::Key_V : Qt::Key_Insert, modifier);
      QCOMPARE(SoundOf(into), WithInserted(sound, 50 * kFrameSize, clipboard));
    }
    QVERIFY(!from.Doc().Changed());
  }

  void TheClipboardOutlivesItsDocument() {
    Desk desk;
    const AudioWin& from = desk.OpenWave("from.wav", kFrames);
    const Range range = Dragged(desk);
    QVERIFY(Act(desk, kActionCopy));
    const Bytes clipboard = Part(SoundOf(from), range.start, range.end);
    desk.Run(kCommandClose);
    QVERIFY(desk.Active() == nullptr);
    QVERIFY(!desk.Command(kCommandPasteInsert)->isEnabled());
    AudioWin& into = desk.OpenWave("into.wav", 700);
    const Bytes before = SoundOf(into);
    desk.Run(kCommandPasteInsert);
    QCOMPARE(SoundOf(into), WithInserted(before, 0, clipboard));
  }

  void PasteOverwriteKeepsTheLength() {
    Desk desk;
    const AudioWin& from = desk.OpenWave("from.wav", kFrames);
    const Range range = Dragged(desk);
    QVERIFY(Act(desk, kActionCopy));
    const Bytes clipboard = Part(SoundOf(from), range.start, range.end);
    AudioWin& into = desk.OpenWave("into.wav", 700);
    const Bytes before = SoundOf(into);
    desk.View().View().SetCursorPosition(600, false);
    desk.Run(kCommandPasteOverwrite);
    QCOMPARE(SoundOf(into),
             Joined({Part(before, 0, 600 * kFrameSize), Part(clipboard, 0, 100 * kFrameSize)}));
    QVERIFY(TitleHasStar(desk));
    QCOMPARE(ReadBytes(into.Doc().TempFileName()), FileOf(into));
    QVERIFY(ViewIsCurrent(desk));
    desk.Run(kCommandUndo);
    QCOMPARE(SoundOf(into), before);
  }

  // Mono, so that the mix begins at the cursor. 16-bit samples that sum exactly.
  void PasteMergeAddsTheSamples() {
    Desk desk;
    const auto Constant = [](int value) {
      Bytes sound;
      for (std::size_t i = 0; i < kFrames; ++i) {
        Append(sound, Samples16({value}));
      }
      return sound;
    };
    WriteBytes(desk.scratch / "from.wav", WaveFile(44100, 16, 1, Constant(8000)));
    WriteBytes(desk.scratch / "into.wav", WaveFile(44100, 16, 1, Constant(4000)));
    desk.Client().OpenDocument(desk.scratch / "from.wav");
    QCoreApplication::processEvents();
    const FrameRange range = FramesBetween(desk.View(), 100, 300);
    QVERIFY(Act(desk, kActionCopy));
    desk.Client().OpenDocument(desk.scratch / "into.wav");
    QCoreApplication::processEvents();
    desk.View().View().SetCursorPosition(10, false);
    desk.Run(kCommandPasteMerge);
    const Bytes sound = SoundOf(*desk.Active());
    QCOMPARE(sound.size(), kFrames * 2);
    for (std::int64_t frame = 0; frame < std::int64_t{kFrames}; ++frame) {
      const auto at = static_cast<std::size_t>(frame) * 2;
      const int value = std::to_integer<int>(sound[at]) | std::to_integer<int>(sound[at + 1]) << 8;
      const bool merged = frame >= 10 && frame < 10 + range.end - range.start;
      QVERIFY2(merged ? std::abs(value - 12000) <= 1 : value == 4000, qPrintable(QString::number(frame)));
    }
    QVERIFY(TitleHasStar(desk));
    QVERIFY(ViewIsCurrent(desk));
  }

  void PastingAnotherFormatSaysSoAndChangesNothing_data() {
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("rate");
    QTest::addColumn<QString>("text");
    QTest::newRow("bits and channels") << 8 << 1 << 22050 << "Can't paste to 8 bit mono 22050 Hz audio file.";
    QTest::newRow("rate") << 16 << 2 << 48000 << "Can't paste to 16 bit stereo 48000 Hz audio file.";
  }
  void PastingAnotherFormatSaysSoAndChangesNothing() {
    QFETCH(const int, bits);
    QFETCH(const int, channels);
    QFETCH(const int, rate);
    QFETCH(const QString, text);
    Desk desk(Desk::Asks::WithBoxes);
    desk.OpenWave("from.wav", kFrames);
    QVERIFY(Act(desk, kActionCopy));
    AudioWin& into = desk.OpenWave("into.wav", 700, static_cast<std::uint32_t>(bits),
                                   static_cast<std::uint32_t>(channels), static_cast<std::uint32_t>(rate));
    const Bytes before = SoundOf(into);
    for (const int id : {kCommandPasteInsert, kCommandPasteMerge, kCommandPasteOverwrite}) {
      QCOMPARE(SaidBy([&] { desk.Run(id); }), "information: Tembrel: " + text);
      QCOMPARE(SoundOf(into), before);
      QVERIFY(!TitleHasStar(desk));
      QVERIFY(!into.Doc().CanUndo());
    }
  }

  void SoundThatCanOnlyBeLookedAtSaysSo() {
    Desk desk(Desk::Asks::WithBoxes);
    AudioWin& window = desk.OpenWave("deep.wav", kFrames, 24);
    const Bytes before = SoundOf(window);
    const QString text = "This sound (24 bits, 2 channels) can be looked at but not edited.";
    QCOMPARE(QString::fromStdString(window.Doc().Notice()), text);
    for (const int id : {kActionCut, kActionCopy, kActionInsert}) {
      QString said;
      bool menu = false;
      said = SaidBy([&] { menu = Act(desk, id); });
      QVERIFY(menu);
      QCOMPARE(said, "error: Tembrel: " + text);
    }
    QCOMPARE(SoundOf(window), before);
    QVERIFY(!TitleHasStar(desk));
    QVERIFY(!desk.Command(kCommandPasteInsert)->isEnabled());
  }

  void AnEditThatGetsNoMemorySaysSoAndChangesNothing() {
#ifdef __SANITIZE_ADDRESS__
    QSKIP("the sanitizer needs all the address space there is");
#endif
    Desk desk(Desk::Asks::WithBoxes);
    AudioWin& window = desk.OpenWave("large.wav", std::size_t{16} << 20U);
    const std::size_t size = window.Doc().Clip()->dataSize;
    QString said;
    {
      const AddressLimit limit(size / 2);
      said = SaidBy([&] {
        WithActionMenu([&desk] { desk.Run(kCommandSelectAll); },
                       [](QMenu& menu) { Choose(menu, kActionInsert); });
      });
    }
    QCOMPARE(said, "error: Tembrel: There is not enough memory for this. Nothing was changed.");
    QCOMPARE(std::size_t{window.Doc().Clip()->dataSize}, size);
    QCOMPARE(SoundOf(window), CountingBytes(size));
    QVERIFY(!TitleHasStar(desk));
    QVERIFY(!window.Doc().CanUndo());
    QVERIFY(Act(desk, kActionInsert));  // with memory it works
    QVERIFY(TitleHasStar(desk));
  }

  void TheCounterFollowsAnEdit() {
    Desk desk;
    desk.OpenWave("song.wav", kFrames);
    const auto* counter = desk.Frame().findChild<QWidget*>("CountWindow");
    QVERIFY(counter != nullptr);
    desk.View().View().SetCursorPosition(990, false);
    QVERIFY(WithActionMenu([&desk] { desk.Run(kCommandSelectAll); },
                           [](QMenu& menu) { Choose(menu, kActionCut); }));
    QCOMPARE(desk.View().View().CursorFrame(), 0);
    QCOMPARE(counter->accessibleName(), "Position: frame 0, 0.000 seconds");
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::EditingTest)

#include "editing_test.moc"
