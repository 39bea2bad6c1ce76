// The menu bar says, letter by letter and in order, what the menu table says, and its items are enabled by
// their rules.
#include <QContextMenuEvent>
#include <QObject>

#include "app/CommandTable.h"
#include "app/MenuTable.h"
#include "tests/gui/support/Desk.h"
#include "tests/gui/support/GuiMain.h"

namespace tembrel::test {

namespace {

QString ToText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QStringList TableTexts(const std::vector<MenuItem>& items, const QString& indent = {}) {
  QStringList texts;
  for (const MenuItem& item : items) {
    texts << indent + (item.IsSeparator() ? QString("-") : ToText(item.text)) + " #" +
                 QString::number(item.id);
    texts << TableTexts(item.popup, indent + "  ");
  }
  return texts;
}

QStringList MenuTexts(const QMenu& menu, const QString& indent = {}) {
  QStringList texts;
  for (const QAction* action : menu.actions()) {
    texts << indent + (action->isSeparator() ? QString("-") : action->text()) + " #" +
                 QString::number(action->property("commandId").toInt());
    if (action->menu() != nullptr) {
      texts << MenuTexts(*action->menu(), indent + "  ");
    }
  }
  return texts;
}

class MenusTest : public QObject {
  Q_OBJECT

 private:
  // The ids of the table's menu items that can be chosen now, as the opened menus show them.
  static QList<int> EnabledItems(Desk& desk) {
    QList<int> enabled;
    for (const Menu& menu : MainMenu()) {
      desk.OpenedMenu(ToText(menu.text));
    }
    for (const QAction* action : desk.Frame().QWidget::actions()) {
      const int id = action->property("commandId").toInt();
      const auto consumed = ConsumedCommands();
      if (action->isEnabled() && std::ranges::find(consumed, id) == consumed.end()) {
        enabled << id;
      }
    }
    std::ranges::sort(enabled);
    return enabled;
  }

 private Q_SLOTS:
  void ARightClickBesideTheMenusOpensNothing() {
    Desk desk;
    QWidget& bar = *desk.Frame().menuBar();
    const QPoint at(bar.width() - 20, bar.height() / 2);
    QContextMenuEvent click(QContextMenuEvent::Mouse, at, bar.mapToGlobal(at));
    QApplication::sendEvent(&bar, &click);
    QCoreApplication::processEvents();
    QVERIFY(QApplication::activePopupWidget() == nullptr);
    QVERIFY(desk.Frame().findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly).isEmpty());
  }

  void TextsAndOrderAreTheTables() {
    Desk desk;
    QStringList bar;
    QStringList expectedBar;
    for (const QAction* action : desk.Frame().menuBar()->actions()) {
      bar << action->text();
    }
    for (const Menu& menu : MainMenu()) {
      expectedBar << ToText(menu.text);
      QMenu* shown = desk.MenuNamed(ToText(menu.text));
      QVERIFY(shown != nullptr);
      QCOMPARE(MenuTexts(*shown), TableTexts(menu.items));
    }
    QCOMPARE(bar, expectedBar);
  }

  void WithoutADocumentWhatNeedsOneIsDisabled() {
    Desk desk;
    const QList<int> enabled = EnabledItems(desk);
    for (const int id : {kCommandClose, kCommandSave, kCommandSaveAs, kCommandUndo, kCommandRedo,
                         kCommandPasteInsert, kCommandPasteMerge, kCommandPasteOverwrite, kCommandFormat,
                         kCommandSelectAll, kCommandSelectLastRange, kCommandPlay, kCommandPlayFromCursor,
                         kCommandPlayScreen, kCommandAudioSpectrum}) {
      QVERIFY2(!enabled.contains(id), qPrintable(QString::number(id)));
    }
    for (const int id : {kCommandOpen, kCommandExit, kCommandHelpContents, kCommandWebsite, kCommandAbout}) {
      QVERIFY2(enabled.contains(id), qPrintable(QString::number(id)));
    }
  }

  void EveryItemIsEnabledExactlyByItsRule() {
    Desk desk;
    for (const bool withDocument : {false, true}) {
      if (withDocument) {
        desk.OpenWave();
      }
      CommandContext context;
      context.documentCount = withDocument ? 1 : 0;
      context.activeAudioDocument = withDocument;
      QList<int> expected;
      for (const CommandRow& row : CommandTable()) {
        if (desk.Command(row.id) != nullptr && IsEnabled(row, context)) {
          expected << row.id;
        }
      }
      std::ranges::sort(expected);
      QCOMPARE(EnabledItems(desk), expected);
    }
  }

  void ADocumentEnablesCloseAndSaveAndItsOwnCloseButtonDisablesThemAgain() {
    Desk desk;
    desk.OpenWave();
    for (const int id : {kCommandClose, kCommandSave, kCommandSaveAs}) {
      QVERIFY(desk.Command(id)->isEnabled());
    }
    QVERIFY(desk.ActiveChild()->close());
    QTRY_VERIFY(desk.Children().isEmpty());
    for (const int id : {kCommandClose, kCommandSave, kCommandSaveAs}) {
      QTRY_VERIFY(!desk.Command(id)->isEnabled());
    }
  }

  void ADocumentAskedToStayKeepsItsCommandsEnabled() {
    Desk desk;
    desk.OpenWave().Doc().SetChanged(true);
    desk.prompts.answers = {Answer::Cancel};
    desk.Run(kCommandClose);
    QCOMPARE(desk.Children().size(), 1);
    QVERIFY(desk.Command(kCommandClose)->isEnabled());
    QVERIFY(desk.Command(kCommandSave)->isEnabled());
  }

  void NoMenuItemIsWithoutACommand() {
    Desk desk;
    for (const Menu& menu : MainMenu()) {
      for (const QAction* action : desk.MenuNamed(ToText(menu.text))->actions()) {
        if (!action->isSeparator() && action->menu() == nullptr) {
          const int id = action->property("commandId").toInt();
          QVERIFY(FindCommand(id) != nullptr);
        }
      }
    }
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::MenusTest)

#include "menus_test.moc"
