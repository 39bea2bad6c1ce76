// A document window as what the transport plays.
#pragma once

#include <QPointer>

#include "device/PlayedDocument.h"
#include "document/ui/AudioWin.h"

namespace tembrel {

class EditView;

class PlayedWindow : public PlayedDocument {
 public:
  explicit PlayedWindow(AudioWin* audioWindow) : window(audioWindow) {}

  bool IsOpen() const override { return !window.isNull(); }
  std::int64_t Frames() const override;
  // Without sound it is the rate that the view counts with.
  std::uint32_t Rate() const override;
  std::filesystem::path WorkingFile() const override;
  std::int64_t FirstVisibleFrame() const override;
  std::int64_t FramesOnScreen() const override;
  std::int64_t CursorFrame() const override;
  void SetCursorPosition(std::int64_t frame, bool force) override;

 private:
  const AudioClip* Clip() const;
  EditView* View() const;  // null when the window is gone

  QPointer<AudioWin> window;
};

}  // namespace tembrel
