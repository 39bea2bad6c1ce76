// The frame of one document window inside the main window. It asks before it closes, and shows of a long path
// the file's name at least.
#pragma once

#include <functional>

#include "document/ui/TMDIChild.h"

namespace tembrel {

class AudioWin;

class tembrelMDIChild : public TMDIChild {
  Q_OBJECT

 public:
  // Takes the window as its widget. `closeQuestion` is asked before the child closes.
  tembrelMDIChild(AudioWin* audioWin, std::function<bool(tembrelMDIChild&)> closeQuestion,
                  QWidget* parent = nullptr);

  AudioWin* Window() { return window; }
  // Asks whether the document may close; true once it was answered yes.
  bool AskToClose();
  // Closes without asking again.
  void CloseUnasked();

 Q_SIGNALS:
  // The child is about to go.
  void closing();

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void ShowTitle();
  int TitleWidth() const;

  AudioWin* window;
  std::function<bool(tembrelMDIChild&)> mayClose;
  bool asked = false;
};

}  // namespace tembrel
