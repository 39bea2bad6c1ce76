// The equaliser and the two other block filters.
#include <cstdlib>
#include <gtest/gtest.h>

#include "edit/BlockFilter.h"
#include "edit/FilterEffect.h"
#include "edit/FilteredSound.h"
#include "tests/support/EffectSession.h"

namespace tembrel {
namespace {

using test::After;
using test::Bytes;
using test::Samples16;

const WaveFormat kMono16 = PcmFormat(44100, 16, 1);

ByteRange All(const Bytes& bytes) {
  return {0, static_cast<std::int64_t>(bytes.size())};
}

struct Difference {
  std::int64_t samples = 0;
  std::int64_t differing = 0;
  int largest = 0;  // steps

  void Count(const WaveFormat& format, const Bytes& first, const Bytes& second) {
    const bool is8Bit = format.wBitsPerSample == 8;
    const auto count = static_cast<std::uint64_t>(first.size() / (is8Bit ? 1 : 2));
    for (std::uint64_t i = 0; i < count; ++i) {
      const int a = is8Bit ? Sample8(first.data(), i) : Sample16(first.data(), i);
      const int b = is8Bit ? Sample8(second.data(), i) : Sample16(second.data(), i);
      differing += a != b ? 1 : 0;
      largest = std::max(largest, std::abs(a - b));
    }
    samples += static_cast<std::int64_t>(count);
  }
};

TEST(Filter, HasTenPresetsWithTheirGains) {
  ASSERT_EQ(FilterPresetNames().size(), 10U);
  EXPECT_EQ(FilterPresetNames()[0], "Lift Musical Presence");
  EXPECT_EQ(FilterPresetNames()[9], "Attenuate Treble");
  EXPECT_EQ(FindFilterPreset("Lift Bass"), 4);
  EXPECT_FALSE(FindFilterPreset("Lift bass"));
  const auto gains = [](int index) {
    std::vector<int> values;
    for (const Breakpoint& point : BuildPresetTable(index)) {
      values.push_back(point.gain);
    }
    return values;
  };
  EXPECT_EQ(gains(0), (std::vector{100, 100, 100, 100, 100, 180, 230, 180, 100, 100}));
  EXPECT_EQ(gains(1), (std::vector{100, 100, 100, 100, 100, 60, 40, 60, 100, 100}));
  EXPECT_EQ(gains(2), (std::vector{100, 100, 100, 100, 100, 100, 400, 100, 100, 100}));
  EXPECT_EQ(gains(3), (std::vector{100, 100, 100, 100, 100, 100, 25, 100, 100, 100}));
  EXPECT_EQ(gains(4), (std::vector{400, 400, 200, 200, 200, 100, 100, 100, 100, 100}));
  EXPECT_EQ(gains(5), (std::vector{25, 25, 50, 50, 50, 100, 100, 100, 100, 100}));
  EXPECT_EQ(gains(6), (std::vector{100, 100, 100, 150, 200, 400, 200, 150, 100, 100}));
  EXPECT_EQ(gains(7), (std::vector{100, 100, 100, 67, 50, 25, 50, 67, 100, 100}));
  EXPECT_EQ(gains(8), (std::vector{100, 100, 100, 100, 100, 133, 166, 166, 200, 266}));
  EXPECT_EQ(gains(9), (std::vector{100, 100, 100, 100, 100, 75, 60, 60, 50, 37}));
  EXPECT_EQ(gains(10), std::vector(10, 100));
  EXPECT_EQ(BuildPresetTable(3)[0].frequency, 31);
  EXPECT_EQ(BuildPresetTable(3)[9].frequency, 16000);
}

TEST(BandGain, LiesOnTheLineBetweenBreakpoints) {
  const PresetTable table = BuildPresetTable(9);
  EXPECT_EQ(BandGainPercent(table, 44100, 0), 100);    // below all breakpoints
  EXPECT_EQ(BandGainPercent(table, 2048, 1000), 75);   // on one
  EXPECT_EQ(BandGainPercent(table, 2048, 1023), 75);   // 75 - 15 × 23 / 1000, truncated
  EXPECT_EQ(BandGainPercent(table, 44100, 1023), 37);  // above all
  EXPECT_EQ(BandGainPercent(table, 11025, 1023), 57);  // 5507 Hz: 60 - 10 × 1507 / 4000
  EXPECT_EQ(BandGainPercent(BuildPresetTable(8), 11025, 1023), 178);
}

TEST(BandGain, IsTheLiteralFormForEveryBinPresetAndRate) {
  for (int preset = 0; preset < 10; ++preset) {
    const PresetTable table = BuildPresetTable(preset);
    for (const std::uint32_t rate : {1U, 2048U, 8000U, 11025U, 22050U, 44100U, 192000U}) {
      for (std::size_t bin = 0; bin < 1024; ++bin) {
        ASSERT_EQ(
            static_cast<float>(BandGainPercent(table, rate, bin)),
            static_cast<float>(test::LiteralBandGain(table, rate, static_cast<std::int64_t>(bin)) * 100));
      }
    }
  }
}

TEST(BlockFilter, ScalesBinKByItsGainAnd2047MinusKWithIt) {
  // A cosine at bin 200 with a table that rises steeply there: bin 1848 has the gain of bin 199.
  const std::array<Breakpoint, 3> table{{{199, 100}, {200, 300}, {201, 500}}};
  const BlockFilter filter(FilterMode::Preset, 2048, table);
  std::vector<float> block(2048);
  for (std::size_t i = 0; i < 2048; ++i) {
    block[i] = static_cast<float>(std::cos(2 * 3.14159265358979 * 200 * static_cast<double>(i) / 2048));
  }
  const std::array<const float*, 1> blocks{block.data()};
  std::array<BlockValues, kLanes> filtered{};
  filter.Filter(blocks, filtered);
  EXPECT_NEAR(filtered[0][1024], (3.0 + 1.0) / 2, 1e-6);  // the window's top
}

TEST(BlockFilter, LeavesBin1024) {
  const std::array<Breakpoint, 1> table{{{1, 300}}};
  const BlockFilter filter(FilterMode::Preset, 44100, table);
  std::vector<float> block(2048);
  for (std::size_t i = 0; i < 2048; ++i) {
    block[i] = i % 2 == 0 ? 0.25F : -0.25F;
  }
  const std::array<const float*, 1> blocks{block.data()};
  std::array<BlockValues, kLanes> filtered{};
  filter.Filter(blocks, filtered);
  EXPECT_NEAR(filtered[0][1024], 0.25, 1e-7);
}

TEST(BlockFilter, ThatChangesNoBandGivesTheInteriorBack) {
  const std::array<Breakpoint, 1> table{{{1, 100}}};
  const BlockFilter filter(FilterMode::Preset, 44100, table);
  test::Dice dice(21);
  std::vector<float> sound(std::size_t{5} * 2048);
  for (float& value : sound) {
    value = static_cast<float>(dice.Roll(-32767, 32767)) / 32767.0F;
  }
  std::vector<double> sum(sound.size());
  for (std::size_t start = 0; start + 2048 <= sound.size(); start += 1024) {
    const std::array<const float*, 1> blocks{sound.data() + start};
    std::array<BlockValues, kLanes> filtered{};
    filter.Filter(blocks, filtered);
    for (std::size_t i = 0; i < 2048; ++i) {
      sum[start + i] += static_cast<double>(filtered[0][i]);
    }
  }
  for (std::size_t i = 1024; i + 1024 < sound.size(); ++i) {
    ASSERT_NEAR(sum[i], static_cast<double>(sound[i]), 1.0 / 32767) << i;
  }
}

TEST(Filter, OfAtMost2048SamplesDoublesWhatLiesBehindTheFirst1024) {
  Bytes samples(std::size_t{2} * 2048);
  for (std::uint64_t i = 0; i < 2048; ++i) {
    StoreSample16(samples.data(), i, 5000);
  }
  const Bytes filtered = After(kMono16, samples, FilterEdit(All(samples), 4));
  EXPECT_EQ(Sample16(filtered.data(), 1023), 5000);
  EXPECT_EQ(Sample16(filtered.data(), 1024), 10000);
  EXPECT_EQ(Sample16(filtered.data(), 2047), 10000);
}

TEST(Filter, LimitsWhatTheDoublingBringsAboveFullScale) {
  Bytes samples(std::size_t{2} * 2000);
  for (std::uint64_t i = 0; i < 2000; ++i) {
    StoreSample16(samples.data(), i, i == 1999 ? 32767 : 100);
  }
  const Bytes filtered = After(kMono16, samples, FilterEdit(All(samples), 0));
  EXPECT_EQ(Sample16(filtered.data(), 1999), 32767);
  EXPECT_EQ(Sample16(filtered.data(), 0), 50);
  EXPECT_NEAR(Sample16(filtered.data(), 1500), 100, 1);
}

// A tone where a preset changes nothing comes back after the fade-in of the first half block, but for what of
// it each block smears over the other bands.
TEST(Filter, KeepsTheInteriorWhereTheGainIs100) {
  Bytes samples(std::size_t{2} * 20000);
  for (std::uint64_t i = 0; i < 20000; ++i) {
    StoreSample16(samples.data(), i, std::lround(8000 * std::sin(static_cast<double>(i) * 0.0314)));
  }
  const Bytes filtered = After(kMono16, samples, FilterEdit(All(samples), 8));
  for (std::uint64_t i = 4096; i < 16000; ++i) {
    ASSERT_NEAR(Sample16(filtered.data(), i), Sample16(samples.data(), i), 20) << i;
  }
  EXPECT_NEAR(Sample16(filtered.data(), 512), Sample16(samples.data(), 512) / 2.0, 20);
}

TEST(Filter, RefusesPresetsThatDoNotExist) {
  for (const int preset : {-1, 10}) {
    test::EffectSession session(kMono16, Samples16({1, 2}));
    const EditResult result = session.Run(FilterEdit({0, 4}, preset));
    EXPECT_FALSE(result.done);
    EXPECT_NE(result.message, "");
    EXPECT_FALSE(session.undo.CanUndo());
  }
}

// Both forms in double and extended precision give the same stored samples but for one in a million, and
// that one differs by a step. TEMBREL_FILTER_SAMPLES sets how many are looked at.
TEST(Filter, IsTheLiteralFormUpToRounding) {
  const char* const wanted = std::getenv("TEMBREL_FILTER_SAMPLES");
  const std::int64_t enough = wanted != nullptr ? std::atoll(wanted) : 3000000;
  test::Dice dice(11);
  Difference difference;
  for (int round = 0; difference.samples < enough; ++round) {
    for (const WaveFormat& layout : test::kLayouts) {
      constexpr std::array<std::uint32_t, 4> kRates{11025, 22050, 44100, 48000};
      const WaveFormat format = PcmFormat(kRates.at(static_cast<std::size_t>(dice.Roll(0, 3))),
                                          layout.wBitsPerSample, layout.nChannels);
      const auto sound = static_cast<test::Sound>(round % static_cast<int>(test::Sound::kCount));
      const int preset = static_cast<int>(dice.Roll(0, 9));
      const Bytes bytes = test::SoundBytes(format, dice.Roll(40000, 200000), sound, dice);
      test::LiteralClip clip{format, bytes};
      test::LiteralEffects(clip).Filter(0, static_cast<std::int64_t>(bytes.size()), preset);
      difference.Count(format, After(format, bytes, FilterEdit(All(bytes), preset)), clip.data);
    }
  }
  RecordProperty("samples", std::to_string(difference.samples));
  RecordProperty("differing", std::to_string(difference.differing));
  EXPECT_LE(difference.largest, 1);
  EXPECT_LE(difference.differing * 1000000, difference.samples)
      << difference.differing << " of " << difference.samples;
}

TEST(Filter, CoversTheEndsOfShortSoundAsTheLiteralForm) {
  test::Dice dice(12);
  Difference difference;
  for (const std::int64_t frames :
       {0,    1,    1023, 1024, 1025, 2047,  2048,  2049,  3071,  3072,  3073, 4095,
        4096, 4097, 5121, 6144, 6145, 65536, 65537, 66560, 66561, 67584, 67585}) {
    for (const WaveFormat& format : test::kLayouts) {
      const Bytes bytes = test::SoundBytes(format, frames, test::Sound::Noise, dice);
      test::LiteralClip clip{format, bytes};
      test::LiteralEffects(clip).Filter(0, static_cast<std::int64_t>(bytes.size()), 2);
      Difference here;
      here.Count(format, After(format, bytes, FilterEdit(All(bytes), 2)), clip.data);
      ASSERT_LE(here.largest, 1) << frames;
      difference.differing += here.differing;
    }
  }
  EXPECT_LE(difference.differing, 2);
}

TEST(Filter, IsTheLiteralFormOnSoundThatIsComputedInParts) {
  test::Dice dice(13);
  const WaveFormat format = PcmFormat(22050, 16, 2);
  const std::int64_t frames = kFilteredAPart + 5000;
  const Bytes bytes = test::SoundBytes(format, frames, test::Sound::Noise, dice);
  test::LiteralClip clip{format, bytes};
  test::LiteralEffects(clip).Filter(0, static_cast<std::int64_t>(bytes.size()), 6);
  Difference difference;
  difference.Count(format, After(format, bytes, FilterEdit(All(bytes), 6)), clip.data);
  EXPECT_LE(difference.largest, 1);
  EXPECT_LE(difference.differing, 1);
}

// Quiet blocks that come out as whole steps, among loud ones: what leaked from one to the other would show.
TEST(Filter, IsTheLiteralFormWhereQuietMeetsLoud) {
  test::Dice dice(16);
  Difference difference;
  for (const WaveFormat& format : test::kLayouts) {
    Bytes bytes = test::SoundBytes(format, 300000, test::Sound::FullScale, dice);
    const std::int64_t perSample = BytesPerSample(format.wBitsPerSample);
    const auto count = static_cast<std::int64_t>(bytes.size()) / perSample;
    for (std::int64_t i = 0; i < count; ++i) {
      const std::int64_t stretch = i / 11000;
      if (stretch % 2 == 1 && format.wBitsPerSample == 8) {
        StoreSample8(bytes.data(), static_cast<std::uint64_t>(i), 128 + stretch % 5 - 2);
      } else if (stretch % 2 == 1) {
        StoreSample16(bytes.data(), static_cast<std::uint64_t>(i), stretch % 5 - 2);
      }
    }
    for (const int preset : {4, 5, 9}) {
      test::LiteralClip clip{format, bytes};
      test::LiteralEffects(clip).Filter(0, static_cast<std::int64_t>(bytes.size()), preset);
      difference.Count(format, After(format, bytes, FilterEdit(All(bytes), preset)), clip.data);
    }
  }
  EXPECT_LE(difference.largest, 1);
  EXPECT_LE(difference.differing * 1000000, difference.samples)
      << difference.differing << " of " << difference.samples;
}

TEST(Filter, IsTheSameHoweverMuchIsKept) {
  test::Dice dice(14);
  for (const WaveFormat& format : test::kLayouts) {
    const Bytes bytes = test::SoundBytes(format, kFilteredAPart + 5000, test::Sound::FullScale, dice);
    for (const EditStep& step : {FilterEdit(All(bytes), 4), CutRumbleEdit(All(bytes))}) {
      EXPECT_EQ(test::AfterKeepingNothing(format, bytes, step), After(format, bytes, step));
    }
  }
}

TEST(BlockFilter, FiltersPairsOfBlocksAsSingleOnes) {
  const BlockFilter filter(FilterMode::Preset, 44100, BuildPresetTable(4));
  test::Dice dice(15);
  for (std::size_t count = 1; count <= 2 * kLanes; ++count) {
    std::vector<BlockValues> blocks(count);
    std::vector<const float*> pointers;
    for (BlockValues& block : blocks) {
      std::ranges::generate(block, [&] { return static_cast<float>(dice.Roll(-32768, 32767)) / 32768; });
      pointers.push_back(block.data());
    }
    std::vector<BlockValues> pairs(2 * kLanes);
    filter.FilterPairs(pointers, pairs);
    std::vector<BlockValues> single(kLanes);
    for (std::size_t i = 0; i < count; ++i) {
      filter.Filter(std::span(pointers).subspan(i, 1), single);
      for (std::size_t at = 0; at < kBlockPoints; ++at) {
        ASSERT_NEAR(pairs[i][at], single[0][at], 3e-7) << i << " of " << count << " at " << at;
      }
    }
  }
}

TEST(CleanSpectrum, IsTheLiteralForm) {
  test::ForEachSound(7000, [](const WaveFormat& format, const Bytes& bytes, const std::string& name) {
    test::LiteralClip clip{format, bytes};
    test::LiteralEffects(clip).FilterByMode(0, static_cast<std::int64_t>(bytes.size()), 0);
    EXPECT_EQ(After(format, bytes, CleanSpectrumEdit(All(bytes))), clip.data) << name;
  });
}

TEST(CutRumble, IsTheLiteralForm) {
  test::ForEachSound(7000, [](const WaveFormat& format, const Bytes& bytes, const std::string& name) {
    test::LiteralClip clip{format, bytes};
    test::LiteralEffects(clip).FilterByMode(0, static_cast<std::int64_t>(bytes.size()), 1);
    Difference difference;
    difference.Count(format, After(format, bytes, CutRumbleEdit(All(bytes))), clip.data);
    EXPECT_EQ(difference.differing, 0) << name;
  });
}

TEST(CutRumble, HalvesAConstant) {
  Bytes samples(std::size_t{2} * 2049);
  for (std::uint64_t i = 0; i < 2049; ++i) {
    StoreSample16(samples.data(), i, 8000);
  }
  const Bytes filtered = After(kMono16, samples, CutRumbleEdit(All(samples)));
  EXPECT_NEAR(Sample16(filtered.data(), 1024), 4000, 1);  // the window's top
  EXPECT_EQ(Sample16(filtered.data(), 0), 0);
  EXPECT_EQ(Sample16(filtered.data(), 2048), 8000);  // behind the last block
}

}  // namespace
}  // namespace tembrel
