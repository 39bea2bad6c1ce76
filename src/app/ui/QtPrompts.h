// The program's questions asked with Qt's message boxes and file dialogs, over the main window.
#pragma once

#include <QString>

#include "document/Prompts.h"

class QWidget;

namespace tembrel {

class QtPrompts : public Prompts {
 public:
  // `window` is what the boxes stand over; it outlives this object.
  explicit QtPrompts(QWidget* window) : parent(window) {}

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
  bool ShowsProgress() const override { return displayMark.use_count() > 1; }

 private:
  QWidget* parent;
  std::shared_ptr<const bool> displayMark = std::make_shared<bool>(true);  // every progress display holds it
};

// File names are bytes to the engine and texts to Qt.
QString PathToText(const std::filesystem::path& path);
std::filesystem::path TextToPath(const QString& text);

}  // namespace tembrel
