// Waits for something that another thread or process does.
#pragma once

#include <chrono>
#include <functional>
#include <thread>

namespace tembrel::test {

// Looks until the condition holds; false when it never did in half a minute.
inline bool Eventually(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) {
      return false;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}

}  // namespace tembrel::test
