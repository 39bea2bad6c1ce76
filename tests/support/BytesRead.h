// How much this process has read from files, pipes and the like, as the system counts it.
#pragma once

#include <cstdint>
#include <fstream>
#include <optional>
#include <string>

namespace tembrel::test {

// Bytes since the process began; nothing where the system does not count them. Asking adds some hundred.
inline std::optional<std::uint64_t> BytesRead() {
  std::ifstream counters("/proc/self/io");
  std::string name;
  std::uint64_t value = 0;
  while (counters >> name >> value) {
    if (name == "rchar:") {
      return value;
    }
  }
  return std::nullopt;
}

}  // namespace tembrel::test
