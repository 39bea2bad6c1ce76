#include "bench/support/NoisySound.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>

#include "audio/WaveWriter.h"

namespace tembrel::bench {

std::uint32_t SoundSeconds() {
  const char* const given = std::getenv("TEMBREL_BENCH_MINUTES");
  const int minutes = given == nullptr ? 60 : std::clamp(std::atoi(given), 1, 400);
  benchmark::AddCustomContext("minutes of sound", std::to_string(minutes));
  return static_cast<std::uint32_t>(minutes) * 60;
}

void FillWithNoise(AudioClip& clip) {
  std::uint32_t state = 1;
  for (std::size_t at = 0; at < clip.dataSize; at += sizeof state) {
    state = state * 1664525U + 1013904223U;
    // Without this the left channel, the low half, would be the same again every 65,536 frames.
    const std::uint32_t frame = state ^ state >> 16U;
    std::memcpy(clip.data.Data() + at, &frame, sizeof frame);
  }
}

std::optional<AudioClip> NoisyClip(std::uint32_t seconds) {
  AudioClip clip;
  clip.format = PcmFormat(kRate, 16, 2);
  clip.dataSize = seconds * clip.format.nAvgBytesPerSec;
  std::optional<MemoryBlock> block = MemoryBlock::Allocate(clip.dataSize);
  if (!block) {
    return std::nullopt;
  }
  clip.data = std::move(*block);
  FillWithNoise(clip);
  return clip;
}

bool WriteNoisyFile(const std::filesystem::path& path, std::uint32_t seconds) {
  const std::optional<AudioClip> clip = NoisyClip(seconds);
  return clip && WriteWave(clip->Bytes(), kRate, 16, 2, path).ok;
}

}  // namespace tembrel::bench
