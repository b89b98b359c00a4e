#pragma once
// Numbers of the console's controls and commands. The state machine enables them, the console makes them, the
// main window reads some of them.

namespace ids {

// Console pane, upper part.
enum : int {
    questCounter = 11027,
    statusText = 11028,
    stageName = 11029,
    answerCaption = 11031,
    artist = 11032,
    title = 11033,
    songLabel1 = 11034, // to 11038: the songs of a simultaneous quest
    songCheck1 = 11039, // to 11043: which of them are played
    range = 11044,
    interval = 11045,
    speed = 11046,
    multi = 11047,
    points = 11048,
    penalty = 11049,
    stageNameCaption = 11054,
};

// Console pane, buttons and play bar.
enum : int {
    changeStage = 11050,
    playBar = 11051,
    playPosition = 11052,
    volume = 11053,
    volumeText = 11056,
    questStart = 11063,
    replay = 11064,
    stop = 11065,
    pause = 11066,
    noCorrect = 11067,
    skip = 11068,
    changeSongs = 11088,
    previousQuest = 11091,
    nextQuest = 11092,
    mcVoice = 11100,
};

// Player board: the first of four neighbouring numbers, one for each user.
enum : int {
    userName1 = 11069,
    userScore1 = 11073,
    userState1 = 11077,
    userRank1 = 11081,
    userHands1 = 11093,
    revision = 11090,
};

// Data pane.
enum : int {
    questList = 11026,
    sessionNameLabel = 11030,
    editSong = 11085,
    listChangeSongs = 11086,
    listChangeStage = 11089,
};

// Main window.
enum : int {
    statusBar = 11055,
    leadInTimer = 11061,
    playTimer = 11062,
    applauseTimer = 11101,
    openSession = 11002,
    endSession = 11005,
};

} // namespace ids
