// Any bytes as a WAVE file: loaded, loaded with a conversion, and asked for its length.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "audio/WaveReader.h"
#include "fuzz/MemoryFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const tembrel::fuzz::MemoryFile file(bytes, size);
  const tembrel::LoadResult loaded = tembrel::LoadClip(file.Path(), 44100, 16, 2, false);
  if (!file.Complete() || (loaded.clip && loaded.clip->data.Size() > size)) {
    std::abort();
  }
  tembrel::LoadClip(file.Path(), 11025, 8, 1, true);
  std::uint32_t frames = 0;
  tembrel::ReadWaveInfo(file.Path(), frames);
  return 0;
}
