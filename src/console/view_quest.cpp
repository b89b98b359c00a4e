#include "console/view_quest.h"

#include <algorithm>
#include <cstdint>

#include "foundation/views/song_files.h"
#include "host/state/host_state.h"
#include "host/state/quest.h"

namespace {

constexpr platform::Color currentYellow{240, 240, 70};

} // namespace

void ViewQuest::makeColumns() {
    const zelkova::DataListViewHeader headers[] = {
        {"項番", 40}, {"ステージ名", 120}, {"サブ", 40},          {"問題", 40},
        {"No.", 35},  {"タイトル", 200},   {"アーティスト", 200},
    };
    for (const auto& header : headers)
        insertColumn(getColumnCount(), header);
}

void ViewQuest::addRows(int number, const DataSession& stage, int firstQuest) {
    int row = getItemCount();
    insertItem(row, "");
    const std::vector<int> songs = songNumbers(stage);
    const int multi = std::max(stage.getMulti(), 1);
    const std::int64_t needed = std::int64_t{std::max(stage.getQuestNum(), 0)} * multi;
    if (static_cast<std::int64_t>(songs.size()) < needed) return;

    setNumber(row, stageNumber, number);
    setText(row, stageName, stage.getName());
    int inStage = 1, sub = 0;
    for (std::int64_t i = 0; i < needed; ++i) {
        if (i > 0) insertItem(++row, "");
        DataResource record;
        if (!host().accesserResource.get(songs[static_cast<std::size_t>(i)], record)) continue;
        if (sub == 0) setNumber(row, questInStage, inStage);
        setNumber(row, quest, firstQuest);
        setNumber(row, song, record.getNo());
        setText(row, title, record.getTitle());
        setText(row, artist, record.getArtist());
        if (++sub < multi) continue;
        sub = 0;
        ++inStage;
        ++firstQuest;
    }
}

void ViewQuest::forgetFiles() {
    for (int row = 0; row < getItemCount(); ++row)
        forgetFile(hwnd, row);
}

platform::RowColors ViewQuest::rowColors(int row) const {
    if (questAt(row) == host().curQuestNumber && questAt(row) != 0) return {std::nullopt, currentYellow};
    if (fileIsGone(hwnd, row, songAt(row), host().accesserResource)) return {std::nullopt, missingFileRed};
    return {};
}
