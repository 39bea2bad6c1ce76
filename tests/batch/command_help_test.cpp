// The usage of the commands, and the list of them all.
#include <gmock/gmock.h>

#include "batch/CommandList.h"
#include "tests/batch/BatchFixture.h"

namespace tembrel::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class CommandHelp : public BatchTest {};

std::string Usage(std::string_view name) {
  return UsageOf(*FindBatchCommand(name));
}

TEST_F(CommandHelp, UsageShowsWhatMayBeLeftOut) {
  EXPECT_EQ(Usage("cut"), "cut");
  EXPECT_EQ(Usage("filter"), "filter PRESET");
  EXPECT_EQ(Usage("scroll"), "scroll CODE [VALUE]");
  EXPECT_EQ(Usage("view"), "view [FIRST FRAMES]");
  EXPECT_EQ(Usage("echo"), "echo TEXT ...");
  EXPECT_EQ(Usage("paste"), "paste insert|merge|overwrite");
}

TEST_F(CommandHelp, ArgumentsThatGoTogetherAreRefusedOneByOne) {
  BatchCommand command{.name = "one-or-three",
                       .arguments = {{"A"}, {"B"}, {"C"}},
                       .needs = Needs::Nothing,
                       .run = [](BatchSession&, const Arguments&) { return kSucceeded; },
                       .optional = 2,
                       .allOrNone = true};
  EXPECT_EQ(UsageOf(command), "one-or-three A [B C]");
  std::ostringstream output;
  BatchSession session(PathsBelow(scratch / "program"), output, nullptr);
  const auto run = [&](std::vector<std::string> words) {
    return RunCommand(command, session, Arguments(std::move(words))).value_or("");
  };
  EXPECT_THAT(run({}), StartsWith("too few"));
  EXPECT_EQ(run({"a"}), "");
  EXPECT_EQ(run({"a", "b"}), "too few arguments: one-or-three A [B C]");
  EXPECT_EQ(run({"a", "b", "c"}), "");
  EXPECT_THAT(run({"a", "b", "c", "d"}), StartsWith("too many"));
  command.allOrNone = false;
  EXPECT_EQ(UsageOf(command), "one-or-three A [B] [C]");
  EXPECT_EQ(run({"a", "b"}), "");
}

TEST_F(CommandHelp, TheSummaryHasALineForEveryCommand) {
  const std::string summary = "\n" + CommandSummary();
  for (const BatchCommand& command : BatchCommands()) {
    EXPECT_THAT(summary, HasSubstr("\n  " + UsageOf(command) + "\n"));
  }
}

// A command stands under the later ones just when it says itself that it cannot be done.
TEST_F(CommandHelp, TheSummarySetsApartWhatThisVersionCannotDo) {
  const std::string summary = CommandSummary();
  const std::size_t heading = summary.find("cannot do yet:");
  ASSERT_NE(heading, std::string::npos);
  EXPECT_THAT(Reason({"plugins"}), HasSubstr("cannot do plugins yet"));
  EXPECT_GT(summary.find("\n  plugins\n"), heading);
  EXPECT_GT(summary.find("\n  pitch SEMITONES\n"), heading);
  EXPECT_LT(summary.find("\n  reverb\n"), heading);
  EXPECT_LT(summary.find("\n  note HZ\n"), heading);
}

}  // namespace
}  // namespace tembrel::test
