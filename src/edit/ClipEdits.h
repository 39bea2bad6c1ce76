// Cut, copy, insert and the three ways to paste, as steps for Document::Edit. They are for the four layouts
// that can be edited. Selections are byte ranges and are cut down to the clip; one whose end does not lie
// behind its start is empty. The cursor is a frame; a negative one counts as 0.
#pragma once

#include <cstdint>
#include <string>

#include "edit/ClipChanges.h"
#include "edit/Clipboard.h"
#include "edit/EditStep.h"

namespace tembrel {

// The byte that is silence in 8-bit edits: one below the centre, drawn on the same line.
inline constexpr int kSilence8Edited = 127;

// The clipboard outlives the step. It keeps its content when the step fails.

// Moves the selection to the clipboard. A clip never becomes shorter than one byte: cutting all leaves the
// first.
EditStep CutEdit(const ByteRange& selection, Clipboard& clipboard);

// Copies the selection to the clipboard. Counts as an undo step although it changes nothing.
EditStep CopyEdit(const ByteRange& selection, Clipboard& clipboard);

// Puts silence of the selection's length in front of the selected sound. The byte at the selection's end
// keeps its value: the first byte of the sound that moved is lost.
EditStep InsertSilenceEdit(const ByteRange& selection);

// The paste edits are refused when rate, bits or channels of the clipboard differ from the document's.

// Opens the sound at the cursor for the clipboard. The byte behind the pasted sound keeps its value, as
// above.
EditStep PasteInsertEdit(const Clipboard& clipboard, std::int64_t cursorFrame);

// Adds the clipboard to the sound; a channel whose sum passes full scale is scaled down as a whole. In stereo
// the mix begins at half the cursor's frame, counted in samples: with an odd cursor the channels change
// places.
EditStep PasteMergeEdit(const Clipboard& clipboard, std::int64_t cursorFrame);

// Writes the clipboard over the sound from the cursor on, up to its end at most.
EditStep PasteOverwriteEdit(const Clipboard& clipboard, std::int64_t cursorFrame);

// "Can't paste to 16 bit mono 44100 Hz audio file."
std::string FormatMismatchText(const WaveFormat& documentFormat);

}  // namespace tembrel
