// The mixers: what a sound server says, seen as devices, lines, selectors and volumes.
#include <gmock/gmock.h>

#include "device/RecordingSource.h"
#include "device/ServerMixer.h"
#include "tests/sound/RealSound.h"

namespace tembrel::test {
namespace {

using ::testing::ElementsAre;

// Two cards with an input each, a monitor of one, and a source without a card.
class PaperServer : public SoundServer {
 public:
  bool Reachable() override { return reachable; }
  bool Hangs() override { return hangs; }
  StreamResult StartPlayback(const SoundFormat&, PullSound) override { return {}; }
  StreamResult StartRecording(const SoundFormat&, PushSound, SoundLost) override { return {}; }
  std::vector<SoundCard> Cards() override { return {{4, "Built-in"}, {9, "USB"}}; }
  std::vector<SoundSource> Sources() override {
    return {{"a", "Microphone", 4}, {"b", "Line", 9}, {"c", "Monitor of Built-in", 4}, {"d", "Network", {}}};
  }
  std::string DefaultSource() override { return chosen; }
  bool SetDefaultSource(const std::string& name) override {
    chosen = name;
    return true;
  }
  std::optional<std::uint32_t> SourceVolume(const std::string& name) override {
    return name == "b" ? std::nullopt : std::optional(volume);
  }
  bool SetSourceVolume(const std::string& name, std::uint32_t value) override {
    volume = value;
    return name != "b";
  }

  bool reachable = true;
  bool hangs = false;
  std::string chosen = "c";
  std::uint32_t volume = 1000;
};

class TheMixer : public testing::Test {
 protected:
  std::vector<std::string> Lines(int device) {
    std::vector<std::string> names;
    const std::unique_ptr<MixerDevice> opened = mixer.Open(device);
    for (int i = 0; opened != nullptr && i < opened->SourceCount(0); ++i) {
      names.push_back(opened->SourceName(0, i).value_or("?"));
    }
    return names;
  }

  std::shared_ptr<PaperServer> server = std::make_shared<PaperServer>();
  ServerMixer mixer{server};
};

TEST_F(TheMixer, HasTheServerItselfAndEveryCard) {
  EXPECT_EQ(mixer.DeviceCount(), 3);
  EXPECT_EQ(mixer.DeviceName(0), "Sound server");
  EXPECT_EQ(mixer.DeviceName(1), "Built-in");
  EXPECT_EQ(mixer.DeviceName(2), "USB");
  EXPECT_EQ(mixer.DeviceName(3), std::nullopt);
  EXPECT_EQ(mixer.DeviceName(-1), std::nullopt);
  EXPECT_EQ(mixer.Open(3), nullptr);
  EXPECT_EQ(mixer.Open(-1), nullptr);
}

TEST_F(TheMixer, ListsTheSourcesOfEach) {
  EXPECT_THAT(Lines(0), ElementsAre("Microphone", "Line", "Monitor of Built-in", "Network"));
  EXPECT_THAT(Lines(1), ElementsAre("Microphone", "Monitor of Built-in"));
  EXPECT_THAT(Lines(2), ElementsAre("Line"));
}

TEST_F(TheMixer, SelectsOneSourceInReverseOrder) {
  const std::unique_ptr<MixerDevice> device = mixer.Open(0);
  EXPECT_THAT(*device->SelectorItems(0, SelectorKind::Multiplexer), ElementsAre(false, true, false, false));
  EXPECT_EQ(device->SelectorItems(0, SelectorKind::Mixer), std::nullopt);
  EXPECT_EQ(device->SelectorItems(1, SelectorKind::Multiplexer), std::nullopt);
  EXPECT_TRUE(device->SetSelectorItems(0, SelectorKind::Multiplexer, {true, false, false, false}));
  EXPECT_EQ(server->chosen, "d");
  EXPECT_FALSE(device->SetSelectorItems(0, SelectorKind::Multiplexer, {false, false, false, false}));
  EXPECT_FALSE(device->SetSelectorItems(0, SelectorKind::Multiplexer, {true}));
  EXPECT_FALSE(device->SetSelectorItems(0, SelectorKind::Mixer, {true, false, false, false}));
  EXPECT_EQ(server->chosen, "d");
}

TEST_F(TheMixer, ACardThatIsNotRecordedFromHasNothingSelected) {
  EXPECT_THAT(*mixer.Open(2)->SelectorItems(0, SelectorKind::Multiplexer), ElementsAre(false));
  EXPECT_EQ(SelectRecordingSource(mixer, 2, 0), 0);
  EXPECT_EQ(server->chosen, "b");
  EXPECT_EQ(CurrentRecordingSource(mixer, 0), 1);
}

TEST_F(TheMixer, VolumesAreOfSixteenBits) {
  const std::unique_ptr<MixerDevice> device = mixer.Open(0);
  EXPECT_EQ(device->SourceVolume(0, 0), (VolumeControl{0, 65535, 1000}));
  EXPECT_TRUE(device->SetSourceVolume(0, 0, 32767));
  EXPECT_EQ(server->volume, 32767U);
  EXPECT_TRUE(device->SetSourceVolume(0, 0, 65535));
  EXPECT_EQ(server->volume, kFullVolume);
  EXPECT_EQ(device->SourceVolume(0, 0)->value, 65535);
  server->volume = 90'000;
  EXPECT_EQ(device->SourceVolume(0, 0)->value, 65535);
  EXPECT_TRUE(device->SetSourceVolume(0, 0, 65535));
  EXPECT_EQ(server->volume, 90'000U);
  EXPECT_TRUE(device->SetSourceVolume(0, 0, 65534));
  EXPECT_EQ(server->volume, 65534U);
  EXPECT_TRUE(device->SetSourceVolume(0, 0, -5));
  EXPECT_EQ(server->volume, 0U);
}

TEST_F(TheMixer, WhatIsNotThereFails) {
  const std::unique_ptr<MixerDevice> device = mixer.Open(0);
  EXPECT_EQ(device->SourceVolume(0, 1), std::nullopt);
  EXPECT_FALSE(device->SetSourceVolume(0, 1, 5));
  for (const int source : {-1, 4}) {
    EXPECT_EQ(device->SourceVolume(0, source), std::nullopt);
    EXPECT_EQ(device->SourceName(0, source), std::nullopt);
    EXPECT_FALSE(device->SetSourceVolume(0, source, 5));
  }
  EXPECT_EQ(device->SourceCount(1), 0);
  server->reachable = false;
  EXPECT_EQ(mixer.DeviceCount(), 0);
  EXPECT_EQ(mixer.Open(0), nullptr);
  EXPECT_FALSE(mixer.Hangs());
  server->hangs = true;
  EXPECT_TRUE(mixer.Hangs());
}

using RealMixer = RealSound;

TEST_F(RealMixer, ListsSelectsAndSetsTheSourcesOfTheServer) {
  EXPECT_EQ(services.mixer->DeviceCount(), 1);
  const std::unique_ptr<MixerDevice> device = services.mixer->Open(0);
  ASSERT_NE(device, nullptr);
  ASSERT_EQ(device->SourceCount(0), 3);
  EXPECT_THAT(*device->SourceName(0, 0), ::testing::HasSubstr("Monitor of"));
  EXPECT_EQ(CurrentRecordingSource(*services.mixer, 0), 2);
  EXPECT_EQ(SelectRecordingSource(*services.mixer, 0, 1), 0);
  EXPECT_EQ(CurrentRecordingSource(*services.mixer, 0), 1);
  EXPECT_EQ(GetLineVolume(*services.mixer, 0, 1), 65535);
  EXPECT_EQ(SetLineVolume(*services.mixer, 0, 1, 32767), 0);
  EXPECT_EQ(GetLineVolume(*services.mixer, 0, 1), 32767);
  EXPECT_EQ(GetLineVolume(*services.mixer, 0, 0), 65535);
  EXPECT_EQ(SetLineVolume(*services.mixer, 0, 1, 65535), 0);
  EXPECT_EQ(GetLineVolume(*services.mixer, 0, 1), 65535);
}

}  // namespace
}  // namespace tembrel::test
