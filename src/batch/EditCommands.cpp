#include "batch/EditCommands.h"

#include <cstdint>

#include "edit/ClipEdits.h"

namespace tembrel {

namespace {

constexpr MousePoint kNoMouse{0.0, 0.0};

Failure SelectFrames(EditView& view, const Arguments& arguments) {
  for (std::size_t i = 0; i < 2; ++i) {
    if (Failure failure =
            arguments.Check(i, {i == 0 ? "START" : "END", ArgumentKind::Whole, -kAnyFrame, kAnyFrame})) {
      return "select: " + *failure;
    }
  }
  view.SetSelection(arguments.Whole(0), arguments.Whole(1), kNoMouse);
  return kSucceeded;
}

// select all | last | START END
Failure Select(BatchSession& session, const Arguments& arguments) {
  EditView& view = session.Current().View();
  if (arguments.Count() == 2) {
    if (Failure failure = SelectFrames(view, arguments)) {
      return failure;
    }
  } else if (arguments.Text(0) == "all") {
    view.SelectAll(kNoMouse);
  } else if (arguments.Text(0) == "last") {
    if (!view.HasLastRange()) {
      return "select last: nothing was selected before";
    }
    // The range that is remembered may lie behind the end by now.
    view.SelectLastRange(kNoMouse);
  } else {
    return "select takes all, last, or START and END, not \"" + arguments.Text(0) + "\"";
  }
  if (!session.Current().HasSelection()) {
    return "select: no valid selection results; it must cover at least two frames of the sound, which has " +
           std::to_string(view.SoundFrames());
  }
  return kSucceeded;
}

Failure Cursor(BatchSession& session, const Arguments& arguments) {
  session.Current().View().SetCursorPosition(arguments.Whole(0), false);
  return kSucceeded;
}

Failure Cut(BatchSession& session, const Arguments& /*arguments*/) {
  return session.Edit(CutEdit(session.Current().Selection(), session.SharedClipboard()), "cut", true);
}

Failure Copy(BatchSession& session, const Arguments& /*arguments*/) {
  return session.Edit(CopyEdit(session.Current().Selection(), session.SharedClipboard()), "copy", true);
}

Failure InsertSilence(BatchSession& session, const Arguments& /*arguments*/) {
  return session.Edit(InsertSilenceEdit(session.Current().Selection()), "insert-silence", true);
}

Failure Paste(BatchSession& session, const Arguments& arguments) {
  const Clipboard& clipboard = session.SharedClipboard();
  if (!clipboard.HasData()) {
    return "paste: the clipboard is empty";
  }
  const std::int64_t cursor = session.Current().View().CursorFrame();
  const std::string& mode = arguments.Text(0);
  if (mode == "insert") {
    return session.Edit(PasteInsertEdit(clipboard, cursor), "paste insert", false);
  }
  return mode == "merge" ? session.Edit(PasteMergeEdit(clipboard, cursor), "paste merge", false)
                         : session.Edit(PasteOverwriteEdit(clipboard, cursor), "paste overwrite", false);
}

Failure WhyNot(const EditResult& result, const std::string& task) {
  if (result.done) {
    return kSucceeded;
  }
  return result.message.empty() ? task + " could not be done" : result.message;
}

Failure Undo(BatchSession& session, const Arguments& /*arguments*/) {
  Document& document = session.Current().Doc();
  return document.CanUndo() ? WhyNot(document.Undo(), "undo") : Failure("there is nothing to undo");
}

Failure Redo(BatchSession& session, const Arguments& /*arguments*/) {
  Document& document = session.Current().Doc();
  return document.CanRedo() ? WhyNot(document.Redo(), "redo") : Failure("there is nothing to redo");
}

}  // namespace

std::vector<BatchCommand> EditCommands() {
  return {
      {.name = "select", .arguments = {{"all|last|START"}, {"END"}}, .run = Select, .optional = 1},
      {"cursor", {{"FRAME", ArgumentKind::Whole, -kAnyFrame, kAnyFrame}}, Needs::Document, Cursor},
      {"cut", {}, Needs::Selection, Cut},
      {"copy", {}, Needs::Selection, Copy},
      {"insert-silence", {}, Needs::Selection, InsertSilence},
      {"paste", {{"insert|merge|overwrite", ArgumentKind::Choice}}, Needs::Document, Paste},
      {"undo", {}, Needs::Document, Undo},
      {"redo", {}, Needs::Document, Redo},
  };
}

}  // namespace tembrel
