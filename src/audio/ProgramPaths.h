// The program folder and the files the program keeps in it.
#pragma once

#include <filesystem>
#include <string>

namespace tembrel {

// The program's path without its last 11 characters, which are a separator and a ten-character name, and at
// most 150 characters of that; empty when the path is shorter. Characters are bytes; no separator at the end.
std::string ProgramFolder(const std::string& executablePath);

// "temp<number>.wav", the name of a temporary sound.
std::string TempWaveName(long long number);

struct ProgramPaths {
  std::filesystem::path programFolder;
  std::filesystem::path settingsFile;    // TEMBREL.INI
  std::filesystem::path helpPath;        // Tembrel.chm
  std::filesystem::path tempFolder;      // Temp
  std::filesystem::path sharedTempPath;  // Temp/~audio.wav; not written, but removed at start-up
  // What outside programs read and write, for the effects that will run them.
  std::filesystem::path toolInput;     // Temp/fin.wav
  std::filesystem::path toolOutput;    // Temp/fout.wav
  std::filesystem::path toolInput16;   // Temp/fin16.wav
  std::filesystem::path toolOutput16;  // Temp/fout16.wav

  // Temp/temp<number>.wav, the copy of one document that playback plays.
  std::filesystem::path TempWavePath(long long number) const;
};

// All of the paths, formed from the folder; nothing is created.
ProgramPaths PathsBelow(const std::filesystem::path& programFolder);

// The paths below the folder of `executable`, or below `userDataFolder` when the program may not write beside
// itself, as an installed one may not. Nothing is created.
ProgramPaths ChooseProgramPaths(const std::filesystem::path& executable,
                                const std::filesystem::path& userDataFolder);

// ChooseProgramPaths for the running program and its user. Creates the Temp folder, without which nothing
// could be played or recovered.
ProgramPaths FindProgramPaths();

}  // namespace tembrel
