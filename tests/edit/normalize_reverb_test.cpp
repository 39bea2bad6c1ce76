// Normalize and Reverb.
#include <gtest/gtest.h>

#include "edit/EchoLine.h"
#include "edit/NormalizeEffect.h"
#include "edit/ReverbEffect.h"
#include "tests/support/EffectSession.h"

namespace tembrel {
namespace {

using test::After;
using test::Bytes;
using test::BytesOf;
using test::Floats;
using test::Samples16;

const WaveFormat kMono8 = PcmFormat(22050, 8, 1);
const WaveFormat kMono16 = PcmFormat(44100, 16, 1);
const WaveFormat kStereo16 = PcmFormat(44100, 16, 2);

ByteRange All(const Bytes& bytes) {
  return {0, static_cast<std::int64_t>(bytes.size())};
}

TEST(Normalize, BringsTheLargestPositiveSampleTo90Percent) {
  // No mean to remove.
  EXPECT_EQ(After(kMono16, Samples16({16000, -16000, 8000, -8000}), NormalizeEdit({0, 8})),
            Samples16({29490, -29490, 14745, -14745}));
  EXPECT_EQ(After(kMono8, BytesOf({192, 64}), NormalizeEdit({0, 2})), BytesOf({243, 12}));
}

TEST(Normalize, RemovesTheMeanAfterMeasuringThePeak) {
  // Mean 4000 / 32767, peak 12000: (12000 - 4000) / 12000 × 0.9.
  EXPECT_EQ(After(kMono16, Samples16({12000, -4000}), NormalizeEdit({0, 4})), Samples16({19660, -19660}));
}

TEST(Normalize, WrapsWhatIsLowerThanThePeakIsHigh) {
  EXPECT_EQ(After(kMono16, Samples16({10000, -20000, 10000}), NormalizeEdit({0, 6})),
            Samples16({29490, -58980 + 65536, 29490}));
}

TEST(Normalize, LeavesAChannelWithoutAPositiveSample) {
  EXPECT_EQ(After(kMono16, Samples16({0, -5, -32768}), NormalizeEdit({0, 6})), Samples16({0, -5, -32768}));
  EXPECT_EQ(After(kMono8, BytesOf({128, 3, 127}), NormalizeEdit({0, 3})), BytesOf({128, 3, 127}));
  EXPECT_EQ(After(kStereo16, Samples16({-1, 100, -2, -100}), NormalizeEdit({0, 8})),
            Samples16({-1, 29490, -2, -29490}));
}

TEST(Normalize, IsTheLiteralFormOnAllSounds) {
  // More frames than are measured at a time.
  test::ForEachSound(9001, [](const WaveFormat& format, const Bytes& bytes, const std::string& name) {
    const std::int64_t frame = FrameSize(format);
    for (const ByteRange part : {All(bytes), ByteRange{13 * frame, 8500 * frame}, ByteRange{5, 5001}}) {
      test::LiteralClip clip{format, bytes};
      test::LiteralEffects(clip).Normalize(part.start, part.end);
      ASSERT_EQ(After(format, bytes, NormalizeEdit(part)), clip.data) << name;
    }
  });
}

TEST(Reverb, EchoesFourTimesAFifteenthOfASecondApart) {
  Bytes samples(std::size_t{2} * 20000);
  StoreSample16(samples.data(), 0, 20000);
  const Bytes echoed = After(kMono16, samples, ReverbEdit(All(samples)));
  const auto at = [&](std::uint64_t i) { return Sample16(echoed.data(), i); };
  EXPECT_EQ(at(0), 20000);
  EXPECT_EQ(at(2939), 0);
  EXPECT_EQ(at(2940), 4400);
  EXPECT_EQ(at(5880), 968);  // the echo's own echo
}

TEST(Reverb, OfShortSoundChangesNothing) {
  Bytes samples(std::size_t{2} * 2940);
  for (std::uint64_t i = 0; i < 2940; ++i) {
    StoreSample16(samples.data(), i, static_cast<std::int64_t>(i) * 11 - 16000);
  }
  EXPECT_EQ(After(kMono16, samples, ReverbEdit(All(samples))), samples);
}

TEST(Reverb, LimitsShortSoundThatPassesFullScale) {
  // -32768 lies beyond -1.0.
  EXPECT_EQ(After(kMono16, Samples16({-32768, 16384, 100}), ReverbEdit({0, 6})),
            Samples16({-32767, 16383, 99}));
}

TEST(Reverb, IsTheLiteralFormOnAllSounds) {
  test::ForEachSound(30011, [](const WaveFormat& format, const Bytes& bytes, const std::string& name) {
    const std::int64_t frame = FrameSize(format);
    for (const ByteRange part : {All(bytes), ByteRange{13 * frame, 6000 * frame}}) {
      test::LiteralClip clip{format, bytes};
      test::LiteralEffects(clip).Reverb(part.start, part.end);
      ASSERT_EQ(After(format, bytes, ReverbEdit(part)), clip.data) << name;
    }
  });
}

// So long that it is computed in several parts: loud in few places, loud in many, and never too loud.
TEST(Reverb, IsTheLiteralFormOnLongSound) {
  using test::Sound;
  test::Dice dice(8);
  const std::int64_t frames = (std::int64_t{1} << 21U) + 12345;
  const std::vector<std::pair<WaveFormat, Sound>> sounds{{kStereo16, Sound::Noise},
                                                         {kStereo16, Sound::Bursts},
                                                         {kStereo16, Sound::Constant},
                                                         {kMono16, Sound::Tone},
                                                         {kMono16, Sound::FullScale},
                                                         {kMono16, Sound::Quiet},
                                                         {PcmFormat(44100, 8, 2), Sound::Noise}};
  for (const auto& [format, sound] : sounds) {
    const Bytes bytes = test::SoundBytes(format, frames, sound, dice);
    test::LiteralClip clip{format, bytes};
    test::LiteralEffects(clip).Reverb(0, static_cast<std::int64_t>(bytes.size()));
    EXPECT_TRUE(After(format, bytes, ReverbEdit(All(bytes))) == clip.data) << test::NameOf(format, sound);
  }
}

// While the peak is looked for, quickly or not, and while the echoes are stored.
TEST(Reverb, OfLongSoundIsAsItWasWheneverItIsCancelled) {
  test::Dice dice(12);
  for (const test::Sound sound : {test::Sound::Noise, test::Sound::Constant, test::Sound::Quiet}) {
    Bytes bytes = test::SoundBytes(kMono16, 5 * (std::int64_t{1} << 20U), sound, dice);
    if (sound == test::Sound::Quiet) {
      // Few places are loud at first, and many later: what was looked for quickly is looked for again.
      std::ranges::fill(std::span(bytes).last(bytes.size() / 3), std::byte{0x66});
    }
    test::EffectSession session(kMono16, bytes);
    int calls = 0;
    std::uint64_t last = 0;
    session.progress = [&](std::uint64_t done, std::uint64_t total) {
      ++calls;
      EXPECT_LE(last, done);
      EXPECT_LE(done, total);
      last = done == total ? 0 : done;
      return true;
    };
    ASSERT_TRUE(session.Run(ReverbEdit(All(bytes))).done);
    ASSERT_GE(calls, 8);
    for (int cancelled = 1; cancelled <= calls; ++cancelled) {
      test::EffectSession other(kMono16, bytes);
      int call = 0;
      other.progress = [&](std::uint64_t, std::uint64_t) { return ++call < cancelled; };
      const EditResult result = other.Run(ReverbEdit(All(bytes)));
      EXPECT_FALSE(result.done) << cancelled;
      EXPECT_EQ(result.message, "") << cancelled;
      ASSERT_TRUE(other.Content() == bytes) << cancelled;
      EXPECT_FALSE(other.undo.CanUndo());
    }
  }
}

// Rates that no sound has: a fifteenth of a second is then no frame, one, or more than the clip.
TEST(Reverb, IsTheLiteralFormAtOddRates) {
  test::Dice dice(9);
  for (const std::uint32_t rate : {1U, 14U, 15U, 29U, 30U, 100U, 15000U, 96000U, 4000000000U}) {
    const WaveFormat format = PcmFormat(rate, 16, 2);
    const Bytes bytes = test::SoundBytes(format, 20000, test::Sound::Noise, dice);
    test::LiteralClip clip{format, bytes};
    test::LiteralEffects(clip).Reverb(0, static_cast<std::int64_t>(bytes.size()));
    EXPECT_EQ(After(format, bytes, ReverbEdit(All(bytes))), clip.data) << rate;
  }
}

// The floats themselves, denormal ones among them, whatever pieces they come in.
TEST(EchoLine, IsTheLiteralFormOnFloatsOfAllSizes) {
  test::EffectSession session(kMono16, Samples16({0}));
  ClipEditor editor(session.clip, session.undo, session.memory);
  test::Dice dice(10);
  Floats values;
  for (int i = 0; i < 50000; ++i) {
    const auto exponent = static_cast<int>(dice.Roll(-149, 3));
    values.push_back(std::ldexp(static_cast<float>(dice.Roll(-1000, 1000)) / 1000.0F, exponent));
  }
  Floats expected = values;
  test::LiteralAddEchoes(expected, 50000, 735, 4, 22);
  std::optional<EchoLine> line = EchoLine::Make(editor, 50000, 735);
  ASSERT_TRUE(line);
  for (int round = 0; round < 2; ++round) {
    Floats echoed = values;
    line->Restart();
    for (std::size_t at = 0; at < echoed.size();) {
      const std::size_t length = std::min(static_cast<std::size_t>(dice.Roll(1, 20000)), echoed.size() - at);
      line->Continue(std::span(echoed).subspan(at, length));
      at += length;
    }
    ASSERT_EQ(echoed, expected);
  }
}

}  // namespace
}  // namespace tembrel
