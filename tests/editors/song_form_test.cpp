#include "editors/song_form.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "platform/clock.h"
#include "support/temporary_folder.h"

namespace {

TEST(SongFile, IsOfTheTypeOfItsExtension) {
    const struct {
        const char* path;
        int type;
    } rows[] = {
        {"/音楽/曲.mp3", fileTypeMp3}, {"C:\\音楽\\曲.MP3", fileTypeMp3}, {"/a/曲.wma", fileTypeWma},
        {"/a/曲.Wav", fileTypeWav},    {"/a/曲.mid", fileTypeMid},        {"/a/曲", fileTypeNwav},
        {"/a.mp3/曲", fileTypeNwav},   {"/a/01. 曲名", fileTypeNwav}, // an extension holds no blank
        {"/a/曲.", fileTypeUnknown},   {"/a/曲.ogg", fileTypeUnknown},    {"/a/曲.mp3.bak", fileTypeUnknown},
    };
    for (const auto& [path, type] : rows)
        EXPECT_EQ(fileTypeOfName(path), type) << path;
}

TEST(SongFile, NamesANewSong) {
    EXPECT_EQ(stemOf("/音楽/表 (1).mp3"), "表 (1)");
    EXPECT_EQ(stemOf("/音楽/01. 曲名"), "01. 曲名");
    EXPECT_EQ(stemOf("/音楽/曲.a.wav"), "曲.a");
    EXPECT_EQ(stemOf("/音楽/.mp3"), ".mp3");
    const platform::ManualClock clock({2026, 3, 0, 1, 19, 0, 0, 0});
    const SongForm form = newForm("/音楽/曲.mp3");
    EXPECT_EQ(form.title, "曲");
    EXPECT_EQ(form.releaseDate.day, 1);
    EXPECT_EQ(form.type, 0);
    EXPECT_EQ(form.ranges[songIntro].end, "");
}

TEST(SongRanges, AreClippedToTheFileAndValidAboveTheirStart) {
    const struct {
        const char *start, *end;
        std::optional<int> limit;
        int clippedStart, clippedEnd;
        bool valid;
    } rows[] = {
        {"0", "153", 600, 0, 153, true},
        {"0", "1", 600, 0, 1, true},
        {"153", "153", 600, 153, 153, false},
        {"200", "153", 600, 200, 153, false},
        {"", "", 600, 0, 0, false},
        {"", "5", 600, 0, 5, true},
        {"-5", "700", 600, 0, 600, true}, // pulled back to both ends
        {"600", "700", 600, 600, 600, false},
        {"abc", "12x", 600, 0, 12, true},
        {"99999999999", "3", 600, 600, 3, false},
        {"0", "10", 0, 0, 0, false},                // a file without a length
        {"-5", "700", std::nullopt, -5, 700, true}, // no file: as it was typed
        {"-9", "0", std::nullopt, -9, 0, false},
    };
    for (const auto& row : rows) {
        const CheckedRange range = checkRange({row.start, row.end}, row.limit);
        EXPECT_EQ(range.start, row.clippedStart) << row.start << "-" << row.end;
        EXPECT_EQ(range.end, row.clippedEnd) << row.start << "-" << row.end;
        EXPECT_EQ(range.valid, row.valid) << row.start << "-" << row.end;
    }
}

DataResource fullSong() {
    DataResource song;
    song.setFileName("/音楽/曲.mp3");
    song.setFileType(fileTypeMp3);
    song.setTitle("曲");
    song.setType(2);
    song.setReleaseDate({2011, 2, 0, 3, 0, 0, 0, 0});
    song.setGenre("Anime");
    song.setArtist("歌手");
    song.setArtistKana("カシュ");
    song.setLength(600);
    song.setIntroStart(1);
    song.setIntroEnd(2);
    song.setSabiStart(3);
    song.setSabiEnd(4);
    song.setAnsStart(5);
    song.setAnsEnd(6);
    song.setDeficalt(7);
    song.setFamous(8);
    song.setTitleVoice("/声/曲.wav");
    song.setArtistVoice("/声/歌手.wav");
    return song;
}

SongFile openFile(const std::string& name, int length) {
    SongFile file;
    file.name = name;
    file.opened = true;
    file.type = fileTypeMp3;
    file.length = length;
    return file;
}

TEST(SongForm, ShowsAndStoresEveryField) {
    const DataResource song = fullSong();
    EXPECT_EQ(toSong(toForm(song), openFile(song.getFileName(), 600), song).toString(","),
              song.toString(","));

    const SongForm empty = toForm(DataResource());
    EXPECT_EQ(empty.famous, "");
    EXPECT_EQ(empty.ranges[songAnswer].start, "");
    EXPECT_EQ(empty.type, 0);
    const DataResource stored = toSong(empty, openFile("/a.mp3", 5), {});
    EXPECT_EQ(stored.getFamous(), 0);
    EXPECT_EQ(stored.getAnsEnd(), 0);
    EXPECT_EQ(stored.getType(), 0);
    EXPECT_EQ(stored.getLength(), 5);
}

TEST(SongForm, StoresSignsInTheirFullWidth) {
    SongForm form = toForm(fullSong());
    form.title = "曲(A&B,C)";
    form.artist = "歌手&歌手";
    form.artistKana = "(カナ)";
    const DataResource song = toSong(form, openFile("/a.mp3", 5), {});
    EXPECT_EQ(song.getTitle(), "曲（A＆B，C）");
    EXPECT_EQ(song.getArtist(), "歌手＆歌手");
    EXPECT_EQ(song.getArtistKana(), "(カナ)");
}

TEST(SongForm, AFileThatDoesNotOpenLeavesWhatIsStoredOfIt) {
    const DataResource stored = fullSong();
    SongFile gone;
    gone.name = stored.getFileName();
    DataResource song = toSong(toForm(stored), gone, stored);
    EXPECT_EQ(song.getFileType(), -1);
    EXPECT_EQ(song.getLength(), -1);
    EXPECT_EQ(song.getSabiEnd(), 4);

    gone.name = "/音楽/別の曲.mp3"; // of another file nothing is known
    song = toSong(toForm(stored), gone, stored);
    EXPECT_EQ(song.getFileType(), fileTypeNone);
    EXPECT_EQ(song.getLength(), 0);
}

TEST(StoreSong, AddsThenUpdatesAndTakesBackWhatTheDiskRefuses) {
    const test_support::TemporaryFolder folder;
    const std::string path = folder.file("cnf/ResourceData.xml");
    std::filesystem::create_directory(folder.path() / "cnf");
    AccesserResource catalogue;
    EXPECT_EQ(storeSong(catalogue, -1, fullSong()), 0) << "nothing is open";
    ASSERT_EQ(catalogue.open(path), 1);
    EXPECT_EQ(storeSong(catalogue, -1, fullSong()), 1);
    DataResource changed = fullSong();
    changed.setTitle("改題");
    EXPECT_EQ(storeSong(catalogue, 1, changed), 1);
    EXPECT_EQ(storeSong(catalogue, 7, changed), 0) << "no such entry";
    AccesserResource onDisk;
    ASSERT_EQ(onDisk.open(path), 1);
    DataResource found;
    ASSERT_TRUE(onDisk.get(1, found));
    EXPECT_EQ(found.getTitle(), "改題");

    std::filesystem::remove_all(folder.path() / "cnf");
    changed.setTitle("失われる題");
    EXPECT_EQ(storeSong(catalogue, 1, changed), 0);
    EXPECT_EQ(storeSong(catalogue, -1, changed), 0);
    ASSERT_EQ(catalogue.all().size(), 1u);
    EXPECT_EQ(catalogue.all().front().getTitle(), "改題");
}

TEST(StoreSong, TakesNumbersBackThatWereNeverSet) {
    const test_support::TemporaryFolder folder;
    AccesserResource catalogue;
    ASSERT_EQ(catalogue.open(folder.file("ResourceData.xml")), 1);
    const int number = storeSong(catalogue, -1, {});
    std::filesystem::remove_all(folder.path());
    EXPECT_EQ(storeSong(catalogue, number, fullSong()), 0);
    DataResource after;
    ASSERT_EQ(catalogue.get(number, after), 1);
    EXPECT_EQ(after.getLength(), -1);
    EXPECT_EQ(after.getFamous(), -1);
}

} // namespace
