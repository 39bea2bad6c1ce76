#include <iostream>
#include <string_view>

#include "app/VersionInfo.h"
#include "app/ui/tembrelApp.h"
#include "platform/OutputFile.h"

namespace {

constexpr std::string_view kUsage =
    "usage: tembrel-qt [FILE]\n"
    "       tembrel-qt --screenshot PNG [FILE]   save a picture of the window and quit\n"
    "       tembrel-qt --help | --version\n";

}  // namespace

int main(int argc, char** argv) {
  tembrel::SurviveFileSizeLimit();
  const std::string_view only = argc == 2 ? argv[1] : "";
  if (only == "--version") {
    std::cout << "Tembrel " << tembrel::CVersionInfo().Value(tembrel::VersionKey::FileVersion).value_or("")
              << "\n";
    return 0;
  }
  if (only == "--help") {
    std::cout << kUsage;
    return 0;
  }
  return tembrel::tembrelApp(argc, argv).Run();
}
