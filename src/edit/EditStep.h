// One edit as data: what it needs, what it does, and what follows from it. Document::Edit runs it.
#pragma once

#include <functional>
#include <string>

#include "audio/AudioClip.h"
#include "edit/ClipEditor.h"

namespace tembrel {

struct EditResult {
  bool done = false;
  std::string message;    // for the user when it was refused; empty when there is nothing to say
  bool isMistake = true;  // the message is an error; false for something merely to be known

  static EditResult Done() { return {true, {}, false}; }
  static EditResult Refused(std::string why) { return {false, std::move(why), true}; }
  static EditResult Noted(std::string what) { return {false, std::move(what), false}; }
  // The user stopped it: there is nothing to say.
  static EditResult Cancelled() { return {false, {}, false}; }
};

// What the editor refused last, as the step's result.
inline EditResult RefusalOf(const ClipEditor& editor) {
  return EditResult::Refused(editor.RefusalText());
}

struct EditStep {
  // Refuses before anything is recorded; empty when there is nothing to check.
  std::function<EditResult(const AudioClip& clip)> check;
  // Does the work. All that may fail comes before the first byte changes, except that the user may stop it
  // where the editor is asked for Proceed(). Empty: the step is recorded in the history and changes nothing.
  std::function<EditResult(ClipEditor& editor)> change;
  bool marksChanged = true;
  bool refreshesLengths = false;  // frame count, stereo flag and format texts are told anew
};

}  // namespace tembrel
