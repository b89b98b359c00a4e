#include "foundation/views/volume_bar.h"

#include "foundation/text.h"

void VolumeBar::setUp(int level, int low, int high) const {
    platform::setRange(bar, low, high);
    platform::setTickStep(bar, 10);
    platform::setPosition(bar, level);
    follow();
}

int VolumeBar::follow() const {
    const int level = platform::getPosition(bar);
    platform::setText(number, zelkova::numberToText(level));
    return level;
}
