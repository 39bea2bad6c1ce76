#include "document/StringTable.h"

#include <algorithm>
#include <array>

namespace tembrel {

namespace {

struct StringRow {
  int id;
  std::string_view text;
};

constexpr std::array kStrings{
    StringRow{kStringWaveFilter, "Wave files (*.wav)|*.wav|"},
    StringRow{kStringSaveFilter,
              "Wave files (*.wav)|*.wav|MP3 files (*.mp3)|*.mp3|Ogg Vorbis files (*.ogg)|*.ogg|"
              "AIFF files (*.aiff)|*.aiff|CDR files (*.cdr)|*.cdr|"},
    StringRow{kStringOpenFilter,
              "Audio files |*.wav;*.mp3;*.ogg;*.aiff;*.cdr|Wave files (*.wav)|*.wav|MP3 files (*.mp3)|*.mp3|"
              "Ogg Vorbis files (*.ogg)|*.ogg|AIFF files (*.aiff)|*.aiff|CDR files (*.cdr)|*.cdr|"},
    StringRow{kStringToolTips + 33, "Play"},
    StringRow{kStringToolTips + 34, "Stop"},
    StringRow{kStringToolTips + 35, "Pause"},
    StringRow{kStringToolTips + 36, "Record"},
    StringRow{kStringToolTips + 37, "Time Display"},
    StringRow{kStringToolTips + 45, "Rewind"},
    StringRow{kStringToolTips + 46, "Move In Time"},
    StringRow{kStringSaveWarning, "The given file extension will be changed to .WAV."},
    StringRow{kStringSaveTitle, "Save"},
    // Another name than the program's, kept letter by letter: it is no slip.
    StringRow{kStringLeavingTitle, "Leaving Corvane"},
    StringRow{kStringNewDocument, "Document"},
};

}  // namespace

std::string_view StringResource(int id) {
  const auto* row = std::ranges::find(kStrings, id, &StringRow::id);
  return row == kStrings.end() ? std::string_view() : row->text;
}

}  // namespace tembrel
