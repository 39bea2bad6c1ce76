#include "app/AboutText.h"

#include <array>

namespace tembrel {

namespace {

struct FieldSource {
  int controlId;
  VersionKey key;
};

constexpr std::array kSources{
    FieldSource{kAboutApplicationName, VersionKey::FileDescription},
    FieldSource{kAboutCopyright, VersionKey::LegalCopyright},
    FieldSource{kAboutBuildDate, VersionKey::BuildDate},
    FieldSource{kAboutComments, VersionKey::Comments},
    FieldSource{kAboutPrivateBuild, VersionKey::PrivateBuild},
    FieldSource{kAboutSpecialBuild, VersionKey::SpecialBuild},
    FieldSource{kAboutTrademarks, VersionKey::LegalTrademarks},
};

constexpr const char* kVersionFieldText = "Version ";

}  // namespace

std::vector<AboutField> AboutFields(const CVersionInfo& version) {
  std::vector<AboutField> fields;
  fields.reserve(kSources.size() + 1);
  for (const FieldSource& source : kSources) {
    fields.push_back({source.controlId, version.Value(source.key).value_or("")});
  }
  // The field's own text ends in a blank, and the version follows after one more.
  std::string text = kVersionFieldText;
  if (const auto fileVersion = version.Value(VersionKey::FileVersion)) {
    text += ' ' + *fileVersion;
  }
  fields.push_back({kAboutVersion, text});
  return fields;
}

}  // namespace tembrel
