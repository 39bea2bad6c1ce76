// The progress of long commands: lines apart from what commands print, none for quick ones, none when quiet.
#include <chrono>
#include <gmock/gmock.h>

#include "batch/BatchPrompts.h"
#include "tests/batch/BatchFixture.h"

namespace tembrel::test {
namespace {

using std::chrono::milliseconds;
using testing::HasSubstr;

class ProgressLines : public BatchTest {
 protected:
  // A session in which every look at the clock is a second later.
  std::string ProgressOf(const std::vector<std::string>& lines, bool quiet = false) {
    std::ostringstream output;
    std::ostringstream progress;
    milliseconds now{0};
    BatchSession session(PathsBelow(scratch / "program"), output, quiet ? nullptr : &progress,
                         [&now] { return now += milliseconds(1000); });
    EXPECT_EQ(ScriptRunner(session).RunCommands(lines), kSucceeded);
    printed = output.str();
    return progress.str();
  }
};

TEST(ProgressOfATask, IsALineForEveryTenthAfterHalfASecond) {
  std::ostringstream lines;
  milliseconds now{7};
  BatchPrompts prompts(&lines, [&now] { return now; });
  const std::unique_ptr<ProgressDisplay> display = prompts.ShowProgress("Filter");
  now += milliseconds(499);
  EXPECT_TRUE(display->Report(5, 10));
  EXPECT_EQ(lines.str(), "");
  now += milliseconds(1);
  EXPECT_TRUE(display->Report(55, 100));
  EXPECT_EQ(lines.str(), "Filter: 50 %\n");
  EXPECT_TRUE(display->Report(59, 100));
  EXPECT_TRUE(display->Report(80, 100));
  EXPECT_TRUE(display->Report(0, 0));
  EXPECT_EQ(lines.str(), "Filter: 50 %\nFilter: 80 %\nFilter: 100 %\n");
}

TEST(ProgressOfATask, OfNobodyIsNotTold) {
  BatchPrompts prompts(nullptr, [] { return milliseconds(0); });
  EXPECT_TRUE(prompts.ShowProgress("Filter")->Report(1, 2));
}

TEST_F(ProgressLines, StandApartFromWhatCommandsPrint) {
  const std::vector<std::string> script{"open " + MakeWave("a.wav", 20000), "select all", "filter 4",
                                        "echo done"};
  EXPECT_THAT(ProgressOf(script), HasSubstr("Filter: 100 %\n"));
  EXPECT_THAT(ProgressOf(script), HasSubstr("Opening a.wav: "));
  EXPECT_EQ(printed, "done\n");
}

TEST_F(ProgressLines, AreNotWrittenWhenQuiet) {
  EXPECT_EQ(ProgressOf({"open " + MakeWave("a.wav", 20000), "select all", "filter 4", "echo done"}, true),
            "");
  EXPECT_EQ(printed, "done\n");
}

}  // namespace
}  // namespace tembrel::test
