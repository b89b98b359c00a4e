#pragma once
// Lists of songs show which of them have lost their files.

#include "data/accesser_resource.h"
#include "platform/listview.h"

// Behind such a row.
inline constexpr platform::Color missingFileRed{250, 115, 115};

// Whether the song of that number has lost its file; one that the catalogue does not know has none to lose.
// The disk is asked once for each row, when it is first drawn. The row keeps the answer as its own number.
bool fileIsGone(platform::WindowHandle list, int row, int song, const AccesserResource& catalogue);

// The disk is asked again for that row.
void forgetFile(platform::WindowHandle list, int row);
