#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include "gtest/gtest.h"
#include "platform/MemoryBlock.h"

namespace tembrel {
namespace {

TEST(MemoryBlock, HasExactlyTheSizeAskedForAndCanBeFilled) {
  for (const std::size_t size : {std::size_t{1}, std::size_t{4096}, (std::size_t{1} << 20U) - 1,
                                 std::size_t{1} << 20U, (std::size_t{1} << 20U) + 1, std::size_t{7654321}}) {
    std::optional<MemoryBlock> block = MemoryBlock::Allocate(size);
    ASSERT_TRUE(block) << size;
    EXPECT_EQ(block->Size(), size);
    EXPECT_EQ(block->Bytes().size(), size);
    std::memset(block->Data(), 0xA5, size);
    EXPECT_EQ(block->Bytes().front(), std::byte{0xA5});
    EXPECT_EQ(block->Bytes().back(), std::byte{0xA5});
  }
}

TEST(MemoryBlock, OfNoBytesIsEmpty) {
  const std::optional<MemoryBlock> block = MemoryBlock::Allocate(0);
  ASSERT_TRUE(block);
  EXPECT_TRUE(block->Empty());
  EXPECT_EQ(block->Data(), nullptr);
  EXPECT_TRUE(MemoryBlock().Empty());
}

TEST(MemoryBlock, OfAnAbsurdSizeIsNothing) {
  EXPECT_FALSE(MemoryBlock::Allocate(std::numeric_limits<std::size_t>::max()));
  EXPECT_FALSE(MemoryBlock::Allocate(std::numeric_limits<std::size_t>::max() / 2));
  EXPECT_FALSE(MemoryBlock::Allocate(std::size_t{1} << 47U));
}

TEST(MemoryBlock, MovesItsBytesAndLeavesNothingBehind) {
  for (const std::size_t size : {std::size_t{100}, std::size_t{3} << 20U}) {
    MemoryBlock first = std::move(*MemoryBlock::Allocate(size));
    const std::byte* const start = first.Data();
    first.Data()[size - 1] = std::byte{42};
    MemoryBlock second(std::move(first));
    EXPECT_EQ(second.Data(), start);
    EXPECT_TRUE(first.Empty());  // NOLINT(*-use-after-move,clang-analyzer-cplusplus.Move): as promised
    MemoryBlock third = std::move(*MemoryBlock::Allocate(50));
    third = std::move(second);
    EXPECT_EQ(third.Data(), start);
    EXPECT_EQ(third.Size(), size);
    EXPECT_EQ(third.Bytes().back(), std::byte{42});
    EXPECT_TRUE(second.Empty());  // NOLINT(*-use-after-move,clang-analyzer-cplusplus.Move)
  }
}

TEST(MemoryBlock, OfTheLargestClipTakesNoMemoryBeforeItIsTouched) {
  std::optional<MemoryBlock> block = MemoryBlock::Allocate(std::numeric_limits<std::uint32_t>::max());
  if (!block) {
    GTEST_SKIP() << "the machine does not give 4 GiB";
  }
  EXPECT_EQ(block->Size(), 4294967295U);
  // From the first whole page on.
  const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
  const std::uintptr_t skipped = (page - reinterpret_cast<std::uintptr_t>(block->Data()) % page) % page;
  const std::size_t pages = (block->Size() - skipped) / page;
  std::vector<unsigned char> resident(pages);
  ASSERT_EQ(mincore(block->Data() + skipped, pages * page, resident.data()), 0);
  EXPECT_LT(std::ranges::count_if(resident, [](unsigned char state) { return (state & 1U) != 0; }), 16);
  block->Bytes().back() = std::byte{1};
}

}  // namespace
}  // namespace tembrel
