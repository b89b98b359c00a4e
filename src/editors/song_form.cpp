#include "editors/song_form.h"

#include <algorithm>

#include "editors/typed_number.h"
#include "foundation/text.h"
#include "platform/clock.h"

namespace {

enum : int { unset = -1 };

struct RangeFields {
    std::int32_t (DataResource::*getStart)() const;
    std::int32_t (DataResource::*getEnd)() const;
    void (DataResource::*setStart)(std::int32_t);
    void (DataResource::*setEnd)(std::int32_t);
};
constexpr std::array<RangeFields, songRanges> rangeFields{{
    {&DataResource::getIntroStart, &DataResource::getIntroEnd, &DataResource::setIntroStart,
     &DataResource::setIntroEnd},
    {&DataResource::getSabiStart, &DataResource::getSabiEnd, &DataResource::setSabiStart,
     &DataResource::setSabiEnd},
    {&DataResource::getAnsStart, &DataResource::getAnsEnd, &DataResource::setAnsStart,
     &DataResource::setAnsEnd},
}};

} // namespace

SongForm toForm(const DataResource& song) {
    SongForm form;
    form.title = song.getTitle();
    form.artist = song.getArtist();
    form.artistKana = song.getArtistKana();
    form.genre = song.getGenre();
    form.type = std::max(song.getType(), 0);
    form.releaseDate = song.getReleaseDate();
    form.famous = numberOrEmpty(song.getFamous());
    form.deficalt = numberOrEmpty(song.getDeficalt());
    for (std::size_t i = 0; i < songRanges; ++i)
        form.ranges[i] = {numberOrEmpty((song.*rangeFields[i].getStart)()),
                          numberOrEmpty((song.*rangeFields[i].getEnd)())};
    return form;
}

SongForm newForm(const std::string& fileName) {
    SongForm form;
    form.title = stemOf(fileName);
    form.releaseDate = platform::getLocalTime();
    return form;
}

DataResource toSong(const SongForm& form, const SongFile& file, const DataResource& stored) {
    DataResource song = stored;
    song.setFileName(file.name);
    const bool keepsFile = !file.opened && file.name == stored.getFileName();
    song.setFileType(keepsFile ? +unset : file.type);
    song.setLength(keepsFile ? +unset : file.length);
    song.setTitle(toFullWidthSigns(form.title));
    song.setArtist(toFullWidthSigns(form.artist));
    song.setArtistKana(form.artistKana);
    song.setGenre(form.genre);
    song.setType(form.type);
    song.setReleaseDate(form.releaseDate);
    song.setFamous(zelkova::stringToInt(form.famous));
    song.setDeficalt(zelkova::stringToInt(form.deficalt));
    for (std::size_t i = 0; i < songRanges; ++i) {
        (song.*rangeFields[i].setStart)(zelkova::stringToInt(form.ranges[i].start));
        (song.*rangeFields[i].setEnd)(zelkova::stringToInt(form.ranges[i].end));
    }
    return song;
}

CheckedRange checkRange(const RangeText& typed, std::optional<int> limit) {
    const auto clipped = [&](const std::string& text) {
        const int number = zelkova::stringToInt(text);
        return limit ? std::clamp(number, 0, *limit) : number;
    };
    const int start = clipped(typed.start), end = clipped(typed.end);
    return {start, end, end > start && end >= 1};
}

int storeSong(AccesserResource& catalogue, int number, const DataResource& song) {
    if (number == newEntry)
        number = catalogue.add(song);
    else if (catalogue.update(number, song) == 0)
        return 0;
    if (number != 0 && catalogue.commit()) return number;
    catalogue.rollback();
    return 0;
}
