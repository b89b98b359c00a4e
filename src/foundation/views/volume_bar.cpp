#include "foundation/views/volume_bar.h"

#include "foundation/text.h"

void VolumeBar::setUp(int level) const {
    platform::setRange(bar, 0, 100);
    platform::setTickStep(bar, 10);
    platform::setPosition(bar, level);
    follow();
}

int VolumeBar::follow() const {
    const int level = platform::getPosition(bar);
    platform::setText(number, zelkova::numberToText(level));
    return level;
}
