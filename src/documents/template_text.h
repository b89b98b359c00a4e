#pragma once
// Plain text files with placeholders.

#include <string>
#include <string_view>

#include "foundation/data_pairs.h"

// Makes or replaces the output: the master with every %Key% of it replaced by the pair's value, line by line,
// each line closed by a line feed. False when the master cannot be read or the output cannot be written,
// which then stays as it was.
bool expandTemplate(const std::string& masterPath, const std::string& outputPath,
                    const zelkova::DataPairsList& pairs);

// The text as it may stand in an XML file that declares Shift_JIS: markup escaped, characters that not every
// reader finds in that code as references, and control characters, of which XML allows hardly any, as blanks.
std::string xmlEscaped(std::string_view text);
