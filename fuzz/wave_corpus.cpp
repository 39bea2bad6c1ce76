// Writes the files the WAVE fuzzer starts from: one of every shape the reader tells apart, into the folder
// that is named.
#include <cstdio>
#include <filesystem>
#include <string>

#include "tests/support/FileBytes.h"
#include "tests/support/WaveBytes.h"

namespace tembrel::test {
namespace {

void WriteCorpus(const std::filesystem::path& folder) {
  const auto write = [&folder](const std::string& name, const Bytes& bytes) {
    WriteBytes(folder / name, bytes);
  };
  const Bytes format = Chunk("fmt ", Record(22050, 16, 2));
  const Bytes data = Chunk("data", CountingBytes(24));
  write("11025-8-1.wav", WaveFile(11025, 8, 1, CountingBytes(9)));
  write("44100-16-2.wav", WaveFile(44100, 16, 2, CountingBytes(24)));
  write("96000-24-6.wav", WaveFile(96000, 24, 6, CountingBytes(36)));
  write("no_data.wav", WaveFile(44100, 16, 2, {}));
  write("chunks_between.wav",
        Form("WAVE", {Chunk("LIST", CountingBytes(5)), format, Chunk("fact", {}), data}));
  write("data_before_format.wav", Form("WAVE", {data, format}));
  write("floating_point.wav", Form("WAVE", {Chunk("fmt ", Record(44100, 32, 1, 3)), data}));
  write("extensible.wav", Form("WAVE", {Chunk("fmt ", Record(44100, 16, 1, 0xFFFE)), data}));
  write("other_form.avi", Form("AVI ", {format, data}));
  Bytes second = Chunk("head", CountingBytes(3));
  Append(second, WaveFile(22050, 8, 2, CountingBytes(8)));
  write("form_is_second.wav", second);
  Bytes lying = WaveFile(22050, 8, 2, CountingBytes(8));
  Put32(lying, 40, 0x7FFFFFFF);
  write("data_chunk_longer_than_file.wav", lying);
}

}  // namespace
}  // namespace tembrel::test

int main(int argc, char** argv) {
  if (argc != 2) {
    std::puts("usage: wave_corpus FOLDER");
    return 1;
  }
  std::error_code error;
  std::filesystem::create_directories(argv[1], error);
  tembrel::test::WriteCorpus(argv[1]);
  return std::filesystem::is_directory(argv[1], error) ? 0 : 1;
}
