#pragma once
// The ornamental border of the certificate, drawn as paths in the header of its page.

#include <string>
#include <string_view>

namespace makeborder {

// The document's styles.xml with the border drawn anew between its marks,
//   <!-- border: styles -->   ...  <!-- border: end -->
//   <!-- border: drawings --> ...  <!-- border: end -->
// and all the rest as it is. Throws std::runtime_error that names the mark which the text lacks.
std::string withBorder(std::string_view styles);

} // namespace makeborder
