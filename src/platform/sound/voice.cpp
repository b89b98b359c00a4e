#include "platform/sound/voice.h"

#include <algorithm>
#include <future>
#include <utility>

#include "platform/files.h"
#include "platform/sound/background.h"
#include "platform/sound/file_kind.h"

namespace platform::sound {
namespace {

// A file of which the library gives neither sound nor an error for so many blocks counts as played: whoever
// waits for its end goes on.
constexpr int starvedLimit = 5000 / blockMs;
// How long after its opening a file's length is waited for, and counts as one that may still come.
constexpr std::chrono::seconds measureLimit{1}, hopeLimit{60};
constexpr std::chrono::milliseconds headLimit{200};

// By its head. Whoever reads from a disk that sleeps waits for seconds, so that is not done here; such a file
// is given the benefit of the doubt.
bool mayBeSound(const std::filesystem::path& path) {
    const auto told = std::make_shared<std::promise<bool>>();
    std::future<bool> answer = told->get_future();
    const bool asked = runInBackground([told, path] {
        FileWindow file(path);
        told->set_value(fileKind(file) != FileKind::None);
    });
    return !asked || answer.wait_for(headLimit) != std::future_status::ready || answer.get();
}

// Milliseconds until then, from 0.
int remaining(std::chrono::steady_clock::time_point limit) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(limit - std::chrono::steady_clock::now());
    return static_cast<int>(std::max<std::int64_t>(0, left.count()));
}

} // namespace

bool Voice::open(const std::string& path) {
    close();
    const std::filesystem::path native = nativePath(path);
    if (!mayBeSound(native)) return false;
    const std::lock_guard lock(mutex_);
    stream_.open(native);
    opened_ = Clock::now();
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
    changer_ = {};
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
    bool known = false;
    return stream_.length(remaining(opened_ + measureLimit), known);
}

bool Voice::isMeasuring(int waitMs) {
    if (!open_) return false;
    const int left = remaining(opened_ + hopeLimit);
    bool known = false;
    stream_.length(std::min(waitMs, left), known);
    return !known && left > waitMs;
}

bool Voice::setVolume(int thousandths) {
    const std::lock_guard lock(mutex_);
    if (!isVolume(thousandths)) return false;
    volume_ = thousandths;
    return true;
}

bool Voice::setSpeed(int thousandths) {
    if (!isSpeed(thousandths)) return false;
    SpeedChanger changer(thousandths); // the mixer does not wait for its tables
    const std::lock_guard lock(mutex_);
    if (!open_) return false;
    std::swap(changer_, changer);
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
