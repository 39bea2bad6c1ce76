#include <algorithm>
#include <gtest/gtest.h>

#include "view/GridLines.h"

namespace tembrel {
namespace {

// Rows of the level lines, in painting order.
std::vector<int> Levels(const std::vector<LayerLine>& grid) {
  std::vector<int> rows;
  for (const auto& [layer, line] : grid) {
    if (layer == Layer::Grid || layer == Layer::Centre) {
      EXPECT_EQ(line.y1, line.y2);
      rows.push_back(line.y1);
    }
  }
  return rows;
}

std::vector<int> Centres(const std::vector<LayerLine>& grid) {
  std::vector<int> rows;
  for (const auto& [layer, line] : grid) {
    if (layer == Layer::Centre) {
      rows.push_back(line.y1);
    }
  }
  return rows;
}

TEST(GridLines, MonoHasElevenLevelsWithTheSixthInTheCentreColour) {
  const auto grid = GridLines({593, 175}, false, 44100, 0, 441000);
  EXPECT_EQ(Levels(grid), (std::vector<int>{7, 22, 38, 54, 70, 86, 102, 118, 134, 150, 166}));
  EXPECT_EQ(Centres(grid), (std::vector<int>{86}));
  EXPECT_EQ(grid[0], (LayerLine{Layer::Grid, {0, 7, 592, 7}}));
}

TEST(GridLines, MonoCentreIsHalfTheHeight) {
  EXPECT_EQ(Centres(GridLines({100, 110}, false, 44100, 0, 100)), (std::vector<int>{55}));
  EXPECT_EQ(Centres(GridLines({100, 1100}, false, 44100, 0, 100)), (std::vector<int>{550}));
}

TEST(GridLines, StereoHasABandAndTwiceElevenLevels) {
  const auto grid = GridLines({593, 175}, true, 44100, 0, 441000);
  ASSERT_FALSE(grid.empty());
  EXPECT_EQ(grid[0], (LayerLine{Layer::Band, {0, 79, 592, 93}}));
  EXPECT_EQ(Levels(grid), (std::vector<int>{6,  13,  20,  28,  35,  42,  50,  57,  64,  72,  79,
                                            93, 100, 107, 115, 122, 129, 137, 144, 151, 159, 166}));
  EXPECT_EQ(Centres(grid), (std::vector<int>{42, 129}));
}

TEST(GridLines, StereoOfAnotherHeight) {
  const auto grid = GridLines({800, 400}, true, 44100, 0, 441000);
  EXPECT_EQ(grid[0], (LayerLine{Layer::Band, {0, 187, 799, 211}}));
  EXPECT_EQ(Centres(grid), (std::vector<int>{99, 299}));
}

TEST(GridLines, LayersComeInPaintingOrder) {
  const auto grid = GridLines({593, 175}, true, 44100, 0, 441000);
  EXPECT_EQ(std::count_if(grid.begin(), grid.end(),
                          [](const LayerLine& line) { return line.layer == Layer::Band; }),
            1);
  const auto time =
      std::find_if(grid.begin(), grid.end(), [](const LayerLine& line) { return line.layer == Layer::Time; });
  EXPECT_EQ(time - grid.begin(), 23);
  EXPECT_TRUE(std::all_of(time, grid.end(), [](const LayerLine& line) { return line.layer == Layer::Time; }));
}

TEST(GridLines, TimeLinesTakeTheFullHeight) {
  const auto grid = GridLines({600, 175}, false, 44100, 0, 441000);
  EXPECT_EQ(grid[11], (LayerLine{Layer::Time, {0, 0, 0, 174}}));
  EXPECT_EQ(grid[12], (LayerLine{Layer::Time, {120, 0, 120, 174}}));
  EXPECT_EQ(grid.size(), 16U);
}

TEST(GridLines, StatedDistancesGrowWithTheScale) {
  const auto grid = GridLines({1186, 350, 2.0}, true, 44100, 0, 441000);
  // A channel is 175 - 12 high: 163 / 11 / 2 = 7, below a margin of 6.
  EXPECT_EQ(Levels(grid).front(), 13);
  EXPECT_EQ(grid[0], (LayerLine{Layer::Band, {0, 161, 1185, 188}}));
  EXPECT_EQ(grid[23], (LayerLine{Layer::Time, {0, 0, 0, 349}}));
  EXPECT_EQ(grid[24].line.x1, 237);  // 2 s of 10, as at scale 1
}

TEST(GridLines, LowAreasStayInside) {
  for (int height = 0; height <= 24; ++height) {
    for (const bool stereo : {false, true}) {
      for (const auto& [layer, line] : GridLines({50, height}, stereo, 44100, 0, 1000)) {
        EXPECT_TRUE(line.x1 >= 0 && line.x2 < 50 && line.y1 >= 0 && line.y1 <= line.y2 && line.y2 < height);
      }
    }
  }
  EXPECT_TRUE(GridLines({0, 175}, false, 44100, 0, 1000).empty());
}

}  // namespace
}  // namespace tembrel
