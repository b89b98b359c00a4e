#pragma once
// What an XML file says of its own bytes.

#include <string>
#include <string_view>

namespace xml {

// The encoding named in the declaration, in lower case; "" when none is. Files in a wide encoding answer "".
std::string declaredEncoding(std::string_view bytes);
// Under any of the names that are in use for code page 932.
bool namesShiftJis(std::string_view encoding);

} // namespace xml
