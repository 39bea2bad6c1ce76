// One block of bytes of fixed size that starts out uninitialised: where the sound of a clip lives. Unlike a
// vector it touches no page before the caller does, so reading an hour of sound costs one pass, not two.
#pragma once

#include <cstddef>
#include <optional>
#include <span>

namespace tembrel {

class MemoryBlock {
 public:
  // An empty block: no bytes, a null data pointer.
  MemoryBlock() = default;
  // A block of exactly `size` bytes with undefined content; nothing when the system has no memory for it.
  // A size of 0 gives an empty block.
  static std::optional<MemoryBlock> Allocate(std::size_t size);

  MemoryBlock(MemoryBlock&& other) noexcept;
  MemoryBlock& operator=(MemoryBlock&& other) noexcept;
  MemoryBlock(const MemoryBlock&) = delete;
  MemoryBlock& operator=(const MemoryBlock&) = delete;
  ~MemoryBlock();

  // Makes the block longer or shorter. The bytes up to the smaller size are kept, new ones are undefined;
  // they may move. Large blocks change by whole pages without copying. On failure, false, the block is as
  // before.
  bool Resize(std::size_t newSize);

  std::size_t Size() const { return size; }
  bool Empty() const { return size == 0; }
  std::byte* Data() { return data; }
  const std::byte* Data() const { return data; }
  std::span<std::byte> Bytes() { return {data, size}; }
  std::span<const std::byte> Bytes() const { return {data, size}; }

 private:
  MemoryBlock(std::byte* start, std::size_t length) : data(start), size(length) {}
  void Release();

  std::byte* data = nullptr;
  std::size_t size = 0;
};

}  // namespace tembrel
