#include "platform/sound/mixer.h"

#include <algorithm>
#include <cmath>

#include "platform/clock.h"
#include "platform/sound/background.h"
#include "platform/sound/start_gate.h"

namespace platform::sound {
namespace {

constexpr auto blockTime = std::chrono::milliseconds(blockMs);
// A thread that was kept from running for longer goes on from now instead of catching up.
constexpr auto lateLimit = std::chrono::milliseconds(200);
// A card that takes blocks faster than they sound is no card.
constexpr auto earlyLimit = std::chrono::milliseconds(200);
constexpr std::chrono::seconds firstLookPause{1}, longestLookPause{60};
// A line that lasted so long was a good one: another is looked for at once.
constexpr std::chrono::seconds goodLine{10};

using Samples = std::array<std::int16_t, blockFrames * channels>;

void toSamples(const Block& block, Samples& samples) {
    std::transform(block.begin(), block.end(), samples.begin(), [](float value) {
        return static_cast<std::int16_t>(std::lround(std::clamp(value * 32768.0F, -32768.0F, 32767.0F)));
    });
}

// Takes a line apart without making anyone wait for a card that does not answer.
void dropLine(std::shared_ptr<OutputLine> line) {
    runInBackground([line = std::move(line)] {});
}

} // namespace

Mixer::Mixer(LineFinder findLine, std::function<void(const CapturedBlock&)> capture)
    : findLine_(std::move(findLine)), capture_(std::move(capture)), startTick_(getTickCount()),
      thread_([this] { run(); }) {}

Mixer::~Mixer() {
    quit_ = true;
    thread_.join();
    if (line_) dropLine(std::move(line_));
}

void Mixer::add(std::shared_ptr<Voice> voice, const void* owner) {
    const std::lock_guard lock(mutex_);
    entries_.push_back({std::move(voice), owner});
}

void Mixer::remove(const Voice& voice) {
    const std::lock_guard lock(mutex_);
    std::erase_if(entries_, [&](const Entry& entry) { return entry.voice.get() == &voice; });
}

void Mixer::run() {
    while (!quit_) {
        if (findLine_) lookForLine();
        waitForNextBlock();
        mixBlock();
        due_ += blockTime;
    }
}

void Mixer::waitForNextBlock() {
    if (line_ && due_ < Clock::now() + earlyLimit) {
        if (line_->waitForRoom()) {
            if (due_ < Clock::now() - lateLimit) due_ = Clock::now();
            return;
        }
        loseLine();
        due_ = Clock::now();
    }
    std::this_thread::sleep_until(due_);
    if (due_ < Clock::now() - lateLimit) due_ = Clock::now();
}

void Mixer::lookForLine() {
    if (lineToCome_.valid()) {
        if (lineToCome_.wait_for(std::chrono::seconds(0)) != std::future_status::ready) return;
        line_ = lineToCome_.get();
        lineSince_ = Clock::now();
        if (!line_) pauseLooking();
    } else if (!line_ && Clock::now() >= nextLook_) {
        // Opening a card can take its time; the show goes on by the clock meanwhile.
        auto found = std::make_shared<std::promise<std::shared_ptr<OutputLine>>>();
        lineToCome_ = found->get_future();
        if (runInBackground([found, findLine = findLine_] { found->set_value(findLine()); })) return;
        lineToCome_ = {};
        pauseLooking();
    }
}

void Mixer::loseLine() {
    dropLine(std::move(line_));
    line_.reset();
    if (Clock::now() - lineSince_ < goodLine) return pauseLooking();
    nextLook_ = Clock::now();
    lookPause_ = firstLookPause;
}

// Longer each time, so that a card that always fails is not opened without end.
void Mixer::pauseLooking() {
    nextLook_ = Clock::now() + lookPause_;
    lookPause_ = std::min(lookPause_ * 2, longestLookPause);
}

std::uint32_t Mixer::dueTick() const {
    const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(due_ - startTime_);
    return startTick_ + static_cast<std::uint32_t>(elapsed.count());
}

void Mixer::mixBlock() {
    {
        const std::lock_guard lock(mutex_);
        sounding_ = entries_;
    }
    const unsigned word = masterVolume_;
    const Gains master = {static_cast<float>(word & 0xFFFF) / 65535.0F,
                          static_cast<float>(word >> 16) / 65535.0F};
    starts_.clear();
    for (const Entry& entry : sounding_)
        if (const auto start = entry.voice->start()) starts_.push_back(*start);
    const auto now = Clock::now();
    Block mix = {};
    Block block;
    Samples samples;
    for (const Entry& entry : sounding_) {
        if (const auto start = entry.voice->start(); start && !mayStart(*start, starts_, now)) continue;
        if (!entry.voice->render(block, master)) continue;
        if (capture_) {
            toSamples(block, samples);
            capture_({entry.owner, dueTick(), samples.data(), blockFrames});
        }
        std::transform(mix.begin(), mix.end(), block.begin(), mix.begin(), std::plus<>());
    }
    if (line_) {
        limiter_.limit(mix);
        toSamples(mix, samples);
        line_->write(samples);
    }
    sounding_.clear(); // a voice goes with its player, not here
}

} // namespace platform::sound
