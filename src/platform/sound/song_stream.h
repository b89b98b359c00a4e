#pragma once
// A song that decodes itself ahead of its listener, on a thread of its own. Nothing here waits for the sound
// library; what was asked last is what the thread works towards, and a file that hangs the library hangs that
// thread alone.

#include <cstdint>
#include <filesystem>
#include <memory>

namespace platform::sound {

enum class Direction { Forward = 1, Backward = -1 };

class SongStream {
public:
    SongStream();
    ~SongStream();
    SongStream(const SongStream&) = delete;
    SongStream& operator=(const SongStream&) = delete;

    void open(const std::filesystem::path& path);
    void close();
    // The next frame that read() gives; going backward, the one before it comes first.
    void seek(std::int64_t frame, Direction direction);

    // Copies `count` frames, or none while they are not there yet. At the end of the song what is left comes,
    // and fewer than `count`; `ended` then tells so.
    std::size_t read(float* frames, std::size_t count, bool& ended);

    // So many frames can be read at once, or all that are left.
    bool has(std::size_t count);

    // Milliseconds. Waits at most so long for the file to be measured; `known` tells whether it was.
    int length(int waitMs, bool& known);
    // What the length counts as when it was not measured until now.
    void assumeLength(int milliseconds);

private:
    struct State;
    class Worker;

    std::shared_ptr<State> state_;
};

} // namespace platform::sound
