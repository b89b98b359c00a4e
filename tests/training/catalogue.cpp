#include "training/catalogue.h"

namespace training_tests {

DataResource songIn(const test_support::TemporaryFolder& folder, int number) {
    const std::string text = std::to_string(number);
    DataResource song;
    song.setFileName(folder.file("song" + text + ".wav"));
    song.setFileType(fileTypeWav);
    song.setTitle("曲" + text);
    song.setArtist("歌手" + text);
    song.setLength(600); // tenths of a second
    song.setIntroStart(20);
    song.setIntroEnd(120);
    song.setSabiStart(200);
    song.setSabiEnd(300);
    return song;
}

void fillCatalogue(AccesserResource& catalogue, const test_support::TemporaryFolder& folder, int songs) {
    if (!catalogue.isOpened()) catalogue.open(folder.file("ResourceData.xml"));
    while (catalogue.getMaxId() < songs) {
        const DataResource song = songIn(folder, catalogue.getMaxId() + 1);
        test_support::writeSilence(song.getFileName(), 60000);
        catalogue.add(song);
    }
}

DataSession settings(int quests, int multi) {
    DataSession session;
    session.setQuestNum(quests);
    session.setMulti(multi);
    session.setRange(rangeIntro);
    session.setSpeed(speedNormal);
    session.setInterval(playTimeTenSeconds);
    return session;
}

} // namespace training_tests
