#pragma once
// Numbers of the training window's controls, commands and timers.

namespace training {

enum : int {
    idCounter = 9102,
    idStatus = 9103,
    idRange = 9104,
    idSpeed = 9105,
    idInterval = 9106,
    idMulti = 9107,
    idSettings = 9108,
    idReset = 9109,
    idHistory = 9110,
    idStart = 9112,
    idGiveUp = 9114,
    idReplay = 9115,
    idStop = 9116,
    idSkip = 9117,
    idAnswer = 9118,
    idPlayBar = 9119,
    idVolume = 9120,
    idVolumeText = 9121,
    idPosition = 9122,
    idMethod = 9131,
    idJingleTimer = 9132,
    idPlayTimer = 9133,
    idChoices = 9135,
    idTime = 9138,
    idClockTimer = 9139,
    idClose = 9143,
};

} // namespace training
