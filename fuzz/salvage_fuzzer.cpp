// Any bytes as what a program that died has left of a temporary copy.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "audio/WaveSalvage.h"
#include "fuzz/MemoryFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const tembrel::fuzz::MemoryFile file(bytes, size);
  const tembrel::SalvageResult salvaged = tembrel::SalvageClip(file.Path());
  const bool sensible = salvaged.clip ? salvaged.clip->dataSize > 0 && salvaged.clip->dataSize < size
                                      : !salvaged.reason.empty();
  if (!file.Complete() || !sensible) {
    std::abort();
  }
  return 0;
}
