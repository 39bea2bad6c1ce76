// The client's part for the spectrum window: there is one at most, and it follows the cursor of the document
// it was opened on.
#include <QMdiSubWindow>

#include "analysis/ui/SpectrumWin.h"
#include "app/ui/tembrelMDIClient.h"
#include "document/ui/AudioWin.h"
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
  auto* child = new QMdiSubWindow(this);
  child->setObjectName("TMDIChild");
  child->setAttribute(Qt::WA_DeleteOnClose);
  child->setWidget(spectrum);
  child->setWindowTitle(spectrum->windowTitle());
  child->setWindowIcon(QIcon(":/tembrel.svg"));
  spectrumWindow = spectrum;
  connect(spectrum, &SpectrumWin::closing, this, &tembrelMDIClient::SpectrumClosing);
  connect(spectrum, &SpectrumWin::followingBegan, this, &tembrelMDIClient::RefreshSpectrum);
  FollowDocument(document);
  ShowChild(child, kSpectrumSize);
  Q_EMIT stateChanged();
}

void tembrelMDIClient::FollowDocument(AudioWin* document) {
  spectrumDocument = document;
  if (document == nullptr) {
    return;
  }
  SpectrumWin* spectrum = spectrumWindow;
  spectrum->SetSoundFile(document->Doc().FileName());
  connect(document->EditWindow(), &AudioEditWindow::cursorMoved, spectrum, [this] { RefreshSpectrum(); });
  connect(document, &AudioWin::edited, spectrum, [this] { RefreshSpectrum(); });
  connect(document, &QObject::destroyed, spectrum, &SpectrumWin::DocumentClosed);
  RefreshSpectrum();
}

// A cursor that moves while an edit is at work is followed when that is done.
void tembrelMDIClient::RefreshSpectrum() {
  if (spectrumWindow != nullptr && spectrumDocument != nullptr && spectrumWindow->FollowsCursor() &&
      !spectrumDocument->Doc().Editing()) {
    spectrumWindow->Compute(spectrumDocument->Doc().Clip(),
                            spectrumDocument->EditWindow()->View().CursorFrame());
  }
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
