#include "batch/SvgPicture.h"

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
    Pen itemPen = PenOf(item.layer, paintArea, dense);
    if (item.layer == Layer::Wave && dense) {
      itemPen.patternStart = DashStartOfColumn(item.line.x1);
    }
    if (path.empty() || itemPen != pen) {
      EndPath();
      pen = itemPen;
    }
    path += SubPath(item.line);
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

// The columns of a dense waveform in three turns, one for each start of the dashes: hardly any
// two of them touch the same pixel, so their order does not matter, and each turn is one element.
void AddDenseWave(Drawing& drawing, std::span<const LayerLine> lines) {
  std::array<bool, 18> done{};
  for (const LayerLine& first : lines) {
    const int start = DashStartOfColumn(first.line.x1);
    if (first.layer != Layer::Wave || std::exchange(done.at(static_cast<std::size_t>(start)), true)) {
      continue;
    }
    for (const LayerLine& item : lines) {
      if (item.layer == Layer::Wave && DashStartOfColumn(item.line.x1) == start) {
        drawing.Add(item);
      }
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
    AddDenseWave(drawing, lines);
  }
  const std::string width = std::to_string(area.width);
  const std::string height = std::to_string(area.height);
  return "<svg xmlns=\"http://www.w3.org/2000/svg\"" + Attribute("width", width) +
         Attribute("height", height) + Attribute("viewBox", "0 0 " + width + " " + height) + ">\n" +
         RectElement({0, 0, area.width - 1, area.height - 1}, kPaperColor) +
         "<g fill=\"none\" stroke-linecap=\"square\">\n" + drawing.Take() + "</g>\n</svg>\n";
}

}  // namespace tembrel
