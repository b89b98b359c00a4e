#pragma once

#include <string>
#include <vector>

#include "platform/types.h"

// Adds files to the catalogue, one after the other in the order given, each in the song editor. For a file
// that the catalogue has already the host is asked first. With several files the host can stop between two of
// them, or have all that are left added as they are.
void addSongs(platform::WindowHandle owner, const std::vector<std::string>& files);
