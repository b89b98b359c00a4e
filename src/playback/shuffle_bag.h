#pragma once
// Random order without repeats.

#include <cstddef>
#include <span>
#include <vector>

class ShuffleBag {
public:
    // The row to be played after `current`: each row comes once before any comes again, and the one in hand
    // not first in a new round. With one row only it is that one. `numbers` are the catalogue numbers of all
    // rows, at least one.
    std::size_t draw(std::span<const int> numbers, std::size_t current);

private:
    std::vector<int> left_; // catalogue numbers still to come in this round
};
