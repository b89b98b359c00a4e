#pragma once

#include <string>
#include <vector>

#include "editors/file_index.h"
#include "platform/types.h"

// Adds the files to the catalogue as they are, shows how far it is, can be stopped, and tells at the end what
// became of them. What has been added stays.
void dlgAddRest(platform::WindowHandle owner, FileIndex& index, std::vector<std::string> files);
