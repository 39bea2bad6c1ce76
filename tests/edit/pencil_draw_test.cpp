#include <gtest/gtest.h>

#include "audio/Samples.h"
#include "edit/PencilDraw.h"
#include "tests/edit/EditSession.h"

namespace tembrel {
namespace {

using test::Bytes;
using test::BytesOf;
using test::EditSession;
using test::Samples16;

const WaveFormat kMono8 = PcmFormat(22050, 8, 1);
const WaveFormat kStereo8 = PcmFormat(22050, 8, 2);
const WaveFormat kMono16 = PcmFormat(44100, 16, 1);
const WaveFormat kStereo16 = PcmFormat(44100, 16, 2);

std::int64_t LevelAt(const WaveFormat& format, int y, int height) {
  return PencilLevelAt(format, y, height).value().value;
}

TEST(PencilLevel, OfMonoSpansTheHeight) {
  EXPECT_EQ(LevelAt(kMono8, 100, 200), 0);
  EXPECT_EQ(LevelAt(kMono8, 0, 200), 140);  // 128 × 11 / 10
  EXPECT_EQ(LevelAt(kMono8, 200, 200), -140);
  EXPECT_EQ(LevelAt(kMono8, 60, 200), 57);    // 60 × 256 / 200 = 76; 52 × 11 / 10
  EXPECT_EQ(LevelAt(kMono8, 140, 200), -56);  // 179; -51 × 11 / 10
  EXPECT_EQ(LevelAt(kMono16, 100, 200), 0);
  EXPECT_EQ(LevelAt(kMono16, 0, 200), 36043);
  EXPECT_EQ(LevelAt(kMono16, 200, 200), -36044);
  EXPECT_EQ(LevelAt(kMono16, 50, 200), 18022);  // 16383; 16384 × 11 / 10
}

TEST(PencilLevel, OfStereoSpansHalfTheHeightLessTheGap) {
  // Height 212: halves of 106, channels of 100 rows that begin 3 below the halves' tops.
  EXPECT_EQ(PencilLevelAt(kStereo8, 53, 212)->channel, 0);
  EXPECT_EQ(LevelAt(kStereo8, 53, 212), 0);
  EXPECT_EQ(LevelAt(kStereo8, 3, 212), 140);
  EXPECT_EQ(LevelAt(kStereo8, 0, 212), 148);  // -768 / 100 is -7; 135 × 11 / 10
  EXPECT_EQ(PencilLevelAt(kStereo8, 105, 212)->channel, 0);
  EXPECT_EQ(PencilLevelAt(kStereo8, 106, 212)->channel, 1);
  EXPECT_EQ(LevelAt(kStereo8, 159, 212), 0);
  EXPECT_EQ(LevelAt(kStereo16, 3, 212), 36043);
  EXPECT_EQ(LevelAt(kStereo16, 109, 212), 36043);
}

TEST(PencilLevel, NeedsRoom) {
  EXPECT_FALSE(PencilLevelAt(kMono8, 0, 0));
  EXPECT_FALSE(PencilLevelAt(kStereo8, 5, 13));
  EXPECT_TRUE(PencilLevelAt(kStereo8, 5, 14));
}

// 100 pixels show 100 frames: a move at x sets the frames x - 1 and x.
constexpr PencilArea kOneToOne{0, 100, 100, 200};

void Draw(EditSession& session, const PencilArea& area, int x, int y) {
  ASSERT_TRUE(session
                  .Run({.check = {},
                        .change =
                            [&](ClipEditor& editor) {
                              return DrawWithPencil(editor, area, session.clip.Frames(), x, y);
                            }})
                  .done);
}

TEST(DrawWithPencil, SetsTheFramesBesideTheMouse) {
  EditSession session(kMono8, Bytes(100, std::byte{128}));
  Draw(session, kOneToOne, 10, 60);
  Bytes expected(100, std::byte{128});
  expected[9] = expected[10] = static_cast<std::byte>(128 + 57);
  EXPECT_EQ(session.Content(), expected);
  ASSERT_EQ(session.changes.Overwritten().size(), 1U);
  EXPECT_EQ(session.changes.Overwritten().front(), (ByteRange{9, 11}));
}

TEST(DrawWithPencil, WrapsBeyondFullScale) {
  EditSession session(kMono8, Bytes(100, std::byte{128}));
  Draw(session, kOneToOne, 10, 0);
  EXPECT_EQ(session.Content()[10], static_cast<std::byte>(128 + 140 - 256));
  EditSession wide(kMono16, Bytes(200));
  Draw(wide, kOneToOne, 10, 0);
  EXPECT_EQ(Sample16(wide.clip.data.Data(), 10), 36043 - 65536);
  Draw(wide, kOneToOne, 20, 50);
  EXPECT_EQ(Sample16(wide.clip.data.Data(), 19), 18022);
}

TEST(DrawWithPencil, SetsOneChannelOfStereo) {
  constexpr PencilArea kArea{0, 100, 100, 212};
  EditSession session(kStereo16, Bytes(400, std::byte{1}));
  Draw(session, kArea, 50, 109);
  EXPECT_EQ(Sample16(session.clip.data.Data(), 101), 36043 - 65536);
  EXPECT_EQ(Sample16(session.clip.data.Data(), 100), 257);
  EditSession narrow(kStereo8, Bytes(200, std::byte{128}));
  Draw(narrow, kArea, 50, 28);  // 25 × 256 / 100 = 64: 64 × 11 / 10
  EXPECT_EQ(narrow.Content()[98], static_cast<std::byte>(128 + 70));
  EXPECT_EQ(narrow.Content()[99], std::byte{128});
}

TEST(DrawWithPencil, EndsAtTheFirstFrameOutsideTheSound) {
  EditSession session(kMono8, Bytes(100, std::byte{128}));
  const Bytes untouched = session.Content();
  Draw(session, kOneToOne, 200, 60);
  Draw(session, kOneToOne, -5, 60);
  // Frame -2 is the first and fails at once, although frame 0 would lie in the range.
  Draw(session, {0, 200, 100, 200}, 0, 60);
  EXPECT_EQ(session.Content(), untouched);
  EXPECT_TRUE(session.changes.Empty());
  Draw(session, kOneToOne, 100, 60);
  EXPECT_EQ(session.Content()[99], static_cast<std::byte>(128 + 57));
  Draw(session, {0, 50, 100, 200}, 0, 60);          // from trunc(-0.5) = 0
  EXPECT_EQ(session.Content()[0], std::byte{128});  // up to trunc(0.5) = 0, none
  Draw(session, {0, 50, 100, 200}, 1, 60);
  EXPECT_EQ(session.Content()[0], static_cast<std::byte>(128 + 57));
}

TEST(DrawWithPencil, StopsAtTheDocumentsFrameCountToo) {
  EditSession session(kMono8, Bytes(100, std::byte{128}));
  session.undo.Push(&session.clip);
  ClipEditor editor(session.clip, session.undo, session.memory);
  ASSERT_TRUE(DrawWithPencil(editor, kOneToOne, 10, 10, 60).done);
  EXPECT_EQ(session.Content()[9], static_cast<std::byte>(128 + 57));
  EXPECT_EQ(session.Content()[10], std::byte{128});
}

TEST(DrawWithPencil, DoesNothingInAnAreaWithoutRoom) {
  EditSession session(kMono8, Bytes(100, std::byte{128}));
  const Bytes untouched = session.Content();
  Draw(session, {0, 100, 0, 200}, 10, 60);
  Draw(session, {0, 100, 100, 0}, 10, 60);
  EXPECT_EQ(session.Content(), untouched);
}

// Drawing from the literal loop, for every layout and many pixels.
TEST(DrawWithPencil, SetsWhatTheLiteralLoopSets) {
  test::Dice dice(5);
  for (int round = 0; round < 3000; ++round) {
    const WaveFormat& format = dice.Layout();
    const bool eight = format.wBitsPerSample == 8;
    const bool stereo = format.nChannels == 2;
    EditSession session(format, dice.Noise(dice.Roll(1, 50) * format.nBlockAlign));
    Bytes expected = session.Content();
    const auto count = static_cast<std::int64_t>(session.clip.Frames());
    const PencilArea area{dice.Roll(0, count), dice.Roll(1, 120), static_cast<int>(dice.Roll(1, 200)),
                          static_cast<int>(dice.Roll(14, 300))};
    const auto x = static_cast<int>(dice.Roll(-3, area.width + 3));
    const auto y = static_cast<int>(dice.Roll(0, area.height - 1));
    const auto frameAt = [&](int pixel) {
      return static_cast<std::int64_t>(static_cast<long double>(area.firstVisibleFrame) +
                                       static_cast<long double>(area.framesOnScreen) * pixel / area.width);
    };
    const int half = area.height / 2;
    const int hs = (area.height - 12) / 2;
    const int range = eight ? 256 : 65535;
    const int centre = eight ? 128 : 32767;
    const bool right = stereo && y >= half;
    const int row = !stereo ? y : right ? y - 3 - half : y - 3;
    const int value = (-(row * range / (stereo ? hs : area.height) - centre) * 11) / 10;
    for (std::int64_t f = frameAt(x - 1); f < frameAt(x + 1) && f >= 0 && f < count; ++f) {
      const auto index = static_cast<std::uint64_t>(f * format.nChannels + (right ? 1 : 0));
      eight ? StoreSample8(expected.data(), index, value + 128)
            : StoreSample16(expected.data(), index, value);
    }
    Draw(session, area, x, y);
    ASSERT_EQ(session.Content(), expected) << round;
  }
}

TEST(PencilTouches, NearTheSampleUnderTheMouseOrTheTwoBefore) {
  Bytes bytes(100, std::byte{0});
  bytes[20] = static_cast<std::byte>(128 + 57);
  const AudioClip clip = test::ClipOf(kMono8, bytes);
  for (int x = 0; x < 100; ++x) {
    EXPECT_EQ(PencilTouches(clip, kOneToOne, 100, x, 60), x >= 20 && x <= 22) << x;
  }
}

TEST(PencilTouches, WithinFiveStepsOrAThousand) {
  const auto touches8 = [](int sample) {
    return PencilTouches(test::ClipOf(kMono8, Bytes(10, static_cast<std::byte>(128 + sample))),
                         {0, 10, 10, 200}, 10, 5, 100);
  };
  EXPECT_TRUE(touches8(4));
  EXPECT_TRUE(touches8(-4));
  EXPECT_FALSE(touches8(5));
  EXPECT_FALSE(touches8(-5));
  const auto touches16 = [](int sample) {
    return PencilTouches(test::ClipOf(kMono16, Samples16({0, sample, sample, sample})), {0, 4, 4, 200}, 10, 3,
                         100);
  };
  EXPECT_TRUE(touches16(999));
  EXPECT_FALSE(touches16(1000));
  EXPECT_FALSE(touches16(-1000));
}

TEST(PencilTouches, NeverAtTheFirstFrame) {
  const AudioClip clip = test::ClipOf(kMono8, BytesOf({128, 0, 0, 0, 0}));
  for (int x = 0; x < 5; ++x) {
    EXPECT_FALSE(PencilTouches(clip, {0, 5, 5, 200}, 10, x, 100));
  }
}

TEST(PencilTouches, TestsTheChannelOfTheHalf) {
  const AudioClip clip = test::ClipOf(kStereo16, Samples16({9, 9, 0, 30000, 0, 30000, 0, 30000}));
  constexpr PencilArea kArea{0, 4, 4, 212};
  EXPECT_TRUE(PencilTouches(clip, kArea, 10, 3, 53));
  EXPECT_FALSE(PencilTouches(clip, kArea, 10, 3, 159));
}

TEST(PencilTouches, OnlyWhereFramesAreFarApart) {
  const AudioClip clip = test::ClipOf(kMono8, Bytes(1000, std::byte{128}));
  EXPECT_TRUE(PencilTouches(clip, {0, 400, 100, 200}, 100, 50, 100));
  EXPECT_FALSE(PencilTouches(clip, {0, 401, 100, 200}, 100, 50, 100));
}

TEST(PencilTouches, NothingBehindTheEndOrWithoutRoom) {
  const AudioClip clip = test::ClipOf(kMono8, Bytes(10, std::byte{128}));
  EXPECT_TRUE(PencilTouches(clip, kOneToOne, 100, 11, 100));
  EXPECT_FALSE(PencilTouches(clip, kOneToOne, 100, 12, 100));
  EXPECT_FALSE(PencilTouches(clip, {0, 10, 0, 200}, 100, 5, 100));
  EXPECT_FALSE(PencilTouches(clip, {0, 10, 10, 0}, 100, 5, 100));
  EXPECT_FALSE(PencilTouches(AudioClip(), kOneToOne, 100, 5, 100));
}

}  // namespace
}  // namespace tembrel
