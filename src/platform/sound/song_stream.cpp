#include "platform/sound/song_stream.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <functional>
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
constexpr int stepMs = 20;      // how long one wait for the library lasts before new wishes are looked at
constexpr int pieceWaits = 100; // of them in a row, and the rest of a piece is given up

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
    // The first one told is the length.
    void publishLength(int milliseconds) {
        if (lengthKnown) return;
        length = milliseconds;
        lengthKnown = true;
        measured.notify_all();
    }

    bool hungry() const { return open && (!prepared || (!ended && queue.frames() < aheadFrames)); }
};

// The thread's side. Each step takes one wish or one piece of sound, works with the lock open, and keeps the
// result only when nothing else was wished for meanwhile.
class SongStream::Worker {
public:
    explicit Worker(std::shared_ptr<State> state) : state_(std::move(state)), lock_(state_->mutex) {}

    void run() {
        for (;;) {
            state_->wake.wait(lock_, [&] { return state_->newWish() || state_->hungry(); });
            if (state_->quit) break;
            if (state_->openWanted)
                open();
            else if (!state_->prepared)
                prepare();
            else if (state_->seekWanted)
                seek();
            else if (state_->direction == Direction::Forward)
                readForward();
            else
                readBackward();
        }
        lock_.unlock(); // the reader goes without it
    }

private:
    // False when the result is no longer wanted.
    bool unlocked(const std::function<void()>& work) {
        lock_.unlock();
        work();
        lock_.lock();
        return !state_->newWish();
    }

    // Measures first: the library may take its time, or never answer.
    void open() {
        state_->openWanted = false;
        const std::filesystem::path path = state_->path;
        int length = 0;
        bool isSound = false;
        unlocked([&] {
            if (path.empty()) return;
            FileWindow file(path);
            isSound = fileKind(file) != FileKind::None;
            length = fileLength(file);
        });
        if (state_->openWanted) return;
        if (length > 0) state_->publishLength(length);
        unlocked([&] {
            reader_.close();
            if (isSound) reader_.open(path);
        });
        if (state_->openWanted || path.empty()) return;
        state_->open = true;
    }

    void prepare() {
        ReadResult result = ReadResult::Waiting;
        int duration = 0;
        unlocked([&] {
            result = reader_.prepare(stepMs);
            if (result == ReadResult::Done) duration = reader_.duration();
        });
        if (state_->openWanted || result == ReadResult::Waiting) return;
        state_->prepared = true;
        state_->ended = result == ReadResult::End;
        state_->publishLength(duration);
    }

    void seek() {
        state_->seekWanted = false;
        if (state_->direction == Direction::Backward) return; // each piece seeks for itself
        const std::int64_t place = state_->place;
        bool found = false;
        if (unlocked([&] { found = reader_.seek(place); }) && !found) state_->ended = true;
    }

    void readForward() {
        ReadResult result = ReadResult::Waiting;
        frames_.clear();
        if (!unlocked([&] { result = reader_.read(frames_, stepMs); })) return;
        state_->queue.append(frames_);
        state_->ended = result == ReadResult::End;
    }

    // The library's own backward play is not offered by every container; decoding short pieces forward and
    // turning them round is.
    void readBackward() {
        const std::int64_t end = state_->place;
        const std::int64_t start = std::max<std::int64_t>(0, end - backwardFrames);
        frames_.clear();
        if (!unlocked([&] { readPiece(start, end); })) return;
        state_->queue.append(frames_);
        state_->place = start;
        state_->ended = start == 0 || frames_.empty();
    }

    void readPiece(std::int64_t start, std::int64_t end) {
        if (start == end || !reader_.seek(start)) return;
        const auto wanted = static_cast<std::size_t>(end - start) * channels;
        for (int waits = 0; frames_.size() < wanted && waits < pieceWaits;) {
            const ReadResult result = reader_.read(frames_, stepMs);
            if (result == ReadResult::End) break;
            waits += result == ReadResult::Waiting;
        }
        frames_.resize(wanted); // a song shorter than it said is silent there
        reverseFrames(frames_);
    }

    std::shared_ptr<State> state_;
    SongReader reader_;
    std::vector<float> frames_;
    std::unique_lock<std::mutex> lock_;
};

SongStream::SongStream() : state_(std::make_shared<State>()) {
    runInBackground([state = state_] { Worker(state).run(); });
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

bool SongStream::has(std::size_t count) {
    const std::lock_guard lock(state_->mutex);
    return state_->ended || state_->queue.frames() >= count;
}

void SongStream::assumeLength(int milliseconds) {
    const std::lock_guard lock(state_->mutex);
    state_->publishLength(milliseconds);
}

int SongStream::length(int waitMs, bool& known) {
    std::unique_lock lock(state_->mutex);
    state_->measured.wait_for(lock, std::chrono::milliseconds(waitMs), [&] { return state_->lengthKnown; });
    known = state_->lengthKnown;
    return state_->length;
}

} // namespace platform::sound
