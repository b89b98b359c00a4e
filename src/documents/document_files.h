#pragma once
// What the dialogs that make documents do with files.

#include <optional>
#include <string>

#include "foundation/data_pairs.h"
#include "platform/types.h"

// Why a document was not made: a numbered message and what fills its text.
struct DocumentFault {
    int code;
    zelkova::DataPairsList pairs;
    bool earlierShown = false; // whether what was made before is opened in its place
};

// The file could not be written; one that was made before still stands, and editors lock what they show.
DocumentFault documentNotMade(const std::string& path);

// Tells the host of the fault, if there is one. Whether the document, or an earlier one, is to be opened.
bool reportFault(platform::WindowHandle owner, const std::optional<DocumentFault>& fault,
                 const std::string& document);
