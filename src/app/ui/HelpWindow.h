// The built-in help: the user manual in a window of its own.
#pragma once

#include <filesystem>

#include <QWidget>

namespace tembrel {

class HelpWindow : public QWidget {
 public:
  // Shows the one help window of `frame`, making it when there is none. A readable text file at `helpFile`
  // takes the place of the manual that is built in.
  static void ShowFor(QWidget* frame, const std::filesystem::path& helpFile);

 private:
  HelpWindow(QWidget* frame, const std::filesystem::path& helpFile);
};

}  // namespace tembrel
