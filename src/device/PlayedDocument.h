// What the transport needs of the document that plays: its sound's measures and file, and its view.
#pragma once

#include <cstdint>
#include <filesystem>

namespace tembrel {

// Answers for one document for as long as anybody holds it; once the document's window is gone IsOpen() says
// so, the numbers are 0 and the calls do nothing.
class PlayedDocument {
 public:
  virtual ~PlayedDocument() = default;

  virtual bool IsOpen() const = 0;
  // The length of the sound; 0 for an empty document.
  virtual std::int64_t Frames() const = 0;
  // Hertz.
  virtual std::uint32_t Rate() const = 0;
  // The WAVE file with the document's sound as it is now; empty when there is none.
  virtual std::filesystem::path WorkingFile() const = 0;

  virtual std::int64_t FirstVisibleFrame() const = 0;
  virtual std::int64_t FramesOnScreen() const = 0;
  virtual std::int64_t CursorFrame() const = 0;
  // Moves the cursor and scrolls to it when it is not visible, or always with `force`. Ignored while the
  // mouse drags in the view.
  virtual void SetCursorPosition(std::int64_t frame, bool force) = 0;
};

}  // namespace tembrel
