// The table of effects, and what all effects have in common.
#include <gtest/gtest.h>
#include <set>

#include "edit/EffectTable.h"
#include "edit/FilteredSound.h"
#include "tests/support/EffectSession.h"

namespace tembrel {
namespace {

using test::Bytes;
using test::EffectSession;

const WaveFormat kStereo16 = PcmFormat(44100, 16, 2);
const EffectParameters kParameters{200, 4, {22050, 16, 2}};

TEST(EffectTable, HasACommandAWordAndAParameterForEveryEffect) {
  struct Expected {
    int id;
    std::string_view word;
    std::string_view text;
    EffectParameter parameter;
  };
  const std::vector<Expected> expected{{8262, "amplify", "&Amplify...", EffectParameter::Percent},
                                       {8268, "silence", "Si&lence", EffectParameter::None},
                                       {8264, "fade-in", "Fade &In", EffectParameter::None},
                                       {8266, "fade-out", "Fade &Out", EffectParameter::None},
                                       {8267, "normalize", "&Normalize", EffectParameter::None},
                                       {8261, "compress", "&Compress", EffectParameter::None},
                                       {8263, "reverb", "&Reverb", EffectParameter::None},
                                       {8269, "filter", "&Filter...", EffectParameter::FilterPreset},
                                       {8270, "clean-spectrum", "", EffectParameter::None},
                                       {8272, "cut-rumble", "", EffectParameter::None},
                                       {704, "format", "", EffectParameter::Format}};
  ASSERT_EQ(EffectTable().size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const EffectRow& row = EffectTable()[i];
    EXPECT_EQ(row.commandId, expected[i].id);
    EXPECT_EQ(row.word, expected[i].word);
    EXPECT_EQ(row.menuText, expected[i].text);
    EXPECT_EQ(row.parameter, expected[i].parameter);
    EXPECT_EQ(FindEffect(row.commandId), &row);
    EXPECT_EQ(FindEffect(row.word), &row);
  }
}

TEST(EffectTable, KnowsNoOtherCommands) {
  EXPECT_EQ(FindEffect(8258), nullptr);
  EXPECT_EQ(FindEffect(8260), nullptr);
  EXPECT_EQ(FindEffect("play"), nullptr);
}

// A test of this file's own for every row, so that no row escapes: it must do something to noise.
TEST(Effects, AllChangeTheSoundAndAreUndone) {
  test::Dice dice(31);
  const Bytes bytes = test::SoundBytes(kStereo16, 12000, test::Sound::Tone, dice);
  for (const EffectRow& row : EffectTable()) {
    EffectSession session(kStereo16, bytes);
    ASSERT_TRUE(session.Run(row.make({400, 44000}, kParameters)).done) << row.word;
    const Bytes after = session.Content();
    EXPECT_NE(after, bytes) << row.word;
    if (row.parameter != EffectParameter::Format) {
      EXPECT_TRUE(std::equal(after.begin(), after.begin() + 400, bytes.begin())) << row.word;
      EXPECT_TRUE(std::equal(after.begin() + 44000, after.end(), bytes.begin() + 44000)) << row.word;
    }
    ASSERT_TRUE(session.Undo());
    EXPECT_EQ(session.Content(), bytes) << row.word;
    EXPECT_EQ(session.clip.format, kStereo16);
  }
}

TEST(Effects, OverNothingAreStepsThatChangeNothing) {
  const Bytes bytes = test::CountingBytes(64);
  for (const EffectRow& row : EffectTable()) {
    for (const ByteRange range : {ByteRange{8, 8}, ByteRange{20, 4}, ByteRange{64, 90}, ByteRange{-9, 0}}) {
      EffectSession session(kStereo16, bytes);
      const EditStep step = row.make(range, {100, 0, {44100, 16, 2}});
      EXPECT_TRUE(step.marksChanged);
      ASSERT_TRUE(session.Run(step).done) << row.word;
      EXPECT_EQ(session.Content(), bytes) << row.word;
      EXPECT_TRUE(session.undo.CanUndo());
    }
  }
}

TEST(Effects, TakeSelectionsBeyondTheClipAsFarAsItGoes) {
  const Bytes bytes = test::CountingBytes(6001);
  for (const WaveFormat& format : test::kLayouts) {
    for (const EffectRow& row : EffectTable()) {
      EffectSession wide(format, bytes);
      EffectSession exact(format, bytes);
      ASSERT_TRUE(wide.Run(row.make({-100, std::int64_t{1} << 40U}, kParameters)).done) << row.word;
      ASSERT_TRUE(exact.Run(row.make({0, 6001}, kParameters)).done) << row.word;
      EXPECT_EQ(wide.Content(), exact.Content()) << row.word;
    }
  }
}

// With the n-th request for memory refused every effect works, or says why not and leaves all as it was.
TEST(Effects, LeaveTheClipWhenThereIsNoMemory) {
  test::Dice dice(32);
  const Bytes bytes = test::SoundBytes(kStereo16, 30000, test::Sound::Noise, dice);
  std::set<std::string_view> refused;
  for (const EffectRow& row : EffectTable()) {
    for (int number = 1; number <= 14; ++number) {
      EffectSession session(kStereo16, bytes);
      test::ScarceMemory scarce;
      session.memory = scarce.Memory();
      scarce.refuse = [&](std::size_t) { return scarce.asked == number; };
      const EditResult result = session.Run(row.make({0, 120000}, kParameters));
      if (!result.done) {
        refused.insert(row.word);
        EXPECT_NE(result.message, "");
        EXPECT_EQ(session.Content(), bytes) << row.word;
        EXPECT_FALSE(session.undo.CanUndo());
      }
    }
  }
  EXPECT_EQ(refused, (std::set<std::string_view>{"normalize", "reverb", "filter", "clean-spectrum",
                                                 "cut-rumble", "format"}));
}

// Two steps before, the second undone: what can be redone must survive, too.
struct Prepared {
  EffectSession session;
  Bytes before;

  explicit Prepared(const Bytes& bytes) : session(kStereo16, bytes) {
    session.Run(FindEffect("compress")->make({0, 4000}, {}));
    session.Run(FindEffect("silence")->make({4000, 8000}, {}));
    session.Undo();
    before = session.Content();
  }

  void ExpectUntouched(const std::string& what) {
    EXPECT_EQ(session.Content(), before) << what;
    EXPECT_EQ(session.clip.format, kStereo16) << what;
    EXPECT_EQ(session.undo.CurrentIndex(), 0) << what;
    EXPECT_EQ(session.undo.TopIndex(), 1) << what;
    ClipEditor editor(session.clip, session.undo, session.memory);
    ASSERT_TRUE(session.undo.Redo(editor));
    EXPECT_EQ(session.Content()[4000], std::byte{0}) << what;
    EXPECT_EQ(session.Content()[7999], std::byte{0}) << what;
    ASSERT_TRUE(session.Undo());
    ASSERT_TRUE(session.Undo());
    EXPECT_FALSE(session.undo.CanUndo());
  }
};

// Cancelled the first time they ask, in the middle, or at the very end.
TEST(Effects, CancelledLeaveClipAndHistoryAsTheyWere) {
  test::Dice dice(33);
  const Bytes bytes = test::SoundBytes(kStereo16, 2 * kFilteredAPart + 100, test::Sound::Noise, dice);
  const auto size = static_cast<std::int64_t>(bytes.size());
  for (const EffectRow& row : EffectTable()) {
    int calls = 0;
    std::uint64_t last = 0;
    {
      EffectSession counted(kStereo16, bytes);
      counted.progress = [&](std::uint64_t done, std::uint64_t total) {
        ++calls;
        EXPECT_LE(last, done) << row.word;
        EXPECT_LE(done, total) << row.word;
        last = done == total ? 0 : done;
        return true;
      };
      ASSERT_TRUE(counted.Run(row.make({0, size}, kParameters)).done);
      EXPECT_EQ(last, 0U) << row.word << " did not come to its end";
    }
    ASSERT_GE(calls, 1) << row.word;
    for (const int cancelled : {1, (calls + 1) / 2, calls}) {
      Prepared prepared(bytes);
      int call = 0;
      prepared.session.progress = [&](std::uint64_t, std::uint64_t) { return ++call < cancelled; };
      const EditResult result = prepared.session.Run(row.make({0, size}, kParameters));
      if (call < cancelled) {
        continue;  // the threads shared the work out in fewer parts this time
      }
      EXPECT_FALSE(result.done) << row.word;
      EXPECT_EQ(result.message, "") << row.word;
      prepared.ExpectUntouched(std::string(row.word));
    }
  }
}

// Without the memory to take the change back, it is finished.
TEST(Effects, CannotBeCancelledOnceTheirUndoIsGone) {
  const Bytes bytes = test::CountingBytes(4000);
  EffectSession session(kStereo16, bytes);
  test::ScarceMemory scarce;
  session.memory = scarce.Memory();
  scarce.refuse = [](std::size_t) { return true; };
  session.progress = [](std::uint64_t, std::uint64_t) { return false; };
  ASSERT_TRUE(session.Run(FindEffect("silence")->make({0, 4000}, {})).done);
  EXPECT_EQ(session.Content(), Bytes(4000));
}

}  // namespace
}  // namespace tembrel
