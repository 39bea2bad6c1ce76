// Who is told when a document's sound changes: the window that shows it.
#pragma once

namespace tembrel {

class DocumentListener {
 public:
  virtual ~DocumentListener() = default;
  // The sound was edited, undone or redone; clip, temporary copy and changed flag are already up to date.
  // Told after a cancelled edit too: the sound is as it was, but what was looked at meanwhile was not.
  // `lengthsRefreshed`: frame count, stereo flag or format may have changed too, tell the texts anew.
  virtual void SoundChanged(bool lengthsRefreshed) = 0;

 protected:
  DocumentListener() = default;
  DocumentListener(const DocumentListener&) = default;
  DocumentListener& operator=(const DocumentListener&) = default;
};

}  // namespace tembrel
