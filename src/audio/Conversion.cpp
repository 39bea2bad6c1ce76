#include "audio/Conversion.h"

#include <limits>
#include <utility>

#include "audio/Samples.h"

namespace tembrel {

namespace {

bool IsSampleSize(std::uint32_t bytesPerSample) {
  return bytesPerSample == 1 || bytesPerSample == 2;
}

// A block for the result; nothing for one that no clip could hold.
std::optional<MemoryBlock> ResultBlock(std::uint64_t bytes) {
  if (bytes > std::numeric_limits<std::uint32_t>::max()) {
    return std::nullopt;
  }
  return MemoryBlock::Allocate(static_cast<std::size_t>(bytes));
}

}  // namespace

std::optional<MemoryBlock> ConvertData(std::uint32_t targetRate, std::uint32_t targetBits,
                                       std::uint32_t targetChannels, const WaveFormat& format,
                                       MemoryBlock data, std::uint32_t& size) {
  if (format.nChannels == targetChannels && format.nSamplesPerSec == targetRate &&
      format.wBitsPerSample == targetBits) {
    return data;
  }
  const std::uint32_t bytesPerSample = targetBits / 8;
  std::uint32_t newSize = size;
  std::optional<MemoryBlock> block = ConvertBits(std::move(data), format.wBitsPerSample, targetBits, newSize);
  if (block) {
    block = ConvertChannels(std::move(*block), format.nChannels, targetChannels, bytesPerSample, newSize);
  }
  if (block) {
    block = ConvertRate(std::move(*block), format.nSamplesPerSec, targetRate, bytesPerSample, targetChannels,
                        newSize);
  }
  if (block) {
    size = newSize;
  }
  return block;
}

std::optional<MemoryBlock> ConvertBits(MemoryBlock data, std::uint32_t fromBits, std::uint32_t toBits,
                                       std::uint32_t& size) {
  if (fromBits == toBits) {
    return data;
  }
  if ((fromBits != 8 && fromBits != 16) || (toBits != 8 && toBits != 16)) {
    return std::nullopt;
  }
  const std::uint64_t samples = size / (fromBits / 8);
  const std::uint64_t newSize = toBits / 8 * samples;
  std::optional<MemoryBlock> result = ResultBlock(newSize);
  if (!result) {
    return std::nullopt;
  }
  const std::byte* const from = data.Data();
  std::byte* const to = result->Data();
  if (toBits == 8) {
    for (std::uint64_t i = 0; i < samples; ++i) {
      StoreSample8(to, i, Sample16(from, i) / 256 + kSilence8);
    }
  } else {
    for (std::uint64_t i = 0; i < samples; ++i) {
      StoreSample16(to, i, std::int64_t{Sample8(from, i) - kSilence8} * 256);
    }
  }
  size = static_cast<std::uint32_t>(newSize);
  return result;
}

std::optional<MemoryBlock> ConvertChannels(MemoryBlock data, std::uint32_t fromChannels,
                                           std::uint32_t toChannels, std::uint32_t bytesPerSample,
                                           std::uint32_t& size) {
  if (fromChannels == toChannels) {
    return data;
  }
  const bool mixes = fromChannels == 2 && toChannels == 1;
  const bool doubles = fromChannels == 1 && toChannels == 2;
  if (!IsSampleSize(bytesPerSample) || (!mixes && !doubles)) {
    return std::nullopt;
  }
  const std::uint64_t frames = size / bytesPerSample / fromChannels;
  const std::uint64_t newSize = bytesPerSample * frames * toChannels;
  std::optional<MemoryBlock> result = ResultBlock(newSize);
  if (!result) {
    return std::nullopt;
  }
  const std::byte* const from = data.Data();
  std::byte* const to = result->Data();
  for (std::uint64_t i = 0; i < frames; ++i) {
    if (mixes && bytesPerSample == 2) {
      StoreSample16(to, i, (Sample16(from, 2 * i) + Sample16(from, 2 * i + 1)) / 2);
    } else if (mixes) {
      StoreSample8(to, i, (Sample8(from, 2 * i) + Sample8(from, 2 * i + 1)) >> 1);
    } else if (bytesPerSample == 2) {
      StoreSample16(to, 2 * i, Sample16(from, i));
      StoreSample16(to, 2 * i + 1, Sample16(from, i));
    } else {
      to[2 * i] = from[i];
      to[2 * i + 1] = from[i];
    }
  }
  size = static_cast<std::uint32_t>(newSize);
  return result;
}

}  // namespace tembrel
