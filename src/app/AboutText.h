// What the About dialog writes into its fields.
#pragma once

#include <string>
#include <vector>

#include "app/VersionInfo.h"

namespace tembrel {

inline constexpr int kAboutDialogResource = 24576;

inline constexpr int kAboutApplicationName = 24577;
inline constexpr int kAboutVersion = 24578;
inline constexpr int kAboutBuildDate = 24579;
inline constexpr int kAboutCopyright = 24580;
inline constexpr int kAboutComments = 24581;
inline constexpr int kAboutSpecialBuild = 24582;
inline constexpr int kAboutPrivateBuild = 24583;
inline constexpr int kAboutTrademarks = 24598;

struct AboutField {
  int controlId;
  std::string text;

  bool operator==(const AboutField&) const = default;
};

// The static fields and their texts, in the order in which they are filled. A value that the version block
// lacks leaves its field empty, and the version field with its own text alone.
std::vector<AboutField> AboutFields(const CVersionInfo& version);

}  // namespace tembrel
