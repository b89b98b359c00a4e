#pragma once
// Numbers of the controls in the console's dialogs.

namespace answer_request {

constexpr char form[] = "IDD_KDL0102_REQUEST";

enum : int {
    idUser = 1202,
    idRight = 1204,
    idWrong = 1206,
    idEffect = 1209,
    idOk = 1211,
    idVoid = 1212,
    idAnswer1 = 1213, // to 1217
    idAnswerCaption = 1218,
    idCheer = 1219,
    idUserCaption = 1221,
    idHurry = 1222,
    idPause = 1223,
    idTimeUp = 1226,
    idVolume = 1229,
    idVolumeText = 1230,
};

} // namespace answer_request

namespace revision {

constexpr char form[] = "IDD_KDL0104_REVISION";

enum : int {
    idStage = 1402,
    idRule = 1403,
    idUser1 = 1404, // the first of four groups of nine numbers
    groupSize = 9,
    idOk = 1440,
    idCancel = 1441,
    idHideScores = 1442,
};

// Inside a group.
enum : int { offsetName = 1, offsetState = 2, offsetScore = 3, offsetHands = 5, offsetRest = 7 };

} // namespace revision

namespace confirm_victory {

constexpr char form[] = "IDD_KDL0601_CONFIRM_VECTORY";

enum : int { idOk = 6102, idDrumRoll = 6103, idDrumRollStop = 6104, idAward = 6105, idAwardStop = 6106 };

} // namespace confirm_victory
