#include "document/Saving.h"

#include <memory>
#include <string>

#include "audio/WaveWriter.h"
#include "document/FileKind.h"
#include "document/StringTable.h"

namespace tembrel {

namespace {

constexpr std::size_t kLongestPromptTitle = 19;

WriteResult WriteWithProgress(const AudioClip& clip, const std::filesystem::path& path, Prompts& prompts) {
  const std::unique_ptr<ProgressDisplay> display = prompts.ShowProgress("Saving " + path.filename().string());
  const WaveFormat& format = clip.format;
  return SaveWaveFile(clip.Bytes(), format.nSamplesPerSec, format.wBitsPerSample, format.nChannels, path,
                      ProgressOf(*display));
}

}  // namespace

bool SaveDocumentTo(const std::filesystem::path& path, Document& document, Prompts& prompts) {
  const AudioClip* clip = document.Clip();
  if (clip == nullptr) {
    prompts.Error("There is no sound to save.");
    return false;
  }
  const FileKind kind = FileKindOf(path);
  if (kind == FileKind::Unknown) {
    prompts.Error(path.string() +
                  " was not saved: its name has no ending that tells a sound format. Use Save As.");
    return false;
  }
  if (kind != FileKind::Wave) {
    prompts.Error(path.string() + " was not saved: this version does not write " +
                  std::string(FileKindName(kind)) + " files yet.");
    return false;
  }
  if (!HasPackedFrames(clip->format)) {
    const bool hasGaps = clip->format.nBlockAlign > FrameSize(clip->format);
    prompts.Error(path.string() + " was not saved: every frame of this sound has " +
                  (hasGaps ? "bytes that belong to no sample" : "fewer bytes than its samples take") +
                  ", and Tembrel does not write such files.");
    return false;
  }
  if (clip->dataSize == 0) {
    // It would replace a file that opens by one that never does.
    prompts.Error(path.string() +
                  " was not saved: nothing is left of this sound, and a file without sound cannot be opened "
                  "again.");
    return false;
  }
  const WriteResult result = WriteWithProgress(*clip, path, prompts);
  if (!result.ok && !result.cancelled) {
    prompts.Error(path.string() + " could not be saved: " + result.reason + ".");
  }
  if (result.ok) {
    document.SetChanged(false);
  }
  return result.ok;
}

bool SaveDocument(Document& document, Prompts& prompts) {
  if (document.Clip() != nullptr && document.FileName().empty()) {
    return SaveDocumentAs(document, prompts).has_value();
  }
  return SaveDocumentTo(document.FileName(), document, prompts);
}

std::optional<std::filesystem::path> SaveDocumentAs(Document& document, Prompts& prompts) {
  const std::optional<SaveChoice> choice =
      prompts.AskSavePath(ParseFileFilters(StringResource(kStringSaveFilter)), document.FileName());
  if (!choice) {
    return std::nullopt;
  }
  const std::filesystem::path path = SaveAsPath(choice->path, choice->filter);
  if (!MayWrite(path, prompts) || !SaveDocumentTo(path, document, prompts)) {
    return std::nullopt;
  }
  if (document.FileName().empty()) {
    // There is no old file that a later Save could go back to.
    document.AdoptName(path.string());
  }
  return path;
}

std::string_view SavePromptTitle(std::string_view title) {
  return title.substr(0, kLongestPromptTitle);
}

bool CanClose(const Document& document, Prompts& prompts, const std::function<bool()>& saveActiveDocument) {
  if (!document.Changed()) {
    return true;
  }
  const std::string title(SavePromptTitle(StringResource(kStringLeavingTitle)));
  const std::string name = document.FileName().empty() ? "This document" : document.FileName();
  switch (prompts.AskYesNoCancel(name + " has been changed.  Do you wish to save?", title)) {
    case Answer::Yes:
      return saveActiveDocument();
    case Answer::No:
      return true;
    case Answer::Cancel:
      break;
  }
  return false;
}

}  // namespace tembrel
