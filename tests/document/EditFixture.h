// A document with sound, a listener that counts, and a check of its temporary copy.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "audio/WaveWriter.h"
#include "document/Document.h"
#include "tests/document/DocumentFixture.h"
#include "tests/support/EditClips.h"
#include "tests/support/FileBytes.h"

namespace tembrel::test {

class CountingListener : public DocumentListener {
 public:
  void SoundChanged(bool lengthsRefreshed) override {
    told.push_back(lengthsRefreshed);
    if (onTold) {
      onTold();
    }
  }
  std::vector<bool> told;
  std::function<void()> onTold;
};

class EditTest : public DocumentTest {
 protected:
  // A document over a file with this sound.
  std::unique_ptr<Document> Open(const WaveFormat& format, const Bytes& bytes, EditMemory memory = {}) {
    const std::filesystem::path path = scratch.Path() / "edited.wav";
    WriteWaveFile(bytes, format.nSamplesPerSec, format.wBitsPerSample, format.nChannels, path);
    auto document = std::make_unique<Document>(paths, 7, std::move(memory));
    EXPECT_EQ(document->LoadFile(path, path.string(), kDefaultPlayback), LoadOutcome::Loaded);
    document->SetListener(&listener);
    return document;
  }

  static Bytes ContentOf(const Document& document) { return BytesOfClip(*document.Clip()); }

  // What the temporary copy holds and what a new one would.
  void ExpectCopyUpToDate(const Document& document) const {
    const AudioClip& clip = *document.Clip();
    const std::filesystem::path fresh = scratch.Path() / "fresh.wav";
    WriteWaveFile(clip.Bytes(), clip.format.nSamplesPerSec, clip.format.wBitsPerSample, clip.format.nChannels,
                  fresh);
    ASSERT_EQ(ReadBytes(document.TempFileName()), ReadBytes(fresh));
  }

  CountingListener listener;
};

// A step made of any function of the editor.
inline EditStep StepOf(std::function<bool(ClipEditor&)> change) {
  return {.check = {},
          .change =
              [change = std::move(change)](ClipEditor& editor) {
                return change(editor) ? EditResult::Done() : EditResult::Refused(editor.RefusalText());
              },
          .marksChanged = true,
          .refreshesLengths = true};
}

}  // namespace tembrel::test
