#include "audio/FormatRecord.h"

#include <cstdint>

#include "audio/Riff.h"

namespace tembrel {

namespace {

constexpr std::uint16_t kFloatTag = 3;
constexpr std::uint16_t kExtensibleTag = 0xFFFE;

}  // namespace

WaveFormat ParseFormatRecord(std::span<const std::byte> record) {
  WaveFormat format;
  format.wFormatTag = LoadLe16(record);
  format.nChannels = LoadLe16(record.subspan(2));
  format.nSamplesPerSec = LoadLe32(record.subspan(4));
  format.nAvgBytesPerSec = LoadLe32(record.subspan(8));
  format.nBlockAlign = LoadLe16(record.subspan(12));
  format.wBitsPerSample = LoadLe16(record.subspan(14));
  return format;
}

// The zeros would be divided by later.
std::string FormatRecordFault(const WaveFormat& format) {
  if (format.wFormatTag != kPcmTag) {
    const std::string tag = " (format " + std::to_string(format.wFormatTag) + ")";
    if (format.wFormatTag == kFloatTag) {
      return "its samples are floating-point numbers" + tag;
    }
    return (format.wFormatTag == kExtensibleTag ? "its format record is of the extensible kind"
                                                : "its sound is compressed") +
           tag;
  }
  if (format.nChannels == 0) {
    return "its format record says it has no channels";
  }
  if (format.nSamplesPerSec == 0) {
    return "its format record says its sample rate is 0";
  }
  if (format.nBlockAlign == 0) {
    return "its format record says its frames have no bytes";
  }
  if (format.wBitsPerSample == 0) {
    return "its format record says its samples have no bits";
  }
  return {};
}

}  // namespace tembrel
