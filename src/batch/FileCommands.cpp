#include "batch/FileCommands.h"

#include "audio/AudioClip.h"

namespace tembrel {

namespace {

constexpr double kMostDocuments = 1e9;

Failure Open(BatchSession& session, const Arguments& arguments) {
  return session.Open(arguments.Text(0));
}

Failure Activate(BatchSession& session, const Arguments& arguments) {
  return session.Activate(arguments.Whole(0));
}

Failure Close(BatchSession& session, const Arguments& /*arguments*/) {
  session.CloseActive();
  return kSucceeded;
}

Failure Save(BatchSession& session, const Arguments& /*arguments*/) {
  return session.Save();
}

Failure SaveAs(BatchSession& session, const Arguments& arguments) {
  return session.SaveAs(arguments.Text(0));
}

Failure Echo(BatchSession& session, const Arguments& arguments) {
  for (std::size_t i = 0; i < arguments.Count(); ++i) {
    session.Output() << (i == 0 ? "" : " ") << arguments.Text(i);
  }
  session.Output() << "\n";
  return kSucceeded;
}

Failure Info(BatchSession& session, const Arguments& /*arguments*/) {
  const BatchDocument& current = session.Current();
  const Document& document = current.Doc();
  const EditView& view = current.View();
  const AudioClip& clip = *document.Clip();
  const WaveFormat& format = clip.format;
  const ByteRange selection = current.Selection();
  session.Output() << "path: " << document.FileName() << "\nrate: " << format.nSamplesPerSec
                   << "\nbits: " << format.wBitsPerSample << "\nchannels: " << format.nChannels
                   << "\nframes: " << document.FrameCount() << "\nbytes: " << clip.dataSize
                   << "\ncentiseconds: "
                   << DurationInHundredths(clip.dataSize, format.nBlockAlign, format.nSamplesPerSec)
                   << "\nchanged: " << (document.Changed() ? 1 : 0)
                   << "\ncan-undo: " << (document.CanUndo() ? 1 : 0)
                   << "\ncan-redo: " << (document.CanRedo() ? 1 : 0) << "\ncursor: " << view.CursorFrame()
                   << "\nselection: ";
  if (current.HasSelection()) {
    session.Output() << selection.start << " " << selection.end << "\n";
  } else {
    session.Output() << "none\n";
  }
  return kSucceeded;
}

}  // namespace

std::vector<BatchCommand> FileCommands() {
  return {
      {"open", {{"PATH"}}, Needs::Nothing, Open},
      {"activate", {{"N", ArgumentKind::Whole, 1, kMostDocuments}}, Needs::Nothing, Activate},
      {"close", {}, Needs::Document, Close},
      {"save", {}, Needs::Document, Save},
      {"save-as", {{"PATH"}}, Needs::Document, SaveAs},
      {"info", {}, Needs::Document, Info},
      {.name = "echo", .arguments = {{"TEXT"}}, .needs = Needs::Nothing, .run = Echo, .takesMore = true},
  };
}

}  // namespace tembrel
