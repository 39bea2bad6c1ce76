#include "edit/ShareOut.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>
#include <vector>

namespace tembrel {

namespace {

constexpr unsigned kMostThreads = 16;

}  // namespace

bool ShareOut(std::int64_t count, const std::function<void(std::int64_t)>& work,
              const std::function<bool(std::int64_t done)>& goOn) {
  std::atomic<std::int64_t> next = 0;
  std::atomic<std::int64_t> done = 0;
  const auto workOnOne = [&] {
    const std::int64_t piece = next.fetch_add(1);
    if (piece >= count) {
      return false;
    }
    work(piece);
    done.fetch_add(1);
    return true;
  };
  bool wanted = true;
  {
    std::vector<std::jthread> helpers;
    const std::int64_t processors = std::clamp(std::thread::hardware_concurrency(), 1U, kMostThreads);
    try {
      for (std::int64_t i = 1; i < std::min(processors, count); ++i) {
        helpers.emplace_back([&workOnOne] {
          while (workOnOne()) {
          }
        });
      }
    } catch (const std::system_error&) {
      // No more threads to be had: those that run, and this one, do all the work.
    }
    while (wanted && workOnOne()) {
      wanted = !goOn || goOn(done);
    }
    if (!wanted) {
      next = count;
    }
  }
  return wanted && (!goOn || goOn(done));
}

}  // namespace tembrel
