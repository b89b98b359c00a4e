#pragma once
// Shift-JIS text on one side, the UTF-16 of the document on the other.

#include <string>
#include <string_view>

#include <xercesc/util/XercesDefs.hpp>

namespace xml {

// For a document: characters that no XML file may hold (most control characters) become blanks, so that what
// is written can be read again.
std::u16string fromSjis(std::string_view text);
// Null is "".
std::string toSjis(const XMLCh* text);

} // namespace xml
