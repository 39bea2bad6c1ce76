// Every effect by its word, on the selection, as the effect table makes it.
#include <gmock/gmock.h>

#include "batch/CommandList.h"
#include "edit/EffectTable.h"
#include "tests/batch/BatchFixture.h"

namespace tembrel::test {
namespace {

using testing::HasSubstr;

class BatchEffects : public BatchTest {
 protected:
  // The bytes of "a.wav" after the lines.
  Bytes SoundAfter(std::vector<std::string> lines) {
    lines.insert(lines.begin(), "open " + Quoted("a.wav"));
    lines.push_back("save-as " + Quoted("out.wav"));
    EXPECT_EQ(Run(lines), kSucceeded);
    const Bytes file = ReadBytes(scratch / "out.wav");
    return {file.begin() + 44, file.end()};
  }
};

TEST_F(BatchEffects, EveryRowOfTheEffectTableIsACommand) {
  for (const EffectRow& row : EffectTable()) {
    EXPECT_NE(FindBatchCommand(row.word), nullptr) << row.word;
  }
  for (const char* word : {"amplify", "silence", "fade-in", "fade-out", "normalize", "compress", "reverb",
                           "filter", "clean-spectrum", "cut-rumble", "format"}) {
    EXPECT_NE(FindEffect(word), nullptr) << word;
  }
}

TEST_F(BatchEffects, ChangeTheSelectionAndUseItUp) {
  WriteBytes(scratch / "a.wav", WaveFile(44100, 16, 1, Samples16({100, 200, 300, 400, 500})));
  EXPECT_EQ(SoundAfter({"select 1 3", "amplify 200"}), Samples16({100, 400, 600, 400, 500}));
  EXPECT_EQ(SoundAfter({"select 1 3", "silence", "select last", "silence", "undo", "undo"}),
            Samples16({100, 200, 300, 400, 500}));
  EXPECT_THAT(Reason({"open " + Quoted("a.wav"), "select all", "silence", "silence"}),
              HasSubstr("needs a selection"));
  Printed({"open " + Quoted("a.wav"), "select all", "fade-in", "info"});
  EXPECT_EQ(Value("changed") + Value("can-undo") + Value("selection"), "11none");
}

TEST_F(BatchEffects, AmplifyTakesZeroToAThousandPercent) {
  const std::string open = "open " + MakeWave("a.wav");
  for (const char* percent : {"-1", "1001", "65636", "ten", "1e2", "50.5"}) {
    EXPECT_EQ(
        Reason({open, "select all", std::string("amplify ") + percent}),
        std::string("s:3: amplify: PERCENT must be a whole number from 0 to 1000, not \"") + percent + "\"");
  }
  Printed({open, "select all", "amplify 0", "select all", "amplify 1000"});
}

TEST_F(BatchEffects, FilterTakesAPresetByNumberOrName) {
  MakeWave("a.wav", 20000);
  const Bytes byNumber = SoundAfter({"select all", "filter 4"});
  EXPECT_EQ(SoundAfter({"select all", "filter \"Lift Bass\""}), byNumber);
  EXPECT_NE(SoundAfter({"select all", "filter 5"}), byNumber);
  for (const char* preset : {"10", "-1", "\"lift bass\"", "Bass", "\"\"", "4x"}) {
    EXPECT_THAT(Reason({"open " + Quoted("a.wav"), "select all", std::string("filter ") + preset}),
                HasSubstr("there is no preset"))
        << preset;
  }
}

TEST_F(BatchEffects, FormatConvertsTheWholeDocumentAndNeedsNoSelection) {
  WriteBytes(scratch / "a.wav", WaveFile(44100, 16, 2, CountingBytes(4000)));
  Printed({"open " + Quoted("a.wav"), "format 22050 16 1", "info"});
  EXPECT_EQ(Value("rate") + " " + Value("bits") + " " + Value("channels") + " " + Value("frames") + " " +
                Value("bytes") + " " + Value("changed"),
            "22050 16 1 500 1000 1");
  const Bytes file = [this] {
    Printed({"open " + Quoted("a.wav"), "format 44100 8 2", "save-as " + Quoted("out.wav")});
    return ReadBytes(scratch / "out.wav");
  }();
  EXPECT_EQ(file.size(), 44U + 2000U);
  EXPECT_THAT(Reason({"open " + Quoted("a.wav"), "format 44100 12 2"}), HasSubstr("one of 8|16 is expected"));
  EXPECT_THAT(Reason({"open " + Quoted("a.wav"), "format 44100 16 3"}), HasSubstr("one of 1|2 is expected"));
  EXPECT_THAT(Reason({"open " + Quoted("a.wav"), "format 0 16 2"}), HasSubstr("RATE must be a whole number"));
}

}  // namespace
}  // namespace tembrel::test
