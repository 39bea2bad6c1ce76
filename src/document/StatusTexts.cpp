#include "document/StatusTexts.h"

namespace tembrel {

StatusTexts FormatStatusTexts(std::uint32_t rate, std::uint32_t bits, std::uint32_t channels) {
  return {std::to_string(rate) + " Hz", bits == 16 ? "16 Bits" : "8 Bits", channels == 2 ? "Stereo" : "Mono"};
}

StatusTexts InitialStatusTexts() {
  return FormatStatusTexts(11025, 8, 1);
}

}  // namespace tembrel
