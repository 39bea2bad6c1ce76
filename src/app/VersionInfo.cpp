#include "app/VersionInfo.h"

#include <algorithm>
#include <array>

#include "app/ProductVersion.h"

namespace tembrel {

namespace {

constexpr std::array<std::string_view, kVersionKeys> kKeyNames{
    "CompanyName",      "FileDescription", "FileVersion",     "InternalName", "LegalCopyright",
    "OriginalFilename", "PrivateBuild",    "SpecialBuild",    "Comments",     "BuildDate",
    "ProductName",      "ProductVersion",  "LegalTrademarks",
};

CVersionInfo::Block OwnBlock() {
  return {
      {"CompanyName", "Veloran Software"},
      {"FileDescription", "Tembrel"},
      {"FileVersion", std::string(kProductVersion)},
      {"InternalName", "tembrel-qt"},
      {"LegalCopyright", "Copyright (c) 2026 The Tembrel developers"},
      {"OriginalFilename", "tembrel-qt"},
      {"PrivateBuild", ""},
      {"SpecialBuild", ""},
      {"Comments", "An editor for digital audio files"},
      {"BuildDate", std::string(kProductBuildDate)},
      {"ProductName", "Tembrel"},
      {"ProductVersion", std::string(kProductVersion)},
      {"LegalTrademarks", ""},
  };
}

}  // namespace

std::string_view VersionKeyName(std::size_t index) {
  return index < kKeyNames.size() ? kKeyNames[index] : std::string_view();
}

CVersionInfo::CVersionInfo() : block(OwnBlock()) {}

std::optional<std::string> CVersionInfo::Value(std::size_t index) const {
  if (index >= kKeyNames.size()) {
    return std::nullopt;
  }
  const auto entry = std::ranges::find(block, kKeyNames[index], &Block::value_type::first);
  return entry == block.end() ? std::nullopt : std::optional(entry->second);
}

}  // namespace tembrel
