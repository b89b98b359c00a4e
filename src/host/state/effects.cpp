#include "host/state/effects.h"

bool loadSound(zelkova::Media& media, const std::string& path) {
    unloadSound(media);
    return media.open(path);
}

void playFromStart(zelkova::Media& media) {
    media.stop();
    media.seek(0);
    media.play();
}

bool soundIsOver(zelkova::Media& media, int end, int& place) {
    const int before = place;
    place = media.getPosition();
    return place >= end || place == before;
}

void unloadSound(zelkova::Media& media) {
    media.stop();
    media.close();
}

void playEffect(zelkova::Media& media, const std::string& path) {
    if (loadSound(media, path)) media.play();
}
