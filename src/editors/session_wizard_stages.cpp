#include "editors/session_wizard_stages.h"

#include <algorithm>
#include <cstddef>

#include "editors/dialog_ids.h"
#include "editors/part_detail.h"
#include "editors/resource_detail.h"
#include "foundation/text.h"
#include "platform/controls.h"
#include "platform/menu.h"
#include "platform/window.h"

using namespace session_wizard;

namespace {

constexpr platform::Color refusedRow{250, 115, 115};

} // namespace

bool StageListPage::onMessage(const platform::Message& message) {
    if (message.id != platform::WM_NOTIFY) return false;
    switch (message.lParam) {
    case platform::NM_DBLCLK:
        editSelected();
        return true;
    case platform::NM_RCLICK:
        follow(selected());
        platform::popupMenu(window(), menu_);
        return true;
    case platform::LVN_ITEMCHANGED:
        follow(selected());
        return true;
    default:
        return false;
    }
}

bool StageListPage::onSheet(platform::SheetCode code) {
    if (code != platform::PSN_SETACTIVE) return true;
    ViewPart rows = list();
    rows.deleteAllItems();
    for (const DataSession& each : draft_.stages)
        rows.addRow(each);
    follow(-1);
    return true;
}

void StageListPage::enableCommand(int id, bool enabled) const {
    platform::enable(control(id), enabled);
    platform::enableMenuItem(window(), id, enabled);
}

StagesPage::StagesPage(SessionDraft& draft)
    : StageListPage("IDD_KDL0402_PART", draft, idStages, "IDM_KDL0409_PARTLSTMENUE") {}

bool StagesPage::onCommand(int id) {
    switch (id) {
    case idAdd:
        add();
        return true;
    case idEdit:
        editSelected();
        return true;
    case idDelete:
        remove();
        return true;
    case idUp:
    case idDown:
        move(id == idUp ? -1 : 1);
        return true;
    default:
        return false;
    }
}

void StagesPage::follow(int selected) {
    for (const int id : {idEdit, idDelete, idUp, idDown})
        enableCommand(id, selected >= 0);
    platform::setText(control(idTotal), "総出題数：" + zelkova::numberToText(draft().total()));
    platform::setWizardButtons(window(), draft().stages.empty()
                                             ? platform::PSWIZB_BACK
                                             : platform::PSWIZB_BACK | platform::PSWIZB_NEXT);
}

void StagesPage::add() {
    DataSession added;
    if (dlgPartDetail(window(), StageMode::SessionWizard, added) != 1) return;
    draft().stages.push_back(added);
    const int row = list().addRow(added);
    platform::listSelectRow(control(idStages), row);
    list().ensureVisible(row);
    follow(row);
}

void StagesPage::editSelected() {
    const int row = selected();
    if (row < 0 || dlgPartDetail(window(), StageMode::SessionWizard, stage(row)) != 1) return;
    forgetSongs(stage(row));
    list().updateRow(row, stage(row));
    follow(row);
}

void StagesPage::remove() {
    const int row = selected();
    if (row < 0) return;
    draft().stages.erase(draft().stages.begin() + row);
    list().deleteRow(row);
    // The next one, so that several can go one after the other; the last where there is none.
    platform::listSelectRow(control(idStages), std::min(row, list().getItemCount() - 1));
    follow(selected());
}

void StagesPage::move(int by) {
    const int row = selected();
    if (!draft().move(row, by)) return;
    for (const int changed : {row, row + by})
        list().updateRow(changed, stage(changed));
    platform::listSelectRow(control(idStages), row + by);
    list().ensureVisible(row + by);
}

SongsPage::SongsPage(SessionDraft& draft)
    : StageListPage("IDD_KDL0403_RESOURCE", draft, idSongs, "IDM_KDL0410_PARTLSTMENUE") {}

void SongsPage::open() {
    StageListPage::open();
    platform::setTextColor(control(idRefusedMark), refusedRow);
    platform::listSetRowColors(control(idSongs), [this](int row) {
        platform::RowColors colors;
        if (list().isRefused(row)) colors.background = refusedRow;
        return colors;
    });
}

bool SongsPage::onCommand(int id) {
    if (id != idAssign) return false;
    editSelected();
    return true;
}

void SongsPage::follow(int selected) {
    enableCommand(idAssign, selected >= 0);
    const ViewPart rows = list();
    bool playable = true;
    for (int row = 0; row < rows.getItemCount(); ++row)
        playable = playable && !rows.isRefused(row);
    platform::setWizardButtons(window(), playable ? platform::PSWIZB_BACK | platform::PSWIZB_NEXT
                                                  : platform::PSWIZB_BACK);
}

void SongsPage::editSelected() {
    const int row = selected();
    if (row < 0) return;
    const int check = dlgResourceDetail(window(), draft().stages, static_cast<std::size_t>(row));
    if (check < 0) return; // nothing was decided
    stage(row).setErrcode(check);
    list().updateRow(row, stage(row));
    follow(row);
}
