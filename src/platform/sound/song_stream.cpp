#include "platform/sound/song_stream.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <vector>

#include "platform/sound/background.h"
#include "platform/sound/file_kind.h"
#include "platform/sound/format.h"
#include "platform/sound/song_reader.h"

namespace platform::sound {
namespace {

constexpr std::size_t aheadFrames = sampleRate / 2; // decoded ahead of the listener
constexpr std::int64_t backwardFrames = sampleRate / 2;
constexpr int stepMs = 20; // how long one wait for the library lasts before new wishes are looked at

// Frames in the order in which they will be heard.
class FrameQueue {
public:
    std::size_t frames() const { return (data_.size() - head_) / channels; }
    void clear() {
        data_.clear();
        head_ = 0;
    }
    void append(const std::vector<float>& more) {
        data_.erase(data_.begin(), data_.begin() + static_cast<std::ptrdiff_t>(head_));
        head_ = 0;
        data_.insert(data_.end(), more.begin(), more.end());
    }
    void take(float* out, std::size_t count) {
        std::memcpy(out, data_.data() + head_, count * channels * sizeof(float));
        head_ += count * channels;
    }

private:
    std::vector<float> data_;
    std::size_t head_ = 0;
};

void reverseFrames(std::vector<float>& frames) {
    for (std::size_t i = 0, j = frames.size(); i + channels < j; i += channels) {
        j -= channels;
        std::swap_ranges(frames.begin() + static_cast<std::ptrdiff_t>(i),
                         frames.begin() + static_cast<std::ptrdiff_t>(i + channels),
                         frames.begin() + static_cast<std::ptrdiff_t>(j));
    }
}

} // namespace

struct SongStream::State {
    std::mutex mutex;
    std::condition_variable wake;     // the thread has something to do
    std::condition_variable measured; // the length is known

    // Wishes.
    bool quit = false;
    bool openWanted = false;
    std::filesystem::path path; // empty: close
    bool seekWanted = false;
    std::int64_t place = 0; // the frame from which the thread goes on
    Direction direction = Direction::Forward;

    // What the thread has reached.
    bool open = false;
    bool prepared = false;
    bool ended = true;
    bool lengthKnown = true;
    int length = 0;
    FrameQueue queue;

    bool newWish() const { return quit || openWanted || seekWanted; }
    bool hungry() const { return open && (!prepared || (!ended && queue.frames() < aheadFrames)); }
};

SongStream::SongStream() : state_(std::make_shared<State>()) {
    runInBackground([state = state_] { work(state); });
}

SongStream::~SongStream() {
    const std::lock_guard lock(state_->mutex);
    state_->quit = true;
    state_->wake.notify_one();
}

void SongStream::open(const std::filesystem::path& path) {
    const std::lock_guard lock(state_->mutex);
    state_->openWanted = true;
    state_->path = path;
    state_->seekWanted = false;
    state_->place = 0;
    state_->direction = Direction::Forward;
    state_->open = false;
    state_->prepared = false;
    state_->ended = path.empty();
    state_->lengthKnown = path.empty();
    state_->length = 0;
    state_->queue.clear();
    state_->wake.notify_one();
}

void SongStream::close() {
    open({});
}

void SongStream::seek(std::int64_t frame, Direction direction) {
    const std::lock_guard lock(state_->mutex);
    state_->seekWanted = true;
    state_->place = frame;
    state_->direction = direction;
    state_->ended = false;
    state_->queue.clear();
    state_->wake.notify_one();
}

std::size_t SongStream::read(float* frames, std::size_t count, bool& ended) {
    const std::lock_guard lock(state_->mutex);
    const std::size_t there = state_->queue.frames();
    ended = state_->ended && there < count;
    if (there < count && !ended) return 0;
    const std::size_t taken = std::min(there, count);
    state_->queue.take(frames, taken);
    state_->wake.notify_one();
    return taken;
}

int SongStream::length(int waitMs, bool& known) {
    std::unique_lock lock(state_->mutex);
    state_->measured.wait_for(lock, std::chrono::milliseconds(waitMs), [&] { return state_->lengthKnown; });
    known = state_->lengthKnown;
    return state_->length;
}

void SongStream::work(const std::shared_ptr<State>& state) {
    SongReader reader;
    std::vector<float> frames;
    std::unique_lock lock(state->mutex);
    // Runs a piece of work unlocked. False when its result is no longer wanted.
    const auto outside = [&](const auto& piece) {
        lock.unlock();
        piece();
        lock.lock();
        return !state->newWish();
    };
    const auto publishLength = [&](int length) {
        state->length = length;
        state->lengthKnown = true;
        state->measured.notify_all();
    };

    for (;;) {
        state->wake.wait(lock, [&] { return state->newWish() || state->hungry(); });
        if (state->quit) {
            lock.unlock();
            return;
        }
        if (state->openWanted) {
            state->openWanted = false;
            const std::filesystem::path path = state->path;
            int length = 0;
            outside([&] {
                reader.close();
                if (path.empty()) return;
                reader.open(path);
                FileWindow file(path); // measured while the library prepares
                length = fileLength(file);
            });
            if (state->openWanted || path.empty()) continue;
            state->open = true;
            if (length > 0) publishLength(length);
        } else if (!state->prepared) {
            ReadResult result = ReadResult::Waiting;
            int duration = 0;
            outside([&] {
                result = reader.prepare(stepMs);
                if (result == ReadResult::Done) duration = reader.duration();
            });
            if (state->openWanted || result == ReadResult::Waiting) continue;
            state->prepared = true;
            state->ended = result == ReadResult::End;
            if (!state->lengthKnown) publishLength(duration);
        } else if (state->seekWanted) {
            state->seekWanted = false;
            const std::int64_t place = state->place;
            bool found = true;
            const bool forward = state->direction == Direction::Forward;
            if (outside([&] { found = !forward || reader.seek(place); }) && !found) state->ended = true;
        } else if (state->direction == Direction::Forward) {
            ReadResult result = ReadResult::Waiting;
            frames.clear();
            if (!outside([&] { result = reader.read(frames, stepMs); })) continue;
            state->queue.append(frames);
            state->ended = result == ReadResult::End;
        } else {
            // The library's own backward play is not offered by every container; decoding short pieces
            // forward and turning them round is.
            const std::int64_t end = state->place;
            const std::int64_t start = std::max<std::int64_t>(0, end - backwardFrames);
            const auto wanted = static_cast<std::size_t>(end - start) * channels;
            frames.clear();
            const bool wantedStill = outside([&] {
                if (start == end || !reader.seek(start)) return;
                for (int tries = 0; frames.size() < wanted && tries < 100;) {
                    const ReadResult result = reader.read(frames, stepMs);
                    if (result == ReadResult::End) break;
                    tries += result == ReadResult::Waiting;
                }
                frames.resize(wanted); // a song shorter than it said is silent there
                reverseFrames(frames);
            });
            if (!wantedStill) continue;
            state->queue.append(frames);
            state->place = start;
            state->ended = start == 0 || frames.empty();
        }
    }
}

} // namespace platform::sound
