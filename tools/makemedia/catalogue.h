#pragma once
// What the recorded songs become in the program's own files.

#include "data/data_resource.h"
#include "makemedia/studio.h"

#include <filesystem>
#include <string>
#include <vector>

namespace makemedia {

// The catalogue's entry. Music is looked for beside the program's folder, in ../snd.
DataResource describe(const Song& song);

// Writes ResourceData.xml, or gives false with `error` set.
bool writeCatalogue(const std::vector<Song>& songs, const std::filesystem::path& folder, std::string& error);

} // namespace makemedia
