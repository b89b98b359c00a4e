#include "playback/jukebox.h"

#include "data/labels.h"
#include "host/state/host_state.h"
#include "support/test_sounds.h"

namespace playback_tests {

Jukebox::Jukebox() {
    resetHost();
    host().accesserResource.open(folder.file("ResourceData.xml"));
}

Jukebox::~Jukebox() {
    resetHost();
}

DataResource Jukebox::song(const std::string& title) const {
    DataResource song;
    song.setTitle(title);
    song.setArtist(title + "の歌手");
    song.setFileName(file(std::to_string(host().accesserResource.getMaxId() + 1) + ".mp3"));
    song.setFileType(fileTypeMp3);
    song.setLength(200);
    song.setIntroStart(20);
    song.setIntroEnd(50);
    song.setSabiStart(80);
    song.setSabiEnd(120);
    song.setAnsStart(90);
    song.setAnsEnd(100);
    test_support::writeSilence(song.getFileName(), 20'000);
    return song;
}

int Jukebox::add(const DataResource& song) {
    return host().accesserResource.add(song);
}

void Jukebox::addSongs(int count) {
    for (int i = 1; i <= count; ++i)
        add(song("曲" + std::to_string(i)));
}

void Jukebox::change(int number, const std::function<void(DataResource&)>& how) {
    DataResource song;
    host().accesserResource.get(number, song);
    how(song);
    host().accesserResource.update(number, song);
}

SongPlayer& PlayerInHand::start() {
    std::vector<int> numbers;
    for (const DataResource& song : host().accesserResource.all())
        numbers.push_back(song.getNo());
    return player.emplace(platform::WindowHandle{}, numbers);
}

void PlayerInHand::pass(int milliseconds) {
    for (int i = 0; i < milliseconds / 10; ++i) {
        clock.advance(10);
        if (player->state() != PlayState::Stopped) player->tick();
    }
}

} // namespace playback_tests
