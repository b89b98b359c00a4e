#include "console/data_pane.h"

#include "console/quest_editing.h"
#include "console/view_quest.h"
#include "host/state/console_ids.h"
#include "host/state/host_state.h"
#include "host/state/requests.h"
#include "platform/controls.h"
#include "platform/menu.h"

namespace {

platform::WindowHandle listOf(platform::WindowHandle pane) {
    return platform::getItem(pane, ids::questList);
}

bool setUp(platform::WindowHandle pane) {
    if (!platform::loadTemplate(pane, "IDD_KDL0101_DATA")) return false;
    host().dataPane = pane;
    const platform::WindowHandle list = listOf(pane);
    ViewQuest(list).makeColumns();
    platform::listSetRowColors(list, [list](int row) { return ViewQuest(list).rowColors(row); });
    return true;
}

void onCommand(platform::WindowHandle pane, int id) {
    const ViewQuest list(listOf(pane));
    const int row = list.getSelectedItem();
    if (row < 0) return;
    switch (id) {
    case ids::editSong:
        editSong(list.songAt(row));
        break;
    case ids::listChangeSongs:
        editSongsOfQuest(list.questAt(row));
        break;
    case ids::listChangeStage:
        editStageOfQuest(list.questAt(row));
        break;
    default:
        break;
    }
}

void onListNotice(platform::WindowHandle pane, int notice) {
    if (!mayEditQuest()) return;
    if (notice == platform::NM_DBLCLK) onCommand(pane, ids::editSong);
    if (notice == platform::NM_RCLICK && platform::listSelectedRow(listOf(pane)) >= 0)
        platform::popupMenu(pane, "IDM_KDL0101_QUESTMENUE");
}

} // namespace

platform::LResult ChildRightDataWnd::componentWndProc(platform::WindowHandle window, unsigned message,
                                                      platform::WParam wParam, platform::LParam lParam) {
    switch (message) {
    case platform::WM_CREATE:
        return setUp(window) ? 0 : -1;
    case platform::WM_DESTROY:
        if (host().dataPane == window) host().dataPane = {};
        return 0;
    case platform::WM_COMMAND:
        onCommand(window, static_cast<int>(platform::lowWord(wParam)));
        return 0;
    case platform::WM_NOTIFY:
        if (wParam == ids::questList) onListNotice(window, static_cast<int>(lParam));
        return 0;
    default:
        return platform::defWindowProc(window, message, wParam, lParam);
    }
}

void showSessionName(const std::string& name) {
    platform::setText({host().dataPane, ids::sessionNameLabel}, "出題名:" + name);
}

void fillQuestList() {
    ViewQuest list(listOf(host().dataPane));
    const int selected = list.getSelectedItem();
    platform::listHoldRedraw(list.getHwnd(), true);
    list.deleteAllItems();
    int stageNumber = 1, firstQuest = 1;
    for (const DataSession& stage : host().sessionList) {
        list.addRows(stageNumber++, stage, firstQuest);
        firstQuest += stage.getQuestNum();
    }
    platform::listHoldRedraw(list.getHwnd(), false);
    platform::listSelectRow(list.getHwnd(), selected);
}

void redrawQuestList() {
    ViewQuest list(listOf(host().dataPane));
    list.forgetFiles();
    list.redraw();
    for (int row = 0; row < list.getItemCount(); ++row) {
        if (list.questAt(row) != host().curQuestNumber) continue;
        list.ensureVisible(row);
        return;
    }
}

void clearQuestList() {
    ViewQuest(listOf(host().dataPane)).deleteAllItems();
    showSessionName("");
}
