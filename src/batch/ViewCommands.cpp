#include "batch/ViewCommands.h"

#include <cstdint>
#include <string_view>

#include "batch/SvgPicture.h"
#include "platform/ReplaceFile.h"
#include "view/RulerMarks.h"
#include "view/ScrollCodes.h"
#include "view/WaveLines.h"

namespace tembrel {

namespace {

constexpr int kRulerHeight = 17;  // pixels; the ticks stand at the same places at any height
constexpr double kMostPixels = 32767;
constexpr double kMostCode = 65535;

std::string_view NameOf(Layer layer) {
  switch (layer) {
    case Layer::Band:
      return "band";
    case Layer::Grid:
      return "grid";
    case Layer::Centre:
      return "centre";
    case Layer::Time:
      return "time";
    case Layer::Wave:
      break;
  }
  return "wave";
}

Failure Size(BatchSession& session, const Arguments& arguments) {
  session.Current().View().SetClientSize(static_cast<int>(arguments.Whole(0)),
                                         static_cast<int>(arguments.Whole(1)));
  return kSucceeded;
}

// view [FIRST FRAMES]
Failure ShowView(BatchSession& session, const Arguments& arguments) {
  EditView& view = session.Current().View();
  if (arguments.Count() == 2) {
    view.Show(arguments.Whole(0), arguments.Whole(1));
    return kSucceeded;
  }
  session.Output() << "first-visible: " << view.FirstVisibleFrame()
                   << "\nframes-on-screen: " << view.FramesOnScreen() << "\ncursor: " << view.CursorFrame()
                   << "\ntotal: " << view.TotalFrames() << "\n";
  return kSucceeded;
}

Failure Scroll(BatchSession& session, const Arguments& arguments) {
  const auto code = static_cast<ScrollCode>(arguments.Whole(0));
  const std::int64_t value = arguments.Count() == 2 ? arguments.Whole(1) : 0;
  if (!session.Current().View().HorizontalScroll(code, value)) {
    return "scroll: there is no code " + arguments.Text(0);
  }
  return kSucceeded;
}

Failure Zoom(BatchSession& session, const Arguments& arguments) {
  EditView& view = session.Current().View();
  if (arguments.Text(0) == "in") {
    view.ZoomIn();
  } else if (arguments.Text(0) == "out") {
    view.ZoomOut();
  } else {
    view.ZoomAll();
  }
  return kSucceeded;
}

Failure Draw(BatchSession& session, const Arguments& /*arguments*/) {
  session.Output() << "layer,x1,y1,x2,y2\n";
  for (const auto& [layer, line] : session.Current().Picture()) {
    session.Output() << NameOf(layer) << "," << line.x1 << "," << line.y1 << "," << line.x2 << "," << line.y2
                     << "\n";
  }
  return kSucceeded;
}

Failure Ticks(BatchSession& session, const Arguments& arguments) {
  const BatchDocument& document = session.Current();
  const EditView& view = document.View();
  const PaintArea area{view.ClientWidth(), kRulerHeight, 1.0};
  const AxisMarks marks =
      arguments.Text(0) == "time"
          ? TimeRuler(area, view.Rate().value_or(0), view.FirstVisibleFrame(), view.FramesOnScreen())
          : SampleRuler(area, view.FirstVisibleFrame(), view.FramesOnScreen());
  session.Output() << "x,label\n";
  for (const AxisTick& tick : marks.ticks) {
    session.Output() << tick.line.x1 << "," << tick.label << "\n";
  }
  return kSucceeded;
}

Failure Picture(BatchSession& session, const Arguments& arguments) {
  const std::filesystem::path path(arguments.Text(0));
  if (path.extension() != ".svg") {
    return "picture: the name of a scalable drawing ends in .svg, not as in " + path.string();
  }
  const BatchDocument& document = session.Current();
  const EditView& view = document.View();
  const bool dense =
      WaveIsDense(*document.Doc().Clip(), document.Area(), view.FirstVisibleFrame(), view.FramesOnScreen());
  const ReplaceResult written = WriteWholeFile(path, SvgPicture(document.Picture(), document.Area(), dense));
  if (!written.ok) {
    return path.string() + " could not be written: " + written.reason;
  }
  return kSucceeded;
}

}  // namespace

std::vector<BatchCommand> ViewCommands() {
  const ArgumentRule width{"WIDTH", ArgumentKind::Whole, 1, kMostPixels};
  const ArgumentRule height{"HEIGHT", ArgumentKind::Whole, 1, kMostPixels};
  const ArgumentRule first{"FIRST", ArgumentKind::Whole, 0, kAnyFrame};
  const ArgumentRule frames{"FRAMES", ArgumentKind::Whole, 1, kAnyFrame};
  const ArgumentRule code{"CODE", ArgumentKind::Whole, 0, kMostCode};
  const ArgumentRule value{"VALUE", ArgumentKind::Whole, -kAnyFrame, kAnyFrame};
  return {
      {"size", {width, height}, Needs::Document, Size},
      {.name = "view", .arguments = {first, frames}, .run = ShowView, .optional = 2, .allOrNone = true},
      {.name = "scroll", .arguments = {code, value}, .run = Scroll, .optional = 1},
      {"zoom", {{"in|out|all", ArgumentKind::Choice}}, Needs::Document, Zoom},
      {"draw", {}, Needs::Document, Draw},
      {"ticks", {{"time|samples", ArgumentKind::Choice}}, Needs::Document, Ticks},
      {"picture", {{"PATH.svg"}}, Needs::Document, Picture},
  };
}

}  // namespace tembrel
