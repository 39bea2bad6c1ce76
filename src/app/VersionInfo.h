// What the program says about itself: name, version, maker. The About dialog reads it by index.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tembrel {

// The keys of a version block. A key's index is its place here.
enum class VersionKey : std::size_t {
  CompanyName,
  FileDescription,
  FileVersion,
  InternalName,
  LegalCopyright,
  OriginalFilename,
  PrivateBuild,
  SpecialBuild,
  Comments,
  BuildDate,
  ProductName,
  ProductVersion,
  LegalTrademarks,
};
inline constexpr std::size_t kVersionKeys = 13;

// "CompanyName", …; "" for an index beyond the list.
std::string_view VersionKeyName(std::size_t index);

class CVersionInfo {
 public:
  // Pairs of key name and value. A block need not hold every key.
  using Block = std::vector<std::pair<std::string, std::string>>;

  // The program's own block.
  CVersionInfo();
  explicit CVersionInfo(Block values) : block(std::move(values)) {}

  // The value by index, which may be empty; nothing when the block lacks the key or the index is beyond the
  // list.
  std::optional<std::string> Value(std::size_t index) const;
  std::optional<std::string> Value(VersionKey key) const { return Value(static_cast<std::size_t>(key)); }

 private:
  Block block;
};

}  // namespace tembrel
