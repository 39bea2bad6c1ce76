// The program's questions in a script: an error is kept to become the reason the command failed, a question
// is answered No, and long tasks tell their progress on a stream.
#pragma once

#include <chrono>
#include <functional>
#include <ostream>
#include <utility>

#include "document/Prompts.h"

namespace tembrel {

// The time now, on any scale that only runs forward.
using ProgressClock = std::function<std::chrono::milliseconds()>;
// The time since some moment before.
std::chrono::milliseconds SteadyMilliseconds();

class BatchPrompts final : public Prompts {
 public:
  // `progressOutput` gets a line every tenth of a task that takes longer than half a second, or is null for
  // none; it outlives this object and the displays.
  explicit BatchPrompts(std::ostream* progressOutput, ProgressClock progressClock = SteadyMilliseconds)
      : output(progressOutput), clock(std::move(progressClock)) {}

  // What was last said in an error or a note; empty when nothing was said since the last call.
  std::string TakeMessage() { return std::exchange(message, {}); }

  void Error(const std::string& text) override { message = text; }
  void Inform(const std::string& text) override { message = text; }
  bool AskYesNo(const std::string& /*text*/) override { return false; }
  bool AskOkCancel(const std::string& /*text*/, const std::string& /*title*/) override { return false; }
  Answer AskYesNoCancel(const std::string& /*text*/, const std::string& /*title*/) override {
    return Answer::No;
  }
  std::optional<std::filesystem::path> AskOpenPath(const std::vector<FileFilter>& /*filters*/) override {
    return std::nullopt;
  }
  std::optional<SaveChoice> AskSavePath(const std::vector<FileFilter>& /*filters*/,
                                        const std::filesystem::path& /*start*/) override {
    return std::nullopt;
  }
  std::optional<int> AskAmplify(int /*percent*/) override { return std::nullopt; }
  std::optional<int> AskFilter(int /*preset*/, const PresetAudition& /*audition*/) override {
    return std::nullopt;
  }
  std::optional<FormatChoice> AskFormat(const FormatChoice& /*format*/) override { return std::nullopt; }
  std::unique_ptr<ProgressDisplay> ShowProgress(const std::string& text) override;

 private:
  std::ostream* output;
  ProgressClock clock;
  std::string message;
};

}  // namespace tembrel
