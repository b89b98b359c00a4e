// The upper part of the console: the quest that is due.
#include <algorithm>
#include <cstdio>

#include "console/console_pane.h"
#include "data/labels.h"
#include "foundation/text.h"
#include "host/state/console_ids.h"
#include "host/state/host_state.h"
#include "host/state/quest.h"
#include "host/state/rule_text.h"
#include "platform/controls.h"

namespace {

platform::Control control(int id) {
    return {host().consolePane, id};
}

void showCounter(int quest, int all) {
    char text[64];
    std::snprintf(text, sizeof text, "第%02d問／全%02d問", quest, all);
    platform::setText(control(ids::questCounter), text);
}

// What no list has an entry for stands on its first one.
void selectEntry(int id, int value) {
    const bool listed = value >= 0 && value < platform::itemCount(control(id));
    platform::setSelection(control(id), listed ? value : 0);
}

// Hidden songs keep no text: a song that the catalogue does not know must not show the answer of the quest
// before.
void hideSongs() {
    for (const int id : {ids::artist, ids::title}) {
        platform::show(control(id), false);
        platform::setText(control(id), "");
    }
    platform::setToolTip(control(ids::title), "");
    for (int i = 0; i < maxSongs; ++i) {
        platform::show(control(ids::songCheck1 + i), false);
        platform::show(control(ids::songLabel1 + i), false);
        platform::setText(control(ids::songLabel1 + i), "");
    }
}

void showSingleSong(const std::vector<DataResource>& songs) {
    platform::show(control(ids::artist), true);
    platform::show(control(ids::title), true);
    if (songs.empty()) return;
    platform::setText(control(ids::artist), songs[0].getArtist());
    platform::setText(control(ids::title), songs[0].getTitle());
    platform::setToolTip(control(ids::title), songs[0].getTitle()); // three lines of it are seen
}

void showSimultaneousSongs(int count, const std::vector<DataResource>& songs) {
    for (int i = 0; i < count; ++i) {
        platform::show(control(ids::songCheck1 + i), true);
        platform::show(control(ids::songLabel1 + i), true);
        const auto index = static_cast<std::size_t>(i);
        if (index < songs.size()) platform::setText(control(ids::songLabel1 + i), songText(songs[index]));
    }
}

// An empty bar: what was played belongs to the quest before.
void resetPlayBar(int length) {
    platform::setRange(control(ids::playBar), 0, std::max(length, 0));
    platform::setPosition(control(ids::playBar), 0);
    platform::setText(control(ids::playPosition), "0/0");
}

} // namespace

void showQuest(const std::vector<DataSession>& sessionList, int quest) {
    DataSession stage;
    std::vector<DataResource> songs;
    if (!questToSessionInfo(sessionList, quest, stage, songs)) return;

    showCounter(host().curQuestNumber, host().allQuestNumber);
    platform::setText(control(ids::stageName), stage.getName());
    selectEntry(ids::range, stage.getRange());
    selectEntry(ids::interval, stage.getInterval());
    selectEntry(ids::speed, stage.getSpeed());
    platform::setText(control(ids::multi), zelkova::numberToText(stage.getMulti()));
    platform::setText(control(ids::points), zelkova::numberToText(stage.getScore()));
    platform::setText(control(ids::penalty), penaltyText(stage));

    showSongs(stage, songs);
    resetPlayBar(songs.empty() ? 0 : songs[0].getLength());
}

void showSongs(const DataSession& stage, const std::vector<DataResource>& songs) {
    hideSongs();
    if (songCount(stage) == 1)
        showSingleSong(songs);
    else
        showSimultaneousSongs(songCount(stage), songs);
}

void checkAllSongs() {
    const int count = songCount(host().dataSession);
    if (count == 1) return;
    for (int i = 0; i < count; ++i)
        platform::setChecked(host().questCheck[static_cast<std::size_t>(i)], true);
}

void clearConsole() {
    showCounter(0, 0);
    for (const int id : {ids::stageName, ids::multi, ids::points, ids::penalty})
        platform::setText(control(id), "");
    for (const int id : {ids::range, ids::interval, ids::speed})
        platform::setSelection(control(id), -1);
    hideSongs();
    resetPlayBar(0);
}
