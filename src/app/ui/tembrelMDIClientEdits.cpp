// How the client runs edits and effects on the active document.
#include <algorithm>
#include <climits>
#include <cstdint>

#include "app/CommandIds.h"
#include "app/ui/TransportControl.h"
#include "app/ui/WaitCursor.h"
#include "app/ui/tembrelMDIClient.h"
#include "document/EffectQuestion.h"
#include "document/ui/AudioWin.h"
#include "edit/ClipEdits.h"
#include "edit/FilterPreview.h"
#include "view/ActionMenu.h"
#include "view/ui/AudioEditWindow.h"

namespace tembrel {

namespace {

// What `work` gives, with the wait cursor while it runs.
template <typename Work>
EditResult Waiting(const Work& work) {
  const WaitCursor waiting;
  return work();
}

}  // namespace

// The commands that work on the active document's sound; false for all others.
bool tembrelMDIClient::ExecuteEdit(CommandHandler handler) {
  AudioWin* active = ActiveDocument();
  if (active == nullptr) {
    return false;
  }
  const std::int64_t cursor = active->EditWindow()->View().CursorFrame();
  switch (handler) {
    case CommandHandler::Undo:
      Say(Waiting([active] { return active->Doc().Undo(); }));
      return true;
    case CommandHandler::Redo:
      Say(Waiting([active] { return active->Doc().Redo(); }));
      return true;
    case CommandHandler::PasteInsert:
      Run(*active, PasteInsertEdit(clipboard, cursor));
      return true;
    case CommandHandler::PasteMerge:
      Run(*active, PasteMergeEdit(clipboard, cursor));
      return true;
    case CommandHandler::PasteOverwrite:
      Run(*active, PasteOverwriteEdit(clipboard, cursor));
      return true;
    case CommandHandler::Format:
      RunEffect(*active, *FindEffect(kCommandFormat));
      return true;
    case CommandHandler::SelectAll:
      active->EditWindow()->SelectAll();
      return true;
    case CommandHandler::SelectLastRange:
      active->EditWindow()->SelectLastRange();
      return true;
    default:
      return false;
  }
}

void tembrelMDIClient::RunAction(AudioWin& window, int command) {
  const EditView& view = window.EditWindow()->View();
  const ByteRange selection{view.SelectionStart(), view.SelectionEnd()};
  switch (command) {
    case kActionCut:
      return Run(window, CutEdit(selection, clipboard));
    case kActionCopy:
      return Run(window, CopyEdit(selection, clipboard));
    case kActionInsert:
      return Run(window, InsertSilenceEdit(selection));
    case kActionPlay:
      return PlaySelection(window, selection);
    default:
      if (const EffectRow* effect = FindEffect(command)) {
        RunEffect(window, *effect);
      }
      return;
  }
}

void tembrelMDIClient::RunEffect(AudioWin& window, const EffectRow& effect) {
  Document& document = window.Doc();
  if (document.Clip() == nullptr) {
    return;
  }
  const EditView& view = window.EditWindow()->View();
  const ByteRange selection{view.SelectionStart(), view.SelectionEnd()};
  if (!document.Editable()) {
    Say(document.Edit({}));  // refused; nobody is to choose parameters first
    return;
  }
  const auto parameters = AskParameters(*document.Clip(), selection, effect);
  if (!parameters) {
    return;
  }
  EditResult result;
  {
    const WaitCursor waiting;
    const std::unique_ptr<ProgressDisplay> display = prompts.ShowProgress(EffectTitle(effect));
    result = document.Edit(
        effect.make(selection, *parameters),
        [&display](std::uint64_t done, std::uint64_t total) { return display->Report(done, total); },
        [&display] { display->ForbidCancel(); });
  }
  Say(result);
  Q_EMIT stateChanged();
}

std::optional<EffectParameters> tembrelMDIClient::AskParameters(const AudioClip& clip,
                                                                const ByteRange& selection,
                                                                const EffectRow& effect) {
  FilterPreview preview(clip, selection);
  bool heard = false;
  auto parameters = AskEffectParameters(prompts, effect.parameter, clip, rememberedPreset, [&](int preset) {
    heard = true;
    PlayPreview(preview, preset);
  });
  if (heard) {
    audition.Stop();
  }
  return parameters;
}

// Whether something beside a document may be heard now. Ends the document that plays.
bool tembrelMDIClient::MayPlay() {
  if (transport->Recording()) {
    prompts.Inform("Nothing can be played while a recording runs.");
    return false;
  }
  if (transport->Playing()) {
    transport->Stop();
  }
  return true;
}

void tembrelMDIClient::PlayPreview(FilterPreview& preview, int preset) {
  if (!MayPlay()) {
    return;
  }
  EndAudition();
  std::string message;
  {
    const WaitCursor waiting;
    const FilterPreview::Result made = preview.Make(preset);
    message = made.sound == nullptr ? made.message
                                    : audition.AuditionOnce(*made.sound, 0, made.sound->dataSize).message;
  }
  if (!message.empty()) {
    prompts.Error(message);
  }
}

void tembrelMDIClient::PlaySelection(AudioWin& window, const ByteRange& selection) {
  const AudioClip* clip = window.Doc().Clip();
  if (clip == nullptr || !MayPlay()) {
    return;
  }
  AuditionResult result;
  {
    const WaitCursor waiting;
    const std::unique_ptr<ProgressDisplay> display = prompts.ShowProgress("Play");
    result = audition.AuditionOnce(
        *clip, selection.start, selection.end,
        [&display](std::uint64_t done, std::uint64_t total) { return display->Report(done, total); });
  }
  if (!result.message.empty()) {
    prompts.Error(result.message);
  }
  if (result.ok) {
    auditioned = &window;
    auditionEnd.start(static_cast<int>(std::min<std::int64_t>(result.milliseconds, INT_MAX)));
    Q_EMIT auditionChanged();
  }
}

void tembrelMDIClient::EndAudition() {
  if (Auditioning()) {
    auditionEnd.stop();
    audition.Stop();
    Q_EMIT auditionChanged();
  }
}

void tembrelMDIClient::Run(AudioWin& window, const EditStep& step) {
  Say(Waiting([&] { return window.Doc().Edit(step); }));
  Q_EMIT stateChanged();
}

void tembrelMDIClient::Say(const EditResult& result) {
  if (result.done || result.message.empty()) {
    return;
  }
  if (result.isMistake) {
    prompts.Error(result.message);
  } else {
    prompts.Inform(result.message);
  }
}

}  // namespace tembrel
