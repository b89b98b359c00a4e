#include "foundation/views/view_resource.h"

#include <algorithm>
#include <limits>

#include "data/labels.h"
#include "foundation/text.h"

namespace {

constexpr zelkova::DataColumn columnTable[] = {
    {"NO.", 35, true},
    {"タイトル名", 180},
    {"アーティスト名", 180},
    {"アーティストカナ", 100},
    {"ジャンル", 50},
    {"リリース日", 75},
    {"フォーマット", 80},
    {"タイプ", 50},
    {"イントロ", 50},
    {"サビ", 40},
    {"解答", 40},
    {"ポイント", 70, true},
};

std::string spanMark(int start, int end) {
    return end > start ? "○" : "N/A";
}

} // namespace

ViewResource::ViewResource(platform::WindowHandle list) : DataListView(list, columnTable) {}

int ViewResource::addRow(const DataResource& song) {
    return appendRow(cells(song));
}

bool ViewResource::updateRow(int index, const DataResource& song) {
    return writeCells(index, 0, cells(song));
}

std::vector<std::string> ViewResource::cells(const DataResource& song) {
    return {
        zelkova::numberToText(song.getNo()),
        song.getTitle(),
        song.getArtist(),
        song.getArtistKana(),
        song.getGenre(),
        record::toText(song.getReleaseDate()),
        fileTypeLabels.text(song.getFileType()),
        songTypeLabels.text(song.getType()),
        spanMark(song.getIntroStart(), song.getIntroEnd()),
        spanMark(song.getSabiStart(), song.getSabiEnd()),
        spanMark(song.getAnsStart(), song.getAnsEnd()),
        zelkova::numberToText(points(song.getFamous(), song.getDeficalt(), song.getType())),
    };
}

int points(int famous, int deficalt, int type) {
    constexpr int bonuses[] = {1, 10, 5, 3}; // by type; any other as the first
    const int bonus = bonuses[type >= 0 && type < std::ssize(bonuses) ? type : 0];
    const std::int64_t sum = std::int64_t{famous} * 6 + (11 - std::int64_t{deficalt}) * 3 + bonus;
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<std::int64_t>(sum, Limits::min(), Limits::max()));
}
