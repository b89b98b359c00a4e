#include "foundation/media.h"

#include <algorithm>

#include "foundation/path.h"
#include "foundation/text.h"
#include "platform/clock.h"

namespace zelkova {
namespace {

constexpr int normalSpeed = 1000;
constexpr int fullVolume = 1000;

// What a file of each type can do; an empty range of speeds refuses all.
struct TypeTraits {
    MediaType type;
    const char* extension;
    bool hasVolume;
    int minSpeed, maxSpeed;
};
constexpr TypeTraits typeTable[] = {
    {MediaType::WAV, "wav", false, 0, -1},
    {MediaType::MP3, "mp3", true, 3, 2267},
    {MediaType::WMA, "wma", true, 0, -1},
    {MediaType::MID, "mid", false, 0, -1},
};
constexpr TypeTraits unknownType = {MediaType::NONE, "", true, 0, 100000};

const TypeTraits& traitsOf(MediaType type) {
    const auto* found = std::find_if(std::begin(typeTable), std::end(typeTable),
                                     [&](const TypeTraits& traits) { return traits.type == type; });
    return found == std::end(typeTable) ? unknownType : *found;
}

MediaType typeOf(const std::string& fileName) {
    const std::string extension = toLowerSjis(getExtension(fileName));
    for (const TypeTraits& traits : typeTable) {
        if (extension == traits.extension) return traits.type;
    }
    return MediaType::NONE;
}

bool takesSpeed(MediaType type, int speed) {
    const TypeTraits& traits = traitsOf(type);
    return traits.minSpeed <= speed && speed <= traits.maxSpeed;
}

} // namespace

Media::~Media() {
    destroy();
}

void Media::destroy() {
    stop();
    if (opened) close();
    window.reset();
}

bool Media::create(platform::WindowHandle, unsigned, const char* fileName) {
    destroy();
    window = platform::soundDevice().createPlayer();
    if (window && fileName) window->open(fileName);
    return window != nullptr;
}

bool Media::open(const char* fileName) {
    return open(std::string(fileName ? fileName : ""));
}

bool Media::open(const std::string& fileName) {
    if (!window || !window->open(fileName)) return false;
    mediaType = typeOf(fileName);
    opened = true;
    standAt(0);
    // The player starts each file at normal speed and keeps its volume.
    const bool ownVolume = traitsOf(mediaType).hasVolume && volume >= 0;
    window->setVolume(ownVolume ? volume : fullVolume);
    if (speed != normalSpeed && takesSpeed(mediaType, speed)) window->setSpeed(speed);
    return true;
}

void Media::close() {
    if (window) window->close();
    opened = false;
}

bool Media::play() {
    if (!opened || !window->play()) return false;
    playStartPosition = window->position();
    playStartTick = platform::getTickCount();
    playing = true;
    return true;
}

bool Media::playReverse() {
    return window && window->playReverse();
}

bool Media::pause() {
    if (!playing || !window || !window->pause()) return false;
    playing = false;
    standAt(getPosition());
    if (isEstimated()) window->seek(playStartPosition);
    return true;
}

bool Media::stop() {
    if (!playing) return false;
    // Also when the file was closed meanwhile: the run is over either way.
    playing = false;
    playStartTick = noTick;
    return window && window->stop();
}

bool Media::seek(int position) {
    const bool found = window && window->seek(position);
    if (playing) return play();
    if (found) standAt(std::max(position, 0));
    return found;
}

void Media::standAt(int position) {
    playStartPosition = position;
    playStartTick = noTick;
}

bool Media::isStarting() {
    return playing && window && window->position() == playStartPosition &&
           platform::getTickCount() - playStartTick <= patienceMs;
}

int Media::getEnd() {
    return window ? window->end() : 0;
}

bool Media::isMeasuring(int waitMs) {
    return opened && window && window->isMeasuring(waitMs);
}

// The device's own position of an MP3 at another speed does not follow the sound.
bool Media::isEstimated() const {
    return mediaType == MediaType::MP3 && speed != 0 && speed != normalSpeed;
}

int Media::getPosition() {
    if (!window) return 0;
    if (!isEstimated()) return window->position();
    const std::uint32_t elapsed = playStartTick == noTick ? 0 : platform::getTickCount() - playStartTick;
    const std::int64_t position = std::int64_t{elapsed} * speed / normalSpeed + playStartPosition;
    return static_cast<int>(isMeasuring() ? position : std::min<std::int64_t>(position, getEnd()));
}

bool Media::setVolume(int level) {
    if (!window || !traitsOf(mediaType).hasVolume || level < 0 || level > fullVolume ||
        !window->setVolume(level))
        return false;
    volume = level;
    return true;
}

bool Media::setSpeed(int newSpeed) {
    if (!window || !takesSpeed(mediaType, newSpeed)) return false;
    // Reckoned at the speed that was heard until now; with the new one the song would jump.
    // Of a song that stands nobody asks: the answer may have to wait for its length.
    const int place = playing ? getPosition() : 0;
    if (!window->setSpeed(newSpeed)) return false;
    speed = newSpeed;
    if (playing && isEstimated()) {
        stop();
        seek(place);
        play();
    }
    return true;
}

void setMasterVolume(int level) {
    level = std::clamp(level, 0, 100);
    const auto channel = level == 0 ? 0u : static_cast<unsigned>(level * 655.36 - 1.0) & 0xFFFF;
    platform::soundDevice().setMasterVolume(channel | channel << 16);
}

} // namespace zelkova
