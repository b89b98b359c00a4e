#pragma once
// A catalogue of songs whose files are all there.

#include <string>

#include "data/accesser_resource.h"
#include "data/data_session.h"
#include "data/labels.h"
#include "support/temporary_folder.h"
#include "support/test_sounds.h"

namespace training_tests {

// One of the catalogue's songs: WAV, a minute long, with an intro of ten seconds.
DataResource songIn(const test_support::TemporaryFolder& folder, int number);

// Adds songs up to that number.
void fillCatalogue(AccesserResource& catalogue, const test_support::TemporaryFolder& folder, int songs);

// Intros at normal speed, ten seconds at most.
DataSession settings(int quests, int multi = 1);

} // namespace training_tests
