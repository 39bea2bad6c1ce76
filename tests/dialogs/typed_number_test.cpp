#include <gtest/gtest.h>

#include "dialogs/TypedNumber.h"

namespace tembrel {
namespace {

TEST(ReadUnsigned, TakesDigitsWithBlanksAroundThem) {
  EXPECT_EQ(ReadUnsigned("12"), 12U);
  EXPECT_EQ(ReadUnsigned(" \t12 "), 12U);
  EXPECT_EQ(ReadUnsigned("007"), 7U);
  EXPECT_EQ(ReadUnsigned("0"), 0U);
  EXPECT_EQ(ReadUnsigned("4294967295"), 4294967295U);
}

TEST(ReadUnsigned, RefusesEverythingElse) {
  for (const char* text : {"", " ", "+1", "-1", "1 2", "1.5", "1,5", "0x10", "1e3", "4294967296", "a", "12a",
                           "99999999999999999999"}) {
    EXPECT_EQ(ReadUnsigned(text), std::nullopt) << text;
  }
}

TEST(ReadDecimal, ReadsTheNumberThatTheTextBeginsWith) {
  EXPECT_EQ(ReadDecimal("1.5"), 1.5);
  EXPECT_EQ(ReadDecimal("  -2.25 %"), -2.25);
  EXPECT_EQ(ReadDecimal("+3"), 3.0);
  EXPECT_EQ(ReadDecimal(".5"), 0.5);
  EXPECT_EQ(ReadDecimal("7."), 7.0);
  EXPECT_EQ(ReadDecimal("1,5"), 1.0);
  EXPECT_EQ(ReadDecimal("2e3"), 2000.0);
  EXPECT_EQ(ReadDecimal("1e"), 1.0);
}

TEST(ReadDecimal, IsZeroWhileThereIsNoNumberYet) {
  for (const char* text : {"", " ", "-", "+", ".", "-.", "--5", "+-5", "abc", "inf", "nan"}) {
    EXPECT_EQ(ReadDecimal(text), 0.0) << text;
  }
}

TEST(ReadDecimal, LooksAtTenCharactersBlanksIncluded) {
  EXPECT_EQ(ReadDecimal("12345678901"), 1234567890.0);
  EXPECT_EQ(ReadDecimal("         12"), 1.0);
  EXPECT_EQ(ReadDecimal("          12"), 0.0);
}

TEST(ReadDecimal, RefusesWhatADoubleCannotHold) {
  EXPECT_EQ(ReadDecimal("1e400"), std::nullopt);
  EXPECT_EQ(ReadDecimal("-1e999"), std::nullopt);
}

}  // namespace
}  // namespace tembrel
