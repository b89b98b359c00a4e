#pragma once

#include <string>

#include "data/accesser_resource.h"
#include "platform/types.h"

// The way into the music catalogue: adding files, searching, the list of all songs.
void dialogControlList(platform::WindowHandle owner);

// Where the songs to add are looked for first: the folder of the song that was added last, with its final
// "/"; "" when there is none.
std::string folderOfNewestSong(const AccesserResource& catalogue);
