#include "batch/BatchSession.h"

#include <algorithm>
#include <utility>

#include "document/Opening.h"
#include "document/Saving.h"

namespace tembrel {

BatchSession::BatchSession(ProgramPaths programPaths, std::ostream& printOutput, std::ostream* progressOutput,
                           ProgressClock progressClock)
    : paths(std::move(programPaths)),
      output(printOutput),
      prompts(progressOutput, std::move(progressClock)),
      playback(LoadSettings(paths.settingsFile).playback) {}

Failure BatchSession::Open(const std::filesystem::path& path) {
  if (!CanBeRead(path)) {
    return DoesNotExistText(path);
  }
  auto opened = std::make_unique<BatchDocument>(paths, static_cast<std::int64_t>(documents.size()) + 1);
  const std::unique_ptr<ProgressDisplay> display =
      prompts.ShowProgress("Opening " + path.filename().string());
  if (ImportFile(opened->Doc(), path, playback, ProgressOf(*display)) != LoadOutcome::Loaded) {
    return opened->Doc().Notice();
  }
  opened->ShowLoadedDocument();
  active = opened.get();
  documents.push_back(std::move(opened));
  return kSucceeded;
}

Failure BatchSession::Activate(std::int64_t number) {
  if (number < 1 || static_cast<std::uint64_t>(number) > documents.size()) {
    return "there is no document " + std::to_string(number) + ": " + std::to_string(documents.size()) +
           " opened so far";
  }
  BatchDocument* chosen = documents[static_cast<std::size_t>(number - 1)].get();
  if (chosen == nullptr) {
    return "document " + std::to_string(number) + " is closed";
  }
  active = chosen;
  return kSucceeded;
}

void BatchSession::CloseActive() {
  const auto isOpen = [](const auto& document) { return document != nullptr; };
  const auto closing =
      std::ranges::find(documents, active, [](const auto& document) { return document.get(); });
  if (active == nullptr || closing == documents.end()) {
    return;
  }
  closing->reset();
  const auto before = std::find_if(std::make_reverse_iterator(closing), documents.rend(), isOpen);
  const auto first = std::ranges::find_if(documents, isOpen);
  if (before != documents.rend()) {
    active = before->get();
  } else {
    active = first == documents.end() ? nullptr : first->get();
  }
}

Failure BatchSession::SavedOrWhy(bool saved) {
  const std::string message = prompts.TakeMessage();
  if (saved) {
    return kSucceeded;
  }
  return message.empty() ? "the document was not saved" : message;
}

Failure BatchSession::Save() {
  return SavedOrWhy(SaveDocument(active->Doc(), prompts));
}

Failure BatchSession::SaveAs(const std::filesystem::path& path) {
  return SavedOrWhy(SaveDocumentTo(path, active->Doc(), prompts));
}

Failure BatchSession::Edit(const EditStep& step, const std::string& task, bool usesSelection) {
  const std::unique_ptr<ProgressDisplay> display = prompts.ShowProgress(task);
  const EditResult result = active->Doc().Edit(step, ProgressOf(*display));
  if (!result.done) {
    return result.message.empty() ? task + " could not be done" : result.message;
  }
  if (usesSelection) {
    active->View().ActionMenuClosed();
  }
  return kSucceeded;
}

}  // namespace tembrel
