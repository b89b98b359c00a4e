#pragma once
// The players of the song editor on the controls of its dialog: they play the file or one of its ranges, show
// where it is, and mark the ranges while it plays.

#include <array>
#include <string>

#include "editors/sample_playback.h"
#include "editors/song_form.h"
#include "foundation/media.h"
#include "foundation/views/volume_bar.h"
#include "platform/controls.h"
#include "platform/messages.h"

class SamplePlayer {
public:
    SamplePlayer() = default;
    SamplePlayer(const SamplePlayer&) = delete;
    SamplePlayer& operator=(const SamplePlayer&) = delete;

    void open(platform::WindowHandle dialog);
    void close(); // gives the sound device back and the show its volume

    // In place of the file before; what it does not allow is off afterwards. While a file is still measured
    // nothing can be played; msgMeasured is posted to the dialog when that is over, and showFile() then turns
    // on what the file allows.
    void load(const std::string& fileName);
    const SongFile& file() const { return file_; }
    void showFile();
    static constexpr unsigned msgMeasured = platform::WM_USER + 2;

    void show(const std::array<RangeText, songRanges>& ranges);
    std::array<RangeText, songRanges> ranges() const;

    // True when it was for the players.
    bool onCommand(int id);
    bool onMessage(const platform::Message& message);
    // The control is the start or the end of a range.
    static bool isRangeEdit(int id);

private:
    struct Limits {
        int low = 0, high = 0; // in the file's position unit
    };

    void play(int row);
    void playFrom(int row, int position);
    void stop();
    void endOfRow(int row);
    void onTick();
    void onSlider(int row);
    void setVolume();
    void setSpeed(int percent);
    void mark(int editId);
    void copyRange(int fromRow);
    void checkRow(int row);

    void setLimits(int row, Limits limits);
    void showPosition(int row, int position);
    void refresh();

    int factor() const { return positionFactor(file_.type); }
    bool plays() const { return playback_.activeRange() != noRow; }
    RangeText rangeText(int row) const;
    platform::Control control(int id) const { return {dialog_, id}; }
    VolumeBar volumeBar() const;
    VolumeBar speedBar() const;

    platform::WindowHandle dialog_;
    zelkova::Media media_;
    SongFile file_;
    SamplePlayback playback_;
    std::array<Limits, sampleRows> limits_;
    bool backwards_ = false; // what plays
};
