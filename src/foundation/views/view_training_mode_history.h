#pragma once
// What came of each song of a training run, one for each row.

#include "data/data_training_history.h"
#include "foundation/views/data_list_view.h"

class ViewTrainingModeHistory : public zelkova::DataListView {
public:
    enum Column : int { question, questionSub, title, artist, status, answerTime };

    explicit ViewTrainingModeHistory(platform::WindowHandle list);

    // The answer time is shown in seconds with one decimal; a song without a status has none yet. The new
    // row's index, -1 when there is no such list.
    int addRow(const DataTrainingModeHistory& result);
    bool updateRow(int index, const DataTrainingModeHistory& result);

    // In the order of the columns.
    static std::vector<std::string> cells(const DataTrainingModeHistory& result);
};
