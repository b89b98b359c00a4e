#pragma once
// What a file holds beside what the program knows, kept when the file is written anew.

#include <xercesc/dom/DOMElement.hpp>

namespace xml {

// Adds to `now` what `earlier` has and `now` has not: attributes, and behind the elements of `now` whole
// elements, copied into its document. The same then holds for the first elements of each name that both have.
// An element that holds text alone in `now` keeps doing so.
void keepUnknown(const xercesc::DOMElement& earlier, xercesc::DOMElement& now);

// Takes away the blanks round elements below the node. The writer sets its own, and would set them beside
// those of the file that was read.
void dropBlanks(xercesc::DOMNode& node);

} // namespace xml
