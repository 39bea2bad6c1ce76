#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "batch/BatchOptions.h"

namespace tembrel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Task = BatchOptions::Task;

BatchOptions Read(const std::vector<std::string>& arguments) {
  return ReadOptions(arguments);
}

TEST(BatchOptions, OneWordIsTheScript) {
  const BatchOptions options = Read({"cut.txt"});
  EXPECT_EQ(options.task, Task::RunScript);
  EXPECT_EQ(options.script, "cut.txt");
  EXPECT_EQ(options.mistake, "");
  EXPECT_FALSE(options.quiet);
  EXPECT_FALSE(options.programFolder);
  EXPECT_EQ(Read({"-"}).script, "-");
  EXPECT_EQ(Read({"--", "-q"}).script, "-q");
}

TEST(BatchOptions, TakesFolderAndQuietInAnyOrder) {
  for (const auto& options : {Read({"-p", "/x y", "-q", "s"}), Read({"s", "-q", "-p", "/x y"})}) {
    EXPECT_EQ(options.script, "s");
    EXPECT_EQ(options.programFolder, "/x y");
    EXPECT_TRUE(options.quiet);
    EXPECT_EQ(options.mistake, "");
  }
}

TEST(BatchOptions, CommandsFollowEveryE) {
  EXPECT_THAT(Read({"-e", "open a", "-e", "info"}).commands, ElementsAre("open a", "info"));
  EXPECT_THAT(Read({"-e", "open a", "info", "-q", "close"}).commands, ElementsAre("open a", "info", "close"));
  EXPECT_THAT(Read({"-q", "-e", "-odd"}).commands, ElementsAre("-odd"));
  EXPECT_EQ(Read({"-e", "info"}).task, Task::RunCommands);
}

TEST(BatchOptions, HelpAndVersionAnswerAtOnce) {
  EXPECT_EQ(Read({"-h"}).task, Task::ShowHelp);
  EXPECT_EQ(Read({"--help", "--nonsense"}).task, Task::ShowHelp);
  EXPECT_EQ(Read({"-q", "--version"}).task, Task::ShowVersion);
  EXPECT_EQ(Read({"-h"}).mistake, "");
}

TEST(BatchOptions, WrongUsageIsNamed) {
  EXPECT_THAT(Read({}).mistake, HasSubstr("no script"));
  EXPECT_THAT(Read({"-q"}).mistake, HasSubstr("no script"));
  EXPECT_THAT(Read({"-x", "s"}).mistake, HasSubstr("-x"));
  EXPECT_THAT(Read({"--verbose", "s"}).mistake, HasSubstr("--verbose"));
  EXPECT_THAT(Read({"a", "b"}).mistake, HasSubstr("more than one script"));
  EXPECT_THAT(Read({"a", "-e", "info"}).mistake, HasSubstr("a script and commands"));
  EXPECT_THAT(Read({"-e"}).mistake, HasSubstr("-e needs"));
  EXPECT_THAT(Read({"s", "-p"}).mistake, HasSubstr("-p needs"));
}

}  // namespace
}  // namespace tembrel
