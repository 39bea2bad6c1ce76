#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "batch/ScriptLine.h"

namespace tembrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Words(std::string_view line) {
  const ScriptLine split = SplitLine(line);
  EXPECT_EQ(split.mistake, "") << line;
  return split.words;
}

TEST(ScriptLine, BlanksSeparateWords) {
  EXPECT_THAT(Words("select 0 100"), ElementsAre("select", "0", "100"));
  EXPECT_THAT(Words(" \tselect\t 0  100 \r"), ElementsAre("select", "0", "100"));
}

TEST(ScriptLine, EmptyLinesAndCommentsSayNothing) {
  for (const char* line : {"", "   ", "\t", "\r", "# a comment", "  # \"not closed", "#"}) {
    EXPECT_THAT(Words(line), IsEmpty()) << line;
  }
}

TEST(ScriptLine, ACommentBeginsWithAWordAndNotInsideOne) {
  EXPECT_THAT(Words("cut # the intro"), ElementsAre("cut"));
  EXPECT_THAT(Words("open take#2.wav #3"), ElementsAre("open", "take#2.wav"));
  EXPECT_THAT(Words("echo \"# 1\""), ElementsAre("echo", "# 1"));
}

TEST(ScriptLine, QuotesGroupAlsoInsideAWord) {
  EXPECT_THAT(Words("open \"my song.wav\""), ElementsAre("open", "my song.wav"));
  EXPECT_THAT(Words("open /music/\"my song\".wav"), ElementsAre("open", "/music/my song.wav"));
  EXPECT_THAT(Words("echo \"\" \"  \""), ElementsAre("echo", "", "  "));
  EXPECT_THAT(Words("\"echo\"\"x\""), ElementsAre("echox"));
}

TEST(ScriptLine, BackslashesStandForQuotesAndBackslashesInsideQuotesOnly) {
  EXPECT_THAT(Words(R"(echo "a \"b\" c")"), ElementsAre("echo", R"(a "b" c)"));
  EXPECT_THAT(Words(R"(echo "a\\")"), ElementsAre("echo", R"(a\)"));
  EXPECT_THAT(Words(R"(echo "a\nb")"), ElementsAre("echo", R"(a\nb)"));
  EXPECT_THAT(Words(R"(echo a\b)"), ElementsAre("echo", R"(a\b)"));
}

TEST(ScriptLine, OtherLettersAreKeptByteByByte) {
  EXPECT_THAT(Words("open Größe.wav \"日本 語.wav\""), ElementsAre("open", "Größe.wav", "日本 語.wav"));
  EXPECT_THAT(Words("open \xFF\xFE.wav"), ElementsAre("open", "\xFF\xFE.wav"));
  EXPECT_THAT(Words("open -x.wav"), ElementsAre("open", "-x.wav"));
}

TEST(ScriptLine, AQuoteThatIsNotClosedIsAMistake) {
  for (const char* line : {"open \"song.wav", "\"", R"(echo "a\")", R"(echo "a" "b)"}) {
    EXPECT_EQ(SplitLine(line).mistake, "a quote is not closed") << line;
  }
}

}  // namespace
}  // namespace tembrel
