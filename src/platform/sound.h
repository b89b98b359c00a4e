#pragma once
// Sound: one device, many players. Two devices pass the same contract test: the GStreamer one, and a silent
// one whose positions follow the platform clock. Nothing here throws, blocks for long or shows anything; a
// file that cannot be played is silence. All of it is for the window thread.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace platform {

class SoundPlayer {
public:
    virtual ~SoundPlayer() = default;

    // Opens a WAV, MP3, WMA or MIDI file (Shift-JIS path, any name), over any file open before; its speed is
    // 1000 and its place 0. False, with nothing open, when there is no such regular file or its head shows
    // that it is none of these. Returns at once: several players opened one after the other prepare side by
    // side (some 10 to 100 ms), and what is asked meanwhile holds when the file is ready. Of a disk that has
    // to wake up first not even the head is waited for. A file that turns out to be broken plays as far as it
    // can be decoded and then stands at its end.
    virtual bool open(const std::string& path) = 0;
    virtual void close() = 0;
    // From the present place. At the end the player stops by itself with position() == end(). Players that
    // are told to play in one breath start together, the first to be ready waiting for the others, though not
    // for long. False when nothing is open, as all of the following.
    virtual bool play() = 0;
    virtual bool playReverse() = 0; // of every kind of file; stops by itself at 0
    virtual bool pause() = 0;       // keeps the place
    virtual bool stop() = 0;        // keeps the place
    // Milliseconds, clipped to 0..end(). Stops a playing player. Exact to the sample that is heard.
    virtual bool seek(int milliseconds) = 0;
    virtual int position() = 0; // milliseconds, in steps of 10; 0 when nothing is open
    // Length in milliseconds, to a tenth of a second also for MP3 without a Xing header; 0 when nothing is
    // open or it cannot be told. Waits for the file to be measured, at most until a second after its opening;
    // 0 while it is not.
    virtual int end() = 0;
    // The length of the open file may still come: nothing has failed, a disk may be waking up. Waits at most
    // so long for that to end, which it does a minute after the opening, come what may.
    virtual bool isMeasuring(int waitMs) = 0;
    // 0 to 1000, a linear factor. Belongs to the player: no file need be open, and it stays for the next
    // ones.
    virtual bool setVolume(int thousandths) = 0;
    virtual bool setSpeed(int thousandths) = 0; // 3 to 2267; pitch follows speed
};

class SoundDevice {
public:
    virtual ~SoundDevice() = default;
    virtual std::unique_ptr<SoundPlayer> createPlayer() = 0;
    // Fire and forget, one at a time: a new one cuts the old, and a missing file is silence.
    virtual void playSound(const std::string& path) = 0;
    // Gain over all players and playSound. The word's low half is the left, the high half the right channel,
    // 0xFFFF is full, taken as a linear factor.
    virtual void setMasterVolume(unsigned word) = 0;
    virtual unsigned masterVolume() const = 0;
};

// The device in use. Before setSoundDevice it is a silent one.
SoundDevice& soundDevice();
// Replaces the device; every player of the old one must be gone. None restores the silent device.
void setSoundDevice(std::unique_ptr<SoundDevice> device);

// Where the sound of a GStreamer device goes.
enum class SoundOutput {
    Speakers, // the system's own output; without a card, or when it fails, as Clocked until one is found
    Clocked,  // nowhere, at the speed of real time
    Captured, // as Clocked, and every block is also handed to the capture function
};

// What one player adds to the mix: interleaved 16-bit stereo at 44100 Hz, gains applied. The mix itself is
// turned down where several at once are too loud for it.
struct CapturedBlock {
    const void* player; // whose sound it is; the device itself for playSound
    std::uint32_t tick; // getTickCount() when the first sample was due, by the system's clock
    const std::int16_t* samples;
    std::size_t frames;
};

// Blocks are handed over from the sound library's threads, one at a time.
std::unique_ptr<SoundDevice> makeGstreamerDevice(SoundOutput output,
                                                 std::function<void(const CapturedBlock&)> capture = {});
std::unique_ptr<SoundDevice> makeSilentDevice();

} // namespace platform
