#pragma once
// The list of the catalogue's songs, to search, sort, edit and pick.

#include <filesystem>
#include <fstream>

#include "editors/catalogue_desk.h"
#include "editors/dialog_ids.h"
#include "editors/search_list.h"
#include "foundation/views/song_files.h"
#include "foundation/views/view_resource.h"

namespace editors_tests {

using namespace search_list;

inline constexpr struct {
    const char *title, *artist, *kana, *genre;
    int fileType, type;
    std::uint16_t year;
    int famous;
} songs[] = {
    {"荒城の月", "滝廉太郎", "タキレンタロウ", "Classic", fileTypeMp3, 1, 1901, 10},
    {"花", "滝廉太郎", "タキレンタロウ", "Classic", fileTypeWav, 2, 1900, 9},
    {"夏は来ぬ", "小山作之助", "コヤマサクノスケ", "JPop", fileTypeMp3, 3, 1896, 1},
    {"ふるさと", "岡野貞一", "オカノテイイチ", "JPop", fileTypeMid, 0, 1914, 2},
};

// Songs 2 and 4 have no file.
class SongList : public CatalogueDesk {
protected:
    SongList() {
        AccesserResource& catalogue = host().accesserResource;
        for (const auto& song : songs) {
            DataResource record;
            record.setTitle(song.title);
            record.setArtist(song.artist);
            record.setArtistKana(song.kana);
            record.setGenre(song.genre);
            record.setFileType(song.fileType);
            record.setType(song.type);
            record.setReleaseDate({song.year, 4, 0, 1, 0, 0, 0, 0});
            record.setFamous(song.famous);
            record.setDeficalt(11);
            record.setFileName(folder.file(std::to_string(catalogue.getMaxId() + 1) + ".mp3"));
            catalogue.add(record);
        }
        catalogue.commit();
        makeFile(1);
        makeFile(3);
    }
    void makeFile(int number) const { std::ofstream(folder.file(std::to_string(number) + ".mp3")); }

    // Opens the list and does `act` in it; without an `end` that is left to it.
    int run(SearchListMode mode, const std::function<void()>& act, int end = idOk) {
        return answer(
            form, [&] { return dlgSearchList({}, mode, numbers); },
            [&] {
                act();
                if (end) dialog.click(end);
            });
    }
    void expectRemovalQuestion(bool answer) {
        script.expectDialog(message_box::form, [answer](Form box) {
            EXPECT_EQ(box.text(message_box::idCode), "C2000013");
            EXPECT_TRUE(box.focused(message_box::idAnswer1 + 1)) << "nothing is removed by a careless Enter";
            box.click(message_box::idAnswer1 + (answer ? 0 : 1));
        });
    }

    std::vector<std::string> column(int number) const { return dialog.column(idList, number); }
    std::string shown() const {
        std::string all;
        for (const std::string& number : column(ViewResource::number))
            all += (all.empty() ? "" : ",") + number;
        return all;
    }
    std::string found() const {
        dialog.click(idSearch);
        return shown();
    }
    bool isRed(int row) const {
        return platform::listRowColors(dialog[idList], row).background == missingFileRed;
    }

    std::string numbers = "untouched";
};

} // namespace editors_tests
