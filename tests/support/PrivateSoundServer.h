// A sound server of the test's own, which the program finds in the place of the user's: null sinks, whose
// monitors give what was played, sample for sample. It ends with the test.
#pragma once

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/EnvironmentValue.h"
#include "tests/support/Eventually.h"
#include "tests/support/FileBytes.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel::test {

class PrivateSoundServer {
 public:
  // The sinks: what is played goes to "out", or to the one that `playTo` names; "out48" runs at 48 kHz, the
  // others at 44.1. The default source is the monitor of "in".
  explicit PrivateSoundServer(const std::string& playTo = "out") : sink("PULSE_SINK", playTo) {
    WriteText(folder / "setup",
              "load-module module-native-protocol-unix auth-anonymous=1 socket=" + SocketPath() + "\n" +
                  NullSink("out", 44100) + NullSink("out48", 48000) + NullSink("in", 44100) +
                  "set-default-sink out\nset-default-source in.monitor\n");
    Start();
  }
  ~PrivateSoundServer() { Kill(); }
  PrivateSoundServer(const PrivateSoundServer&) = delete;
  PrivateSoundServer& operator=(const PrivateSoundServer&) = delete;

  static bool Installed() { return std::system("command -v pulseaudio >/dev/null") == 0; }

  // False when it did not come up.
  bool Running() const { return running; }

  void Start() {
    process = fork();
    if (process == 0) {
      BecomeServer();
    }
    running = Eventually([this] { return Answers() || Gone(); }) && !Gone();
  }

  // As a crash does.
  void Kill() {
    if (process > 0) {
      kill(process, SIGKILL);
      waitpid(process, nullptr, 0);
      process = 0;
    }
  }

  // It hangs until it is woken.
  void Freeze() const { kill(process, SIGSTOP); }
  void Wake() const { kill(process, SIGCONT); }

 private:
  std::string SocketPath() const { return (folder / "socket").string(); }

  static std::string NullSink(const std::string& name, int rate) {
    return "load-module module-null-sink sink_name=" + name + " rate=" + std::to_string(rate) +
           " channels=2 format=s16le norewinds=1\n";
  }

  [[noreturn]] void BecomeServer() const {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int log = open((folder / "log").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(log, STDOUT_FILENO);
    dup2(log, STDERR_FILENO);
    unsetenv("DISPLAY");
    unsetenv("PULSE_SERVER");
    setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere", 1);
    execlp("pulseaudio", "pulseaudio", "-n", "-F", (folder / "setup").c_str(), "--daemonize=no",
           "--use-pid-file=no", "--exit-idle-time=-1", "--disallow-exit=yes", static_cast<char*>(nullptr));
    _exit(127);
  }

  bool Gone() {
    if (process > 0 && waitpid(process, nullptr, WNOHANG) == process) {
      process = 0;
    }
    return process <= 0;
  }

  bool Answers() const {
    sockaddr_un place{};
    place.sun_family = AF_UNIX;
    SocketPath().copy(place.sun_path, sizeof place.sun_path - 1);
    const int client = socket(AF_UNIX, SOCK_STREAM, 0);
    const bool answers = connect(client, reinterpret_cast<sockaddr*>(&place), sizeof place) == 0;
    close(client);
    return answers;
  }

  ScratchFolder folder;
  EnvironmentValue home{"HOME", folder.Path().string()};
  EnvironmentValue config{"XDG_CONFIG_HOME", folder.Path().string()};
  EnvironmentValue runtime{"XDG_RUNTIME_DIR", folder.Path().string()};
  EnvironmentValue address{"PULSE_SERVER", "unix:" + SocketPath()};
  EnvironmentValue sink;
  pid_t process = 0;
  bool running = false;
};

}  // namespace tembrel::test
