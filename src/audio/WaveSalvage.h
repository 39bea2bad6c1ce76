// Reads back what a program that died has written of a WAVE file: the sizes in the header may be missing or
// promise more than there is. For the program's own temporary copies; everything else is for LoadClip.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "audio/AudioClip.h"
#include "audio/Progress.h"

namespace tembrel {

struct SalvageResult {
  std::unique_ptr<AudioClip> clip;  // null on failure
  std::string reason;               // on failure, fit to follow "could not be read: "
  bool cutShort = false;            // the header was not true: the end of the sound may be missing
  bool outOfMemory = false;         // the failure tells nothing about the file
  bool cancelled = false;           // the progress function said so
};

// Understands the exact layout that WaveWriter writes. Data that ends before the header says, or whose size
// was never filled in, are taken as far as they go, in whole frames.
SalvageResult SalvageClip(const std::filesystem::path& path, const Progress& progress = {});

}  // namespace tembrel
