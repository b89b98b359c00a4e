#pragma once
// Numbers of the player window's controls and commands. A command carries the same number on a button, in the
// menu bar and in the list's menu.

namespace tonal_player {

constexpr char form[] = "IDD_KDL0801_TONAL_PLAYER";

enum : int {
    idInOrder = 8101, // radio buttons, in three groups
    idRandomOrder = 8102,
    idLoop = 8103,
    idFromStart = 8104,
    idFromIntro = 8105,
    idFromSabi = 8106,
    idFromMelody = 8107,
    idFromRandom = 8108,
    idFromEnd = 8109,
    idFromAnswer = 8110,
    idNoLimit = 8111,
    idOneSecond = 8112,
    idThreeSeconds = 8113,
    idFiveSeconds = 8114,
    idTenSeconds = 8115,
    idSongs = 8117,
    idPosition = 8118,
    idClock = 8119,
    idPlay = 8120,
    idStop = 8121,
    idVolume = 8123,
    idVolumeText = 8124,
    idMute = 8125,
    idSpeed = 8127,
    idSpeedText = 8128,
    idTitle = 8129,
    idArtist = 8130,
    idBack = 8131,
    idForward = 8132,
    idNormalSpeed = 8133,
    idHistory = 8134,
    idPlaySelected = 8135,
    idTimer = 8136,
};

} // namespace tonal_player
