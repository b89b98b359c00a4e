#pragma once
// The player without its window: plays the songs of a list one after the other, each as the quiz would.

#include <vector>

#include "data/data_resource.h"
#include "data/labels.h"
#include "foundation/media.h"
#include "foundation/stopwatch.h"
#include "host/state/play_span.h"
#include "playback/play_order.h"

enum class PlayState : int { Stopped = 0, Playing = 1, Paused = 2 };

// Plays out of the host's catalogue, at the volume and speed that the host's state keeps for it. With no row
// at all everything does nothing. A song whose file does not open is silent and lasts until the user goes on.
// Songs whose spans leave nothing to hear pass at once; when a whole round of them has passed the player
// stops and holds no song.
class SongPlayer {
public:
    static constexpr int noLimit = -1;
    static constexpr int slowest = 5, normalSpeed = 100, fastest = 200; // percent

    // The catalogue number of each row. Takes a player of the sound device and gives it back at the end.
    SongPlayer(platform::WindowHandle window, std::vector<int> numbers);

    void choose(NextRow method) { order_.choose(method); }
    // Where the next songs begin and end. With イントロ and サビ, songs that cannot be played so are passed
    // over, backwards on the way back; when there are no others, the player stops and holds no song.
    void choose(PlayRange range) { range_ = range; }
    // Milliseconds after which a song has been heard enough, or `noLimit`; for the present song too.
    void limitTo(int milliseconds) { limitMs_ = milliseconds; }

    void setVolume(int percent);
    void mute(bool muted);
    // Percent of normal; below the slowest it counts as that.
    void setSpeed(int percent);

    void playRow(int row);
    void playOrPause();
    void stop();
    void forward();
    void back();
    // To a place in the song's own position unit; plays on from there when it was playing.
    void seek(int place);

    // To be called every 10 ms while the state is not Stopped. True when the song had ended, so that another
    // one plays now or the player stands.
    bool tick();

    PlayState state() const { return playState_; }
    // It has stopped by itself, for want of a song that can be heard in this range.
    bool foundNothing() const { return foundNothing_; }
    const PlayOrder& order() const { return order_; }
    const DataResource& song() const { return song_; } // cleared before the first
    // Both in the song's own position unit. The start of the span may lie above its end.
    const PlaySpan& span() const { return span_; }
    int place();
    // Milliseconds; both 0 when nothing is open, the end also as long as the length is not known.
    int position() { return media_.getPosition(); }
    int end() { return media_.isMeasuring() ? 0 : media_.getEnd(); }

private:
    bool fits(const DataResource& song) const;
    // The current row or, from there on in the given direction, the first one that can be played.
    void play(void (PlayOrder::*next)() = &PlayOrder::forward);
    void start(const DataResource& song);
    void giveUp();
    void applyVolume();
    void countTime();
    bool hasEnded();

    zelkova::Media media_;
    PlayOrder order_;
    PlayRange range_ = rangeStart;
    int limitMs_ = noLimit;
    bool muted_ = false;

    PlayState playState_ = PlayState::Stopped;
    DataResource song_;
    PlaySpan span_{0, 0};
    int elapsedMs_ = 0; // that the song has sounded
    int looks_ = 0;     // at the song while it sounds
    int unheard_ = 0;   // songs in a row that ended before they could be heard
    bool foundNothing_ = false;
    zelkova::Stopwatch watch_;
};
