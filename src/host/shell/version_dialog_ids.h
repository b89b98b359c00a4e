#pragma once
// Numbers of the controls in the dialog that tells the version.

namespace version_dialog {

constexpr char form[] = "IDD_KDL0106_VERSION";

enum : int {
    idIcon = 1601,
    idName = 1602,
    idVersion = 1603,
    idCopyright = 1604,
    idMaker = 1605,
    idAddress = 1606,
};

} // namespace version_dialog
