#include <atomic>
#include <gtest/gtest.h>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

#include "platform/WorkTeam.h"

namespace tembrel {
namespace {

TEST(ShareOut, DoesEveryPieceOnce) {
  for (const std::int64_t count : {0, 1, 2, 7, 1000}) {
    std::vector<std::atomic<int>> done(static_cast<std::size_t>(count));
    EXPECT_TRUE(ShareOut(count, [&](std::int64_t piece) { ++done[static_cast<std::size_t>(piece)]; }));
    for (const auto& times : done) {
      EXPECT_EQ(times, 1);
    }
  }
}

TEST(ShareOut, TellsOnThisThreadUpToTheEnd) {
  const auto here = std::this_thread::get_id();
  std::int64_t last = 0;
  EXPECT_TRUE(ShareOut(
      100, [](std::int64_t) {},
      [&](std::int64_t done) {
        EXPECT_EQ(std::this_thread::get_id(), here);
        EXPECT_GE(done, last);
        last = done;
        return true;
      }));
  EXPECT_EQ(last, 100);
}

TEST(ShareOut, LeavesOutWhatHasNotBegunWhenToldToStop) {
  std::atomic<int> begun = 0;
  EXPECT_FALSE(ShareOut(
      1000000,
      [&](std::int64_t) {
        ++begun;
        std::this_thread::yield();
      },
      [](std::int64_t) { return false; }));
  EXPECT_LT(begun, 1000000);
}

TEST(WorkTeam, DoesTaskAfterTask) {
  WorkTeam team;
  for (int task = 0; task < 2000; ++task) {
    std::vector<std::atomic<int>> done(static_cast<std::size_t>(task % 9));
    ASSERT_TRUE(team.ShareOut(static_cast<std::int64_t>(done.size()),
                              [&](std::int64_t piece) { ++done[static_cast<std::size_t>(piece)]; }));
    for (const auto& times : done) {
      ASSERT_EQ(times, 1) << task;
    }
  }
}

TEST(WorkTeam, HasNoMoreThreadsThanItMay) {
  for (const std::int64_t most : {1, 2}) {
    WorkTeam team(most);
    std::mutex mutex;
    std::set<std::thread::id> seen;
    EXPECT_TRUE(team.ShareOut(1000, [&](std::int64_t) {
      const std::lock_guard lock(mutex);
      seen.insert(std::this_thread::get_id());
    }));
    EXPECT_LE(static_cast<std::int64_t>(seen.size()), most);
    EXPECT_TRUE(most > 1 || seen.contains(std::this_thread::get_id()));
  }
}

TEST(WorkTeam, CountsAtLeastOneProcessor) {
  EXPECT_GE(Processors(), 1);
  EXPECT_LE(Processors(), 16);
}

TEST(WorkTeam, GoesOnAfterATaskThatWasStopped) {
  WorkTeam team;
  for (int round = 0; round < 100; ++round) {
    EXPECT_FALSE(team.ShareOut(
        1000, [](std::int64_t) {}, [](std::int64_t) { return false; }));
    std::atomic<int> done = 0;
    EXPECT_TRUE(team.ShareOut(10, [&](std::int64_t) { ++done; }));
    EXPECT_EQ(done, 10);
  }
}

}  // namespace
}  // namespace tembrel
