// What opening a long recording costs: a 44.1 kHz 16-bit stereo WAVE file in the page cache, an hour of it or
// TEMBREL_BENCH_MINUTES minutes, read by LoadClip; against one plain read of the whole file into a fresh
// buffer, taken in turns, and how far memory grows while loading.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <unistd.h>
#include <utility>

#include "audio/WaveReader.h"
#include "bench/support/Figures.h"
#include "bench/support/NoisySound.h"
#include "bench/support/ProcessMemory.h"
#include "bench/support/Rounds.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel {
namespace {

constexpr int kRounds = 15;

// Reads all of the file into memory nobody has touched before; null when it fails.
std::unique_ptr<std::byte[]> PlainRead(const std::filesystem::path& path, std::size_t size) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  auto buffer = std::make_unique_for_overwrite<std::byte[]>(size);
  std::size_t done = 0;
  ssize_t got = 1;
  while (done < size && got > 0) {
    got = read(file, buffer.get() + done, size - done);
    done += got > 0 ? static_cast<std::size_t>(got) : 0;
  }
  close(file);
  return done == size ? std::move(buffer) : nullptr;
}

void TimeLoading(benchmark::State& state, const std::filesystem::path& path) {
  const auto size = static_cast<std::size_t>(std::filesystem::file_size(path));
  PlainRead(path, size);  // brings the file into the page cache
  bench::Times reads;
  double growth = 0;
  const bench::Times loads = bench::CountRounds(state, [&](const auto& count) {
    std::unique_ptr<std::byte[]> buffer;
    reads.Take([&] { buffer = PlainRead(path, size); });
    const bool read = buffer != nullptr;
    buffer.reset();
    bench::ForgetPeakMemory();
    const double before = bench::ResidentMemory();
    LoadResult result;
    count(
        [&] { result = LoadClip(path, 0, 0, 0, false, [](std::uint64_t, std::uint64_t) { return true; }); });
    growth = std::max(growth, bench::PeakMemory() - before);
    if (!read || !result.clip) {
      bench::Fail(state, "the recording could not be read");
    }
  });
  const double file = static_cast<double>(size) / 1e6;
  bench::Report(state, {{"of_plain_read", loads.Best() / reads.Best(), 1.2},
                        {"mb_beyond_file", growth - file, 40},
                        {"best_ms", loads.Best()},
                        {"plain_read_ms", reads.Best()},
                        {"file_mb", file}});
}

int Run() {
  const test::ScratchFolder scratch;
  const std::filesystem::path path = scratch / "noise.wav";
  if (!bench::WriteNoisyFile(path, bench::SoundSeconds())) {
    std::fputs("there is no room for the recording\n", stderr);
    return 1;
  }
  bench::Register("load_clip", kRounds, [&](benchmark::State& state) { TimeLoading(state, path); });
  return bench::RunRegistered();
}

}  // namespace
}  // namespace tembrel

int main(int argc, char** argv) {
  return tembrel::bench::ReadFlags(argc, argv) ? tembrel::Run() : 1;
}
