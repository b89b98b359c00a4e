#pragma once
// Stages of a session, one for each row.

#include "data/data_session.h"
#include "foundation/views/data_list_view.h"

class ViewPart : public zelkova::DataListView {
public:
    enum Column : int {
        number,
        name,
        questNum,
        range,
        interval,
        speed,
        multi,
        deduction,
        hands,
        steal,
        resource
    };

    explicit ViewPart(platform::WindowHandle list);

    // The new row's index, -1 when there is no such list. Its number is that of the row, from 1.
    int addRow(const DataSession& stage);
    bool updateRow(int index, const DataSession& stage);
    // The rows behind move up, and their numbers with them.
    bool deleteRow(int index);
    // Shows the result of a check of the stage's songs. A stage without songs keeps its "×".
    bool setErrorState(int index, int errcode);
    // The row shows that its stage cannot be played.
    bool isRefused(int index) const;

    // In the order of the columns; `row` counts from 0.
    static std::vector<std::string> cells(int row, const DataSession& stage);

private:
    bool write(int row, const DataSession& stage);
};

// What the list says about a stage's songs: "○" they are complete, "△" they can be played but were not
// checked or are used elsewhere too, "×" some are missing or cannot be played.
const char* resourceMark(bool hasSongs, int errcode);
