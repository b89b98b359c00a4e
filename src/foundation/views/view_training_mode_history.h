#pragma once
// What came of each song of a training run, one for each row.

#include "data/data_training_history.h"
#include "foundation/views/data_list_view.h"

// Tenths of a second as seconds with one decimal: "2.5".
std::string secondsText(int tenths);

class ViewTrainingModeHistory : public zelkova::DataListView {
public:
    enum Column : int { question, questionSub, title, artist, status, answerTime };

    explicit ViewTrainingModeHistory(platform::WindowHandle list);

    // A song without a status has no answer time yet. The new row's index, -1 when there is no such list.
    int addRow(const DataTrainingModeHistory& result);
    bool updateRow(int index, const DataTrainingModeHistory& result);

    // In the order of the columns.
    static std::vector<std::string> cells(const DataTrainingModeHistory& result);
};
