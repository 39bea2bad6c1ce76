#include "device/SilentServices.h"

#include "device/DeviceErrors.h"

namespace tembrel {

namespace {

// No sound goes in or out.
class SilentDevice : public AudioDevice {
 public:
  DeviceError OpenPlayback(const std::filesystem::path&, std::int32_t) override { return kDeviceSuccess; }
  DeviceError Play() override { return kDeviceSuccess; }
  DeviceError StopPlayback() override { return kDeviceSuccess; }
  DeviceError ClosePlayback() override { return kDeviceSuccess; }
  DeviceError OpenRecording() override { return kDeviceSuccess; }
  DeviceError SetRecordingFormat(const FormatChoice&) override { return kDeviceSuccess; }
  DeviceError Record() override { return kServerAbsent; }
  DeviceError StopRecording() override { return kDeviceSuccess; }
  DeviceError SaveRecording(const std::filesystem::path&, const MoveProgress&) override {
    return kServerAbsent;
  }
  DeviceError CloseRecording() override { return kDeviceSuccess; }
  RecordingState AskRecording() override { return {}; }
  std::string ErrorText(DeviceError error) const override { return DeviceErrorText(error, {}); }
};

class SilentPlayer : public SoundPlayer {
 public:
  bool Play(const std::filesystem::path&, bool) override { return true; }
  void Stop() override {}
};

class NoMixer : public Mixer {
 public:
  int DeviceCount() const override { return 0; }
  std::optional<std::string> DeviceName(int) const override { return std::nullopt; }
  std::unique_ptr<MixerDevice> Open(int) override { return nullptr; }
};

}  // namespace

SoundServices SilentServices() {
  return {std::make_unique<SilentDevice>(), std::make_unique<SilentPlayer>(), std::make_unique<NoMixer>()};
}

}  // namespace tembrel
