// The client's part for the spectrum window: there is one at most, and it follows the cursor of the document
// whose cursor was moved last.
#include "analysis/ui/SpectrumWin.h"
#include "app/ui/QtPrompts.h"
#include "app/ui/tembrelMDIClient.h"
#include "document/ui/AudioWin.h"
#include "document/ui/TMDIChild.h"
#include "view/ui/AudioEditWindow.h"

namespace tembrel {

namespace {

constexpr QSize kSpectrumSize(624, 334);

}  // namespace

SpectrumWin* tembrelMDIClient::Spectrum() const {
  return spectrumWindow;
}

void tembrelMDIClient::OpenSpectrum() {
  AudioWin* document = ActiveDocument();
  auto* spectrum = new SpectrumWin(prompts);
  auto* child = new TMDIChild(this);
  child->setObjectName("TMDIChild");
  child->setAttribute(Qt::WA_DeleteOnClose);
  child->setWidget(spectrum);
  child->setWindowTitle(spectrum->windowTitle());
  child->setWindowIcon(QIcon(":/tembrel.svg"));
  spectrumWindow = spectrum;
  connect(spectrum, &SpectrumWin::closing, this, &tembrelMDIClient::SpectrumClosing);
  connect(spectrum, &SpectrumWin::followingBegan, this, [this] {
    AudioWin* active = ActiveDocument();
    FollowDocument(active == nullptr ? spectrumDocument.data() : active);
  });
  FollowDocument(document);
  ShowChild(child, kSpectrumSize);
  Q_EMIT stateChanged();
}

// The document whose sound the spectrum shows from now on; nothing for null.
void tembrelMDIClient::FollowDocument(AudioWin* document) {
  disconnect(spectrumSource);
  spectrumDocument = document;
  if (document != nullptr) {
    spectrumSource = connect(document, &QObject::destroyed, spectrumWindow, &SpectrumWin::DocumentClosed);
  }
  RefreshSpectrum();
}

// The cursor of the active document is the editor's cursor. One that moves in the background, because its
// document plays, counts while no other document has taken the spectrum over.
void tembrelMDIClient::CursorMoved(AudioWin* document) {
  if (spectrumWindow == nullptr || !spectrumWindow->FollowsCursor()) {
    return;
  }
  if (document == spectrumDocument) {
    RefreshSpectrum();
  } else if (document == ActiveDocument()) {
    FollowDocument(document);
  }
}

// A cursor that moves while an edit is at work is followed when that is done.
void tembrelMDIClient::RefreshSpectrum() {
  if (spectrumWindow == nullptr || spectrumDocument == nullptr || !spectrumWindow->FollowsCursor() ||
      spectrumDocument->Doc().Editing()) {
    return;
  }
  const Document& document = spectrumDocument->Doc();
  const std::filesystem::path file = document.FileName();
  spectrumWindow->SetSound(file, file.empty() ? spectrumDocument->Title() : PathToText(file.filename()));
  spectrumWindow->Compute(document.Clip(), spectrumDocument->EditWindow()->View().CursorFrame());
}

void tembrelMDIClient::SpectrumClosing() {
  spectrumWindow = nullptr;
  spectrumDocument = nullptr;
  ChildClosing();
}

bool tembrelMDIClient::SpectrumIsActive() const {
  const QMdiSubWindow* active = currentSubWindow();
  return active != nullptr && spectrumWindow != nullptr && active->widget() == spectrumWindow;
}

}  // namespace tembrel
