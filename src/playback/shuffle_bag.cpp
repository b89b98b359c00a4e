#include "playback/shuffle_bag.h"

#include <algorithm>

#include "foundation/random.h"

std::size_t ShuffleBag::draw(std::span<const int> numbers, std::size_t current) {
    if (left_.empty()) {
        left_.assign(numbers.begin(), numbers.end());
        left_.erase(left_.begin() + static_cast<std::ptrdiff_t>(current));
    }
    if (left_.empty()) return current;
    const auto drawn = left_.begin() + zelkova::randomBetween(0, static_cast<int>(left_.size()) - 1);
    const int number = *drawn;
    left_.erase(drawn);
    return static_cast<std::size_t>(std::ranges::find(numbers, number) - numbers.begin());
}
