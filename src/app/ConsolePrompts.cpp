#include "app/ConsolePrompts.h"

#include <iostream>

namespace tembrel {

namespace {

class NoDisplay : public ProgressDisplay {
 public:
  bool Report(std::uint64_t /*done*/, std::uint64_t /*total*/) override { return true; }
};

}  // namespace

void ConsolePrompts::Error(const std::string& text) {
  std::cerr << "tembrel: " << text << "\n";
}

void ConsolePrompts::Inform(const std::string& text) {
  std::cerr << "tembrel: " << text << "\n";
}

bool ConsolePrompts::AskYesNo(const std::string& text) {
  std::cerr << "tembrel: " << text << " No.\n";
  return false;
}

bool ConsolePrompts::AskOkCancel(const std::string& text, const std::string& /*title*/) {
  std::cerr << "tembrel: " << text << " Cancel.\n";
  return false;
}

Answer ConsolePrompts::AskYesNoCancel(const std::string& text, const std::string& /*title*/) {
  std::cerr << "tembrel: " << text << " No.\n";
  return Answer::No;
}

std::optional<std::filesystem::path> ConsolePrompts::AskOpenPath(const std::vector<FileFilter>& /*filters*/) {
  return std::nullopt;
}

std::optional<SaveChoice> ConsolePrompts::AskSavePath(const std::vector<FileFilter>& /*filters*/,
                                                      const std::filesystem::path& /*start*/) {
  return std::nullopt;
}

std::optional<int> ConsolePrompts::AskAmplify(int /*percent*/) {
  return std::nullopt;
}

std::optional<int> ConsolePrompts::AskFilter(int /*preset*/, const PresetAudition& /*audition*/) {
  return std::nullopt;
}

std::optional<FormatChoice> ConsolePrompts::AskFormat(const FormatChoice& /*format*/) {
  return std::nullopt;
}

std::unique_ptr<ProgressDisplay> ConsolePrompts::ShowProgress(const std::string& /*text*/) {
  return std::make_unique<NoDisplay>();
}

}  // namespace tembrel
