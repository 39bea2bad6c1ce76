#include "bench/support/ProcessMemory.h"

#include <fstream>
#include <string>
#include <string_view>

namespace tembrel::bench {
namespace {

double StatusMegabytes(std::string_view name) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(name)) {
      return std::stod(line.substr(name.size())) * 1024 / 1e6;
    }
  }
  return 0;
}

}  // namespace

double ResidentMemory() {
  return StatusMegabytes("VmRSS:");
}

double PeakMemory() {
  return StatusMegabytes("VmHWM:");
}

void ForgetPeakMemory() {
  std::ofstream("/proc/self/clear_refs") << "5";
}

}  // namespace tembrel::bench
