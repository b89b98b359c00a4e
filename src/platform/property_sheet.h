#pragma once
// Property sheets: one modal window over several pages, each a template with its own procedure. As tabs with
// OK, cancel and apply, or as a wizard with back, next and cancel, whose last page has finish in place of
// next.
//
// A page is a window of its own: its procedure gets the messages of its own controls. WM_INITDIALOG comes
// when it is first shown, WM_DESTROY only to pages that have been shown.

#include <string>
#include <vector>

#include "platform/dialog.h"

namespace platform {

// What the sheet asks or tells a page: WM_NOTIFY with wParam 0 and the code in lParam. The page agrees unless
// it calls answerSheet(page, -1) before it returns.
enum SheetCode : int {
    PSN_SETACTIVE = -200,  // it is shown from now on; its buttons stand as the sheet has them at first
    PSN_KILLACTIVE = -201, // it is left, or applied while it is shown; -1: it stays
    PSN_APPLY = -202,      // OK or apply, to every page that has been shown; -1: not yet, the page comes up
    PSN_RESET = -203,      // cancel, to every page that has been shown
    PSN_WIZBACK = -206,    // the buttons of a wizard; -1: the page stays
    PSN_WIZNEXT = -207,
    PSN_WIZFINISH = -208,
};

// The buttons of a sheet beside IDOK and IDCANCEL.
enum : int { ID_APPLY_NOW = 0x3021, ID_WIZBACK = 0x3023, ID_WIZNEXT = 0x3024, ID_WIZFINISH = 0x3025 };

enum : unsigned { PSWIZB_BACK = 1, PSWIZB_NEXT = 2, PSWIZB_FINISH = 4 };

enum class SheetKind { Tabs, Wizard };

struct SheetPage {
    std::string name; // of the template, whose window title is the page's
    DialogProc proc;
};

struct PropertySheet {
    std::string name; // what a script expects, as it does a dialog's template
    std::string title;
    SheetKind kind = SheetKind::Tabs;
    std::vector<SheetPage> pages; // at least one; the first is shown first
};

// Runs the sheet as runDialog does a dialog. IDOK after OK or finish, IDCANCEL after cancel, Esc or the close
// box, -1 when a template cannot be loaded. Of a button that is off, Esc and the close box are off as well.
int runPropertySheet(WindowHandle owner, const PropertySheet& sheet);

// All of these are asked by a page of its sheet.
void answerSheet(WindowHandle page, int answer);
void sheetChanged(WindowHandle page); // apply is possible now
// PSWIZB_... of the buttons that are possible. With PSWIZB_FINISH the finish button stands in place of next.
void setWizardButtons(WindowHandle page, unsigned buttons);
void enableSheetCancel(WindowHandle page, bool enabled);

WindowHandle shownPage(WindowHandle sheet);

} // namespace platform
