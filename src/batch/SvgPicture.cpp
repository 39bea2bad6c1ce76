#include "batch/SvgPicture.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>
#include <utility>

#include "picture/Raster.h"
#include "view/WavePicture.h"

namespace tembrel {

namespace {

std::string Attribute(std::string_view name, std::string_view value) {
  return " " + std::string(name) + "=\"" + std::string(value) + "\"";
}

std::string Attribute(std::string_view name, int value) {
  return Attribute(name, std::to_string(value));
}

std::string ColorText(Rgb color) {
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "#%06X", color & 0xFFFFFFU);
  return text.data();
}

std::string RectElement(const Line& corners, Rgb color) {
  return "<rect" + Attribute("x", corners.x1) + Attribute("y", corners.y1) +
         Attribute("width", corners.x2 - corners.x1 + 1) + Attribute("height", corners.y2 - corners.y1 + 1) +
         Attribute("fill", ColorText(color)) + "/>\n";
}

// Lines have square ends, so that both end pixels belong to them; that makes every dash one pixel longer than
// the numbers here and every gap one shorter.
std::string DashAttributes(const Pen& pen) {
  std::string attributes;
  if (pen.style != PenStyle::Solid) {
    attributes = Attribute("stroke-dasharray", pen.style == PenStyle::Dash ? "17 7" : "2 4");
  }
  if (pen.patternStart != 0) {
    attributes += Attribute("stroke-dashoffset", pen.patternStart);
  }
  return attributes;
}

// Some programs leave out lines without any length, and the end pixels with them.
std::string SubPath(const Line& line) {
  std::string path = "M" + std::to_string(line.x1) + " " + std::to_string(line.y1);
  if (line.x1 == line.x2 && line.y1 == line.y2) {
    path += "h.01";
  } else if (line.x1 == line.x2) {
    path += "V" + std::to_string(line.y2);
  } else if (line.y1 == line.y2) {
    path += "H" + std::to_string(line.x2);
  } else {
    path += "L" + std::to_string(line.x2) + " " + std::to_string(line.y2);
  }
  return path;
}

// Neighbouring lines of one pen become one element. Line coordinates are those of pixels' centres.
class Drawing {
 public:
  Drawing(const PaintArea& area, bool denseWave) : paintArea(area), dense(denseWave) {}

  void Add(const LayerLine& item) {
    if (item.layer == Layer::Band) {
      EndPath();
      text += RectElement(item.line, PenOf(item.layer, paintArea, dense).color);
      return;
    }
    AddLine(item.line, PenOf(item.layer, paintArea, dense));
  }

  void AddLine(const Line& line, const Pen& linePen) {
    if (path.empty() || linePen != pen) {
      EndPath();
      pen = linePen;
    }
    path += SubPath(line);
  }

  std::string Take() {
    EndPath();
    return std::move(text);
  }

 private:
  void EndPath() {
    if (!path.empty()) {
      text += "<path" + Attribute("transform", "translate(.5 .5)") +
              Attribute("stroke", ColorText(pen.color)) + Attribute("stroke-width", pen.thickness) +
              DashAttributes(pen) + Attribute("d", path) + "/>\n";
      path.clear();
    }
  }

  PaintArea paintArea;
  bool dense;
  Pen pen;
  std::string path;
  std::string text;
};

// Whether the pixel that many pixels into the dashes lies well inside one. At a dash's first and last pixel
// the dash may have no length left, and some programs leave that out.
bool IsInsideDash(int place) {
  return place % kDashPeriod > 0 && place % kDashPeriod < 17;
}

// The columns of a dense waveform in turns, one for each start of the dashes, and their ends last: all of
// them have one colour, so their order does not matter, and each turn is one element.
void AddDenseWave(Drawing& drawing, std::span<const LayerLine> lines, const Pen& wavePen) {
  for (int start = 0; start < kDashPeriod; ++start) {
    for (const LayerLine& item : lines) {
      const Pen pen = ColumnPen(wavePen, item.line);
      if (item.layer == Layer::Wave && pen.patternStart == start) {
        drawing.AddLine(item.line, pen);
      }
    }
  }
  Pen endPen = wavePen;
  endPen.style = PenStyle::Solid;
  for (const auto& [layer, line] : lines) {
    const int start = ColumnPen(wavePen, line).patternStart;
    const int length = std::max(line.x2 - line.x1, line.y2 - line.y1);
    if (layer == Layer::Wave && !IsInsideDash(start)) {
      drawing.AddLine({line.x1, line.y1, line.x1, line.y1}, endPen);
    }
    if (layer == Layer::Wave && length > 0 && !IsInsideDash(start + length)) {
      drawing.AddLine({line.x2, line.y2, line.x2, line.y2}, endPen);
    }
  }
}

}  // namespace

std::string SvgPicture(std::span<const LayerLine> lines, const PaintArea& area, bool denseWave) {
  Drawing drawing(area, denseWave);
  for (const LayerLine& item : lines) {
    if (item.layer != Layer::Wave || !denseWave) {
      drawing.Add(item);
    }
  }
  if (denseWave) {
    AddDenseWave(drawing, lines, PenOf(Layer::Wave, area, true));
  }
  const std::string width = std::to_string(area.width);
  const std::string height = std::to_string(area.height);
  return "<svg xmlns=\"http://www.w3.org/2000/svg\"" + Attribute("width", width) +
         Attribute("height", height) + Attribute("viewBox", "0 0 " + width + " " + height) + ">\n" +
         RectElement({0, 0, area.width - 1, area.height - 1}, kPaperColor) +
         "<g fill=\"none\" stroke-linecap=\"square\">\n" + drawing.Take() + "</g>\n</svg>\n";
}

}  // namespace tembrel
