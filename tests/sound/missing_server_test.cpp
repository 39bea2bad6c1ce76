// Sound servers that are not there, do not answer, or die.
#include <chrono>
#include <cstdio>
#include <gtest/gtest.h>
#include <memory>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "device/DeviceErrors.h"
#include "tests/sound/RealSound.h"

namespace tembrel::test {
namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;

constexpr WaveFormat kStereo{kPcmTag, 2, 44100, 176400, 4, 16};
constexpr std::size_t kFrames = 20'000;

// Connections to it are taken by the system, and never looked at.
class DeafSocket {
 public:
  explicit DeafSocket(const std::filesystem::path& path) : listener(socket(AF_UNIX, SOCK_STREAM, 0)) {
    sockaddr_un place{};
    place.sun_family = AF_UNIX;
    path.string().copy(place.sun_path, sizeof place.sun_path - 1);
    open =
        bind(listener, reinterpret_cast<sockaddr*>(&place), sizeof place) == 0 && listen(listener, 100) == 0;
  }
  ~DeafSocket() { close(listener); }
  DeafSocket(const DeafSocket&) = delete;
  DeafSocket& operator=(const DeafSocket&) = delete;

  bool Open() const { return open; }

 private:
  int listener;
  bool open = false;
};

class MissingServer : public testing::Test {
 protected:
  MissingServer() {
    WriteBytes(folder / "a.wav", WaveFile(44100, 16, 2, NoiseBytes(kStereo, kFrames)));
    services = OpenSoundServices(folder.Path());
  }

  // Everything that would need a server.
  void ExpectAllToFail(DeviceError error, const std::string& text) const {
    EXPECT_EQ(services.device->OpenPlayback(folder / "a.wav", 0), kDeviceSuccess);
    EXPECT_EQ(services.device->Play(), error);
    EXPECT_EQ(services.device->StopPlayback(), kDeviceSuccess);
    EXPECT_EQ(services.device->ClosePlayback(), kDeviceSuccess);
    EXPECT_EQ(services.device->OpenRecording(), kDeviceSuccess);
    EXPECT_EQ(services.device->SetRecordingFormat(kDefaultPlayback), kDeviceSuccess);
    EXPECT_EQ(services.device->Record(), error);
    EXPECT_EQ(services.device->ErrorText(error), text);
    EXPECT_EQ(services.device->StopRecording(), kDeviceSuccess);
    EXPECT_EQ(services.device->CloseRecording(), kDeviceSuccess);
    EXPECT_TRUE(services.player->Play(folder / "a.wav", true));
    services.player->Stop();
    EXPECT_EQ(services.mixer->DeviceCount(), 0);
    EXPECT_EQ(services.mixer->DeviceName(0), std::nullopt);
    EXPECT_EQ(services.mixer->Open(0), nullptr);
  }

  ScratchFolder folder;
  EnvironmentValue home{"HOME", folder.Path().string()};
  EnvironmentValue config{"XDG_CONFIG_HOME", folder.Path().string()};
  EnvironmentValue runtime{"XDG_RUNTIME_DIR", folder.Path().string()};
  EnvironmentValue address{"PULSE_SERVER", "unix:" + (folder / "socket").string()};
  SoundServices services;
};

TEST_F(MissingServer, LeavesEverythingSilent) {
  for (int i = 0; i < 3; ++i) {
    ExpectAllToFail(kServerAbsent, "The sound server could not be reached.");
  }
}

// Of dozens of calls one waits, and for a second: if two did or it took the library's own thirty seconds,
// this would be long over.
TEST_F(MissingServer, OneThatHangsIsWaitedForOnce) {
  const DeafSocket socket(folder / "socket");
  ASSERT_TRUE(socket.Open());
  const auto start = steady_clock::now();
  for (int i = 0; i < 20; ++i) {
    ExpectAllToFail(kServerHung, "The sound server does not answer.");
  }
  EXPECT_LT(steady_clock::now() - start, seconds(20));
}

// Streams that the server has, whoever made them. Not by the code under test.
std::ptrdiff_t CountStreams(const std::string& kind) {
  const std::unique_ptr<FILE, int (*)(FILE*)> list(popen(("pactl list short " + kind).c_str(), "r"), pclose);
  std::ptrdiff_t lines = 0;
  for (int letter = std::fgetc(list.get()); letter != EOF; letter = std::fgetc(list.get())) {
    lines += letter == '\n' ? 1 : 0;
  }
  return lines;
}

using DyingServer = RealSound;

TEST_F(DyingServer, MakesPlayingSilentAndIsFoundAgain) {
  const Bytes data = NoiseBytes(kStereo, 10 * kFrames);
  const auto path = Write("a.wav", kStereo, data);
  {
    const SoundTap tap("out.monitor");
    ASSERT_EQ(services.device->OpenPlayback(path, 0), kDeviceSuccess);
    ASSERT_EQ(services.device->Play(), kDeviceSuccess);
    ASSERT_TRUE(tap.WaitForSound());
    server->Kill();
  }
  EXPECT_EQ(services.device->StopPlayback(), kDeviceSuccess);
  EXPECT_TRUE(Eventually([&] {
    // Until the end of the connection was noticed there still seems to be a server.
    services.device->StopPlayback();
    return services.device->Play() == kServerAbsent;
  }));
  EXPECT_EQ(services.device->ClosePlayback(), kDeviceSuccess);
  server->Start();
  ASSERT_TRUE(server->Running());
  const SoundTap tap("out.monitor");
  ASSERT_EQ(services.device->OpenPlayback(path, 0), kDeviceSuccess);
  ASSERT_EQ(services.device->Play(), kDeviceSuccess);
  ASSERT_TRUE(tap.WaitForFrames(kFrames));
  const std::vector<StereoFrame> all = AsHeard(kStereo, data);
  const std::vector<StereoFrame> heard = tap.Heard();
  EXPECT_TRUE(heard.size() <= all.size() && std::equal(heard.begin(), heard.end(), all.begin()));
}

TEST_F(DyingServer, ThatFreezesIsWaitedForOnceAndUsedAgainWhenItAnswers) {
  ASSERT_EQ(services.mixer->DeviceCount(), 1);
  EXPECT_FALSE(services.mixer->Hangs());
  server->Freeze();
  const auto start = steady_clock::now();
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(services.mixer->Open(0)->SourceCount(0), 0);
    EXPECT_EQ(services.device->OpenRecording(), kDeviceSuccess);
    EXPECT_EQ(services.device->Record(), kServerHung);
    EXPECT_EQ(services.device->CloseRecording(), kDeviceSuccess);
  }
  EXPECT_LT(steady_clock::now() - start, seconds(20));
  EXPECT_TRUE(services.mixer->Hangs());
  server->Wake();
  EXPECT_TRUE(Eventually([&] { return services.mixer->Open(0)->SourceCount(0) == 3; }));
  EXPECT_FALSE(services.mixer->Hangs());
}

// The server makes in the end what it was asked for while it hung.
TEST_F(DyingServer, MakesNoStreamThatWasGivenUpWhileItHung) {
  const auto path = Write("a.wav", kStereo, NoiseBytes(kStereo, 10 * kFrames));
  ASSERT_EQ(services.mixer->DeviceCount(), 1);
  server->Freeze();
  EXPECT_EQ(services.device->OpenRecording(), kDeviceSuccess);
  EXPECT_EQ(services.device->Record(), kServerHung);
  EXPECT_EQ(services.device->CloseRecording(), kDeviceSuccess);
  EXPECT_EQ(services.device->OpenPlayback(path, 0), kDeviceSuccess);
  services.device->Play();
  services.device->StopPlayback();
  EXPECT_EQ(services.device->ClosePlayback(), kDeviceSuccess);
  server->Wake();
  // The server has seen to all of the above before it answers this.
  ASSERT_TRUE(Eventually([&] { return services.mixer->Open(0)->SourceCount(0) == 3; }));
  EXPECT_TRUE(Eventually([] { return CountStreams("source-outputs") == 0; }));
  EXPECT_TRUE(Eventually([] { return CountStreams("sink-inputs") == 0; }));
  // One that is made meanwhile is counted.
  EXPECT_EQ(services.device->OpenRecording(), kDeviceSuccess);
  EXPECT_EQ(services.device->Record(), kDeviceSuccess);
  EXPECT_EQ(CountStreams("source-outputs"), 1);
}

TEST_F(DyingServer, ThatHungAndWasRestartedIsFoundByTheNextCall) {
  ASSERT_EQ(services.mixer->DeviceCount(), 1);
  server->Freeze();
  EXPECT_EQ(services.device->OpenRecording(), kDeviceSuccess);
  EXPECT_EQ(services.device->Record(), kServerHung);
  server->Kill();
  ASSERT_TRUE(Eventually([&] { return services.device->Record() == kServerAbsent; }));
  server->Start();
  ASSERT_TRUE(server->Running());
  EXPECT_EQ(services.device->Record(), kDeviceSuccess);
  EXPECT_EQ(services.device->CloseRecording(), kDeviceSuccess);
}

TEST_F(DyingServer, WhilePlayingAndRecordingEndsWithTheProgram) {
  ASSERT_EQ(services.device->OpenPlayback(Write("a.wav", kStereo, NoiseBytes(kStereo, 10 * kFrames)), 0),
            kDeviceSuccess);
  ASSERT_EQ(services.device->Play(), kDeviceSuccess);
  ASSERT_EQ(services.device->OpenRecording(), kDeviceSuccess);
  ASSERT_EQ(services.device->Record(), kDeviceSuccess);
  ASSERT_TRUE(Eventually([&] { return services.device->AskRecording().milliseconds > 0; }));
  server->Freeze();
  services = {};
}

}  // namespace
}  // namespace tembrel::test
