#include "device/DeviceErrors.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tembrel {

namespace {

constexpr std::string_view kReason = "%s";

struct ErrorRow {
  DeviceError error;
  std::string_view text;
};

constexpr std::array kTexts{
    ErrorRow{kServerAbsent, "The sound server could not be reached."},
    ErrorRow{kServerHung, "The sound server does not answer."},
    ErrorRow{kServerRefused, "The sound server cannot do this: %s."},
    ErrorRow{kServerLost,
             "The recording has stopped: the sound server or its source is gone. What was recorded is kept."},
    ErrorRow{kNothingOpen, "Nothing is open that could be played or recorded."},
    ErrorRow{kFileUnreadable, "The sound could not be played: %s."},
    ErrorRow{kTakeNotBegun, "There is no place for the recording: %s."},
    ErrorRow{kTakeNotWritten, "The recording has stopped: %s. What was recorded is kept."},
    ErrorRow{kTakeTooLong,
             "The recording has stopped: a WAVE file holds at most 4 GB. What was recorded is kept."},
    ErrorRow{
        kTakeNotSaved,
        "The recording could not be saved: %s. It will be offered for recovery when Tembrel starts again."},
};

}  // namespace

DeviceError ErrorOfFault(SoundFault fault) {
  switch (fault) {
    case SoundFault::None:
      return kDeviceSuccess;
    case SoundFault::Absent:
      return kServerAbsent;
    case SoundFault::Hung:
      return kServerHung;
    case SoundFault::Refused:
      break;
  }
  return kServerRefused;
}

void CutText(std::string& text, std::size_t bytes) {
  std::size_t end = std::min(text.size(), bytes);
  while (end < text.size() && end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
    --end;
  }
  text.resize(end);
}

std::string DeviceErrorText(DeviceError error, const std::string& reason) {
  if (error == kDeviceSuccess) {
    return {};
  }
  const auto* const row = std::ranges::find(kTexts, error, &ErrorRow::error);
  std::string text(row == kTexts.end() ? "The sound device has failed." : row->text);
  if (const std::size_t place = text.find(kReason); place != std::string::npos) {
    std::string shown = reason.empty() ? "the reason is not known" : reason;
    CutText(shown, kLongestErrorText + kReason.size() - text.size());
    text.replace(place, kReason.size(), shown);
  }
  return text;
}

}  // namespace tembrel
