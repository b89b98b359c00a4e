#pragma once
// Numbers of the controls in the documents' dialogs.

namespace certificate_dialog {

constexpr char form[] = "IDD_KDL0602_CERTIFICATE";

enum : int {
    idUserName = 6202,
    idOrder = 6203,
    idCompetition = 6204,
    idYear = 6205,
    idMonth = 6206,
    idDay = 6207,
    idCompany = 6208,
    idPost = 6209,
    idPublisher = 6210,
    idWord = 6211,
    idCancel = 6212,
    idFirstHint = 6213, // nine beside the fields, two below
    idLastHint = 6223,
    idWriter = 6224,
};

} // namespace certificate_dialog

namespace application_form_dialog {

constexpr char form[] = "IDD_KDL0904_CREATE_WRITE_APPLICATION";

enum : int {
    idShow = 9302,
    idCancel = 9303,
    idSessionName = 9304,
    idDate = 9305,
    idStartTime = 9306,
    idEndTime = 9307,
    idPlace = 9308,
    idOrganizer = 9309,
    idDelegate = 9310,
    idIssueDate = 9311,
    idPictures = 9312,
    idEndNotKnown = 9313,
};

} // namespace application_form_dialog
