#include "makemedia/catalogue.h"

#include "data/accesser_resource.h"
#include "data/labels.h"
#include "foundation/datetime.h"
#include "platform/files.h"
#include "platform/text.h"

namespace makemedia {
namespace {

int fileType(Encoding encoding) {
    switch (encoding) {
    case Encoding::Wma:
        return fileTypeWma;
    case Encoding::Wav:
        return fileTypeWav;
    case Encoding::Midi:
        return fileTypeMid;
    default:
        return fileTypeMp3;
    }
}

} // namespace

DataResource describe(const Song& song) {
    const auto& score = song.score;
    const auto& music = song.arrangement;
    const auto text = [](const std::string& utf8) { return toFullWidthSigns(platform::utf8ToSjis(utf8)); };
    DataResource entry;
    entry.setNo(score.number);
    entry.setFileName("../snd/" + song.fileName);
    entry.setFileType(fileType(score.encoding));
    entry.setTitle(text(score.title));
    entry.setType(0); // older than any record
    entry.setReleaseDate(zelkova::DateTime(score.released).toSystemTime());
    entry.setGenre(score.genre);
    entry.setArtist(text(score.artist));
    entry.setArtistKana(text(score.artistKana));
    const int unit = positionFactor(entry.getFileType());
    entry.setLength(music.length / unit);
    entry.setIntroStart(music.intro.start / unit);
    entry.setIntroEnd(music.intro.end / unit);
    entry.setSabiStart(music.chorus.start / unit);
    entry.setSabiEnd(music.chorus.end / unit);
    entry.setAnsStart(music.answer.start / unit);
    entry.setAnsEnd(music.answer.end / unit);
    entry.setDeficalt(score.difficulty);
    entry.setFamous(score.fame);
    return entry;
}

bool writeCatalogue(const std::vector<Song>& songs, const std::filesystem::path& folder, std::string& error) {
    const auto file = folder / "ResourceData.xml";
    const auto path = platform::programPath(file);
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
    AccesserResource catalogue;
    catalogue.setStylesheet("ResourceData.xsl");
    bool written = path && catalogue.open(*path) != 0;
    for (const auto& song : songs)
        written = written && catalogue.add(describe(song)) == song.score.number;
    written = written && catalogue.commit() != 0;
    if (!written) error = "cannot write " + file.string();
    return written;
}

} // namespace makemedia
