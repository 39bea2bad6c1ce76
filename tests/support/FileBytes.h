// Whole files in and out of a test, by the standard library and not by the code under test.
#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tembrel::test {

inline std::string ReadText(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline void WriteText(const std::filesystem::path& path, std::string_view text) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
}

inline std::vector<std::byte> ReadBytes(const std::filesystem::path& path) {
  const std::string text = ReadText(path);
  const auto bytes = std::as_bytes(std::span(text));
  return {bytes.begin(), bytes.end()};
}

inline void WriteBytes(const std::filesystem::path& path, std::span<const std::byte> bytes) {
  WriteText(path, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

}  // namespace tembrel::test
