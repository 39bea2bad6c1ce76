// Saving documents and asking before one closes.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>

#include "document/Document.h"
#include "document/Prompts.h"

namespace tembrel {

// Saves the document under its own name, by its extension. On success the document is unchanged from then on.
// Whatever stands in the way is said in a message box, and the document and the file stay as they were:
// false. A document without a name is saved as by SaveDocumentAs.
bool SaveDocument(Document& document, Prompts& prompts);

// The same under any name, by its extension, overwriting what is there. The document keeps its own name.
bool SaveDocumentTo(const std::filesystem::path& path, Document& document, Prompts& prompts);

// Asks for a name and a format and saves there. The document keeps its own name: a later Save goes to the old
// file again. Only a document without a name takes the chosen one. Returns the path written, or nothing when
// the user stepped back or it failed (which was said).
std::optional<std::filesystem::path> SaveDocumentAs(Document& document, Prompts& prompts);

// What of a title the save prompt shows: its first 19 bytes.
std::string_view SavePromptTitle(std::string_view title);

// Whether the document may close: asks when it has changes. `saveActiveDocument` is the Save command, which
// saves the document that is active at that moment; when that fails, nothing closes.
bool CanClose(const Document& document, Prompts& prompts, const std::function<bool()>& saveActiveDocument);

}  // namespace tembrel
