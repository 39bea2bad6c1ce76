// The one door through which the program asks a person something: message boxes, file dialogs, progress. The
// window answers with Qt, tests with a script, a program without a display with refusals.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "audio/FormatChoice.h"
#include "audio/Progress.h"
#include "document/FileFilter.h"

namespace tembrel {

enum class Answer { Yes, No, Cancel };

struct SaveChoice {
  std::filesystem::path path;
  int filter = 1;  // the chosen filter, from 1
};

// Progress of one long task. It becomes visible when the task takes longer than half a second, and goes away
// with the object.
class ProgressDisplay {
 public:
  virtual ~ProgressDisplay() = default;
  // `done` of `total`, in any unit. False when the user has cancelled.
  virtual bool Report(std::uint64_t done, std::uint64_t total) = 0;
  // From here on the task cannot be cancelled any more.
  virtual void ForbidCancel() {}
};

// The display's report as the progress function of reading, writing and editing. The display outlives it.
Progress ProgressOf(ProgressDisplay& display);

// Plays what a preset makes of the sound in question; empty when nothing can be heard.
using PresetAudition = std::function<void(int preset)>;

// Texts and names are bytes in the file system's encoding (UTF-8).
class Prompts {
 public:
  virtual ~Prompts() = default;
  // An error with an OK button, titled "Tembrel".
  virtual void Error(const std::string& text) = 0;
  // Something the user should know, with an information icon and an OK button, titled "Tembrel".
  virtual void Inform(const std::string& text) = 0;
  // Yes or No with a question icon, titled "Tembrel"; closing the box is No.
  virtual bool AskYesNo(const std::string& text) = 0;
  // OK or Cancel; closing the box is Cancel.
  virtual bool AskOkCancel(const std::string& text, const std::string& title) = 0;
  // Yes, No or Cancel with a question icon; closing the box is Cancel.
  virtual Answer AskYesNoCancel(const std::string& text, const std::string& title) = 0;
  // The chosen existing file, or nothing when cancelled.
  virtual std::optional<std::filesystem::path> AskOpenPath(const std::vector<FileFilter>& filters) = 0;
  // The name as typed or chosen, starting from `start`; nothing when cancelled. Never asks about overwriting.
  virtual std::optional<SaveChoice> AskSavePath(const std::vector<FileFilter>& filters,
                                                const std::filesystem::path& start) = 0;
  // The parameter dialogs; each starts from what is given, and gives nothing when cancelled.
  // Percent, 0 to 1000.
  virtual std::optional<int> AskAmplify(int percent) = 0;
  // The index of an equaliser preset. `audition` lets the user hear the presets before one is chosen.
  virtual std::optional<int> AskFilter(int preset, const PresetAudition& audition) = 0;
  virtual std::optional<FormatChoice> AskFormat(const FormatChoice& format) = 0;
  // Never null.
  virtual std::unique_ptr<ProgressDisplay> ShowProgress(const std::string& text) = 0;
  // Whether a display is there. What is asked of a sudden, by a timer, would hold up its task.
  virtual bool ShowsProgress() const { return false; }
};

// True when no file stands at the path, or the user lets it be overwritten.
bool MayWrite(const std::filesystem::path& path, Prompts& prompts);

}  // namespace tembrel
