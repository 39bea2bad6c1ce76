// The built-in help: the user manual in a window of its own.
#pragma once

#include <filesystem>

#include <QString>
#include <QWidget>

class QTextBrowser;

namespace tembrel {

class HelpWindow : public QWidget {
 public:
  // Shows the one help window of `frame`, making it when there is none, at the heading `topic`: at the
  // beginning when there is no such heading, and where it stands when `topic` is empty. A readable text file
  // at `helpFile` takes the place of the manual that is built in. A window over a modal dialog belongs to
  // that dialog, which would take its input otherwise.
  static void ShowFor(QWidget* frame, const std::filesystem::path& helpFile, const QString& topic = {});

 private:
  HelpWindow(QWidget* frame, const std::filesystem::path& helpFile);
  void GoTo(const QString& topic);

  QTextBrowser* browser;
};

}  // namespace tembrel
