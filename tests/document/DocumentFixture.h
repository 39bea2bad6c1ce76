// A scratch program folder and small WAVE files in it, for tests of documents.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

#include "audio/ProgramPaths.h"
#include "audio/WaveWriter.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel::test {

class DocumentTest : public ::testing::Test {
 protected:
  DocumentTest() { std::filesystem::create_directories(paths.tempFolder); }

  // A WAVE file of `frames` frames whose bytes count upward.
  std::filesystem::path MakeWave(const std::string& name, std::size_t frames = 100, std::uint16_t bits = 16,
                                 std::uint16_t channels = 2, std::uint32_t rate = 44100) const {
    std::vector<std::byte> data(frames * channels * ((bits + 7U) / 8U));
    for (std::size_t i = 0; i < data.size(); ++i) {
      data[i] = static_cast<std::byte>(i);
    }
    std::filesystem::path path = scratch.Path() / name;
    WriteWaveFile(data, rate, bits, channels, path);
    return path;
  }

  static std::string Content(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  void MakeFile(const std::filesystem::path& path, const std::string& content) const {
    std::ofstream(path, std::ios::binary) << content;
  }

  std::vector<std::string> TempFiles() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(paths.tempFolder)) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }

  ScratchFolder scratch;
  ProgramPaths paths = PathsBelow(scratch.Path() / "program");
};

}  // namespace tembrel::test
