#pragma once
// Numbers of the main menu's commands; 出題の開始 and 出題の終了, which the state machine switches, are in
// host/state/console_ids.h.

namespace command {

enum : int {
    closeWindow = 11001,
    editCatalogue = 11003,
    makeSession = 11004,
    playApplause = 11008,
    changeSettings = 11009,
    showVersion = 11010,
    clearScores = 11012,
    clearUsers = 11013,
    rebuildPlayers = 11015,
    showRunningOrder = 11016,
    showTurnRoundPoints = 11018,
    playOpening = 11019,
    playThinking = 11020,
    playEnding = 11021,
    playTimeUp = 11022,
    openHelp = 11023,
    openLogFile = 11024,
    exploreLogFolder = 11025,
    makeCertificate = 11097,
    playFinalApplause = 11098,
    exploreHistoryFolder = 11099,
    makeApplicationForm = 11102,
    runPlayer = 11150,
    train = 11151,
};

} // namespace command
