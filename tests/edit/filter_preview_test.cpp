#include <gtest/gtest.h>

#include "edit/FilterEffect.h"
#include "edit/FilterPreview.h"
#include "tests/support/EditClips.h"
#include "tests/support/EffectSession.h"

namespace tembrel::test {
namespace {

// Noise of this many seconds.
AudioClip Noise(const WaveFormat& format, double seconds) {
  const auto frames = static_cast<std::int64_t>(seconds * format.nSamplesPerSec);
  return ClipOf(format, Dice(7).Noise(frames * format.nBlockAlign));
}

ByteRange Whole(const AudioClip& clip) {
  return {0, clip.dataSize};
}

Bytes Part(const AudioClip& clip, const ByteRange& range) {
  const Bytes all = BytesOfClip(clip);
  return {all.begin() + range.start, all.begin() + range.end};
}

TEST(FilterPreview, IsWhatTheCommandMakesOfTheSameFrames) {
  for (const WaveFormat& format : kLayouts) {
    const AudioClip clip = Noise(format, 0.6);
    const std::int64_t frameSize = format.nBlockAlign;
    const ByteRange range{1000 * frameSize, 9000 * frameSize};
    for (const int preset : {0, 4, 9}) {
      FilterPreview preview(clip, range);
      const FilterPreview::Result result = preview.Make(preset);
      ASSERT_NE(result.sound, nullptr);
      EXPECT_EQ(result.message, "");
      EXPECT_EQ(result.sound->format, format);
      const Bytes filtered = After(format, BytesOfClip(clip), FilterEdit(range, preset));
      EXPECT_EQ(BytesOfClip(*result.sound),
                Bytes(filtered.begin() + range.start, filtered.begin() + range.end));
    }
  }
}

TEST(FilterPreview, LeavesTheClipAlone) {
  const AudioClip clip = Noise(kLayouts[3], 0.5);
  const Bytes before = BytesOfClip(clip);
  FilterPreview preview(clip, Whole(clip));
  ASSERT_NE(preview.Make(4).sound, nullptr);
  EXPECT_EQ(BytesOfClip(clip), before);
}

TEST(FilterPreview, IsOfSixSecondsAtMost) {
  for (const auto& [format, bytes] :
       {std::pair{kLayouts[0], 22050 * 6}, std::pair{kLayouts[1], 22050 * 12},
        std::pair{kLayouts[2], 44100 * 12}, std::pair{kLayouts[3], 44100 * 24}}) {
    const AudioClip clip = Noise(format, 6.5);
    const std::int64_t start = std::int64_t{100} * format.nBlockAlign;
    FilterPreview preview(clip, {start, clip.dataSize});
    EXPECT_EQ(preview.Range(), (ByteRange{start, clip.dataSize}));
    const FilterPreview::Result result = preview.Make(8);
    ASSERT_NE(result.sound, nullptr);
    EXPECT_EQ(result.sound->dataSize, bytes);
    EXPECT_EQ(preview.Range(), (ByteRange{start, start + bytes}));
    // As the command would filter these six seconds, and not as a part of a longer selection.
    const Bytes six = Part(clip, preview.Range());
    EXPECT_EQ(BytesOfClip(*result.sound), After(format, six, FilterEdit({0, bytes}, 8)));
  }
}

TEST(FilterPreview, StaysShortenedForLaterPreviews) {
  const AudioClip clip = Noise(kLayouts[0], 7);
  FilterPreview preview(clip, Whole(clip));
  ASSERT_NE(preview.Make(1).sound, nullptr);
  const FilterPreview::Result second = preview.Make(2);
  EXPECT_EQ(second.sound->dataSize, 22050 * 6);
  EXPECT_EQ(preview.Range(), (ByteRange{0, std::int64_t{22050} * 6}));
  EXPECT_EQ(BytesOfClip(*second.sound),
            After(kLayouts[0], Part(clip, preview.Range()), FilterEdit(preview.Range(), 2)));
}

TEST(FilterPreview, OfSixSecondsOrLessIsNotShortened) {
  const AudioClip clip = Noise(kLayouts[1], 6);
  FilterPreview preview(clip, Whole(clip));
  ASSERT_NE(preview.Make(1).sound, nullptr);
  EXPECT_EQ(preview.Range(), Whole(clip));
}

TEST(FilterPreview, CutsTheSelectionDownToWholeFramesOfTheClip) {
  const AudioClip clip = Noise(kLayouts[3], 0.1);
  FilterPreview preview(clip, {-20, clip.dataSize + 1000LL});
  EXPECT_EQ(preview.Range(), Whole(clip));
  EXPECT_EQ(FilterPreview(clip, {5, 15}).Range(), (ByteRange{4, 12}));
  FilterPreview nothing(clip, {400, 100});
  const FilterPreview::Result result = nothing.Make(0);
  ASSERT_NE(result.sound, nullptr);
  EXPECT_EQ(result.sound->dataSize, 0U);
}

TEST(FilterPreview, OfAPresetThatDoesNotExistSaysSo) {
  const AudioClip clip = Noise(kLayouts[2], 0.1);
  const FilterPreview::Result result = FilterPreview(clip, Whole(clip)).Make(10);
  EXPECT_EQ(result.sound, nullptr);
  EXPECT_EQ(result.message, "There is no filter preset 10.");
}

TEST(FilterPreview, WithoutMemoryGivesAReason) {
  const AudioClip clip = Noise(kLayouts[2], 0.5);
  ScarceMemory scarce;
  FilterPreview counted(clip, Whole(clip), scarce.Memory());
  ASSERT_NE(counted.Make(0).sound, nullptr);
  const int needed = scarce.asked;
  ASSERT_GE(needed, 2);
  for (int failing = 1; failing <= needed; ++failing) {
    scarce.asked = 0;
    scarce.refuse = [&scarce, failing](std::size_t) { return scarce.asked == failing; };
    FilterPreview preview(clip, Whole(clip), scarce.Memory());
    const FilterPreview::Result result = preview.Make(0);
    EXPECT_EQ(result.sound, nullptr) << failing;
    EXPECT_NE(result.message, "") << failing;
  }
}

}  // namespace
}  // namespace tembrel::test
