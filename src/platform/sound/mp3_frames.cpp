#include "platform/sound/mp3_frames.h"

#include <algorithm>

#include "platform/sound/file_kind.h"

namespace platform::sound {
namespace {

constexpr std::uint64_t junkLimit = 64 * 1024;

// kbit/s by [table][index]: version 1 layers I, II, III, then versions 2 and 2.5 layer I, layers II and III.
constexpr std::uint16_t bitRates[5][15] = {
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256},
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},
};
constexpr std::uint32_t sampleRates[3] = {44100, 48000, 32000};

std::optional<Mp3Frame> frameAt(FileWindow& file, std::uint64_t offset) {
    const auto bytes = file.at(offset, 4);
    if (bytes.empty()) return std::nullopt;
    const std::uint32_t header = bigEndian(bytes);
    const unsigned version = header >> 19 & 3; // 3: version 1, 2: version 2, 0: version 2.5
    const unsigned layer = 4 - (header >> 17 & 3);
    const unsigned bitRateIndex = header >> 12 & 15;
    const unsigned sampleRateIndex = header >> 10 & 3;
    if (header >> 21 != 0x7FF || version == 1 || layer == 4 || sampleRateIndex == 3 || bitRateIndex == 0 ||
        bitRateIndex == 15)
        return std::nullopt;

    const bool version1 = version == 3;
    const unsigned table = version1 ? layer - 1 : layer == 1 ? 3 : 4;
    const std::uint32_t bitsPerSecond = bitRates[table][bitRateIndex] * 1000u;
    const std::uint32_t padding = header >> 9 & 1;
    const bool mono = (header >> 6 & 3) == 3;

    Mp3Frame frame;
    frame.offset = offset;
    frame.sampleRate = sampleRates[sampleRateIndex] >> (version1 ? 0 : version == 2 ? 1 : 2);
    frame.samples = layer == 1 ? 384 : layer == 3 && !version1 ? 576 : 1152;
    frame.bytes = layer == 1 ? (frame.samples / 32 * bitsPerSecond / frame.sampleRate + padding) * 4
                             : frame.samples / 8 * bitsPerSecond / frame.sampleRate + padding;
    frame.format = header & 0xFFFE0C00; // version, layer and sample rate; the bit rate may vary
    frame.sideEnd = layer != 3 ? 0 : 4 + (version1 ? (mono ? 17 : 32) : (mono ? 9 : 17));
    return frame;
}

// Frames follow in one format, as far as the file goes; so chance bytes are not taken for one.
bool followedBy(FileWindow& file, const Mp3Frame& frame, int count) {
    const std::uint64_t end = frame.offset + frame.bytes;
    if (count == 0 || end == file.size()) return end <= file.size();
    const auto next = frameAt(file, end);
    return next && next->format == frame.format && followedBy(file, *next, count - 1);
}

std::uint64_t afterTags(FileWindow& file) {
    std::uint64_t offset = 0;
    for (;;) {
        const auto head = file.at(offset, 10);
        if (head.empty() || head[0] != 'I' || head[1] != 'D' || head[2] != '3') return offset;
        std::uint64_t size = 0;
        for (std::size_t i = 6; i < 10; ++i)
            size = size << 7 | (head[i] & 0x7F);
        const bool footer = (head[5] & 0x10) != 0;
        offset += 10 + size + (footer ? 10 : 0);
    }
}

} // namespace

std::optional<Mp3Frame> firstMp3Frame(FileWindow& file) {
    const std::uint64_t start = afterTags(file);
    for (std::uint64_t offset = start; offset < start + junkLimit && offset < file.size(); ++offset) {
        const auto frame = frameAt(file, offset);
        if (frame && followedBy(file, *frame, 2)) return frame;
    }
    return std::nullopt;
}

std::optional<Mp3Frame> nextMp3Frame(FileWindow& file, const Mp3Frame& frame) {
    const std::uint64_t expected = frame.offset + frame.bytes;
    for (std::uint64_t offset = expected; offset < file.size(); ++offset) {
        const auto next = frameAt(file, offset);
        if (!next || next->format != frame.format || offset + next->bytes > file.size()) continue;
        if (offset == expected || followedBy(file, *next, 1)) return next;
    }
    return std::nullopt;
}

bool isMp3Index(FileWindow& file, const Mp3Frame& frame) {
    const auto tagAt = [&](std::uint64_t offset) {
        const auto bytes = file.at(frame.offset + offset, 4);
        return bytes.empty() ? 0u : bigEndian(bytes);
    };
    const std::uint32_t tag = frame.sideEnd == 0 ? 0 : tagAt(frame.sideEnd);
    return tag == 0x58696E67 || tag == 0x496E666F ||        // "Xing", "Info"
           (frame.sideEnd != 0 && tagAt(36) == 0x56425249); // "VBRI"
}

double mp3Seconds(FileWindow& file) {
    auto frame = firstMp3Frame(file);
    if (frame && isMp3Index(file, *frame)) frame = nextMp3Frame(file, *frame);
    if (!frame) return 0;
    const double sampleRate = frame->sampleRate;
    std::uint64_t samples = 0;
    for (; frame; frame = nextMp3Frame(file, *frame))
        samples += frame->samples;
    return static_cast<double>(samples) / sampleRate;
}

} // namespace platform::sound
