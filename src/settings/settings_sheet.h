#pragma once
// The property sheet of the settings.

#include <string>

#include "data/data_application.h"
#include "platform/association.h"
#include "platform/types.h"

// Shows the settings and takes over what is applied; OK applies every page. When something was applied the
// file is written as the sheet closes, whole, so that file and memory agree, and after OK the host is told. A
// file that cannot be written is reported: what was applied holds until the program ends. `programFor` names
// the desktop's program for an extension, "" when there is none.
void dlgSettings(platform::WindowHandle owner, DataApplication& settings, const std::string& file,
                 std::string (*programFor)(const std::string& extension) = platform::programFor);
