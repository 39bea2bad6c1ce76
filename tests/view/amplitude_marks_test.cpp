#include <gtest/gtest.h>

#include "view/AmplitudeMarks.h"
#include "view/GridLines.h"

namespace tembrel {
namespace {

using Texts = std::vector<std::string>;

Texts TextsOf(const std::vector<AmplitudeLabel>& labels) {
  Texts texts;
  texts.reserve(labels.size());
  for (const AmplitudeLabel& label : labels) {
    texts.push_back(label.text);
  }
  return texts;
}

// The rows on which the labels stand.
std::vector<int> Bottoms(const std::vector<AmplitudeLabel>& labels) {
  std::vector<int> bottoms;
  bottoms.reserve(labels.size());
  for (const AmplitudeLabel& label : labels) {
    bottoms.push_back(label.box.y + label.box.height);
  }
  return bottoms;
}

std::vector<int> GridRows(const PaintArea& area, bool stereo) {
  std::vector<int> rows;
  for (const auto& [layer, line] : GridLines(area, stereo, 44100, 0, 44100)) {
    if (layer == Layer::Grid || layer == Layer::Centre) {
      rows.push_back(line.y1);
    }
  }
  return rows;
}

TEST(AmplitudeLabels, MonoRunsFromOneToMinusOne) {
  const auto labels = AmplitudeLabels({40, 175, 1.0}, false);
  EXPECT_EQ(TextsOf(labels),
            (Texts{"1.0", "0.8", "0.6", "0.4", "0.2", "0.0", "-0.2", "-0.4", "-0.6", "-0.8", "-1.0"}));
  EXPECT_EQ(labels.front().box, (PixelRect{15, 0, 20, 7}));
  EXPECT_EQ(Bottoms(labels), GridRows({593, 175, 1.0}, false));
}

TEST(AmplitudeLabels, StereoHasOneSetAChannelAPixelBelowTheLines) {
  const PaintArea area{40, 400, 1.0};
  const auto labels = AmplitudeLabels(area, true);
  ASSERT_EQ(labels.size(), 22U);
  EXPECT_EQ(labels[11].text, "1.0");
  std::vector<int> expected = GridRows({593, 400, 1.0}, true);
  for (int& row : expected) {
    ++row;
  }
  EXPECT_EQ(Bottoms(labels), expected);
}

TEST(AmplitudeLabels, UnderThirteenPixelsASpacingOnlyThreeStay) {
  EXPECT_EQ(AmplitudeLabels({40, 143, 1.0}, false).size(), 11U);
  const auto labels = AmplitudeLabels({40, 142, 1.0}, false);
  EXPECT_EQ(TextsOf(labels), (Texts{"1.0", "0.0", "-1.0"}));
  const std::vector<int> rows = GridRows({593, 142, 1.0}, false);
  EXPECT_EQ(Bottoms(labels), (std::vector<int>{rows[0], rows[5], rows[10]}));
}

TEST(AmplitudeLabels, StereoChannelsAreJudgedByTheirOwnSpacing) {
  EXPECT_EQ(AmplitudeLabels({40, 298, 1.0}, true).size(), 22U);
  EXPECT_EQ(TextsOf(AmplitudeLabels({40, 297, 1.0}, true)),
            (Texts{"1.0", "0.0", "-1.0", "1.0", "0.0", "-1.0"}));
}

TEST(AmplitudeLabels, EverythingGrowsWithTheScale) {
  const auto labels = AmplitudeLabels({80, 350, 2.0}, false);
  ASSERT_EQ(labels.size(), 11U);
  EXPECT_EQ(labels.front().box, (PixelRect{30, 1, 40, 14}));
  EXPECT_EQ(AmplitudeLabels({80, 285, 2.0}, false).size(), 3U);
  EXPECT_EQ(AmplitudeLabels({80, 286, 2.0}, false).size(), 11U);
}

TEST(AmplitudeLabels, AreasOfNoSizeHaveNone) {
  EXPECT_TRUE(AmplitudeLabels({0, 175, 1.0}, false).empty());
  EXPECT_TRUE(AmplitudeLabels({40, 0, 1.0}, true).empty());
}

TEST(ReadableAmplitudeLabels, WhereThereIsRoomTheyAreTheStatedOnes) {
  for (const bool stereo : {false, true}) {
    for (const int height : {155, 175, 234, 400}) {
      const PaintArea area{40, height, 1.0};
      EXPECT_EQ(ReadableLabels(AmplitudeLabels(area, stereo), area, 7), AmplitudeLabels(area, stereo));
    }
  }
}

TEST(ReadableAmplitudeLabels, TheTopOneIsHeldInsideTheWindow) {
  const PaintArea area{40, 72, 1.0};
  EXPECT_EQ(AmplitudeLabels(area, false).front().box, (PixelRect{15, -4, 20, 7}));
  const auto labels = ReadableLabels(AmplitudeLabels(area, false), area, 7);
  EXPECT_EQ(TextsOf(labels), (Texts{"1.0", "0.0", "-1.0"}));
  EXPECT_EQ(labels.front().box, (PixelRect{15, 0, 20, 7}));
  EXPECT_EQ(labels.back(), AmplitudeLabels(area, false).back());
}

TEST(ReadableAmplitudeLabels, NoTextTouchesAnotherOrTheEdges) {
  for (const bool stereo : {false, true}) {
    for (const double scale : {1.0, 2.0}) {
      for (int height = 1; height < 500; ++height) {
        const PaintArea area{40, height, scale};
        const int textHeight = area.Scaled(7);
        int free = 0;
        const auto labels = ReadableLabels(AmplitudeLabels(area, stereo), area, textHeight);
        for (const int bottom : Bottoms(labels)) {
          ASSERT_GE(bottom - textHeight, free) << height;
          ASSERT_LE(bottom, height);
          free = bottom + area.Scaled(1);
        }
        ASSERT_EQ(labels.empty(), height < textHeight) << height;
      }
    }
  }
}

// The least height of a document window's view.
TEST(ReadableAmplitudeLabels, ThreeLevelsAChannelFitIntoSeventyTwoPixels) {
  const PaintArea area{40, 72, 1.0};
  EXPECT_EQ(TextsOf(ReadableLabels(AmplitudeLabels(area, true), area, 7)),
            (Texts{"1.0", "0.0", "-1.0", "1.0", "0.0", "-1.0"}));
}

}  // namespace
}  // namespace tembrel
