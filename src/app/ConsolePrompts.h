// Prompts for runs that nobody watches: what would be said goes to standard error, what would be asked is
// answered No.
#pragma once

#include "document/Prompts.h"

namespace tembrel {

class ConsolePrompts : public Prompts {
 public:
  void Error(const std::string& text) override;
  void Inform(const std::string& text) override;
  bool AskYesNo(const std::string& text) override;
  bool AskOkCancel(const std::string& text, const std::string& title) override;
  Answer AskYesNoCancel(const std::string& text, const std::string& title) override;
  std::optional<std::filesystem::path> AskOpenPath(const std::vector<FileFilter>& filters) override;
  std::optional<SaveChoice> AskSavePath(const std::vector<FileFilter>& filters,
                                        const std::filesystem::path& start) override;
  std::optional<int> AskAmplify(int percent) override;
  std::optional<int> AskFilter(int preset, const PresetAudition& audition) override;
  std::optional<FormatChoice> AskFormat(const FormatChoice& format) override;
  std::unique_ptr<ProgressDisplay> ShowProgress(const std::string& text) override;
};

}  // namespace tembrel
