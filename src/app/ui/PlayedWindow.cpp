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
  return Clip() == nullptr ? 0 : Clip()->Frames();
}

std::uint32_t PlayedWindow::Rate() const {
  constexpr std::uint32_t kRateWithoutSound = 44100;
  return Clip() == nullptr ? kRateWithoutSound : Clip()->format.nSamplesPerSec;
}

std::filesystem::path PlayedWindow::WorkingFile() const {
  return IsOpen() ? window->Doc().TempFileName() : std::filesystem::path();
}

std::int64_t PlayedWindow::FirstVisibleFrame() const {
  return View() == nullptr ? 0 : View()->FirstVisibleFrame();
}

std::int64_t PlayedWindow::FramesOnScreen() const {
  return View() == nullptr ? 0 : View()->FramesOnScreen();
}

std::int64_t PlayedWindow::CursorFrame() const {
  return View() == nullptr ? 0 : View()->CursorFrame();
}

void PlayedWindow::SetCursorPosition(std::int64_t frame, bool force) {
  if (View() != nullptr) {
    View()->SetCursorPosition(frame, force);
  }
}

}  // namespace tembrel
