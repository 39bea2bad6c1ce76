// The quick way to the largest magnitude that a channel reaches with its echoes.
#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <numeric>
#include <utility>
#include <vector>

#include "edit/EchoLine.h"
#include "edit/EchoPeak.h"
#include "edit/ReverbEffect.h"
#include "edit/SampleFloat.h"
#include "tests/support/EffectSession.h"

namespace tembrel {
namespace {

using test::Bytes;
using test::Floats;
using test::Samples16;

const WaveFormat kMono16 = PcmFormat(44100, 16, 1);
constexpr std::int64_t kDelay = 100;

Bytes Level(std::uint64_t count, std::int64_t level) {
  Bytes bytes(2 * count);
  for (std::uint64_t i = 0; i < count; ++i) {
    StoreSample16(bytes.data(), i, level);
  }
  return bytes;
}

// A range of a clip that an EchoPeak goes through.
struct Search {
  test::EffectSession session;
  Bytes bytes;
  EffectFrames range;
  ClipEditor editor;

  Search(const WaveFormat& format, Bytes sound)
      : session(format, sound),
        bytes(std::move(sound)),
        range(EffectFrames::Of({0, static_cast<std::int64_t>(bytes.size())}, session.clip)),
        editor(session.clip, session.undo, session.memory) {}

  // All outputs, exactly.
  Floats Outputs(std::size_t channel, std::uint32_t delay) {
    Floats outputs = Inputs(channel);
    test::LiteralAddEchoes(outputs, range.count, delay, 4, 22);
    return outputs;
  }

  Floats Inputs(std::size_t channel) const {
    Floats inputs(static_cast<std::size_t>(range.count));
    SamplesToFloat(range.format, bytes, inputs, range.count, range.Selector(channel));
    return inputs;
  }

  // By the columns that matter; nothing when those are many.
  std::optional<float> Peak(std::size_t channel, std::int64_t delay) {
    Floats near = Inputs(channel);
    std::optional<EchoLine> line = EchoLine::Make(editor, range.count, delay);
    line->Restart(EchoRounding::Near);
    line->Continue(near);
    std::optional<NearPeak> found = NearPeak::Make(editor, delay);
    // In pieces that begin and end anywhere in a row.
    constexpr std::size_t kPiece = 611;
    for (std::size_t at = 0; at < near.size(); at += kPiece) {
      found->Take(std::span(near).subspan(at, std::min(kPiece, near.size() - at)),
                  static_cast<std::int64_t>(at) % delay);
    }
    EXPECT_EQ(found->Largest(), LargestMagnitude(near));
    std::vector<std::int64_t> columns;
    if (MayPassUnity(found->Largest())) {
      found->AddColumns(found->Largest(), 0, columns);
    }
    return columns.size() > kMostColumns ? std::nullopt
                                         : PeakOfColumns(editor, range, bytes, channel, delay, columns);
  }
};

TEST(EchoPeak, IsTheLargestOfAllOutputsToTheBit) {
  int found = 0;
  test::ForEachSound(20011, [&](const WaveFormat& format, const Bytes& bytes, const std::string& name) {
    Search search(format, bytes);
    for (std::size_t channel = 0; channel < format.nChannels; ++channel) {
      for (const std::uint32_t delay : {1U, 7U, 99U, 735U, 2940U, 20010U}) {
        const std::optional<float> actual = search.Peak(channel, delay);
        if (!actual) {
          continue;
        }
        const float expected = LargestMagnitude(search.Outputs(channel, delay));
        if (expected > 1.0F) {
          ++found;
          ASSERT_EQ(*actual, expected) << name << ", delay " << delay;
        } else {
          ASSERT_LE(*actual, 1.0F) << name << ", delay " << delay;
        }
      }
    }
  });
  EXPECT_GE(found, 50);
}

constexpr std::int64_t kRows = 30;

// What each column reaches, when samples this far apart make up a column.
Floats PeaksOfColumns(std::span<const float> outputs, std::size_t columns) {
  Floats peaks(columns);
  for (std::size_t i = 0; i < outputs.size(); ++i) {
    peaks[i % columns] = std::max(peaks[i % columns], std::fabs(outputs[i]));
  }
  return peaks;
}

// Pairs of neighbours in the order of what they reach exactly that a quick run puts the other way round.
std::vector<std::array<std::size_t, 2>> MisjudgedPairs(const Floats& exact, const Floats& near) {
  std::vector<std::size_t> order(exact.size());
  std::iota(order.begin(), order.end(), 0U);
  std::ranges::sort(order, {}, [&](std::size_t column) { return std::pair(exact[column], near[column]); });
  std::vector<std::array<std::size_t, 2>> pairs;
  for (std::size_t i = 1; i < order.size(); ++i) {
    if (exact[order[i - 1]] < exact[order[i]] && near[order[i - 1]] > near[order[i]]) {
      pairs.push_back({order[i - 1], order[i]});
    }
  }
  return pairs;
}

TEST(EchoPeak, TellsApartWhatAQuickRunCannot) {
  // Loud columns that differ by less than a quick run can tell, by what quiet sound long before still adds.
  constexpr std::uint32_t kColumns = 20000;
  Bytes bytes(2 * kRows * kColumns);
  test::Dice dice(3);
  for (std::int64_t i = 0; i < kRows * kColumns; ++i) {
    const std::int64_t level = i / kColumns < kRows - 6 ? dice.Roll(-3, 3) : 32767 - dice.Roll(0, 1);
    StoreSample16(bytes.data(), static_cast<std::uint64_t>(i), level);
  }
  Search all(kMono16, bytes);
  Floats near = all.Inputs(0);
  std::optional<EchoLine> line = EchoLine::Make(all.editor, kRows * kColumns, kColumns);
  line->Restart(EchoRounding::Near);
  line->Continue(near);
  const auto pairs =
      MisjudgedPairs(PeaksOfColumns(all.Outputs(0, kColumns), kColumns), PeaksOfColumns(near, kColumns));
  ASSERT_GE(pairs.size(), 20U);

  for (const auto& pair : pairs) {
    Bytes both(2 * kRows * kDelay);
    for (std::uint64_t row = 0; row < kRows; ++row) {
      StoreSample16(both.data(), row * static_cast<std::uint64_t>(kDelay) + 20,
                    Sample16(bytes.data(), row * kColumns + pair[0]));
      StoreSample16(both.data(), row * static_cast<std::uint64_t>(kDelay) + 70,
                    Sample16(bytes.data(), row * kColumns + pair[1]));
    }
    Search search(kMono16, both);
    EXPECT_EQ(search.Peak(0, kDelay), LargestMagnitude(search.Outputs(0, kDelay)));
  }
}

TEST(EchoPeak, IsNotToBeFoundInManyColumns) {
  EXPECT_EQ(Search(kMono16, Level(2000, 30000)).Peak(0, kDelay), std::nullopt);
  // Of a sound that stays below full scale none matters, however many are alike.
  EXPECT_LE(Search(kMono16, Level(2000, 12000)).Peak(0, kDelay).value_or(2.0F), 1.0F);
}

// What makes the errors of a quick run largest: full scale of one sign, of changing signs, and at random.
TEST(EchoLine, IsNeverFurtherOffNearlyThanItSays) {
  Search search(kMono16, Samples16({0}));
  test::Dice dice(4);
  constexpr std::int64_t kCount = 40000;
  std::optional<EchoLine> line = EchoLine::Make(search.editor, kCount, kDelay);
  float worst = 0;
  for (int kind = 0; kind < 12; ++kind) {
    Floats values(kCount);
    for (std::int64_t i = 0; i < kCount; ++i) {
      const bool negative = kind == 0 ? false : kind == 1 ? i / kDelay % 2 == 1 : dice.OneIn(2);
      const float magnitude =
          kind < 3 ? 32768.0F / 32767.0F : static_cast<float>(dice.Roll(0, 32768)) / 32767.0F;
      values[static_cast<std::size_t>(i)] = negative ? -magnitude : magnitude;
    }
    Floats nearly = values;
    Floats exactly = values;
    line->Restart(EchoRounding::Near);
    line->Continue(nearly);
    line->Restart();
    line->Continue(exactly);
    for (std::size_t i = 0; i < nearly.size(); ++i) {
      worst = std::max(worst, std::fabs(nearly[i] - exactly[i]));
    }
  }
  EXPECT_GT(worst, 0);
  EXPECT_LE(worst, kNearEchoError);
}

// Memory that runs out anywhere: the sound is as it was, or as it should be.
TEST(Reverb, IsWholeOrNotAtAllWhereverMemoryRunsOut) {
  test::Dice dice(5);
  const WaveFormat format = PcmFormat(1500, 16, 2);
  const Bytes bytes = test::SoundBytes(format, 5000, test::Sound::Noise, dice);
  const ByteRange all{0, static_cast<std::int64_t>(bytes.size())};
  const Bytes expected = test::After(format, bytes, ReverbEdit(all));
  int refused = 0;
  int done = 0;
  for (int failing = 0; failing < 60; ++failing) {
    test::EffectSession session(format, bytes);
    int asked = 0;
    session.memory.allocate = [&](std::size_t size) {
      return asked++ == failing ? std::nullopt : MemoryBlock::Allocate(size);
    };
    const EditResult result = session.Run(ReverbEdit(all));
    ++(result.done ? done : refused);
    EXPECT_EQ(session.Content(), result.done ? expected : bytes) << failing;
    EXPECT_EQ(result.message.empty(), result.done) << failing;
  }
  EXPECT_GT(refused, 5);
  EXPECT_GT(done, 5);
}

}  // namespace
}  // namespace tembrel
