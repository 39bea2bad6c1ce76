#include "audio/ProgramPaths.h"

#include <system_error>

#include "platform/Paths.h"

namespace tembrel {

namespace {

constexpr std::size_t kExecutableNameLength = 11;  // with the separator before it
constexpr std::size_t kLongestProgramFolder = 150;

}  // namespace

std::string ProgramFolder(const std::string& executablePath) {
  if (executablePath.size() < kExecutableNameLength) {
    return {};
  }
  return executablePath.substr(0, executablePath.size() - kExecutableNameLength)
      .substr(0, kLongestProgramFolder);
}

std::string TempWaveName(long long number) {
  return "temp" + std::to_string(number) + ".wav";
}

std::filesystem::path ProgramPaths::TempWavePath(long long number) const {
  return tempFolder / TempWaveName(number);
}

ProgramPaths PathsBelow(const std::filesystem::path& programFolder) {
  ProgramPaths paths;
  paths.programFolder = programFolder;
  paths.settingsFile = programFolder / "TEMBREL.INI";
  paths.helpPath = programFolder / "Tembrel.chm";
  paths.tempFolder = programFolder / "Temp";
  paths.sharedTempPath = paths.tempFolder / "~audio.wav";
  paths.toolInput = paths.tempFolder / "fin.wav";
  paths.toolOutput = paths.tempFolder / "fout.wav";
  paths.toolInput16 = paths.tempFolder / "fin16.wav";
  paths.toolOutput16 = paths.tempFolder / "fout16.wav";
  return paths;
}

ProgramPaths ChooseProgramPaths(const std::filesystem::path& executable,
                                const std::filesystem::path& userDataFolder) {
  const std::filesystem::path beside = ProgramFolder(executable.string());
  return PathsBelow(IsWritableFolder(beside) || userDataFolder.empty() ? beside : userDataFolder);
}

ProgramPaths FindProgramPaths() {
  ProgramPaths paths = ChooseProgramPaths(ExecutablePath(), UserDataFolder());
  // Without the folder there would be no playing and no recovery; the failure shows when a copy cannot be
  // written.
  std::error_code ignored;
  std::filesystem::create_directories(paths.tempFolder, ignored);
  return paths;
}

}  // namespace tembrel
