#pragma once
// Numbers of the controls in the dialog that shows what was right. The show and the training mode each have
// theirs, of the same template.

namespace answer_display {

constexpr char form[] = "IDD_KDL0103_ANSWERDSP";

enum : int {
    idWinnerCaption = 1302,
    idWinner = 1303,
    idAnswer1 = 1305, // to 1309
    idVictimGroup = 1310,
    idVictim = 1311,
    idEffectGroup = 1312,
    idPlay = 1313,
    idStop = 1314,
    idOk = 1315,
    idTimer = 1316,
    idEffect = 1317,
    idRange = 1320,
    idVolume = 1321,
    idVolumeText = 1322,
};

} // namespace answer_display
