#pragma once
// Numbers of the controls, commands and timers of the training window and its dialogs.

namespace training {

constexpr char form[] = "IDD_KDL0901_TRAINING_MODE";

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

namespace answer_confirm {

constexpr char form[] = "IDD_KDL0902_ANSWER_CONFIRM";

enum : int {
    idCaption1 = 9203, // to 9207
    idAnswer1 = 9208,  // to 9212
    idDecide = 9213,
    idCancel = 9214,
};

} // namespace answer_confirm

namespace training_result {

constexpr char form[] = "IDD_KDL0903_TRAINING_MODE_RESULT";

enum : int { idHistory = 9302, idOk = 9303, idRankCaption = 9304, idRank = 9305 };

} // namespace training_result
