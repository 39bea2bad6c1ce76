// Errors stop a script, name their line and leave every file as it was.
#include <gmock/gmock.h>

#include "batch/CommandList.h"
#include "tests/batch/BatchFixture.h"

namespace tembrel::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class RunningScripts : public BatchTest {};

TEST_F(RunningScripts, PrintWhatTheCommandsPrintInOrder) {
  EXPECT_EQ(Printed({"echo one", "", "# nothing", "echo \"two  words\" \"\" more"}),
            "one\ntwo  words  more\n");
}

TEST_F(RunningScripts, AnErrorNamesTheLineAndStopsTheScript) {
  EXPECT_EQ(Reason({"echo one", "# comment", "bogus", "echo two"}), "s:3: unknown command \"bogus\"");
  EXPECT_EQ(printed, "one\n");
  EXPECT_EQ(Reason({"echo \"x"}), "s:1: a quote is not closed");
}

TEST_F(RunningScripts, AByteOrderMarkBeforeTheFirstLineIsNoPartOfIt) {
  EXPECT_EQ(Printed({"\xEF\xBB\xBF"
                     "echo one",
                     "echo two"}),
            "one\ntwo\n");
  EXPECT_EQ(Printed({"\xEF\xBB\xBF# a comment"}), "");
  EXPECT_NE(Reason({"echo one",
                    "\xEF\xBB\xBF"
                    "echo two"}),
            "");
}

TEST_F(RunningScripts, CommandsOfTheCommandLineAreCountedFromOne) {
  std::ostringstream output;
  BatchSession session(PathsBelow(scratch / "program"), output, nullptr);
  const std::vector<std::string> commands{"echo one", "bogus"};
  EXPECT_EQ(ScriptRunner(session).RunCommands(commands), Failure("-e 2: unknown command \"bogus\""));
  EXPECT_EQ(output.str(), "one\n");
}

TEST_F(RunningScripts, EveryCommandRefusesTooFewAndTooManyArguments) {
  for (const BatchCommand& command : BatchCommands()) {
    const std::string name(command.name);
    if (command.arguments.size() > command.optional) {
      EXPECT_EQ(Reason({name}), "s:1: too few arguments: " + UsageOf(command));
    }
    if (!command.takesMore) {
      std::string line = name;
      for (std::size_t i = 0; i <= command.arguments.size(); ++i) {
        line += " 1";
      }
      EXPECT_EQ(Reason({line}), "s:1: too many arguments: " + UsageOf(command));
    }
  }
}

TEST_F(RunningScripts, EveryCommandThatNeedsADocumentOrASelectionSaysSo) {
  const std::string open = "open " + MakeWave("a.wav");
  for (const BatchCommand& command : BatchCommands()) {
    std::string line(command.name);
    for (std::size_t i = 0; i + command.optional < command.arguments.size(); ++i) {
      const ArgumentRule& rule = command.arguments[i];
      line += " " + (rule.kind == ArgumentKind::Choice ? std::string(rule.name.substr(0, rule.name.find('|')))
                                                       : std::to_string(static_cast<int>(rule.least)));
    }
    if (command.needs != Needs::Nothing) {
      EXPECT_EQ(Reason({line}), "s:1: " + std::string(command.name) + " needs a document, and none is open");
    }
    if (command.needs == Needs::Selection) {
      EXPECT_EQ(Reason({open, line}),
                "s:2: " + std::string(command.name) + " needs a selection, and there is none");
    }
  }
}

TEST_F(RunningScripts, NumbersOutOfRangeAreRefusedWithTheRange) {
  const std::string open = "open " + MakeWave("a.wav");
  EXPECT_EQ(Reason({open, "size 0 10"}),
            "s:2: size: WIDTH must be a whole number from 1 to 32767, not \"0\"");
  EXPECT_EQ(Reason({open, "size 10 ten"}),
            "s:2: size: HEIGHT must be a whole number from 1 to 32767, not \"ten\"");
  EXPECT_THAT(Reason({open, "cursor 1.5"}), HasSubstr("FRAME must be a whole number"));
  EXPECT_THAT(Reason({open, "cursor 99999999999999999999"}), HasSubstr("FRAME must be a whole number"));
  EXPECT_THAT(Reason({open, "cursor \"\""}), HasSubstr("not \"\""));
  EXPECT_THAT(Reason({open, "view 0 0"}), HasSubstr("FRAMES must be a whole number from 1"));
  EXPECT_EQ(Reason({open, "zoom up"}), "s:2: zoom: one of in|out|all is expected, not \"up\"");
  EXPECT_EQ(Reason({open, "select all", "pitch 25"}),
            "s:3: pitch: SEMITONES must be a number from -24 to 24, not \"25\"");
  EXPECT_THAT(Reason({open, "activate 0"}), HasSubstr("N must be a whole number from 1"));
}

TEST_F(RunningScripts, WhatThisVersionCannotDoIsAnError) {
  const std::string open = "open " + MakeWave("a.wav");
  EXPECT_EQ(Reason({open, "select all", "pitch 1.5"}), "s:3: this version cannot do pitch yet");
  EXPECT_EQ(Reason({"plugins"}), "s:1: this version cannot do plugins yet");
}

TEST_F(RunningScripts, AFailedScriptLeavesEveryFileAsItWas) {
  const std::string path = MakeWave("a.wav");
  const Bytes before = ReadBytes(scratch / "a.wav");
  EXPECT_THAT(Reason({"open " + path, "select all", "cut", "bogus", "save"}), StartsWith("s:4:"));
  EXPECT_EQ(ReadBytes(scratch / "a.wav"), before);
  EXPECT_EQ(scratch.Names(), std::vector<std::string>{"a.wav"});
}

TEST_F(RunningScripts, ASaveBeforeTheErrorStays) {
  const std::string path = MakeWave("a.wav", 100);
  EXPECT_THAT(Reason({"open " + path, "select 0 90", "cut", "save", "bogus"}), StartsWith("s:5:"));
  EXPECT_EQ(ReadBytes(scratch / "a.wav").size(), 44U + 10U * 4U);
}

}  // namespace
}  // namespace tembrel::test
