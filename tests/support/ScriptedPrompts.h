// Prompts that answer from a script and remember what was asked.
#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "document/Prompts.h"

namespace tembrel::test {

class ScriptedPrompts : public Prompts {
 public:
  std::vector<std::string> errors;
  std::vector<std::string> notes;
  std::vector<std::string> questions;
  std::vector<std::string> titles;
  std::vector<FileFilter> filtersShown;
  std::filesystem::path startShown;
  std::deque<Answer> answers;  // an unexpected question is answered No (Cancel where there is one)
  std::function<void()> onQuestion = [] {};  // while a question is open
  std::optional<std::filesystem::path> openPath;
  std::optional<SaveChoice> saveChoice;
  std::optional<int> amplifyAnswer;
  std::optional<int> filterAnswer;
  std::vector<int> presetsToHear;  // auditioned before the filter is answered
  std::optional<FormatChoice> formatAnswer;
  std::vector<std::string> parametersAsked;  // "amplify 100", "filter 0", "format 44100 16 2"
  bool showsProgress = false;                // a task outside the script is at work
  // What a running task's report gives; default: go on.
  std::function<bool(std::uint64_t, std::uint64_t)> onProgress = [](std::uint64_t, std::uint64_t) {
    return true;
  };

  void Error(const std::string& text) override { errors.push_back(text); }
  void Inform(const std::string& text) override { notes.push_back(text); }
  bool AskYesNo(const std::string& text) override {
    questions.push_back(text);
    return Next(Answer::No) == Answer::Yes;
  }
  bool AskOkCancel(const std::string& text, const std::string& title) override {
    questions.push_back(text);
    titles.push_back(title);
    return Next(Answer::Cancel) == Answer::Yes;
  }
  Answer AskYesNoCancel(const std::string& text, const std::string& title) override {
    questions.push_back(text);
    titles.push_back(title);
    return Next(Answer::Cancel);
  }
  std::optional<std::filesystem::path> AskOpenPath(const std::vector<FileFilter>& filters) override {
    filtersShown = filters;
    return openPath;
  }
  std::optional<SaveChoice> AskSavePath(const std::vector<FileFilter>& filters,
                                        const std::filesystem::path& start) override {
    filtersShown = filters;
    startShown = start;
    return saveChoice;
  }
  std::optional<int> AskAmplify(int percent) override {
    parametersAsked.push_back("amplify " + std::to_string(percent));
    return amplifyAnswer;
  }
  std::optional<int> AskFilter(int preset, const PresetAudition& audition) override {
    parametersAsked.push_back("filter " + std::to_string(preset));
    for (const int heard : presetsToHear) {
      audition(heard);
    }
    return filterAnswer;
  }
  std::optional<FormatChoice> AskFormat(const FormatChoice& format) override {
    parametersAsked.push_back("format " + std::to_string(format.rate) + " " + std::to_string(format.bits) +
                              " " + std::to_string(format.channels));
    return formatAnswer;
  }
  bool ShowsProgress() const override { return showsProgress; }
  std::unique_ptr<ProgressDisplay> ShowProgress(const std::string& /*text*/) override {
    return std::make_unique<Display>(onProgress);
  }

 private:
  class Display : public ProgressDisplay {
   public:
    explicit Display(std::function<bool(std::uint64_t, std::uint64_t)> answer)
        : onReport(std::move(answer)) {}
    bool Report(std::uint64_t done, std::uint64_t total) override { return onReport(done, total); }

   private:
    std::function<bool(std::uint64_t, std::uint64_t)> onReport;
  };

  Answer Next(Answer otherwise) {
    onQuestion();
    if (answers.empty()) {
      return otherwise;
    }
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }
};

}  // namespace tembrel::test
