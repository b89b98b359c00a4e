#pragma once
// Plain text files with placeholders.

#include <optional>
#include <string>
#include <string_view>

#include "documents/document_fault.h"
#include "foundation/data_pairs.h"

// Makes or replaces the output: the master with every %Key% of it replaced by the pair's value, line by line,
// each line closed by a line feed. A master that lacks the placeholder of a pair is refused, as one that
// lacks an element is: what the host typed there would not be on the page. With a fault the output stays as
// it was.
std::optional<DocumentFault> expandTemplate(const std::string& masterPath, const std::string& outputPath,
                                            const zelkova::DataPairsList& pairs);

// The text as it may stand in an XML file of any encoding: markup escaped, what readers of Shift_JIS do not
// agree on ("\", "~" and all beyond ASCII) as references, and control characters, of which XML allows hardly
// any, as blanks.
std::string xmlEscaped(std::string_view text);
