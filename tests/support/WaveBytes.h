// The bytes of WAVE files, good and bad, built chunk by chunk and by hand: what the readers are tested with
// must not come from the writer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

namespace tembrel::test {

using Bytes = std::vector<std::byte>;

inline Bytes BytesOf(std::initializer_list<int> values) {
  Bytes bytes;
  for (const int value : values) {
    bytes.push_back(static_cast<std::byte>(value & 0xFF));
  }
  return bytes;
}

// Bytes 0, 1, 2, ... that are told apart.
inline Bytes CountingBytes(std::size_t count) {
  Bytes bytes;
  for (std::size_t i = 0; i < count; ++i) {
    bytes.push_back(static_cast<std::byte>((i * 7 + 1) & 0xFFU));
  }
  return bytes;
}

inline Bytes Samples16(std::initializer_list<int> values) {
  Bytes bytes;
  for (const int value : values) {
    bytes.push_back(static_cast<std::byte>(value & 0xFF));
    bytes.push_back(static_cast<std::byte>(value >> 8 & 0xFF));
  }
  return bytes;
}

// Byte by byte: GCC 12 takes an insert into a new vector for an overflow.
inline void Append(Bytes& bytes, std::span<const std::byte> more) {
  for (const std::byte byte : more) {
    bytes.push_back(byte);
  }
}
inline void AppendText(Bytes& bytes, std::string_view text) {
  Append(bytes, std::as_bytes(std::span(text)));
}
inline void Append16(Bytes& bytes, std::uint32_t value) {
  bytes.push_back(static_cast<std::byte>(value & 0xFFU));
  bytes.push_back(static_cast<std::byte>(value >> 8U & 0xFFU));
}
inline void Append32(Bytes& bytes, std::uint32_t value) {
  Append16(bytes, value & 0xFFFFU);
  Append16(bytes, value >> 16U);
}
inline void Put16(Bytes& bytes, std::size_t offset, std::uint32_t value) {
  bytes[offset] = static_cast<std::byte>(value & 0xFFU);
  bytes[offset + 1] = static_cast<std::byte>(value >> 8U & 0xFFU);
}
inline void Put32(Bytes& bytes, std::size_t offset, std::uint32_t value) {
  Put16(bytes, offset, value & 0xFFFFU);
  Put16(bytes, offset + 2, value >> 16U);
}

// Header, content, and a pad byte when the length is odd.
inline Bytes Chunk(std::string_view id, std::span<const std::byte> content) {
  Bytes bytes;
  AppendText(bytes, id);
  Append32(bytes, static_cast<std::uint32_t>(content.size()));
  Append(bytes, content);
  if (content.size() % 2 != 0) {
    bytes.push_back(std::byte{0});
  }
  return bytes;
}

inline Bytes Form(std::string_view formType, std::initializer_list<Bytes> chunks) {
  Bytes content;
  AppendText(content, formType);
  for (const Bytes& chunk : chunks) {
    Append(content, chunk);
  }
  return Chunk("RIFF", content);
}

// The 16-byte record of a format chunk.
inline Bytes Record(std::uint32_t rate, std::uint32_t bits, std::uint32_t channels, std::uint32_t tag = 1) {
  const std::uint32_t frame = (bits + 7) / 8 * channels;
  Bytes bytes;
  Append16(bytes, tag);
  Append16(bytes, channels);
  Append32(bytes, rate);
  Append32(bytes, rate * frame);
  Append16(bytes, frame);
  Append16(bytes, bits);
  return bytes;
}

// The usual 44-byte header and the data. Offsets: 4 RIFF size, 16 format size, 20 tag, 22 channels, 24 rate,
// 28 bytes per second, 32 block align, 34 bits, 40 data size.
inline Bytes WaveFile(std::uint32_t rate, std::uint32_t bits, std::uint32_t channels,
                      std::span<const std::byte> data) {
  return Form("WAVE", {Chunk("fmt ", Record(rate, bits, channels)), Chunk("data", data)});
}

}  // namespace tembrel::test
