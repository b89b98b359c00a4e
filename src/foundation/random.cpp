#include "foundation/random.h"

#include <cstdint>
#include <cstdlib>
#include <ctime>

namespace zelkova {

int randomBetween(int low, int high) {
    if (high < low) return -1;
    [[maybe_unused]] static const bool seeded = (std::srand(static_cast<unsigned>(std::time(nullptr))), true);
    const std::int64_t count = std::int64_t{high} - low + 1;
    return static_cast<int>(std::rand() % count + low);
}

} // namespace zelkova
