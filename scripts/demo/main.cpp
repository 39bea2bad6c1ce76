#include <cstdio>
#include <span>
#include <vector>

#include "audio/WaveWriter.h"
#include "scripts/demo/DemoPhrase.h"

// demo-recording FILE: writes the demo recording.
int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: demo-recording FILE\n", stderr);
    return 2;
  }
  const std::vector<std::int16_t> phrase = tembrel::DemoPhrase();
  const tembrel::WriteResult result = tembrel::WriteWave(std::as_bytes(std::span(phrase)), tembrel::kDemoRate,
                                                         16, tembrel::kDemoChannels, argv[1]);
  if (!result.ok) {
    std::fprintf(stderr, "%s: %s\n", argv[1], result.reason.c_str());
    return 1;
  }
  return 0;
}
