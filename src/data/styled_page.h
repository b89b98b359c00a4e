#pragma once
// XML files as pages. Browsers no longer apply the stylesheet that a file on the disk names.

#include <string>

enum class StyledPage { NoStylesheet, Made, NotMade };

// Makes or replaces the page that the file's first stylesheet gives, in the encoding that the stylesheet asks
// for. A file that has moved names a stylesheet that is not there: the one of that name beside the file, or
// else in `sheetFolder`, stands in. Stylesheet and file may read further files of the stylesheet's own
// folder, nothing else, no network. When the page is not made `reason` tells why, and what stood at `page`
// stays.
StyledPage makeStyledPage(const std::string& file, const std::string& page, const std::string& sheetFolder,
                          std::string& reason);
