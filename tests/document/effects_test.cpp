// Effects on a document: what follows from one, and from one that is cancelled.
#include <algorithm>
#include <gmock/gmock.h>

#include "edit/EffectTable.h"
#include "tests/document/EditFixture.h"

namespace tembrel {
namespace {

using test::Bytes;
using ::testing::ElementsAre;

const WaveFormat kStereo16 = PcmFormat(44100, 16, 2);

class EffectsOnDocuments : public test::EditTest {};

TEST_F(EffectsOnDocuments, BringCopyTextsAndFlagUpToDate) {
  for (const EffectRow& row : EffectTable()) {
    listener.told.clear();
    const auto document = Open(kStereo16, test::CountingBytes(40000));
    ASSERT_TRUE(document->Edit(row.make({400, 36000}, {300, 4, {22050, 8, 2}})).done) << row.word;
    EXPECT_TRUE(document->Changed());
    EXPECT_TRUE(document->CanUndo());
    ExpectCopyUpToDate(*document);
    const bool changesLengths = row.parameter == EffectParameter::Format;
    EXPECT_THAT(listener.told, ElementsAre(changesLengths)) << row.word;
    EXPECT_EQ(document->FrameCount(), changesLengths ? 5000U : 10000U);
  }
}

TEST_F(EffectsOnDocuments, LeaveNoTraceWhenTheyAreCancelled) {
  const Bytes bytes = test::CountingBytes(40000);
  for (const EffectRow& row : EffectTable()) {
    listener.told.clear();
    const auto document = Open(kStereo16, bytes);
    const Bytes copy = test::ReadBytes(document->TempFileName());
    bool asked = false;
    listener.onTold = [&] {
      EXPECT_FALSE(document->Editing());
      EXPECT_EQ(ContentOf(*document), bytes) << row.word;
    };
    const EditResult result =
        document->Edit(row.make({400, 36000}, {300, 4, {22050, 8, 2}}), [&](std::uint64_t, std::uint64_t) {
          asked = true;
          EXPECT_TRUE(document->Editing()) << row.word;
          return false;
        });
    EXPECT_TRUE(asked) << row.word;
    EXPECT_FALSE(result.done) << row.word;
    EXPECT_EQ(result.message, "");
    EXPECT_EQ(ContentOf(*document), bytes) << row.word;
    EXPECT_FALSE(document->Changed());
    EXPECT_FALSE(document->CanUndo());
    EXPECT_FALSE(document->CanRedo());
    EXPECT_THAT(listener.told, ElementsAre(false)) << row.word << ": what was painted meanwhile stays";
    listener.onTold = {};
    EXPECT_EQ(test::ReadBytes(document->TempFileName()), copy);
  }
}

TEST_F(EffectsOnDocuments, TellTheWritingOfTheCopyTooWhichIsNotStopped) {
  for (const EffectRow& row : EffectTable()) {
    const auto document = Open(kStereo16, test::CountingBytes(3U << 20U));
    std::vector<double> told;
    std::size_t toldBefore = 0;
    const EditResult result = document->Edit(
        row.make({400, 3 << 20}, {300, 4, {22050, 8, 2}}),
        [&](std::uint64_t done, std::uint64_t total) {
          told.push_back(static_cast<double>(done) / static_cast<double>(total));
          return toldBefore == 0;
        },
        [&] { toldBefore = told.size(); });
    EXPECT_TRUE(result.done) << row.word;
    ASSERT_GT(toldBefore, 0U) << row.word;
    EXPECT_GT(told.size(), toldBefore) << row.word;
    EXPECT_LT(told.at(toldBefore - 1), 1.0) << row.word << ": the bar was full too early";
    EXPECT_TRUE(std::ranges::is_sorted(told)) << row.word;
    EXPECT_EQ(told.back(), 1.0) << row.word;
    ExpectCopyUpToDate(*document);
  }
}

}  // namespace
}  // namespace tembrel
