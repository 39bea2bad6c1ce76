// A session of tembrel-batch in memory, with WAVE files in a scratch folder.
#pragma once

#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include "batch/BatchSession.h"
#include "batch/ScriptRunner.h"
#include "tests/support/FileBytes.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/WaveBytes.h"

namespace tembrel::test {

class BatchTest : public ::testing::Test {
 protected:
  // A WAVE file of `frames` frames of bytes that are told apart; its path in double quotes.
  std::string MakeWave(const std::string& name, std::size_t frames = 1000, std::uint32_t bits = 16,
                       std::uint32_t channels = 2, std::uint32_t rate = 44100) const {
    const std::size_t frameSize = std::size_t{bits} / 8 * channels;
    WriteBytes(scratch / name, WaveFile(rate, bits, channels, CountingBytes(frames * frameSize)));
    return Quoted(name);
  }
  // A file in the scratch folder, as a script names it.
  std::string Quoted(const std::string& name) const { return "\"" + (scratch / name).string() + "\""; }

  // Runs the lines as a script called "s" in a new session; what it printed is in `printed`.
  Failure Run(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
      text += line + "\n";
    }
    std::istringstream script(text);
    std::ostringstream output;
    BatchSession session(PathsBelow(scratch / "program"), output, nullptr);
    Failure failure = ScriptRunner(session).RunScript(script, "s");
    printed = output.str();
    return failure;
  }
  // What a script prints that must succeed.
  std::string Printed(const std::vector<std::string>& lines) {
    EXPECT_EQ(Run(lines), kSucceeded);
    return printed;
  }
  // The reason of a script that must fail, "" when it does not.
  std::string Reason(const std::vector<std::string>& lines) { return Run(lines).value_or(""); }
  // The value behind "key: " in what was printed.
  std::string Value(const std::string& key) const {
    const std::string mark = key + ": ";
    std::istringstream lines(printed);
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with(mark)) {
        return line.substr(mark.size());
      }
    }
    return "(no " + key + ")";
  }

  ScratchFolder scratch;
  std::string printed;
};

}  // namespace tembrel::test
