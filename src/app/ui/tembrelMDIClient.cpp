#include "app/ui/tembrelMDIClient.h"

#include <algorithm>
#include <system_error>
#include <utility>
#include <vector>

#include <QDesktopServices>
#include <QMdiSubWindow>
#include <QUrl>

#include "analysis/ui/SpectrumWin.h"
#include "app/CommandIds.h"
#include "app/ProductInfo.h"
#include "app/ui/HelpWindow.h"
#include "app/ui/QtPrompts.h"
#include "app/ui/TransportControl.h"
#include "app/ui/WaitCursor.h"
#include "device/RecordingSetup.h"
#include "device/ui/DigitalAudioDialog.h"
#include "document/FileFilter.h"
#include "document/Opening.h"
#include "document/Recovery.h"
#include "document/Saving.h"
#include "document/StringTable.h"
#include "document/ui/AudioWin.h"
#include "document/ui/tembrelMDIChild.h"
#include "view/ui/AudioEditWindow.h"

namespace tembrel {

namespace {

constexpr QSize kDocumentSize(624, 334);
constexpr int kMinimizedWidth = 190;

}  // namespace

tembrelMDIClient::tembrelMDIClient(ProgramPaths programPaths, SettingStore settingStore, Prompts& questions,
                                   SoundServices soundServices, QWidget* parent)
    : QMdiArea(parent),
      paths(std::move(programPaths)),
      store(std::move(settingStore)),
      prompts(questions),
      sound(std::move(soundServices)),
      audition(*sound.player, paths.tempFolder),
      transport(std::make_unique<TransportControl>(
          sound, settings, prompts,
          TransportControl::Program{[this] { return ActiveDocument(); }, [this] { ShowRecordingSetup(); },
                                    [this](const std::filesystem::path& path) { OpenDocument(path); }})) {
  setObjectName("tembrelMDIClient");
  setActivationOrder(QMdiArea::ActivationHistoryOrder);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  auditionEnd.setSingleShot(true);
  connect(&auditionEnd, &QTimer::timeout, this, &tembrelMDIClient::auditionChanged);
  // One thing is heard at a time, and a recording hears none; see MayPlay() too.
  connect(transport.get(), &TransportControl::recordingAsked, this, &tembrelMDIClient::EndAudition);
  connect(transport.get(), &TransportControl::changed, this, [this] {
    if (transport->Playing() || transport->Recording()) {
      EndAudition();
    } else if (AudioWin* active = ActiveDocument()) {
      active->TellState();  // the counter showed the document that played
    }
  });
  connect(this, &QMdiArea::subWindowActivated, this, [this] {
    ShowActiveState();
    Q_EMIT stateChanged();
  });
}

tembrelMDIClient::~tembrelMDIClient() {
  std::error_code ignored;
  std::filesystem::remove(paths.sharedTempPath, ignored);
  if (!loaded) {
    return;  // nothing to save, but settings to lose
  }
  SaveSettings(paths.settingsFile, settings);
  SaveLastFiles(store, recentFiles.Slots());
  SaveLastFolder(store, std::filesystem::current_path(ignored));
}

void tembrelMDIClient::TellPlaybackFormat() {
  const FormatChoice& format = settings.playback;
  Q_EMIT statusTextsChanged(FormatStatusTexts(format.rate, format.bits, format.channels));
}

void tembrelMDIClient::SetUp() {
  settings = LoadSettings(paths.settingsFile);
  loaded = true;
  TellPlaybackFormat();
  recentFiles.SetSlots(LoadLastFiles(store));
  Q_EMIT recentFilesChanged();
  std::error_code ignored;
  std::filesystem::current_path(LoadLastFolder(store, paths.programFolder), ignored);
  Q_EMIT stateChanged();
}

void tembrelMDIClient::OfferRecovery() {
  std::vector<AbandonedCopy> copies = FindAbandonedCopies(paths.tempFolder);
  if (copies.empty()) {
    return;
  }
  const Answer answer = prompts.AskYesNoCancel(RecoveryQuestion(copies), "Tembrel");
  if (answer == Answer::Cancel) {
    return;
  }
  for (AbandonedCopy& copy : copies) {
    if (answer == Answer::Yes) {
      Recover(std::move(copy));
    } else {
      RemoveAbandonedCopy(copy);
    }
  }
  Q_EMIT stateChanged();
}

void tembrelMDIClient::Recover(AbandonedCopy copy) {
  const std::string name = copy.documentName;
  tembrelMDIChild* child = NewChild(name.empty() ? NewDocumentTitle() : PathToText(name));
  RecoveryResult result;
  {
    const WaitCursor waiting;
    const std::unique_ptr<ProgressDisplay> display =
        prompts.ShowProgress("Recovering " + (name.empty() ? "a new document" : name));
    result = RecoverCopy(
        std::move(copy), child->Window()->Doc(),
        [&display](std::uint64_t done, std::uint64_t total) { return display->Report(done, total); });
  }
  if (result.recovered) {
    child->Window()->ShowLoadedDocument();
    child->Window()->RefreshTitle();
  } else {
    child->CloseUnasked();
  }
  if (!result.message.empty()) {
    prompts.Error(result.message);
  }
}

std::vector<tembrelMDIChild*> tembrelMDIClient::Children() const {
  std::vector<tembrelMDIChild*> children;
  for (QMdiSubWindow* window : subWindowList(QMdiArea::StackingOrder)) {
    if (auto* child = qobject_cast<tembrelMDIChild*>(window)) {
      children.push_back(child);
    }
  }
  return children;
}

AudioWin* tembrelMDIClient::ActiveDocument() const {
  const QMdiSubWindow* active = currentSubWindow();
  return active == nullptr ? nullptr : qobject_cast<AudioWin*>(active->widget());
}

CommandContext tembrelMDIClient::Context() const {
  CommandContext context;
  context.documentCount = documentCount;
  context.clipboardHasData = clipboard.HasData();
  context.spectrumOpen = spectrumWindow != nullptr;
  context.activeIsSpectrum = SpectrumIsActive();
  if (AudioWin* active = ActiveDocument()) {
    context.activeAudioDocument = true;
    context.canUndo = active->Doc().CanUndo();
    context.canRedo = active->Doc().CanRedo();
    context.lastRangeRemembered = active->EditWindow()->View().HasLastRange();
  }
  return context;
}

bool tembrelMDIClient::IsCommandEnabled(int id) const {
  const CommandRow* row = FindCommand(id);
  return row != nullptr && IsEnabled(*row, Context());
}

void tembrelMDIClient::RunCommand(int id) {
  const CommandRow* row = FindCommand(id);
  if (row != nullptr) {
    if (IsEnabled(*row, Context())) {
      Execute(row->handler, id);
    }
  } else if (AudioWin* active = ActiveDocument()) {
    RunAction(*active, id);
  }
}

void tembrelMDIClient::TakeKeyboard() {
  if (const QMdiSubWindow* active = currentSubWindow(); active != nullptr && active->widget() != nullptr) {
    active->widget()->setFocus(Qt::OtherFocusReason);
  }
}

void tembrelMDIClient::ScrollActive(int code, int value) {
  if (AudioWin* active = ActiveDocument()) {
    active->EditWindow()->View().HorizontalScroll(static_cast<ScrollCode>(code), value);
  }
}

void tembrelMDIClient::Execute(CommandHandler handler, int id) {
  if (ExecuteEdit(handler)) {
    return;
  }
  switch (handler) {
    case CommandHandler::NewDocument:
      return NewDocument();
    case CommandHandler::Open:
      return OpenDialog();
    case CommandHandler::Close:
      return CloseActive();
    case CommandHandler::Save:
      SaveActive();
      return;
    case CommandHandler::SaveAs:
      return SaveActiveAs();
    case CommandHandler::OpenRecent:
      OpenDocument(recentFiles.Slots().at(static_cast<std::size_t>(id - kCommandRecentFile1)));
      return;
    case CommandHandler::Exit:
      Q_EMIT exitRequested();
      return;
    case CommandHandler::AudioSpectrum:
      return OpenSpectrum();
    case CommandHandler::Cascade:
      return cascadeSubWindows();
    case CommandHandler::Tile:
      return tileSubWindows();
    case CommandHandler::ArrangeIcons:
      return ArrangeIcons();
    case CommandHandler::CloseAll:
      if (AskAllToClose()) {
        CloseAllUnasked();
      }
      return;
    case CommandHandler::HelpContents:
      Q_EMIT helpRequested();
      return;
    case CommandHandler::Website:
      QDesktopServices::openUrl(QUrl(QString::fromUtf8(kWebsite)));
      return;
    case CommandHandler::Play:
      return transport->Play();
    case CommandHandler::PlayFromCursor:
      return transport->PlayFromCursor();
    case CommandHandler::PlayScreen:
      return transport->PlayScreen();
    case CommandHandler::AudioSetup:
      return ShowRecordingSetup();
    case CommandHandler::About:
      Q_EMIT aboutRequested();
      return;
    default:
      return;
  }
}

tembrelMDIChild* tembrelMDIClient::AddChild(AudioWin* window, const QSize& size) {
  auto* child = new tembrelMDIChild(
      window, [this](tembrelMDIChild& asking) { return AskToClose(asking); }, this);
  connect(child, &tembrelMDIChild::closing, this, [this, window] {
    transport->DocumentClosing(window);
    if (window == auditioned) {
      EndAudition();
    }
    ChildClosing();
  });
  Listen(window);
  ShowChild(child, size);
  return child;
}

// Yes saves the active document: the one that asks is made the active one before.
bool tembrelMDIClient::AskToClose(tembrelMDIChild& child) {
  const Document& document = child.Window()->Doc();
  if (document.Changed()) {
    setActiveSubWindow(&child);
  }
  return CanClose(document, prompts, [this] { return SaveActive(); });
}

// Maximised when the active one is.
void tembrelMDIClient::ShowChild(TMDIChild* child, const QSize& size) {
  const QMdiSubWindow* active = currentSubWindow();
  const bool maximized = active != nullptr && active->isMaximized();
  addSubWindow(child);
  connect(child, &TMDIChild::tabbedOut, this, &tembrelMDIClient::tabbedOut);
  child->resize(size.boundedTo(viewport()->size()));
  ++documentCount;
  if (maximized) {
    child->showMaximized();
  } else {
    child->show();
  }
}

void tembrelMDIClient::Listen(AudioWin* window) {
  connect(window, &AudioWin::statusTextsChanged, this, &tembrelMDIClient::statusTextsChanged);
  connect(window, &AudioWin::counterChanged, this, &tembrelMDIClient::counterChanged);
  // A document that plays scrolls in the background too.
  connect(window, &AudioWin::scrollBarChanged, this, [this, window](int percent) {
    if (window == ActiveDocument()) {
      Q_EMIT positionChanged(percent);
    }
  });
  connect(window, &AudioWin::edited, this, &tembrelMDIClient::stateChanged);
  connect(window, &AudioWin::edited, this, [this, window] {
    if (window == spectrumDocument) {
      RefreshSpectrum();
    }
  });
  connect(window->EditWindow(), &AudioEditWindow::cursorMoved, this, [this, window] { CursorMoved(window); });
  connect(window, &AudioWin::refused, this, &tembrelMDIClient::Say);
  connect(window, &AudioWin::actionMenuOpening, this, &tembrelMDIClient::actionMenuOpening);
  connect(window, &AudioWin::actionMenuClosed, this, [this, window](int command) {
    Q_EMIT actionMenuClosed();
    RunAction(*window, command);
    Q_EMIT stateChanged();
  });
}

tembrelMDIChild* tembrelMDIClient::NewChild(const QString& title) {
  return AddChild(new AudioWin(paths, ++lastHandle, title), kDocumentSize);
}

QString tembrelMDIClient::NewDocumentTitle() const {
  return QString::fromStdString(std::string(StringResource(kStringNewDocument)) + " - " +
                                std::to_string(documentCount));
}

void tembrelMDIClient::NewDocument() {
  NewChild(NewDocumentTitle());
  Q_EMIT stateChanged();
}

bool tembrelMDIClient::OpenDocument(const std::filesystem::path& path) {
  if (!CanBeRead(path)) {
    prompts.Error(DoesNotExistText(path));
    return false;
  }
  tembrelMDIChild* child = NewChild(PathToText(path));
  AudioWin* window = child->Window();
  LoadOutcome outcome = LoadOutcome::Cancelled;
  {
    const WaitCursor waiting;
    const std::unique_ptr<ProgressDisplay> display =
        prompts.ShowProgress("Opening " + path.filename().string());
    outcome = ImportFile(
        window->Doc(), path, settings.playback,
        [&display](std::uint64_t done, std::uint64_t total) { return display->Report(done, total); });
  }
  if (outcome == LoadOutcome::Cancelled) {
    child->CloseUnasked();
    return false;
  }
  window->ShowLoadedDocument();
  if (outcome == LoadOutcome::Loaded) {
    AddRecentFile(path);
  }
  Q_EMIT stateChanged();
  return true;
}

void tembrelMDIClient::OpenDialog() {
  if (const auto path = prompts.AskOpenPath(ParseFileFilters(StringResource(kStringOpenFilter)))) {
    OpenDocument(*path);
    window()->update();
  }
}

bool tembrelMDIClient::SaveActive() {
  AudioWin* active = ActiveDocument();
  return active != nullptr && Save(*active);
}

bool tembrelMDIClient::Save(AudioWin& window) {
  const bool named = !window.Doc().FileName().empty();
  const bool saved = SaveDocument(window.Doc(), prompts);
  if (saved && !named) {
    AddRecentFile(window.Doc().FileName());
  }
  ShowSaved(window, named);
  return saved;
}

void tembrelMDIClient::SaveActiveAs() {
  AudioWin* active = ActiveDocument();
  if (active == nullptr) {
    return;
  }
  const bool named = !active->Doc().FileName().empty();
  if (const auto path = SaveDocumentAs(active->Doc(), prompts)) {
    AddRecentFile(*path);
  }
  ShowSaved(*active, named);
}

// A document without a name is called after its first file from now on.
void tembrelMDIClient::ShowSaved(AudioWin& saved, bool named) {
  const std::string& name = saved.Doc().FileName();
  if (!named && !name.empty()) {
    saved.SetTitle(PathToText(name));
  }
  saved.RefreshTitle();
}

void tembrelMDIClient::AddRecentFile(const std::filesystem::path& path) {
  recentFiles.Add(path.string());
  Q_EMIT recentFilesChanged();
}

void tembrelMDIClient::CloseActive() {
  if (QMdiSubWindow* active = currentSubWindow()) {
    active->close();
  }
}

void tembrelMDIClient::ChildClosing() {
  --documentCount;
  // The child still counts as active until it is gone.
  QMetaObject::invokeMethod(
      this, [this] { Q_EMIT stateChanged(); }, Qt::QueuedConnection);
}

bool tembrelMDIClient::AskAllToClose() {
  const std::vector<tembrelMDIChild*> children = Children();
  return std::ranges::all_of(children, [](tembrelMDIChild* child) { return child->AskToClose(); });
}

void tembrelMDIClient::CloseAllUnasked() {
  for (tembrelMDIChild* child : Children()) {
    child->CloseUnasked();
  }
  if (spectrumWindow != nullptr) {
    spectrumWindow->parentWidget()->close();
  }
}

void tembrelMDIClient::ArrangeIcons() {
  int x = 0;
  int y = viewport()->height();
  for (QMdiSubWindow* window : subWindowList(QMdiArea::CreationOrder)) {
    if (!window->isMinimized()) {
      continue;
    }
    if (x > 0 && x + window->width() > viewport()->width()) {
      x = 0;
      y -= window->height();
    }
    window->move(x, y - window->height());
    x += std::max(window->width(), kMinimizedWidth);
  }
}

void tembrelMDIClient::ShowRecordingSetup() {
  RecordingSetup setup(*sound.mixer, settings);
  DigitalAudioDialog dialog(window(), setup);
  connect(&dialog, &DigitalAudioDialog::helpRequested, this,
          [this, &dialog] { HelpWindow::ShowFor(&dialog, paths.helpPath, "Recording setup"); });
  if (dialog.exec() == QDialog::Accepted) {
    setup.Accept(settings);
    ShowActiveState();
  }
}

// Without sound the gadgets fall back to the playback format, without a document the counter and the scroller
// to the start. The spectrum window leaves them as they are.
void tembrelMDIClient::ShowActiveState() {
  if (SpectrumIsActive()) {
    return;
  }
  AudioWin* active = ActiveDocument();
  if (active == nullptr || active->Doc().Clip() == nullptr) {
    TellPlaybackFormat();
  }
  if (active != nullptr) {
    active->TellState();
  } else {
    Q_EMIT counterChanged(0, -1);
    Q_EMIT positionChanged(0);
  }
}

}  // namespace tembrel
