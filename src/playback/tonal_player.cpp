#include "playback/tonal_player.h"

#include <array>
#include <optional>
#include <utility>

#include "foundation/dialog.h"
#include "foundation/views/view_resource.h"
#include "foundation/views/volume_bar.h"
#include "host/state/host_state.h"
#include "platform/menu.h"
#include "playback/clock_text.h"
#include "playback/song_player.h"
#include "playback/tonal_player_ids.h"

using namespace tonal_player;

namespace {

// By the radio buttons of their groups.
constexpr std::array methods{NextRow::InOrder, NextRow::Random, NextRow::Loop};
constexpr std::array ranges{rangeStart,  rangeIntro, rangeSabi,  rangeMelody,
                            rangeRandom, rangeEnd,   rangeAnswer};
constexpr std::array limits{+SongPlayer::noLimit, 1000, 3000, 5000, 10'000};

constexpr const char* nothingToHear = "この再生位置で聞ける曲がありません。";
constexpr const char* listMenu = "IDM_KDL0801_LISTMENUE";
constexpr int iconPixels = 30;
constexpr unsigned tickMs = 10;
constexpr platform::Color playedRow{0xD5, 0xE6, 0xF8};

class TonalPlayer : public zelkova::Dialog {
public:
    TonalPlayer() : Dialog(form) {}

private:
    void open() override {
        player_.emplace(window(), fillList());
        platform::listSetRowColors(control(idSongs), [this](int row) { return colorsOf(row); });
        for (const int first : {+idInOrder, +idFromStart, +idNoLimit})
            choose(first);
        volumeBar().setUp(host().playerVolume);
        speedBar().setUp(host().playerSpeed, 0, SongPlayer::fastest);
        showState();
        platform::setFocus(control(idSongs));
    }

    // Gives the catalogue numbers of the rows.
    std::vector<int> fillList() {
        std::vector<int> numbers;
        ViewResource list(platform::getItem(window(), idSongs));
        list.makeColumns();
        platform::listHoldRedraw(control(idSongs), true);
        for (const DataResource& song : host().accesserResource.all()) {
            list.addRow(song);
            numbers.push_back(song.getNo());
        }
        platform::listHoldRedraw(control(idSongs), false);
        return numbers;
    }

    bool onCommand(int id) override {
        if (id >= idInOrder && id <= idTenSeconds) {
            choose(id);
            return true;
        }
        switch (id) {
        case idPlaySelected:
            playSelected();
            break;
        case idPlay:
            player_->playOrPause();
            break;
        case idStop:
            player_->stop();
            break;
        case idBack:
            player_->back();
            break;
        case idForward:
            player_->forward();
            break;
        case idMute:
            mute(!muted_);
            break;
        case idNormalSpeed:
            setSpeed(SongPlayer::normalSpeed);
            break;
        default:
            return false;
        }
        showState();
        return true;
    }

    bool onMessage(const platform::Message& message) override {
        switch (message.id) {
        case platform::WM_TIMER:
            if (message.wParam != idTimer) return false;
            if (player_->tick())
                showState(isBrowsing());
            else
                showPlace();
            return true;
        case platform::WM_HSCROLL:
            return onSlider(static_cast<int>(message.lParam));
        case platform::WM_NOTIFY:
            return message.wParam == idSongs && onList(static_cast<int>(message.lParam));
        case platform::WM_DESTROY:
            platform::killTimer(window(), idTimer);
            player_.reset();
            return true;
        default:
            return false;
        }
    }

    bool onSlider(int id) {
        switch (id) {
        case idPosition:
            player_->seek(platform::getPosition(control(idPosition)));
            return true;
        case idVolume:
            player_->setVolume(volumeBar().follow());
            return true;
        case idSpeed:
            setSpeed(platform::getPosition(control(idSpeed)));
            return true;
        default:
            return false;
        }
    }

    bool onList(int code) {
        if (code == platform::NM_DBLCLK) onCommand(idPlaySelected);
        if (code == platform::NM_RCLICK) platform::popupMenu(window(), listMenu);
        return code == platform::NM_DBLCLK || code == platform::NM_RCLICK;
    }

    void choose(int id) {
        if (id <= idLoop) {
            player_->choose(methods.at(static_cast<std::size_t>(id - idInOrder)));
            mark(idInOrder, idLoop, id);
        } else if (id <= idFromAnswer) {
            player_->choose(ranges.at(static_cast<std::size_t>(id - idFromStart)));
            mark(idFromStart, idFromAnswer, id);
        } else {
            player_->limitTo(limits.at(static_cast<std::size_t>(id - idNoLimit)));
            mark(idNoLimit, idTenSeconds, id);
        }
    }

    // On the radio button and on its twins in the menus.
    void mark(int first, int last, int id) {
        platform::setChecked(control(id), true);
        platform::checkMenuRadioItem(window(), first, last, id);
    }

    void mute(bool muted) {
        muted_ = muted;
        player_->mute(muted);
        platform::setChecked(control(idMute), muted);
        platform::checkMenuItem(window(), idMute, muted);
    }

    // The bar shows what the player makes of it.
    void setSpeed(int percent) {
        player_->setSpeed(percent);
        platform::setPosition(control(idSpeed), host().playerSpeed);
        speedBar().follow();
    }

    void playSelected() {
        const int row = platform::listSelectedRow(control(idSongs));
        if (row >= 0) player_->playRow(row);
    }

    // The user looks for another song while one ends.
    bool isBrowsing() const {
        return platform::hasFocus(control(idSongs)) &&
               platform::listSelectedRow(control(idSongs)) != markedRow_;
    }

    // What may have changed with a command or with the end of a song. The selection goes along to the row in
    // play, but for one that is to be kept.
    void showState(bool keepSelection = false) {
        const PlayState state = player_->state();
        const bool plays = state == PlayState::Playing, stands = state == PlayState::Stopped;
        platform::setIcon(control(idPlay), plays ? "ICO_INTRO_PAUSE" : "ICO_INTRO_PLAY", iconPixels);
        platform::setIcon(control(idStop), stands ? "ICO_INTRO_STOP2" : "ICO_INTRO_STOP", iconPixels);
        platform::setText(control(idTitle),
                          player_->foundNothing() ? nothingToHear : player_->song().getTitle());
        platform::setText(control(idArtist), player_->song().getArtist());
        platform::setText(control(idHistory), player_->order().historyText());
        showPlace();
        const int row = player_->order().currentRow();
        if (row != std::exchange(markedRow_, row) && !keepSelection) {
            platform::listSelectRow(control(idSongs), row);
            platform::listEnsureVisible(control(idSongs), row);
        }
        platform::redraw(platform::getItem(window(), idSongs));
        if (stands)
            platform::killTimer(window(), idTimer);
        else
            platform::setTimer(window(), idTimer, tickMs);
    }

    // The clock is written only when it shows something else, or it would flicker.
    void showPlace() {
        const bool stands = player_->state() == PlayState::Stopped;
        const std::string clock = clockText(stands ? 0 : player_->position(), player_->end());
        if (clock != std::exchange(clock_, clock)) platform::setText(control(idClock), clock);
        if (platform::isHeld(control(idPosition))) return;
        platform::setRange(control(idPosition), static_cast<int>(player_->span().start),
                           static_cast<int>(player_->span().end));
        platform::setPosition(control(idPosition), stands ? 0 : player_->place());
    }

    platform::RowColors colorsOf(int row) const {
        if (!player_ || player_->state() == PlayState::Stopped || row != markedRow_) return {};
        return {.text = {}, .background = playedRow};
    }

    VolumeBar volumeBar() const { return {control(idVolume), control(idVolumeText)}; }
    VolumeBar speedBar() const { return {control(idSpeed), control(idSpeedText)}; }

    std::optional<SongPlayer> player_; // while the window stands
    bool muted_ = false;
    int markedRow_ = -1;
    std::string clock_; // as it is shown
};

} // namespace

void dlgTonalPlayer(platform::WindowHandle owner) {
    TonalPlayer().run(owner);
}
