#pragma once
// One file as a run of frames, decoded by GStreamer. Used by one thread at a time.

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <vector>

#include "platform/sound/gst.h"

namespace platform::sound {

enum class ReadResult {
    Done,
    Waiting, // nothing yet; ask again
    End,     // of the song, or of what can be decoded of it
};

class SongReader {
public:
    ~SongReader() { close(); }

    // Starts to prepare the file and returns at once.
    void open(const std::filesystem::path& path);
    void close();
    // Waits at most so long for the preparation.
    ReadResult prepare(int waitMs);
    // Of a prepared song. 0 when the library does not know.
    int duration() const;
    // Exact to the frame. False when the file cannot be read from there.
    bool seek(std::int64_t frame);
    // Appends the next frames (interleaved stereo), every sample within -1 to 1.
    ReadResult read(std::vector<float>& frames, int waitMs);

private:
    void append(GstSample* sample, std::vector<float>& frames);

    Pipeline pipeline_;
    GstElement* sink_ = nullptr; // of the pipeline
    std::atomic<bool> failed_ = false;
    bool aligned_ = true;     // the next frame read is the one that was asked for
    std::int64_t target_ = 0; // that frame
};

} // namespace platform::sound
