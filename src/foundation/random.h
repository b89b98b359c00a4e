#pragma once
// Chance.

namespace zelkova {

// An integer, both ends included, each about as likely as the others as long as they are few beside RAND_MAX;
// -1 when `high` is below `low`. Every random choice of the program comes from here, out of the C library's
// generator, seeded from the clock at the first call.
int randomBetween(int low, int high);

} // namespace zelkova
