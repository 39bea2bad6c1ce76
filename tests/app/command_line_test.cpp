#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "app/CommandLine.h"

namespace tembrel {
namespace {

using Arguments = std::vector<std::string>;

std::string StartUp(const Arguments& arguments, const Arguments& files = {}) {
  return StartUpFileName(
      arguments, [&files](const std::string& name) { return std::ranges::find(files, name) != files.end(); });
}

TEST(FileNameOnCommandLine, AnEmptyLineNamesNothing) {
  EXPECT_EQ(FileNameOnCommandLine(""), "");
}

TEST(FileNameOnCommandLine, AQuotedNameEndsAtTheSecondQuoteWhateverFollows) {
  EXPECT_EQ(FileNameOnCommandLine("\"/music/my song.wav\""), "/music/my song.wav");
  EXPECT_EQ(FileNameOnCommandLine("\"/music/my song.wav\" further words"), "/music/my song.wav");
  EXPECT_EQ(FileNameOnCommandLine("\"a.wav\"b.wav\""), "a.wav");
}

TEST(FileNameOnCommandLine, AMissingClosingQuoteTakesTheRest) {
  EXPECT_EQ(FileNameOnCommandLine("\"my song.wav more"), "my song.wav more");
  EXPECT_EQ(FileNameOnCommandLine("\""), "");
  EXPECT_EQ(FileNameOnCommandLine("\"\""), "");
}

TEST(FileNameOnCommandLine, ALineWithoutALeadingQuoteIsOneNameBlanksIncluded) {
  EXPECT_EQ(FileNameOnCommandLine("my song.wav"), "my song.wav");
  EXPECT_EQ(FileNameOnCommandLine(" \"song.wav\" "), " \"song.wav\" ");
  EXPECT_EQ(FileNameOnCommandLine("a \"b\" c.wav"), "a \"b\" c.wav");
}

TEST(JoinArguments, StandABlankApartAndQuoteWhatWasQuoted) {
  EXPECT_EQ(JoinArguments(Arguments{}), "");
  EXPECT_EQ(JoinArguments(Arguments{"song.wav"}), "song.wav");
  EXPECT_EQ(JoinArguments(Arguments{"my", "song.wav"}), "my song.wav");
  EXPECT_EQ(JoinArguments(Arguments{"my song.wav", "extra"}), "\"my song.wav\" extra");
  EXPECT_EQ(JoinArguments(Arguments{"a", "", "b\tc"}), "a \"\" \"b\tc\"");
}

TEST(StartUpFileName, NoArgumentsNameNothing) {
  EXPECT_EQ(StartUp({}), "");
  EXPECT_EQ(StartUp({""}), "");
}

TEST(StartUpFileName, AQuotedPathWithFurtherWordsIsJustTheQuotedPath) {
  EXPECT_EQ(StartUp({"my song.wav", "extra"}), "my song.wav");
  EXPECT_EQ(StartUp({"my song.wav", "second song.wav"}), "my song.wav");
}

TEST(StartUpFileName, UnquotedWordsAreOnePathWithBlanks) {
  EXPECT_EQ(StartUp({"my", "song.wav"}), "my song.wav");
  EXPECT_EQ(StartUp({"/music/one", "more", "song.wav"}), "/music/one more song.wav");
}

TEST(StartUpFileName, ASingleArgumentIsTakenAsItIs) {
  EXPECT_EQ(StartUp({"song.wav"}), "song.wav");
  EXPECT_EQ(StartUp({"my song.wav"}), "my song.wav");
  EXPECT_EQ(StartUp({" lead and trail "}), " lead and trail ");
  EXPECT_EQ(StartUp({"the \"best\" of.wav"}), "the \"best\" of.wav");
}

TEST(StartUpFileName, ASingleArgumentWithALeadingQuoteIsAFileOfThatNameOrAQuotedPath) {
  EXPECT_EQ(StartUp({"\"Heroes\".wav"}, {"\"Heroes\".wav"}), "\"Heroes\".wav");
  EXPECT_EQ(StartUp({"\"my song.wav\" extra"}), "my song.wav");
  EXPECT_EQ(StartUp({"\"my song.wav"}), "my song.wav");
}

TEST(StartUpFileName, AFirstArgumentWithBlanksAndQuotesIsNotCutAtItsQuote) {
  EXPECT_EQ(StartUp({"the \"best\" of.wav", "extra"}), "the \"best\" of.wav");
}

TEST(StartUpFileName, SeveralArgumentsWithALeadingQuoteGoByTheRule) {
  EXPECT_EQ(StartUp({"\"my", "song.wav\"", "extra"}), "my song.wav");
  EXPECT_EQ(StartUp({"\"my", "song.wav"}), "my song.wav");
}

TEST(FullPath, IsSeenFromTheStartFolder) {
  EXPECT_EQ(FullPath("song.wav", "/music"), "/music/song.wav");
  EXPECT_EQ(FullPath("loud/song.wav", "/music/"), "/music/loud/song.wav");
  EXPECT_EQ(FullPath("/else/song.wav", "/music"), "/else/song.wav");
}

TEST(FullPath, NothingStaysNothing) {
  EXPECT_TRUE(FullPath("", "/music").empty());
}

TEST(FullPath, DropsTheFolderItselfAndKeepsTheFolderAbove) {
  EXPECT_EQ(FullPath("./song.wav", "/music").string(), "/music/song.wav");
  EXPECT_EQ(FullPath("../song.wav", "/music").string(), "/music/../song.wav");
  EXPECT_EQ(FullPath("/a/./b/../song.wav", "/music").string(), "/a/b/../song.wav");
}

TEST(FullPath, KeepsEveryByteOfTheName) {
  EXPECT_EQ(FullPath("-\xff \"&\n.wav", "/m").string(), "/m/-\xff \"&\n.wav");
}

}  // namespace
}  // namespace tembrel
