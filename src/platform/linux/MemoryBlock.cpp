#include "platform/MemoryBlock.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

namespace tembrel {

namespace {

constexpr std::size_t kHugePage = std::size_t{2} << 20U;
// No block this program asks for comes near this; what does is a miscalculation.
constexpr std::size_t kAbsurdSize = std::size_t{1} << 40U;

#if defined(__SANITIZE_ADDRESS__)
#define TEMBREL_HEAP_ONLY 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TEMBREL_HEAP_ONLY 1
#endif
#endif

#ifdef TEMBREL_HEAP_ONLY
// Reading past the end of a mapping goes unseen by AddressSanitizer, past the end of heap memory it does not.
constexpr std::size_t kMappedFrom = kAbsurdSize;
#else
constexpr std::size_t kMappedFrom = std::size_t{1} << 20U;
#endif

std::size_t WholePages(std::size_t size) {
  const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  return (size + page - 1) / page * page;
}

// Pages of 2 MiB where the system has them: filling takes a fraction of the page faults, and a scan that
// looks at every hundredth frame no longer misses the translation buffer at each.
std::byte* MapBytes(std::size_t size) {
  const std::size_t length = WholePages(size);
  void* const mapped =
      mmap(nullptr, length + kHugePage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (mapped == MAP_FAILED) {
    return nullptr;
  }
  auto* const start = static_cast<std::byte*>(mapped);
  const std::size_t past = reinterpret_cast<std::uintptr_t>(start) % kHugePage;
  const std::size_t head = past == 0 ? 0 : kHugePage - past;
  if (head > 0) {
    munmap(start, head);
  }
  munmap(start + head + length, kHugePage - head);
  madvise(start + head, length, MADV_HUGEPAGE);
  return start + head;
}

// Moves the pages to where there is room for more; the system moves its tables and copies nothing.
std::byte* GrowElsewhere(std::byte* start, std::size_t oldLength, std::size_t newLength) {
  std::byte* const room = MapBytes(newLength);
  if (room == nullptr) {
    return nullptr;
  }
  void* const moved = mremap(start, oldLength, newLength, MREMAP_MAYMOVE | MREMAP_FIXED, room);
  if (moved == MAP_FAILED) {
    munmap(room, newLength);
    return nullptr;
  }
  return static_cast<std::byte*>(moved);
}

// Both lengths in whole pages. Null when there is no memory; the pages are then where they were.
std::byte* RemapBytes(std::byte* start, std::size_t oldLength, std::size_t newLength) {
  if (newLength <= oldLength) {
    return newLength == oldLength || munmap(start + newLength, oldLength - newLength) == 0 ? start : nullptr;
  }
  const bool inPlace = mremap(start, oldLength, newLength, 0) != MAP_FAILED;
  return inPlace ? start : GrowElsewhere(start, oldLength, newLength);
}

}  // namespace

std::optional<MemoryBlock> MemoryBlock::Allocate(std::size_t size) {
  if (size == 0) {
    return MemoryBlock();
  }
  if (size >= kAbsurdSize) {
    return std::nullopt;
  }
  std::byte* const start =
      size >= kMappedFrom ? MapBytes(size) : static_cast<std::byte*>(::operator new(size, std::nothrow));
  if (start == nullptr) {
    return std::nullopt;
  }
  return MemoryBlock(start, size);
}

bool MemoryBlock::Resize(std::size_t newSize) {
  if (newSize == size) {
    return true;
  }
  if (size >= kMappedFrom && newSize >= kMappedFrom && newSize < kAbsurdSize) {
    std::byte* const start = RemapBytes(data, WholePages(size), WholePages(newSize));
    if (start != nullptr) {
      data = start;
      size = newSize;
    }
    return start != nullptr;
  }
  std::optional<MemoryBlock> other = Allocate(newSize);
  if (!other) {
    return false;
  }
  std::copy_n(data, std::min(size, newSize), other->data);
  *this = std::move(*other);
  return true;
}

MemoryBlock::MemoryBlock(MemoryBlock&& other) noexcept
    : data(std::exchange(other.data, nullptr)), size(std::exchange(other.size, 0)) {}

MemoryBlock& MemoryBlock::operator=(MemoryBlock&& other) noexcept {
  if (this != &other) {
    Release();
    data = std::exchange(other.data, nullptr);
    size = std::exchange(other.size, 0);
  }
  return *this;
}

MemoryBlock::~MemoryBlock() {
  Release();
}

void MemoryBlock::Release() {
  if (data == nullptr) {
    return;
  }
  if (size >= kMappedFrom) {
    munmap(data, WholePages(size));
  } else {
    ::operator delete(data);
  }
  data = nullptr;
  size = 0;
}

}  // namespace tembrel
