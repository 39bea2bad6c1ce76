// The client area of the main window: it holds the documents and the application-wide state, and answers
// every command.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include <QMdiArea>
#include <QPointer>
#include <QTimer>

#include "app/CommandTable.h"
#include "app/RecentFiles.h"
#include "audio/ProgramPaths.h"
#include "audio/SettingStore.h"
#include "audio/Settings.h"
#include "device/Audition.h"
#include "device/SoundServices.h"
#include "document/Prompts.h"
#include "document/StatusTexts.h"
#include "edit/Clipboard.h"
#include "edit/EditStep.h"
#include "edit/EffectTable.h"
#include "edit/FilterPresets.h"

namespace tembrel {

class AudioWin;
class FilterPreview;
class SpectrumWin;
class TMDIChild;
class TransportControl;
class tembrelMDIChild;
struct AbandonedCopy;

class tembrelMDIClient : public QMdiArea {
  Q_OBJECT

 public:
  // `questions` outlives the client.
  tembrelMDIClient(ProgramPaths programPaths, SettingStore settingStore, Prompts& questions,
                   SoundServices soundServices, QWidget* parent = nullptr);
  // Saves the settings and removes the shared temporary file.
  ~tembrelMDIClient() override;

  // Loads the settings, the recent files and the last folder. Called once, when the main window listens.
  void SetUp();
  // Offers the documents that a run that died left behind.
  void OfferRecovery();

  // Opens the file in a window of its own. False when there is no document afterwards: the file is not there
  // or the user cancelled.
  bool OpenDocument(const std::filesystem::path& path);

  // Runs the command when it is enabled. One that only the action menu has, or no menu at all, runs on the
  // active document's last selection.
  void RunCommand(int id);
  bool IsCommandEnabled(int id) const;

  // Gives the keyboard to the active window; nothing happens without one.
  void TakeKeyboard();

  // A horizontal scroll request of the top strip's controls, for the active document.
  void ScrollActive(int code, int value);

  // The active document's window; null when there is none.
  AudioWin* ActiveDocument() const;
  // The open spectrum window, null when there is none.
  SpectrumWin* Spectrum() const;
  const RecentFiles& Recent() const { return recentFiles; }
  const FormatChoice& Playback() const { return settings.playback; }

  // The recording setup; what is chosen there with OK holds from then on.
  void ShowRecordingSetup();

  // A selection is heard for itself.
  bool Auditioning() const { return auditionEnd.isActive(); }
  void EndAudition();

  // Plays, records and shows how that stands.
  TransportControl& Transport() { return *transport; }

  // Asks every document whether it may close. True when all may; they then close without being asked again.
  bool AskAllToClose();
  void CloseAllUnasked();

 Q_SIGNALS:
  // A command's enabling or the recent files may have changed.
  void stateChanged();
  void recentFilesChanged();
  void statusTextsChanged(const tembrel::StatusTexts& texts);
  void counterChanged(qint64 frame, qint64 rate);
  // The active document's horizontal scroll position, 0 to 100.
  void positionChanged(int percent);
  void auditionChanged();
  void actionMenuOpening();
  void actionMenuClosed();
  // Tab (`next`) or Shift+Tab was pressed in the active window.
  void tabbedOut(bool next);
  void exitRequested();
  void aboutRequested();
  void helpRequested();

 private:
  void Execute(CommandHandler handler, int id);
  bool ExecuteEdit(CommandHandler handler);
  void RunAction(AudioWin& window, int command);
  void RunEffect(AudioWin& window, const EffectRow& effect);
  std::optional<EffectParameters> AskParameters(const AudioClip& clip, const ByteRange& selection,
                                                const EffectRow& effect);
  bool MayPlay();
  void PlayPreview(FilterPreview& preview, int preset);
  void PlaySelection(AudioWin& window, const ByteRange& selection);
  void Run(AudioWin& window, const EditStep& step);
  void Say(const EditResult& result);
  CommandContext Context() const;
  void ShowChild(TMDIChild* child, const QSize& size);
  tembrelMDIChild* AddChild(AudioWin* window, const QSize& size);
  void Recover(AbandonedCopy copy);
  tembrelMDIChild* NewChild(const QString& title);
  QString NewDocumentTitle() const;
  void NewDocument();
  void OpenDialog();
  bool SaveActive();
  bool Save(AudioWin& window);
  bool AskToClose(tembrelMDIChild& child);
  void SaveActiveAs();
  void ShowSaved(AudioWin& saved, bool named);
  void CloseActive();
  void AddRecentFile(const std::filesystem::path& path);
  void ChildClosing();
  void ArrangeIcons();
  void OpenSpectrum();
  void FollowDocument(AudioWin* document);
  void CursorMoved(AudioWin* document);
  void RefreshSpectrum();
  void SpectrumClosing();
  bool SpectrumIsActive() const;
  void ShowActiveState();
  void TellPlaybackFormat();
  void Listen(AudioWin* window);
  std::vector<tembrelMDIChild*> Children() const;

  ProgramPaths paths;
  SettingStore store;
  Prompts& prompts;
  SoundServices sound;
  Audition audition;
  QTimer auditionEnd;             // runs as long as the selection that is heard
  QPointer<AudioWin> auditioned;  // whose selection that is
  Settings settings;
  bool loaded = false;  // the settings are those of the file
  RecentFiles recentFiles;
  Clipboard clipboard;
  RememberedPreset rememberedPreset;
  QPointer<SpectrumWin> spectrumWindow;
  QPointer<AudioWin> spectrumDocument;  // whose sound the spectrum shows
  QMetaObject::Connection spectrumSource;
  long documentCount = 0;
  long long lastHandle = 0;
  std::unique_ptr<TransportControl> transport;  // goes first: it uses what stands above
};

}  // namespace tembrel
