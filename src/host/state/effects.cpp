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

void unloadSound(zelkova::Media& media) {
    media.stop();
    media.close();
}

void playEffect(zelkova::Media& media, const std::string& path) {
    if (loadSound(media, path)) media.play();
}
