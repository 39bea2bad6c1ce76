// The spectrum window: plot, frequency axis, readout, scroll bar and zoom buttons around the spectrum at a
// place in a sound. It holds the numbers themselves and never looks back at the sound.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>

#include <QWidget>

#include "analysis/FrequencyPick.h"
#include "analysis/Spectrum.h"
#include "analysis/SpectrumView.h"
#include "document/Prompts.h"

class QAction;
class QToolButton;

namespace tembrel {

class SingleFrequencyWindow;
class SpectrumDisplayWin;
class SpectrumFrequencyWindow;
class TMyScrollBar;

class SpectrumWin : public QWidget {
  Q_OBJECT

 public:
  // Asks where to save through `questions`, which outlives the window.
  explicit SpectrumWin(Prompts& questions, QWidget* parent = nullptr);

  // Computes the spectrum at a frame of the clip and repaints. Without a clip, or for a layout that has no
  // spectrum, what is shown stays, and the readout says why.
  void Compute(const AudioClip* clip, std::int64_t cursorFrame);

  // Whose spectrum is computed next. Once there is one, `name` stands beside the readout, and what is saved
  // is called after the file, which is empty for a sound without one.
  void SetSound(std::filesystem::path file, QString name);
  // "Follow the cursor" is on.
  bool FollowsCursor() const;
  // The document is gone: its last spectrum stays until another one's is computed.
  void DocumentClosed();

  const SpectrumView& View() const { return view; }
  const Spectrum& Shown() const { return spectrum; }

  QSize sizeHint() const override { return {624, 310}; }
  QSize minimumSizeHint() const override { return {160, 110}; }

 Q_SIGNALS:
  // "Follow the cursor" was switched on: what is shown may be out of date.
  void followingBegan();
  // The window is about to go.
  void closing();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void CreateActions();
  void CreateScrollBar();
  void CreateZoomButtons();
  void LayOut();
  void Repaint();
  void RunZoom(int command);
  void Scroll(SpectrumScroll code, std::uint32_t position = 0);
  void Change(const std::function<bool()>& change);
  void Pick(double bin);
  void PickUnderMouse(double x);
  void PlaceMarker(double x);
  bool MoveMarkerByKey(int key);
  void OpenMenu(const QPoint& globalPlace);
  QPixmap Picture();
  void CopyPicture();
  void SavePicture();
  void SaveNumbers();

  Prompts& prompts;
  std::filesystem::path soundFile;  // of the spectrum that is shown
  QString soundName;
  std::filesystem::path nextFile;  // of the one that is computed next
  QString nextName;
  NoteBands bands = BuildNoteBands();
  Spectrum spectrum;
  SpectrumView view;
  SingleFrequencyWindow* readout;
  SpectrumDisplayWin* display;
  SpectrumFrequencyWindow* axis;
  TMyScrollBar* scrollBar = nullptr;
  QList<QToolButton*> zoomButtons;
  QAction* followAction = nullptr;
  QAction* copyAction = nullptr;
  QAction* savePictureAction = nullptr;
  QAction* saveNumbersAction = nullptr;
  int wheelRest = 0;  // eighths of a degree not yet a whole wheel step
};

}  // namespace tembrel
