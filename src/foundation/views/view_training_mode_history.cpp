#include "foundation/views/view_training_mode_history.h"

#include "foundation/text.h"

namespace {

constexpr zelkova::DataColumn columnTable[] = {
    {"問題", 40, true},    {"サブ", 40, true}, {"曲名", 180},
    {"アーティスト", 180}, {"ステータス", 80}, {"解答時間(秒)", 90, false, true},
};

} // namespace

std::string secondsText(int tenths) {
    return zelkova::numberToText(tenths / 10) + "." + zelkova::numberToText(tenths % 10);
}

ViewTrainingModeHistory::ViewTrainingModeHistory(platform::WindowHandle list)
    : DataListView(list, columnTable) {}

std::vector<std::string> ViewTrainingModeHistory::cells(const DataTrainingModeHistory& result) {
    return {
        zelkova::numberToText(result.getQuestion()),
        zelkova::numberToText(result.getQuestionSub()),
        result.getTitle(),
        result.getArtist(),
        result.getStatus(),
        result.getStatus().empty() ? "" : secondsText(result.getAnswerTime()),
    };
}

int ViewTrainingModeHistory::addRow(const DataTrainingModeHistory& result) {
    return appendRow(cells(result));
}

bool ViewTrainingModeHistory::updateRow(int index, const DataTrainingModeHistory& result) {
    return writeCells(index, 0, cells(result));
}
