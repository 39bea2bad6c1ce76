// What opening an hour of sound costs: a 60-minute 44.1 kHz 16-bit stereo WAVE file of about 635 MB, in the
// page cache. Prints the time of LoadClip beside that of one plain read of the whole file into a fresh
// buffer, taken in turns in the same run, and how far memory grows while loading.
#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <unistd.h>
#include <vector>

#include "audio/WaveReader.h"
#include "audio/WaveWriter.h"
#include "platform/MemoryBlock.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel {
namespace {

constexpr std::uint32_t kRate = 44100;
constexpr std::size_t kHourBytes = std::size_t{kRate} * 3600 * 4;
constexpr int kRounds = 15;

double Milliseconds(std::chrono::steady_clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

bool WriteHour(const std::filesystem::path& path) {
  std::optional<MemoryBlock> sound = MemoryBlock::Allocate(kHourBytes);
  if (!sound) {
    return false;
  }
  std::uint32_t state = 1;
  for (std::byte& byte : sound->Bytes()) {
    state = state * 1664525U + 1013904223U;
    byte = static_cast<std::byte>(state >> 24U);
  }
  return WriteWave(sound->Bytes(), kRate, 16, 2, path).ok;
}

// Milliseconds of reading all of the file into memory nobody has touched before; negative when it fails.
double PlainRead(const std::filesystem::path& path, std::size_t size) {
  const auto start = std::chrono::steady_clock::now();
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const auto buffer = std::make_unique_for_overwrite<std::byte[]>(size);
  std::size_t done = 0;
  ssize_t got = 1;
  while (done < size && got > 0) {
    got = read(file, buffer.get() + done, size - done);
    done += got > 0 ? static_cast<std::size_t>(got) : 0;
  }
  const double time = Milliseconds(std::chrono::steady_clock::now() - start);
  close(file);
  return done == size ? time : -1;
}

// A figure of /proc/self/status in megabytes (of a million bytes).
double StatusMegabytes(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(name + ":")) {
      return std::stod(line.substr(name.size() + 1)) * 1024 / 1e6;
    }
  }
  return 0;
}

struct Loading {
  double milliseconds = -1;
  double growth = 0;  // of resident memory at its peak, in megabytes
};

Loading Load(const std::filesystem::path& path) {
  std::ofstream("/proc/self/clear_refs") << 5;  // forgets the peak so far
  const double before = StatusMegabytes("VmRSS");
  const auto start = std::chrono::steady_clock::now();
  const LoadResult result = LoadClip(path, 0, 0, 0, false, [](std::uint64_t, std::uint64_t) { return true; });
  Loading loading;
  loading.milliseconds = result.clip ? Milliseconds(std::chrono::steady_clock::now() - start) : -1;
  loading.growth = StatusMegabytes("VmHWM") - before;
  return loading;
}

int Run() {
  const test::ScratchFolder scratch;
  const std::filesystem::path path = scratch / "hour.wav";
  if (!WriteHour(path)) {
    std::puts("there is no room for the recording");
    return 1;
  }
  const auto size = static_cast<std::size_t>(std::filesystem::file_size(path));
  std::vector<double> plain;
  std::vector<double> loading;
  double growth = 0;
  PlainRead(path, size);  // brings the file into the page cache
  for (int i = 0; i < kRounds; ++i) {
    plain.push_back(PlainRead(path, size));
    const Loading loaded = Load(path);
    loading.push_back(loaded.milliseconds);
    growth = std::max(growth, loaded.growth);
  }
  if (std::ranges::min(plain) < 0 || std::ranges::min(loading) < 0) {
    std::puts("the recording could not be read");
    return 1;
  }
  // The best of several rounds: whatever else runs on the machine can only add to it.
  const double bestPlain = std::ranges::min(plain);
  const double bestLoading = std::ranges::min(loading);
  const double fileMegabytes = static_cast<double>(size) / 1e6;
  std::printf("file                    %8.1f MB\n", fileMegabytes);
  std::printf("plain read              %8.1f ms (best of %d)\n", bestPlain, kRounds);
  std::printf("LoadClip                %8.1f ms (best of %d)\n", bestLoading, kRounds);
  std::printf("LoadClip / plain read   %8.2f    (at most 1.20)\n", bestLoading / bestPlain);
  std::printf("memory beyond the file  %8.1f MB (at most 40)\n", growth - fileMegabytes);
  return 0;
}

}  // namespace
}  // namespace tembrel

int main() {
  return tembrel::Run();
}
