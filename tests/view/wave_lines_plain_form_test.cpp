#include <cmath>
#include <gtest/gtest.h>

#include "tests/view/PlainWaveLines.h"
#include "tests/view/TestClips.h"
#include "view/WaveLines.h"

namespace tembrel {
namespace {

struct Layout {
  std::uint16_t bits;
  std::uint16_t channels;
};

constexpr std::array<Layout, 9> kLayouts = {
    {{8, 1}, {8, 2}, {16, 1}, {16, 2}, {24, 1}, {24, 2}, {32, 3}, {12, 2}, {8, 5}}};

void ExpectSameLines(const AudioClip& clip, const PaintArea& area, std::int64_t first, std::int64_t frames) {
  EXPECT_EQ(WaveLines(clip, area, first, frames), PlainWaveLines(clip, area, first, frames))
      << clip.format.wBitsPerSample << " bits, " << clip.format.nChannels << " channels, " << area.width
      << " x " << area.height << " at " << first << ", " << frames << " frames";
}

TEST(WaveLinesAgainstPlainForm, AllLayoutsLoudnessesAndSmallSizes) {
  for (const auto& [bits, channels] : kLayouts) {
    for (const unsigned loudness : {0U, 1U, 3U, 255U}) {
      const AudioClip clip = NoiseClip(bits, channels, 997, loudness, bits + channels);
      for (const int width : {1, 2, 3, 4, 5, 7, 64, 100, 499, 997, 1994, 2000}) {
        for (const int height : {1, 11, 12, 13, 175, 600}) {
          ExpectSameLines(clip, {width, height}, 0, 997);
        }
      }
    }
  }
}

TEST(WaveLinesAgainstPlainForm, EveryViewOfAShortSound) {
  for (const auto& [bits, channels] : kLayouts) {
    const AudioClip clip = NoiseClip(bits, channels, 23, 255, 3);
    for (std::int64_t first = 0; first <= 25; ++first) {
      for (std::int64_t frames = 0; frames <= 50; ++frames) {
        for (const int width : {1, 2, 5, 17}) {
          ExpectSameLines(clip, {width, 90}, first, frames);
        }
      }
    }
  }
}

TEST(WaveLinesAgainstPlainForm, LongViewsWithEveryStep) {
  for (const auto& [bits, channels] : kLayouts) {
    const AudioClip clip = NoiseClip(bits, channels, 90'001, 255, 5);
    for (const int width : {1, 3, 593, 1600}) {
      for (const double scale : {1.0, 1.5, 2.0}) {
        ExpectSameLines(clip, {width, 400, scale}, 17, 89'000);
      }
      ExpectSameLines(clip, {width, 400}, 80'000, 90'001);
      ExpectSameLines(clip, {width, 400}, 0, 200'000);
    }
  }
}

TEST(WaveLinesAgainstPlainForm, StepChangesAtThreeMillionSamples) {
  const AudioClip clip = NoiseClip(16, 1, 3'000'003, 255, 7);
  for (const std::int64_t frames : {3'000'000, 3'000'001, 3'000'002}) {
    ExpectSameLines(clip, {997, 300}, 1, frames);
  }
  // More columns than examined samples: most columns stay empty.
  ExpectSameLines(clip, {700'000, 300}, 0, 3'000'003);
  ExpectSameLines(clip, {2'000'000, 300}, 0, 3'000'003);
}

TEST(WaveLinesAgainstPlainForm, ViewsThatAreSharedOutToThreads) {
  ExpectSameLines(NoiseClip(8, 1, 2'000'003, 255, 8), {1600, 600}, 3, 2'000'000);
  ExpectSameLines(NoiseClip(8, 2, 1'000'003, 7, 9), {3, 600}, 0, 1'000'003);
  ExpectSameLines(NoiseClip(16, 2, 6'000'001, 255, 10), {1600, 600}, 0, 6'000'001);
  ExpectSameLines(NoiseClip(8, 1, 2'000'003, 255, 8), {1, 600}, 0, 2'000'003);
}

TEST(WaveLinesAgainstPlainForm, ASineLooksTheSame) {
  std::vector<int> samples;
  for (int i = 0; i < 20'000; ++i) {
    samples.push_back(static_cast<int>(32767.0 * std::sin(i * 0.01)));
    samples.push_back(static_cast<int>(3.0 * std::sin(i * 0.003)));
  }
  const AudioClip clip = ClipOfSamples(2, samples);
  for (std::int64_t frames = 1; frames <= 20'000; frames = frames * 3 / 2 + 1) {
    ExpectSameLines(clip, {600, 350}, 0, frames);
    ExpectSameLines(clip, {601, 351}, 19'990 - frames / 2, frames);
  }
}

}  // namespace
}  // namespace tembrel
