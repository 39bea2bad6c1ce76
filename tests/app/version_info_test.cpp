#include <gmock/gmock.h>
#include <string>
#include <vector>

#include "app/AboutText.h"
#include "app/ProductInfo.h"
#include "app/VersionInfo.h"

namespace tembrel {
namespace {

TEST(VersionInfo, KeysStandInTheirOrder) {
  std::vector<std::string> keys;
  for (std::size_t index = 0; index < kVersionKeys; ++index) {
    keys.emplace_back(VersionKeyName(index));
  }
  EXPECT_THAT(keys, testing::ElementsAre("CompanyName", "FileDescription", "FileVersion", "InternalName",
                                         "LegalCopyright", "OriginalFilename", "PrivateBuild", "SpecialBuild",
                                         "Comments", "BuildDate", "ProductName", "ProductVersion",
                                         "LegalTrademarks"));
  EXPECT_EQ(VersionKeyName(kVersionKeys), "");
}

TEST(VersionInfo, AnswersTheValueOfTheKeyAtAnIndex) {
  CVersionInfo::Block block;
  for (std::size_t index = kVersionKeys; index-- > 0;) {
    block.emplace_back(VersionKeyName(index), std::string("value ").append(std::to_string(index)));
  }
  const CVersionInfo version(block);
  for (std::size_t index = 0; index < kVersionKeys; ++index) {
    EXPECT_EQ(version.Value(index), std::string("value ").append(std::to_string(index)));
  }
}

TEST(VersionInfo, AnEmptyBlockAnswersNothing) {
  const CVersionInfo version(CVersionInfo::Block{});
  for (std::size_t index = 0; index <= kVersionKeys; ++index) {
    EXPECT_EQ(version.Value(index), std::nullopt) << index;
  }
}

TEST(VersionInfo, AnIndexBeyondTheListAnswersNothing) {
  EXPECT_EQ(CVersionInfo().Value(kVersionKeys), std::nullopt);
  EXPECT_EQ(CVersionInfo().Value(static_cast<std::size_t>(-1)), std::nullopt);
}

TEST(VersionInfo, TheProgramKnowsItself) {
  const CVersionInfo version;
  EXPECT_EQ(version.Value(VersionKey::CompanyName), "Veloran Software");
  EXPECT_EQ(version.Value(VersionKey::FileDescription), "Tembrel");
  EXPECT_EQ(version.Value(VersionKey::InternalName), "tembrel-qt");
  EXPECT_EQ(version.Value(VersionKey::OriginalFilename), "tembrel-qt");
  EXPECT_EQ(version.Value(VersionKey::ProductName), "Tembrel");
  EXPECT_EQ(version.Value(VersionKey::LegalCopyright), "Copyright (c) 2026 The Tembrel developers");
  EXPECT_EQ(version.Value(VersionKey::FileVersion), version.Value(VersionKey::ProductVersion));
  EXPECT_THAT(version.Value(VersionKey::FileVersion).value_or(""),
              testing::MatchesRegex("[0-9]+\\.[0-9]+\\.[0-9]+"));
  EXPECT_THAT(version.Value(VersionKey::BuildDate).value_or(""),
              testing::MatchesRegex("[0-9]{4}-[0-9]{2}-[0-9]{2}"));
}

TEST(AboutFields, ShowTheirVersionValues) {
  CVersionInfo::Block block;
  for (std::size_t index = 0; index < kVersionKeys; ++index) {
    block.emplace_back(VersionKeyName(index), std::string("#").append(std::to_string(index)));
  }
  EXPECT_THAT(AboutFields(CVersionInfo(block)),
              testing::ElementsAre(AboutField{24577, "#1"}, AboutField{24580, "#4"}, AboutField{24579, "#9"},
                                   AboutField{24581, "#8"}, AboutField{24583, "#6"}, AboutField{24582, "#7"},
                                   AboutField{24598, "#12"}, AboutField{24578, "Version  #2"}));
}

TEST(AboutFields, StayEmptyWithoutAVersionBlock) {
  for (const AboutField& field : AboutFields(CVersionInfo(CVersionInfo::Block{}))) {
    EXPECT_EQ(field.text, field.controlId == 24578 ? "Version " : "") << field.controlId;
  }
}

TEST(ProductInfo, TheWebsiteIsAWebAddress) {
  EXPECT_TRUE(kWebsite.starts_with("https://")) << kWebsite;
}

}  // namespace
}  // namespace tembrel
