#include "app/ui/TMainWindow.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QToolBar>
#include <QUrl>

#include "app/AcceleratorTable.h"
#include "app/CommandIds.h"
#include "app/CommandTable.h"
#include "app/RecentFiles.h"
#include "app/ui/FrameMenuBar.h"
#include "app/ui/HelpWindow.h"
#include "app/ui/RecordingGadget.h"
#include "app/ui/StatusGadgets.h"
#include "app/ui/TopStrip.h"
#include "app/ui/TransportControl.h"
#include "app/ui/VAboutDialog.h"
#include "app/ui/tembrelMDIClient.h"
#include "document/ui/AudioWin.h"
#include "document/ui/ShortPath.h"
#include "view/StripButtons.h"
#include "view/ui/CountWin.h"
#include "view/ui/ScrollerWindow.h"
#include "view/ui/ToolTipWindow.h"

namespace tembrel {

namespace {

constexpr QSize kFirstSize(960, 640);
constexpr qsizetype kLongestMenuPath = 70;
constexpr int kEditMenuIndex = 1;  // highlighted while the view's action menu is open

QString ToText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// The action shows the path after `before`, shortened when it is long; its tool tip tells the whole of it
// then.
void ShowPath(QAction& action, const QString& path, const QString& before) {
  const QString shown = ShortPath(path, kLongestMenuPath);
  action.setText(before + PathToText(MenuText(TextToPath(shown).string())));
  action.setToolTip(shown == path ? QString() : "<qt>" + path.toHtmlEscaped() + "</qt>");
}

std::vector<QUrl> DroppedFiles(const QMimeData* data) {
  std::vector<QUrl> files;
  const QList<QUrl> urls = data->urls();
  std::ranges::copy_if(urls, std::back_inserter(files), &QUrl::isLocalFile);
  return files;
}

// The file's name byte for byte: as text it would lose what is no UTF-8.
std::filesystem::path PathOf(const QUrl& url) {
  return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString();
}

// Whoever is told that files were moved may delete them: whatever is proposed, a drop is a copy.
bool TakeAsCopy(QDropEvent& event) {
  const bool busy = QApplication::activeModalWidget() != nullptr;
  if (busy || !event.possibleActions().testFlag(Qt::CopyAction) || DroppedFiles(event.mimeData()).empty()) {
    return false;
  }
  event.setDropAction(Qt::CopyAction);
  return true;
}

}  // namespace

TMainWindow::TMainWindow(ProgramPaths programPaths, SettingStore store, Prompts* questions,
                         SoundServices sound)
    : prompts(this),
      paths(std::move(programPaths)),
      client(new tembrelMDIClient(paths, std::move(store), questions == nullptr ? prompts : *questions,
                                  std::move(sound), this)),
      gadgets(new StatusGadgets(statusBar())),
      frameMenuBar(new FrameMenuBar(this)) {
  setObjectName("TMainWindow");
  setWindowTitle("Tembrel");
  setWindowIcon(QIcon(":/tembrel.svg"));
  setAcceptDrops(true);
  setContextMenuPolicy(Qt::NoContextMenu);  // or the frame would offer to hide the top strip
  resize(kFirstSize);
  statusBar()->setSizeGripEnabled(true);
  RefreshBackground();
  setCentralWidget(client);
  setMenuBar(frameMenuBar);
  CreateMenus();
  CreateAccelerators();
  CreateTopStrip();
  ConnectTransport();
  connect(client, &tembrelMDIClient::stateChanged, this, &TMainWindow::RefreshCommands);
  connect(client, &tembrelMDIClient::recentFilesChanged, this, &TMainWindow::RebuildRecentFiles);
  connect(client, &tembrelMDIClient::tabbedOut, this, &TMainWindow::focusNextPrevChild);
  connect(client, &tembrelMDIClient::exitRequested, this, &QWidget::close);
  connect(client, &tembrelMDIClient::aboutRequested, this, &TMainWindow::ShowAbout);
  connect(client, &tembrelMDIClient::helpRequested, this, &TMainWindow::ShowHelp);
  connect(client, &tembrelMDIClient::statusTextsChanged, this,
          [this](const StatusTexts& texts) { gadgets->Show(texts); });
  connect(client, &tembrelMDIClient::actionMenuOpening, this,
          [this] { frameMenuBar->Highlight(frameMenuBar->actions().at(kEditMenuIndex)); });
  connect(client, &tembrelMDIClient::actionMenuClosed, this, [this] { frameMenuBar->Highlight(nullptr); });
}

// The client writes the settings while the rest of the window still stands.
TMainWindow::~TMainWindow() {
  delete takeCentralWidget();
}

QAction* TMainWindow::CommandAction(int id) {
  QAction*& action = actions[id];
  if (action == nullptr) {
    action = new QAction(this);
    action->setProperty("commandId", id);
    connect(action, &QAction::triggered, client, [this, id] { client->RunCommand(id); });
    addAction(action);
  }
  return action;
}

void TMainWindow::CreateMenus() {
  for (const Menu& menu : MainMenu()) {
    QMenu* created = frameMenuBar->addMenu(ToText(menu.text));
    FillMenu(created, menu.items);
    connect(created, &QMenu::aboutToShow, this, &TMainWindow::RefreshCommands);
    if (menu.tail == MenuTail::RecentFiles) {
      fileMenu = created;
      created->setToolTipsVisible(true);
    } else if (menu.tail == MenuTail::WindowList) {
      windowMenu = created;
      created->setToolTipsVisible(true);
      connect(created, &QMenu::aboutToShow, this, &TMainWindow::RebuildWindowList);
    }
  }
}

void TMainWindow::FillMenu(QMenu* menu, const std::vector<MenuItem>& items) {
  for (const MenuItem& item : items) {
    if (item.IsSeparator()) {
      menu->addSeparator();
    } else if (!item.popup.empty()) {
      FillMenu(menu->addMenu(ToText(item.text)), item.popup);
    } else {
      QAction* action = CommandAction(item.id);
      action->setText(ToText(item.text));
      menu->addAction(action);
    }
  }
}

void TMainWindow::CreateAccelerators() {
  for (const Accelerator& accelerator : AcceleratorTable()) {
    QAction* action = CommandAction(accelerator.id);
    QList<QKeySequence> keys = action->shortcuts();
    keys << QKeySequence(ToText(accelerator.key), QKeySequence::PortableText);
    action->setShortcuts(keys);
    action->setAutoRepeat(accelerator.autoRepeat);
  }
}

void TMainWindow::CreateTopStrip() {
  auto* bar = new QToolBar("Top strip", this);
  bar->setObjectName("topStripBar");
  bar->setMovable(false);
  bar->setFloatable(false);
  bar->toggleViewAction()->setEnabled(false);
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  bar->layout()->setContentsMargins(0, 0, 0, 0);
  strip = new TopStrip(new ToolTipWindow(this), bar);
  connect(strip, &TopStrip::scrollRequested, client, &tembrelMDIClient::ScrollActive);
  connect(client, &tembrelMDIClient::positionChanged, strip->Scroller(), &ScrollerWindow::SetPosition);
  connect(client, &tembrelMDIClient::counterChanged, strip->Counter(), &CountWin::Update);
  bar->addWidget(strip);
  addToolBar(Qt::TopToolBarArea, bar);
}

void TMainWindow::ConnectTransport() {
  silentNotice = new QLabel("Silent: this document has no copy that could be played (Temp folder)", this);
  silentNotice->setObjectName("silentNotice");
  recordingGadget = new RecordingGadget(this);
  statusBar()->addPermanentWidget(silentNotice);
  statusBar()->addPermanentWidget(recordingGadget);
  // The bar shows what it takes in.
  silentNotice->hide();
  recordingGadget->hide();
  TransportControl& transport = client->Transport();
  connect(strip, &TopStrip::transportRequested, &transport, &TransportControl::Press);
  connect(strip, &TopStrip::transportRequested, client, [this](int tipId) {
    if (tipId == kStripStop) {
      client->EndAudition();
    }
  });
  connect(client, &tembrelMDIClient::auditionChanged, this, &TMainWindow::ShowTransport);
  connect(&transport, &TransportControl::changed, this, &TMainWindow::ShowTransport);
  connect(&transport, &TransportControl::silentChanged, silentNotice, &QWidget::setVisible);
  connect(&transport, &TransportControl::recordingStarted, recordingGadget, &RecordingGadget::Start);
  connect(&transport, &TransportControl::recordingProgressed, recordingGadget, &RecordingGadget::Show);
  connect(&transport, &TransportControl::recordingEnded, recordingGadget, &RecordingGadget::End);
  ShowTransport();
}

void TMainWindow::ShowTransport() {
  StripContext context = client->Transport().Strip();
  context.auditioning = client->Auditioning();
  strip->ShowTransport(context);
}

void TMainWindow::RebuildRecentFiles() {
  for (QAction* action : std::as_const(recentActions)) {
    fileMenu->removeAction(action);
    if (action->isSeparator()) {
      delete action;
    }
  }
  recentActions.clear();
  const std::vector<RecentMenuEntry> entries = client->Recent().MenuEntries();
  if (!entries.empty()) {
    recentActions << fileMenu->addSeparator();
  }
  for (const RecentMenuEntry& entry : entries) {
    QAction* action = CommandAction(entry.id);
    const std::string& path =
        client->Recent().Slots().at(static_cast<std::size_t>(entry.id - kCommandRecentFile1));
    ShowPath(*action, PathToText(path), {});
    fileMenu->addAction(action);
    recentActions << action;
  }
}

void TMainWindow::RebuildWindowList() {
  for (QAction* action : std::as_const(windowActions)) {
    delete action;
  }
  windowActions.clear();
  const QList<QMdiSubWindow*> windows = client->subWindowList(QMdiArea::CreationOrder);
  if (!windows.isEmpty()) {
    windowActions << windowMenu->addSeparator();
  }
  int number = 0;
  for (QMdiSubWindow* window : windows) {
    ++number;
    const auto* document = qobject_cast<AudioWin*>(window->widget());
    const QString title = document == nullptr ? window->windowTitle() : document->Title();
    QAction* action = windowMenu->addAction(QString());
    ShowPath(*action, title, (number < 10 ? "&" : "") + QString::number(number) + " ");
    action->setText(action->text() + (window->isWindowModified() ? "*" : ""));
    action->setCheckable(true);
    action->setChecked(window == client->currentSubWindow());
    connect(action, &QAction::triggered, client, [this, window] { ActivateDocument(window); });
    windowActions << action;
  }
}

// A window shown as an icon opens.
void TMainWindow::ActivateDocument(QMdiSubWindow* window) {
  if (window->isMinimized()) {
    window->showNormal();
  }
  client->setActiveSubWindow(window);
}

void TMainWindow::RefreshCommands() {
  strip->EnablePosition(client->ActiveDocument() != nullptr);
  ShowTransport();
  for (auto it = actions.cbegin(); it != actions.cend(); ++it) {
    const bool consumed = std::ranges::find(ConsumedCommands(), it.key()) != ConsumedCommands().end();
    it.value()->setEnabled(consumed || client->IsCommandEnabled(it.key()));
  }
}

void TMainWindow::ShowAbout() {
  VAboutDialog(this).exec();
}

void TMainWindow::ShowHelp() {
  HelpWindow::ShowFor(this, paths.helpPath);
}

// Where Tab goes, in its order: the active window first, if there is one, then what stands around the
// documents.
QList<QWidget*> TMainWindow::KeyboardStops() const {
  QList<QWidget*> stops;
  if (const QMdiSubWindow* active = client->currentSubWindow()) {
    stops << active->widget();
  }
  for (QWidget* stop = nextInFocusChain(); stop != this; stop = stop->nextInFocusChain()) {
    if (stop->window() == this && stop->isVisible() && stop->isEnabled() &&
        (stop->focusPolicy() & Qt::TabFocus) != 0 && !client->isAncestorOf(stop) && stop != client) {
      stops << stop;
    }
  }
  return stops;
}

bool TMainWindow::focusNextPrevChild(bool next) {
  const QList<QWidget*> stops = KeyboardStops();
  const QWidget* here = focusWidget();
  // A button that gets disabled lets go of the keyboard. The next button does not take it over: it could be
  // pressed unawares.
  const bool lost = here != nullptr && !here->isEnabled();
  if (stops.isEmpty() || (lost && client->currentSubWindow() == nullptr)) {
    return false;
  }
  const auto holds = [here](const QWidget* stop) { return stop == here || stop->isAncestorOf(here); };
  const auto found = std::ranges::find_if(stops, holds);
  qsizetype to = 0;
  if (found != stops.end()) {
    to = (found - stops.begin() + (next ? 1 : -1) + stops.size()) % stops.size();
  }
  stops.at(to)->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

// Escape that nobody else wants leads back to the active window.
void TMainWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    client->TakeKeyboard();
  } else {
    QMainWindow::keyPressEvent(event);
  }
}

void TMainWindow::RefreshBackground() {
  client->setBackground(palette().brush(QPalette::Dark));
}

void TMainWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    RefreshBackground();
  }
  QMainWindow::changeEvent(event);
}

void TMainWindow::closeEvent(QCloseEvent* event) {
  if (!client->Transport().MayEnd() || !client->AskAllToClose()) {
    event->ignore();
    return;
  }
  client->CloseAllUnasked();
  event->accept();
}

void TMainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (TakeAsCopy(*event)) {
    event->accept();
  }
}

void TMainWindow::dropEvent(QDropEvent* event) {
  if (!TakeAsCopy(*event)) {
    return;
  }
  event->accept();
  // Opened once the drop is over: the program the files come from waits for its end.
  QMetaObject::invokeMethod(
      client,
      [this, files = DroppedFiles(event->mimeData())] {
        for (const QUrl& url : files) {
          client->OpenDocument(PathOf(url));
        }
      },
      Qt::QueuedConnection);
}

}  // namespace tembrel
