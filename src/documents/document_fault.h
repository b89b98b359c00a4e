#pragma once
// What stands in the way of making a document.

#include <optional>
#include <string>

#include "foundation/data_pairs.h"

// Why a document was not made: a numbered message and what fills its text.
struct DocumentFault {
    int code;
    zelkova::DataPairsList pairs;
    bool earlierShown = false; // whether what was made before is opened in its place
};

// The master, or another file that the document is made of, is there but cannot be read; `why` is the
// reader's words, or "".
DocumentFault masterUnreadable(const std::string& path, const std::string& why);
// It is read, but a part of it that gets a text is not there.
DocumentFault masterLacks(const std::string& path, const std::string& element);
// The file could not be written; one that was made before still stands.
DocumentFault documentNotMade(const std::string& path);

// An office program has the document open: it would show the old one on, and put it in the place of the new
// one when it is saved there. The programs tell so by a file beside it, which a crash leaves behind: none of
// them has a document open that is not there.
std::optional<DocumentFault> openInEditor(const std::string& path);
