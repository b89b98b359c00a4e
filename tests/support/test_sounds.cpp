#include "support/test_sounds.h"

#include <bit>
#include <chrono>
#include <cmath>
#include <fstream>
#include <numbers>
#include <random>
#include <thread>

#include <gst/gst.h>

namespace test_support {
namespace {

std::string bytesOf(std::uint32_t value, int count, bool bigEndian = false) {
    std::string bytes;
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> 8 * (bigEndian ? count - 1 - i : i));
    return bytes;
}

enum WavCoding { wavInteger = 1, wavFloat = 3 };

std::string wavHeader(std::uint32_t rate, std::uint32_t bytesPerSample, std::uint32_t dataSize,
                      WavCoding coding = wavInteger) {
    return "RIFF" + bytesOf(36 + dataSize, 4) + "WAVEfmt " + bytesOf(16, 4) + bytesOf(coding, 2) +
           bytesOf(1, 2) + bytesOf(rate, 4) + bytesOf(rate * bytesPerSample, 4) + bytesOf(bytesPerSample, 2) +
           bytesOf(bytesPerSample * 8, 2) + "data" + bytesOf(dataSize, 4);
}

Samples mixed(const std::vector<double>& hertz, double noiseLevel) {
    std::minstd_rand random(7);
    std::uniform_real_distribution<double> noise(-noiseLevel, noiseLevel);
    Samples samples;
    for (double tone : hertz) {
        for (int i = 0; i < soundRate; ++i) {
            const double value =
                tone == 0 ? 0 : 0.5 * std::sin(2 * std::numbers::pi * tone * i / soundRate) + noise(random);
            samples.push_back(static_cast<std::int16_t>(value * 32767));
        }
    }
    return samples;
}

} // namespace

Samples tones(const std::vector<double>& hertz) {
    return mixed(hertz, 0);
}

Samples noisyTones(const std::vector<double>& hertz) {
    return mixed(hertz, 0.2);
}

void writeBytes(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

void writeSilence(const std::filesystem::path& path, int milliseconds) {
    constexpr int rate = 8000; // one byte each, 0x80 is silence
    writeBytes(path, wavHeader(rate, 1, static_cast<std::uint32_t>(milliseconds) * rate / 1000) +
                         std::string(static_cast<std::size_t>(milliseconds) * rate / 1000, '\x80'));
}

void writeWav(const std::filesystem::path& path, const Samples& samples) {
    const auto size = static_cast<std::uint32_t>(samples.size() * 2);
    std::string bytes = wavHeader(soundRate, 2, size);
    bytes.reserve(bytes.size() + size);
    for (std::int16_t sample : samples) {
        bytes += static_cast<char>(sample);
        bytes += static_cast<char>(sample >> 8);
    }
    writeBytes(path, bytes);
}

void writeFloatWav(const std::filesystem::path& path, const std::vector<float>& samples) {
    std::string bytes = wavHeader(soundRate, 4, static_cast<std::uint32_t>(samples.size() * 4), wavFloat);
    for (const float sample : samples)
        bytes += bytesOf(std::bit_cast<std::uint32_t>(sample), 4);
    writeBytes(path, bytes);
}

bool encode(const std::filesystem::path& path, const Samples& samples, const std::string& elements) {
    gst_init(nullptr, nullptr);
    const std::string wav = path.string() + ".raw.wav";
    writeWav(wav, samples);
    const std::string chain = "filesrc location=\"" + wav + "\" ! wavparse ! audioconvert ! " + elements +
                              " ! filesink location=\"" + path.string() + "\"";
    GstElement* pipeline = gst_parse_launch(chain.c_str(), nullptr);
    if (!pipeline) return false;
    gst_element_set_state(pipeline, GST_STATE_PLAYING);
    GstBus* bus = gst_element_get_bus(pipeline);
    GstMessage* message = gst_bus_timed_pop_filtered(
        bus, 20 * GST_SECOND, static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR));
    const bool done = message && GST_MESSAGE_TYPE(message) == GST_MESSAGE_EOS;
    if (message) gst_message_unref(message);
    gst_object_unref(bus);
    gst_element_set_state(pipeline, GST_STATE_NULL);
    gst_object_unref(pipeline);
    std::filesystem::remove(wav);
    return done;
}

void writeMidi(const std::filesystem::path& path, const std::vector<int>& notes, int tempo, int laterTempo) {
    const auto setTempo = [](int microseconds) {
        return std::string("\x00\xFF\x51\x03", 4) +
               bytesOf(static_cast<std::uint32_t>(microseconds), 3, true);
    };
    std::string track = setTempo(tempo) + std::string("\x00\xC0\x50", 3); // a square lead: steady and loud
    for (std::size_t i = 0; i < notes.size(); ++i) {
        if (i == notes.size() / 2) track += setTempo(laterTempo);
        track += std::string("\x00\x90", 2) + static_cast<char>(notes[i]) + '\x64';
        track += std::string("\x83\x60\x80", 3) + static_cast<char>(notes[i]) + '\x40'; // 480 ticks later
    }
    track += std::string("\x00\xFF\x2F\x00", 4);
    writeBytes(path, "MThd" + bytesOf(6, 4, true) + bytesOf(0, 2, true) + bytesOf(1, 2, true) +
                         bytesOf(480, 2, true) + "MTrk" +
                         bytesOf(static_cast<std::uint32_t>(track.size()), 4, true) + track);
}

double strongestTone(const std::vector<std::int16_t>& stereo, std::size_t fromFrame, std::size_t frames) {
    double best = 0, bestPower = -1;
    for (double hertz = 100; hertz <= 3000; hertz += 10) {
        const double factor = 2 * std::cos(2 * std::numbers::pi * hertz / soundRate);
        double last = 0, beforeLast = 0; // Goertzel's filter
        for (std::size_t i = fromFrame; i < fromFrame + frames && i * 2 < stereo.size(); ++i) {
            const double next = stereo[i * 2] + factor * last - beforeLast;
            beforeLast = last;
            last = next;
        }
        const double power = last * last + beforeLast * beforeLast - factor * last * beforeLast;
        if (power > bestPower) {
            bestPower = power;
            best = hertz;
        }
    }
    return best;
}

double loudness(const std::vector<std::int16_t>& stereo, std::size_t channel) {
    double sum = 0;
    for (std::size_t i = channel; i < stereo.size(); i += 2)
        sum += double{1} * stereo[i] * stereo[i];
    return stereo.empty() ? 0 : std::sqrt(sum / (static_cast<double>(stereo.size()) / 2));
}

std::function<void(const platform::CapturedBlock&)> CaptureLog::function() {
    return [this](const platform::CapturedBlock& block) {
        const std::lock_guard lock(mutex_);
        Sound& sound = sounds_[block.player];
        if (sound.stereo.empty()) sound.firstTick = block.tick;
        sound.lastTick = block.tick;
        sound.stereo.insert(sound.stereo.end(), block.samples, block.samples + block.frames * 2);
    };
}

CaptureLog::Sound CaptureLog::of(const void* player, std::size_t atLeastFrames) {
    for (int tries = 0;; ++tries) {
        {
            const std::lock_guard lock(mutex_);
            const Sound& sound = sounds_[player];
            if (sound.frames() >= atLeastFrames || tries == 500) return sound;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

void CaptureLog::clear() {
    const std::lock_guard lock(mutex_);
    sounds_.clear();
}

} // namespace test_support
