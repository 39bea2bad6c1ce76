// Files dropped on the window open.
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QObject>
#include <QUrl>

#include "tests/gui/support/Desk.h"
#include "tests/gui/support/GuiMain.h"

namespace tembrel::test {

namespace {

class DroppingFilesTest : public QObject {
  Q_OBJECT

 private:
  // Drags the data over the window and lets it go there. Nothing when the window does not take it, otherwise
  // the action it took it with.
  static std::optional<Qt::DropAction> Drop(QWidget& target, const QMimeData& data,
                                            Qt::DropActions offered = Qt::CopyAction,
                                            Qt::KeyboardModifiers keys = Qt::NoModifier) {
    const QPoint where = target.rect().center();
    QDragEnterEvent enter(where, offered, &data, Qt::LeftButton, keys);
    QApplication::sendEvent(&target, &enter);
    if (!enter.isAccepted()) {
      return std::nullopt;
    }
    QDropEvent drop(where, offered, &data, Qt::LeftButton, keys);
    QApplication::sendEvent(&target, &drop);
    QCoreApplication::processEvents();
    return drop.isAccepted() ? std::optional(drop.dropAction()) : std::nullopt;
  }

  static QUrl UrlOf(const std::filesystem::path& path) { return QUrl::fromLocalFile(Text(path)); }

 private Q_SLOTS:
  void EveryDroppedFileOpens() {
    Desk desk;
    QMimeData data;
    data.setUrls({UrlOf(desk.MakeWave("a b.wav", 10)), UrlOf(desk.MakeWave("c%20d.wav", 10))});
    QVERIFY(Drop(desk.Frame(), data));
    QTRY_COMPARE(desk.Children().size(), 2);
    QCOMPARE(desk.Active()->Doc().FileName(), (desk.scratch / "c%20d.wav").string());
  }

  // Whoever is told that files were moved may delete them.
  void ADropIsACopyEvenWhenAMoveIsProposed() {
    Desk desk;
    QMimeData data;
    data.setUrls({UrlOf(desk.MakeWave("a.wav", 10))});
    QVERIFY(Drop(desk.Frame(), data, Qt::MoveAction | Qt::CopyAction, Qt::ShiftModifier) == Qt::CopyAction);
    QTRY_COMPARE(desk.Children().size(), 1);
    QVERIFY(!Drop(desk.Frame(), data, Qt::MoveAction));
    QCOMPARE(desk.Children().size(), 1);
  }

  void ADropOnADocumentOpensAnother() {
    Desk desk;
    desk.OpenWave("a.wav", 10);
    QMimeData data;
    data.setUrls({UrlOf(desk.MakeWave("b.wav", 10))});
    QVERIFY(Drop(desk.View(), data));
    QTRY_COMPARE(desk.Children().size(), 2);
  }

  void TextsAndAddressesAreNotTaken() {
    Desk desk;
    QMimeData text;
    text.setText("song.wav");
    QVERIFY(!Drop(desk.Frame(), text));
    QMimeData address;
    address.setUrls({QUrl("https://example.org/song.wav")});
    QVERIFY(!Drop(desk.Frame(), address));
    QVERIFY(desk.Children().isEmpty());
  }

  void ADroppedFileThatIsGoneIsNamed() {
    Desk desk;
    QMimeData data;
    data.setUrls({UrlOf(desk.scratch / "gone.wav")});
    QVERIFY(Drop(desk.Frame(), data));
    QTRY_COMPARE(desk.prompts.errors.size(), 1U);
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::DroppingFilesTest)

#include "dropping_files_test.moc"
