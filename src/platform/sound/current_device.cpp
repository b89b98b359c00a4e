#include "platform/sound.h"

namespace platform {
namespace {

std::unique_ptr<SoundDevice>& current() {
    static std::unique_ptr<SoundDevice> device = makeSilentDevice();
    return device;
}

} // namespace

SoundDevice& soundDevice() {
    return *current();
}

void setSoundDevice(std::unique_ptr<SoundDevice> device) {
    current() = device ? std::move(device) : makeSilentDevice();
}

} // namespace platform
