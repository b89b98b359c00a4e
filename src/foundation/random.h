#pragma once

namespace zelkova {

// A uniform integer, both ends included; -1 when `high` is below `low`. Every random choice of the program
// comes from here, out of the C library's generator, seeded from the clock at the first call.
int randomBetween(int low, int high);

} // namespace zelkova
