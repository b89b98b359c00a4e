#pragma once

#include <vector>

#include "data/data_resource.h"
#include "support/program_folder.h"

namespace bench {

// So many records, sharing a few files of silence in the folder.
std::vector<DataResource> quietSongs(const test_support::ProgramFolder& folder, int count);

} // namespace bench
