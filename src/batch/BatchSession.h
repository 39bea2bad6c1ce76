// The state of a running script: the documents it opened, which one is active, and the clipboard they share.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "audio/ProgramPaths.h"
#include "audio/Settings.h"
#include "batch/BatchDocument.h"
#include "batch/BatchPrompts.h"
#include "batch/Failure.h"
#include "edit/Clipboard.h"
#include "edit/EditStep.h"

namespace tembrel {

class BatchSession {
 public:
  // What commands print goes to `printOutput`, the progress of long ones to `progressOutput`, which may be
  // null. Both outlive the session.
  BatchSession(ProgramPaths programPaths, std::ostream& printOutput, std::ostream* progressOutput,
               ProgressClock progressClock = SteadyMilliseconds);

  // Null when no document is open.
  BatchDocument* Active() { return active; }
  // For commands that were checked to have one.
  BatchDocument& Current() { return *active; }

  Failure Open(const std::filesystem::path& path);
  // The `number`-th opened document, from 1. Numbers of closed documents are not given again.
  Failure Activate(std::int64_t number);
  // The one opened before the active one becomes active, or the first one left when there is none.
  void CloseActive();
  Failure Save();
  Failure SaveAs(const std::filesystem::path& path);

  // Runs the step on the active document. `task` names it to a person; `usesSelection`: the selection is gone
  // afterwards.
  Failure Edit(const EditStep& step, const std::string& task, bool usesSelection);

  Clipboard& SharedClipboard() { return clipboard; }
  std::ostream& Output() { return output; }

 private:
  Failure SavedOrWhy(bool saved);

  ProgramPaths paths;
  std::ostream& output;
  BatchPrompts prompts;
  FormatChoice playback = kDefaultPlayback;
  std::vector<std::unique_ptr<BatchDocument>> documents;  // in the order of opening; null once closed
  BatchDocument* active = nullptr;
  Clipboard clipboard;
};

}  // namespace tembrel
