#include <algorithm>
#include <array>
#include <limits>
#include <utility>
#include <vector>

#include "gtest/gtest.h"
#include "platform/MemoryBlock.h"

namespace tembrel {
namespace {

constexpr std::size_t kMegabyte = std::size_t{1} << 20U;
// Small, around where blocks begin to be mapped, whole pages and not, many huge pages.
constexpr std::array kSizes{std::size_t{1}, std::size_t{5000},   kMegabyte - 1,
                            kMegabyte,      kMegabyte + 1,       kMegabyte + 4096,
                            2 * kMegabyte,  7654321 + kMegabyte, 40 * kMegabyte + 3};

std::byte Pattern(std::size_t index) {
  return static_cast<std::byte>(index * 31 + index / 4096);
}

TEST(MemoryBlockResize, KeepsTheBytesUpToTheSmallerSize) {
  for (const std::size_t from : kSizes) {
    for (const std::size_t to : kSizes) {
      MemoryBlock block = std::move(*MemoryBlock::Allocate(from));
      for (std::size_t i = 0; i < from; ++i) {
        block.Data()[i] = Pattern(i);
      }
      ASSERT_TRUE(block.Resize(to));
      ASSERT_EQ(block.Size(), to);
      for (std::size_t i = 0; i < std::min(from, to); ++i) {
        ASSERT_EQ(block.Data()[i], Pattern(i)) << from << " to " << to << " at " << i;
      }
      std::ranges::fill(block.Bytes(), std::byte{1});
    }
  }
}

TEST(MemoryBlockResize, GrowsWhatCannotGrowInPlace) {
  // Each new block lies right below the one before, so that none has room behind it.
  std::vector<MemoryBlock> blocks;
  for (int i = 0; i < 6; ++i) {
    blocks.push_back(std::move(*MemoryBlock::Allocate(2 * kMegabyte)));
    std::ranges::fill(blocks.back().Bytes(), static_cast<std::byte>(i));
  }
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    ASSERT_TRUE(blocks[i].Resize(5 * kMegabyte));
    std::ranges::fill(blocks[i].Bytes().subspan(2 * kMegabyte), static_cast<std::byte>(i));
  }
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    EXPECT_EQ(std::ranges::count(blocks[i].Bytes(), static_cast<std::byte>(i)),
              static_cast<std::ptrdiff_t>(5 * kMegabyte));
  }
}

TEST(MemoryBlockResize, ToNothingEmptiesAndFromNothingFills) {
  MemoryBlock block = std::move(*MemoryBlock::Allocate(10));
  ASSERT_TRUE(block.Resize(0));
  EXPECT_TRUE(block.Empty());
  EXPECT_EQ(block.Data(), nullptr);
  ASSERT_TRUE(block.Resize(3 * kMegabyte));
  block.Bytes().back() = std::byte{1};
  ASSERT_TRUE(block.Resize(0));
  EXPECT_EQ(block.Data(), nullptr);
}

TEST(MemoryBlockResize, ToAnAbsurdSizeFailsAndChangesNothing) {
  for (const std::size_t size : {std::size_t{10}, 3 * kMegabyte}) {
    MemoryBlock block = std::move(*MemoryBlock::Allocate(size));
    block.Bytes().back() = std::byte{42};
    const std::byte* const start = block.Data();
    EXPECT_FALSE(block.Resize(std::numeric_limits<std::size_t>::max()));
    EXPECT_FALSE(block.Resize(std::size_t{1} << 47U));
    EXPECT_EQ(block.Data(), start);
    EXPECT_EQ(block.Size(), size);
    EXPECT_EQ(block.Bytes().back(), std::byte{42});
  }
}

}  // namespace
}  // namespace tembrel
