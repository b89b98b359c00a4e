#pragma once
// The one class through which the system plays sound, and the volume of all of it.

#include <cstdint>
#include <memory>
#include <string>

#include "foundation/object.h"
#include "platform/sound.h"
#include "platform/types.h"

namespace zelkova {

// Told from the extension of the file's name, in either case.
enum class MediaType { NONE = -1, WAV = 0, MP3 = 1, WMA = 2, MID = 3 };

// One player, created without a file, opened and closed many times. Positions and lengths are milliseconds.
// Nothing throws or shows a message: a failure is a false result or no effect. The constructor touches
// nothing, so objects may be built before the platform layer is up; they must be gone, or given a new player
// by create(), before the sound device is replaced.
class Media : public Object {
public:
    Media() = default;
    ~Media() override;
    Media(const Media&) = delete;
    Media& operator=(const Media&) = delete;

    // Takes a player of the device in use; one from before is closed and goes. It is never shown, so parent
    // and style only stand for its place among the windows. With a file name the file is loaded, though not
    // `open`ed.
    bool create(platform::WindowHandle parentWindow, unsigned style = hiddenStyle,
                const char* fileName = nullptr);

    // Closes the file and gives the player back; create() makes the object usable again.
    void destroy();

    // When the player refuses the file, the type stays what it was. The speed of the file before goes on to
    // this one where its type allows a speed.
    bool open(const char* fileName);
    bool open(const std::string& fileName);
    // Leaves isPlaying() as it is: stop first.
    void close();

    // From the present place. isPlaying() then holds until pause() or stop(), beyond the end of the file too:
    // whoever waits for the end compares getPosition() with getEnd().
    bool play();
    bool playReverse();
    // play() goes on from there.
    bool pause();
    bool stop(); // false when it was not playing, or nothing is open any more
    bool isPlaying() const { return playing; }
    // Nothing of the play is heard yet: a part deep in a song, or a slow disk, takes its time. No longer so
    // after the patience.
    bool isStarting();
    // Goes on playing from the new place when it was playing.
    bool seek(int position);
    // 0 while the file is not measured; waits for that, as the player does.
    int getEnd();
    // The length may still come; waits at most so long for that to end.
    bool isMeasuring(int waitMs = 0);
    // Of an MP3 at another speed than normal this is reckoned from the tick count since play(); it holds
    // still where pause() or seek() left the song.
    int getPosition();

    // 0 to 1000. WAV and MID have no volume of their own and refuse.
    bool setVolume(int level);
    // In thousandths of normal speed; MP3 takes 3 to 2267, a file of no known type 0 to 100000, the others
    // none. It stays for the files opened after this one.
    bool setSpeed(int newSpeed);

    static int toSeconds(int milliseconds) { return milliseconds / 1000; }

    static constexpr unsigned patienceMs = 3000;
    static constexpr unsigned hiddenStyle = 0x08004000; // disabled, no error boxes

private:
    bool isEstimated() const;
    void standAt(int position); // what is reckoned from, while nothing plays

    std::unique_ptr<platform::SoundPlayer> window;
    bool opened = false;
    bool playing = false;
    int volume = -1;  // the last level accepted; -1 before the first
    int speed = 1000; // the last one accepted
    MediaType mediaType = MediaType::NONE;
    std::uint32_t playStartTick = noTick;
    int playStartPosition = 0;

    static constexpr std::uint32_t noTick = 0xFFFFFFFF; // no run of play is under way
};

// The program's own gain over everything it plays, 0 to 100.
void setMasterVolume(int level);

} // namespace zelkova
