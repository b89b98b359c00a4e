#include "show/quiet_songs.h"

#include "data/labels.h"
#include "support/test_sounds.h"

namespace bench {

std::vector<DataResource> quietSongs(const test_support::ProgramFolder& folder, int count) {
    constexpr int files = 8, lengthMs = 60000;
    for (int i = 0; i < files; ++i)
        test_support::writeSilence(folder.file("snd/" + std::to_string(i) + ".wav"), lengthMs);
    std::vector<DataResource> songs;
    for (int i = 0; i < count; ++i) {
        DataResource song;
        song.setTitle("曲" + std::to_string(i + 1));
        song.setArtist("歌手" + std::to_string(i % 50));
        song.setFileName(folder.file("snd/" + std::to_string(i % files) + ".wav"));
        song.setFileType(fileTypeWav);
        song.setLength(lengthMs / 100);
        song.setIntroEnd(100);
        song.setAnsStart(200);
        song.setAnsEnd(210);
        songs.push_back(song);
    }
    return songs;
}

} // namespace bench
