#include "foundation/views/view_part.h"

#include "data/labels.h"
#include "foundation/text.h"

namespace {

constexpr zelkova::DataColumn columnTable[] = {
    {"No.", 35, true}, {"ステージ名", 120}, {"出題数", 50, true},   {"演奏範囲", 80},
    {"演奏時間", 80},  {"演奏速度", 70},    {"同時演奏", 70, true}, {"減点", 50},
    {"お手つき", 55},  {"横取り", 50},      {"リソース", 60},
};

// The signs: of what a stage has, and of what its songs are good for.
constexpr const char *circle = "○", *triangle = "△", *cross = "×";

std::string markIf(bool on) {
    return on ? circle : "";
}

bool hasSongs(const DataSession& stage) {
    return !stage.getResourceId().empty();
}

} // namespace

const char* resourceMark(bool songs, int errcode) {
    if (!songs) return cross;
    switch (errcode) {
    case songsComplete:
        return circle;
    case songsMissing:
    case songsUnfit:
        return cross;
    default:
        return triangle;
    }
}

ViewPart::ViewPart(platform::WindowHandle list) : DataListView(list, columnTable) {}

int ViewPart::addRow(const DataSession& stage) {
    const int row = appendRow({});
    if (row >= 0) write(row, stage);
    return row;
}

bool ViewPart::updateRow(int index, const DataSession& stage) {
    return write(index, stage);
}

bool ViewPart::deleteRow(int index) {
    if (!deleteItem(index)) return false;
    for (int row = index; row < getItemCount(); ++row)
        setNumber(row, number, row + 1);
    return true;
}

bool ViewPart::setErrorState(int index, int errcode) {
    return writeCells(index, resource, {resourceMark(platform::listRowData(hwnd, index) != 0, errcode)});
}

bool ViewPart::isRefused(int index) const {
    return getText(index, resource) == cross;
}

std::vector<std::string> ViewPart::cells(int row, const DataSession& stage) {
    return {
        zelkova::numberToText(row + 1),
        stage.getName(),
        zelkova::numberToText(stage.getQuestNum()),
        playRangeLabels.text(stage.getRange()),
        playTimeLabels.text(stage.getInterval()),
        playSpeedLabels.text(stage.getSpeed()),
        zelkova::numberToText(stage.getMulti()),
        markIf(stage.getDeduction() != 1),
        markIf(stage.getHandsType() != -1),
        markIf(stage.getSteal() != -1),
        resourceMark(hasSongs(stage), stage.getErrcode()),
    };
}

// The row keeps whether its stage has songs, which a later result of a check needs.
bool ViewPart::write(int row, const DataSession& stage) {
    return writeCells(row, 0, cells(row, stage)) && platform::listSetRowData(hwnd, row, hasSongs(stage));
}
