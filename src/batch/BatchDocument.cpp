#include "batch/BatchDocument.h"

#include "view/GridLines.h"
#include "view/WaveLines.h"

namespace tembrel {

namespace {

// Of the view in a newly opened document window.
constexpr int kViewWidth = 593;
constexpr int kViewHeight = 175;
constexpr int kDocumentWidth = 624;

// A document of a script has no copy in the Temp folder: nothing plays it, and after a crash the script is
// there to be run again.
ProgramPaths WithoutTempFolder(ProgramPaths paths) {
  paths.tempFolder.clear();
  return paths;
}

}  // namespace

BatchDocument::BatchDocument(const ProgramPaths& paths, std::int64_t number)
    : document(WithoutTempFolder(paths), number), view(listener) {
  view.SetDocumentWidth(kDocumentWidth);
  view.SetClientSize(kViewWidth, kViewHeight);
  document.SetListener(this);
}

void BatchDocument::ShowLoadedDocument() {
  if (const AudioClip* clip = document.Clip()) {
    view.SetSound(document.FrameCount(), clip->format.nSamplesPerSec, clip->format.nBlockAlign);
  }
}

void BatchDocument::SoundChanged(bool lengthsRefreshed) {
  const AudioClip* clip = document.Clip();
  if (lengthsRefreshed && clip != nullptr) {
    view.SoundChanged(document.FrameCount(), clip->format.nSamplesPerSec, clip->format.nBlockAlign);
  }
}

std::vector<LayerLine> BatchDocument::Picture() const {
  const AudioClip* clip = document.Clip();
  if (clip == nullptr) {
    return {};
  }
  const std::int64_t first = view.FirstVisibleFrame();
  const std::int64_t shown = view.FramesOnScreen();
  std::vector<LayerLine> lines =
      GridLines(Area(), DrawsAsStereo(clip->format), clip->format.nSamplesPerSec, first, shown);
  for (const Line& line : WaveLines(*clip, Area(), first, shown)) {
    lines.push_back({Layer::Wave, line});
  }
  return lines;
}

}  // namespace tembrel
