#include <gmock/gmock.h>
#include <numeric>
#include <set>

#include "document/CopyPatch.h"

namespace tembrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Sound of one byte a frame, each value once, so that what is lost shows.
using Sound = std::vector<int>;

Sound Values(int first, int count) {
  Sound sound(static_cast<std::size_t>(count));
  std::iota(sound.begin(), sound.end(), first);
  return sound;
}

// A file as far as it matters here.
struct File {
  Sound data;
  std::size_t declared = 0;

  void Do(const PatchStep& step, const Sound& sound) {
    if (step.kind == PatchStep::Kind::kSizes) {
      declared = sound.size();
      return;
    }
    data.resize(std::max(data.size(), static_cast<std::size_t>(step.range.end)));
    std::copy(sound.begin() + step.range.start, sound.begin() + step.range.end,
              data.begin() + step.range.start);
  }
  Sound Declared() const { return {data.begin(), data.begin() + static_cast<std::ptrdiff_t>(declared)}; }
};

PatchStep Data(std::int64_t start, std::int64_t end) {
  return {PatchStep::Kind::kData, {start, end}};
}
const PatchStep kSizes{PatchStep::Kind::kSizes, {}};

// What a death after each step leaves: the header is true, and every value of `kept` is there.
void ExpectNothingLostOnTheWay(const Sound& before, const Sound& after, std::int64_t shiftedFrom,
                               const Sound& kept) {
  ClipChanges changes;
  changes.AddShift(shiftedFrom);
  for (const std::int64_t longest : {1, 3, 7, 1000}) {
    File file{before, before.size()};
    for (const PatchStep& step : PlanPatch(changes, static_cast<std::uint32_t>(before.size()),
                                           static_cast<std::uint32_t>(after.size()), longest)) {
      file.Do(step, after);
      ASSERT_LE(file.declared, file.data.size());
      const Sound found = file.Declared();
      const std::set<int> values(found.begin(), found.end());
      for (const int value : kept) {
        ASSERT_TRUE(values.contains(value)) << value << " with steps of " << longest;
      }
    }
    EXPECT_EQ(file.Declared(), after);
  }
}

TEST(CopyPatch, OfAnInsertionLosesNothingWhereverItStops) {
  const Sound before = Values(0, 50);
  for (const int length : {1, 2, 10, 80}) {
    Sound after = before;
    const Sound inserted = Values(1000, length);
    after.insert(after.begin() + 20, inserted.begin(), inserted.end());
    ExpectNothingLostOnTheWay(before, after, 20, before);
  }
}

TEST(CopyPatch, OfACutLosesOnlyWhatWasCutWhereverItStops) {
  const Sound before = Values(0, 50);
  for (const int length : {1, 2, 10, 30}) {
    Sound after = before;
    after.erase(after.begin() + 20, after.begin() + 20 + length);
    ExpectNothingLostOnTheWay(before, after, 20, after);
  }
}

TEST(CopyPatch, WritesOverwrittenBytesOnceAndNoSizes) {
  ClipChanges changes;
  changes.AddOverwrite({10, 20});
  changes.AddOverwrite({40, 45});
  EXPECT_THAT(PlanPatch(changes, 100, 100), ElementsAre(Data(10, 20), Data(40, 45)));
  EXPECT_THAT(PlanPatch(changes, 100, 100, 8), ElementsAre(Data(10, 18), Data(18, 20), Data(40, 45)));
}

TEST(CopyPatch, WritesGrowingSoundFromItsEnd) {
  ClipChanges changes;
  changes.AddShift(10);
  EXPECT_THAT(PlanPatch(changes, 30, 50, 10),
              ElementsAre(Data(30, 40), Data(40, 50), kSizes, Data(20, 30), Data(10, 20)));
}

TEST(CopyPatch, LeavesOverwrittenBytesBehindAShiftToTheShift) {
  ClipChanges changes;
  changes.AddOverwrite({5, 40});
  changes.AddShift(10);
  EXPECT_THAT(PlanPatch(changes, 30, 20), ElementsAre(Data(5, 10), Data(10, 20), kSizes));
}

TEST(CopyPatch, FillsTheFileWhenTheShiftBeginsBehindItsEnd) {
  ClipChanges changes;
  changes.AddShift(40);
  EXPECT_THAT(PlanPatch(changes, 30, 50), ElementsAre(Data(30, 50), kSizes));
}

TEST(CopyPatch, OfNothingIsEmpty) {
  EXPECT_THAT(PlanPatch({}, 30, 30), IsEmpty());
}

}  // namespace
}  // namespace tembrel
