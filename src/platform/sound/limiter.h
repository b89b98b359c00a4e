#pragma once
// Keeps several songs at once from crackling: turns the mix down as far as its loudest sample asks, at once,
// and up again within about a second. A mix that fits is left alone, and no sample can silence those after
// it.

#include <span>

namespace platform::sound {

class Limiter {
public:
    // One block of the mix; afterwards no sample lies beyond -1 to 1, whatever it was.
    void limit(std::span<float> block);

private:
    float gain_ = 1;
};

} // namespace platform::sound
