#include "view/AmplitudeMarks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "view/LevelRows.h"

namespace tembrel {

namespace {

constexpr int kLabelOffset = 4;  // in stereo the labels lie a pixel lower than the view's lines
constexpr int kLabelLeft = 25;   // from the right edge, logical pixels, as the next two
constexpr int kLabelRight = 5;
constexpr int kLabelHeight = 7;
constexpr int kLabelGap = 1;  // between two texts
constexpr double kCrowdedSpacing = 13;

std::string LevelText(int level) {
  std::array<char, 16> text{};
  const auto result = std::to_chars(text.data(), text.data() + text.size(), (kCentreLevel - level) * 0.2,
                                    std::chars_format::fixed, 1);
  return {text.data(), result.ptr};
}

}  // namespace

std::vector<AmplitudeLabel> AmplitudeLabels(const PaintArea& area, bool stereo) {
  std::vector<AmplitudeLabel> labels;
  if (area.width <= 0 || area.height <= 0) {
    return labels;
  }
  const LevelRows rows(area, stereo);
  const bool crowded = static_cast<double>(rows.Spacing()) < kCrowdedSpacing * area.Scale();
  const int height = area.Scaled(kLabelHeight);
  for (int channel = 0; channel < rows.Channels(); ++channel) {
    for (int level = 0; level < kLevelLines; level += crowded ? kCentreLevel : 1) {
      const std::int64_t bottom = rows.RowOf(channel, level, kLabelOffset);
      if (bottom <= area.height) {
        labels.push_back({{area.width - area.Scaled(kLabelLeft), static_cast<int>(bottom) - height,
                           area.Scaled(kLabelLeft) - area.Scaled(kLabelRight), height},
                          LevelText(level)});
      }
    }
  }
  return labels;
}

std::vector<AmplitudeLabel> ReadableLabels(std::vector<AmplitudeLabel> labels, const PaintArea& area,
                                           int textHeight) {
  std::vector<AmplitudeLabel> readable;
  int free = 0;
  for (AmplitudeLabel& label : labels) {
    const int bottom = std::max(label.box.y + label.box.height, textHeight);
    if (bottom - textHeight >= free && bottom <= area.height) {
      free = bottom + area.Scaled(kLabelGap);
      label.box.y = bottom - label.box.height;
      readable.push_back(std::move(label));
    }
  }
  return readable;
}

}  // namespace tembrel
