#include "app/ui/PlayedWindow.h"

#include "view/ui/AudioEditWindow.h"

namespace tembrel {

const AudioClip* PlayedWindow::Clip() const {
  return IsOpen() ? window->Doc().Clip() : nullptr;
}

EditView* PlayedWindow::View() const {
  return IsOpen() ? &window->EditWindow()->View() : nullptr;
}

std::int64_t PlayedWindow::Frames() const {
  const AudioClip* clip = Clip();
  return clip == nullptr ? 0 : clip->Frames();
}

std::uint32_t PlayedWindow::Rate() const {
  constexpr std::uint32_t kRateWithoutSound = 44100;
  const AudioClip* clip = Clip();
  return clip == nullptr ? kRateWithoutSound : clip->format.nSamplesPerSec;
}

std::filesystem::path PlayedWindow::WorkingFile() const {
  return IsOpen() ? window->Doc().TempFileName() : std::filesystem::path();
}

std::int64_t PlayedWindow::FirstVisibleFrame() const {
  const EditView* view = View();
  return view == nullptr ? 0 : view->FirstVisibleFrame();
}

std::int64_t PlayedWindow::FramesOnScreen() const {
  const EditView* view = View();
  return view == nullptr ? 0 : view->FramesOnScreen();
}

std::int64_t PlayedWindow::CursorFrame() const {
  const EditView* view = View();
  return view == nullptr ? 0 : view->CursorFrame();
}

void PlayedWindow::SetCursorPosition(std::int64_t frame, bool force) {
  if (EditView* view = View()) {
    view->SetCursorPosition(frame, force);
  }
}

}  // namespace tembrel
