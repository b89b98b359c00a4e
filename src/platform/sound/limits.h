#pragma once
// What every player accepts.

namespace platform::sound {

constexpr int normalSpeed = 1000;
constexpr int fullVolume = 1000;

constexpr bool isVolume(int thousandths) {
    return thousandths >= 0 && thousandths <= fullVolume;
}
constexpr bool isSpeed(int thousandths) {
    return thousandths >= 3 && thousandths <= 2267;
}

} // namespace platform::sound
