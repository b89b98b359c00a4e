#include "platform/sound/voice.h"

#include <algorithm>

#include "platform/files.h"
#include "platform/sound/file_kind.h"

namespace platform::sound {
namespace {

// A file of which the library gives neither sound nor an error for so many blocks counts as played: whoever
// waits for its end goes on.
constexpr int starvedLimit = 5000 / blockMs;
constexpr std::chrono::seconds measureLimit{1};

} // namespace

bool Voice::open(const std::string& path) {
    close();
    const std::filesystem::path native = nativePath(path);
    FileWindow file(native);
    if (fileKind(file) == FileKind::None) return false;
    const std::lock_guard lock(mutex_);
    stream_.open(native);
    measureBy_ = Clock::now() + measureLimit;
    open_ = true;
    return true;
}

void Voice::close() {
    const std::lock_guard lock(mutex_);
    if (open_) stream_.close();
    open_ = false;
    playing_ = false;
    frame_ = 0;
    direction_ = Direction::Forward;
    speed_ = normalSpeed;
    changer_.setSpeed(speed_);
}

bool Voice::play(Direction direction) {
    const std::lock_guard lock(mutex_);
    if (!open_) return false;
    clipToSong();
    if (direction != direction_) {
        direction_ = direction;
        resetStream();
    }
    if (!playing_) {
        starting_ = true;
        asked_ = Clock::now();
    }
    playing_ = true;
    starved_ = 0;
    return true;
}

bool Voice::halt() {
    const std::lock_guard lock(mutex_);
    playing_ = false;
    sounding_ = false; // a play after this starts at its full volume
    return open_;
}

bool Voice::seek(int milliseconds) {
    const std::lock_guard lock(mutex_);
    if (!open_) return false;
    playing_ = false;
    sounding_ = false;
    const std::int64_t target = toFrames(std::max(0, milliseconds));
    if (target == frame_ && direction_ == Direction::Forward) return true; // the stream stands there already
    frame_ = target;
    direction_ = Direction::Forward;
    clipToSong();
    resetStream();
    return true;
}

int Voice::position() {
    const std::lock_guard lock(mutex_);
    if (!open_) return 0;
    bool known = false;
    const int length = stream_.length(0, known);
    const int place = toMilliseconds(frame_);
    return known ? std::min(place, length) : place;
}

int Voice::end() {
    // Not under the lock: the mixer must not wait with us.
    if (!open_) return 0;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(measureBy_ - Clock::now());
    bool known = false;
    return stream_.length(static_cast<int>(std::max<std::int64_t>(0, left.count())), known);
}

bool Voice::setVolume(int thousandths) {
    const std::lock_guard lock(mutex_);
    if (!isVolume(thousandths)) return false;
    volume_ = thousandths;
    return true;
}

bool Voice::setSpeed(int thousandths) {
    const std::lock_guard lock(mutex_);
    if (!open_ || !isSpeed(thousandths)) return false;
    speed_ = thousandths;
    changer_.setSpeed(speed_);
    return true;
}

void Voice::resetStream() {
    stream_.seek(frame_, direction_);
    changer_.forget();
}

// A place that was asked for before the song was measured may lie beyond it.
void Voice::clipToSong() {
    bool known = false;
    const std::int64_t length = toFrames(stream_.length(0, known));
    if (!known || length <= 0 || frame_ <= length) return;
    frame_ = length;
    if (direction_ == Direction::Backward) resetStream();
}

void Voice::finish() {
    playing_ = false;
    starting_ = false;
    // What never could be measured has ended here.
    stream_.assumeLength(toMilliseconds(frame_));
    bool known = false;
    frame_ = direction_ == Direction::Backward ? 0 : toFrames(stream_.length(0, known));
}

std::optional<Start> Voice::start() {
    const std::lock_guard lock(mutex_);
    if (!playing_ || !starting_) return std::nullopt;
    return Start{asked_, stream_.has(std::max<std::size_t>(1, changer_.framesFor(blockFrames)))};
}

bool Voice::render(Block& block, const Gains& master) {
    const std::lock_guard lock(mutex_);
    if (!playing_ || !take(block)) {
        sounding_ = false;
        return false;
    }
    const float volume = static_cast<float>(volume_) / fullVolume;
    for (std::size_t channel = 0; channel < channels; ++channel) {
        const float to = volume * master[channel];
        const float from = sounding_ ? lastGains_[channel] : to;
        const float step = (to - from) / blockFrames;
        for (std::size_t frame = 0; frame < blockFrames; ++frame)
            block[frame * channels + channel] *= from + step * static_cast<float>(frame + 1);
        lastGains_[channel] = to;
    }
    sounding_ = true;
    return true;
}

// Fills the block with the song at its speed and moves the place on.
bool Voice::take(Block& block) {
    const std::size_t wanted = changer_.framesFor(blockFrames);
    raw_.assign(wanted * channels, 0.0F);
    bool ended = false;
    std::size_t taken = wanted == 0 ? 0 : stream_.read(raw_.data(), wanted, ended);
    if (wanted > 0 && taken == 0) {
        if (ended || ++starved_ > starvedLimit) finish();
        return false;
    }
    starved_ = 0;
    starting_ = false;

    if (direction_ == Direction::Forward) {
        // The measured length is the end, even where a decoder adds a tail to it.
        bool known = false;
        const std::int64_t length = toFrames(stream_.length(0, known));
        if (known && length > 0 && frame_ + static_cast<std::int64_t>(taken) >= length) {
            taken = static_cast<std::size_t>(std::max<std::int64_t>(0, length - frame_));
            std::fill(raw_.begin() + static_cast<std::ptrdiff_t>(taken * channels), raw_.end(), 0.0F);
            ended = true;
        }
        frame_ += static_cast<std::int64_t>(taken);
    } else {
        frame_ = std::max<std::int64_t>(0, frame_ - static_cast<std::int64_t>(taken));
    }
    changer_.change(raw_, block);
    if (ended) finish();
    return true;
}

} // namespace platform::sound
