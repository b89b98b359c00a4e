#include "console/console_pane.h"

#include <algorithm>
#include <array>

#include "console/player_board.h"
#include "console/quest_commands.h"
#include "data/labels.h"
#include "host/state/console_ids.h"
#include "host/state/host_state.h"
#include "host/state/play_control.h"
#include "platform/controls.h"

namespace {

constexpr platform::Color answerRed{255, 80, 80};
constexpr int mostPoints = 30000;
constexpr int pointsStep = 10;
constexpr int fullVolume = 100;

void fillCombo(platform::Control combo, const Labels& labels) {
    for (const char* label : labels)
        platform::addItem(combo, label);
}

bool setUp(platform::WindowHandle pane) {
    if (!platform::loadTemplate(pane, "IDD_KDL0101_CONSOLE")) return false;
    HostState& state = host();
    state.consolePane = pane;
    for (int i = 0; i < maxSongs; ++i)
        state.questCheck[static_cast<std::size_t>(i)] = platform::getItem(pane, ids::songCheck1 + i);
    fillCombo({pane, ids::range}, playRangeLabels);
    fillCombo({pane, ids::interval}, playTimeLabels);
    fillCombo({pane, ids::speed}, playSpeedLabels);
    platform::setSpinRange({pane, ids::points}, 0, mostPoints, pointsStep);
    platform::setRange({pane, ids::volume}, 0, fullVolume);
    platform::setTextColor({pane, ids::answerCaption}, answerRed);
    clearConsole();
    refreshUserPane();
    applyMasterVolume(state.masterVolume);
    return true;
}

void tearDown(platform::WindowHandle pane) {
    if (host().consolePane != pane) return;
    host().consolePane = {};
    host().questCheck = {};
}

struct Command {
    int id;
    unsigned notification;
    void (*run)();
};

constexpr std::array commands{
    Command{ids::range, platform::CBN_SELCHANGE, chooseRange},
    Command{ids::interval, platform::CBN_SELCHANGE, chooseInterval},
    Command{ids::speed, platform::CBN_SELCHANGE, chooseSpeed},
    Command{ids::changeStage, platform::BN_CLICKED, changeStage},
    Command{ids::changeSongs, platform::BN_CLICKED, changeSongs},
    Command{ids::questStart, platform::BN_CLICKED, startQuest},
    Command{ids::replay, platform::BN_CLICKED, replayQuest},
    Command{ids::stop, platform::BN_CLICKED, stopQuest},
    Command{ids::pause, platform::BN_CLICKED, pauseQuest},
    Command{ids::noCorrect, platform::BN_CLICKED, giveUpQuest},
    Command{ids::skip, platform::BN_CLICKED, skipQuest},
    Command{ids::nextQuest, platform::BN_CLICKED, skipQuest},
    Command{ids::previousQuest, platform::BN_CLICKED, returnToPreviousQuest},
    Command{ids::revision, platform::BN_CLICKED, reviseUsers},
};

void onCommand(int id, unsigned notification) {
    const auto command = std::find_if(commands.begin(), commands.end(), [&](const Command& row) {
        return row.id == id && row.notification == notification;
    });
    if (command != commands.end()) command->run();
}

} // namespace

platform::LResult ChildLeftWnd::componentWndProc(platform::WindowHandle window, unsigned message,
                                                 platform::WParam wParam, platform::LParam lParam) {
    switch (message) {
    case platform::WM_CREATE:
        return setUp(window) ? 0 : -1;
    case platform::WM_DESTROY:
        tearDown(window);
        return 0;
    case platform::WM_COMMAND:
        onCommand(static_cast<int>(platform::lowWord(wParam)), platform::highWord(wParam));
        return 0;
    case platform::WM_HSCROLL:
        if (lParam == ids::volume) applyMasterVolume(platform::getPosition({window, ids::volume}));
        return 0;
    default:
        return platform::defWindowProc(window, message, wParam, lParam);
    }
}
