// The bytes that RIFF readers and writers share: four-character codes and little-endian numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace tembrel {

// A four-character code as the number it is in a file: FourCc("RIFF").
constexpr std::uint32_t FourCc(const char (&text)[5]) {
  std::uint32_t code = 0;
  for (unsigned i = 0; i < 4; ++i) {
    code |= static_cast<std::uint32_t>(static_cast<unsigned char>(text[i])) << (8 * i);
  }
  return code;
}

// Little-endian numbers; `bytes` holds at least 2 or 4.
constexpr std::uint16_t LoadLe16(std::span<const std::byte> bytes) {
  return static_cast<std::uint16_t>(std::to_integer<unsigned>(bytes[0]) | std::to_integer<unsigned>(bytes[1])
                                                                              << 8U);
}
constexpr std::uint32_t LoadLe32(std::span<const std::byte> bytes) {
  return LoadLe16(bytes) | static_cast<std::uint32_t>(LoadLe16(bytes.subspan(2))) << 16U;
}
constexpr void StoreLe16(std::uint32_t value, std::span<std::byte> bytes) {
  bytes[0] = static_cast<std::byte>(value & 0xFFU);
  bytes[1] = static_cast<std::byte>(value >> 8U & 0xFFU);
}
constexpr void StoreLe32(std::uint32_t value, std::span<std::byte> bytes) {
  StoreLe16(value, bytes);
  StoreLe16(value >> 16U, bytes.subspan(2));
}

}  // namespace tembrel
