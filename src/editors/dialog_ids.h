#pragma once
// Numbers of the controls in the editors' dialogs.

// The songs of the catalogue: what can be done with them.
namespace control_list {

constexpr char form[] = "IDD_KDL0301_EDIT_RESOURCE_LIST";

enum : int { idAdd = 3101, idSearch = 3102, idList = 3103, idOk = 3105 };

} // namespace control_list

// One song. What plays and marks is in sample_controls.h.
namespace resource_edit {

constexpr char form[] = "IDD_KDL0302_EDIT";

enum : int {
    idNumber = 3202,
    idFileName = 3203,
    idBrowse = 3204,
    idTitle = 3205,
    idArtist = 3206,
    idArtistKana = 3207,
    idReleaseDate = 3208,
    idGenre = 3209,
    idFileType = 3210,
    idType1 = 3212, // the first of three radio buttons
    idOk = 3253,
    idCancel = 3254,
    idApply = 3255,
    idFamous = 3263,
    idDeficalt = 3264,
    idBatch = 3265, // what is shown of several files only
    idBatchText = 3266,
    idTakeRest = 3267,
    idStopBatch = 3268,
};

} // namespace resource_edit

// Songs to search, sort, edit and pick.
namespace search_list {

constexpr char form[] = "IDD_KDL0303_SERCHLIST";

enum : int {
    idFilters = 3310, // all fields and their buttons
    idByNumber = 3311,
    idNoFrom = 3312,
    idNoTo = 3313,
    idTitle = 3317,
    idArtist = 3318,
    idKana = 3319,
    idGenre = 3320,
    idFormat = 3324,
    idAnyType = 3326, // the first of four radio buttons, the others in the order of songTypeLabels
    idByDate = 3330,
    idDateFrom = 3331,
    idDateTo = 3332,
    idSearch = 3333,
    idClear = 3335,
    idList = 3336,
    idOk = 3338,
    idLegendMark = 3339,
    idEdit = 3341,
    idRemove = 3342,
};

} // namespace search_list

// A file that the catalogue knows already.
namespace confirm_duplicate {

constexpr char form[] = "IDD_KDL0304_EDIT_CONFIRM";

enum : int {
    idIcon = 3401,
    idQuestion = 3402,
    idDetails = 3403,
    idEdit = 3405,
    idNew = 3406,
    idCancel = 3407,
    idStopBatch = 3408,
};

} // namespace confirm_duplicate

// Files on their way into the catalogue.
namespace add_rest {

constexpr char form[] = "IDD_KDL0305_ADD_REST";

enum : int {
    idFileName = 3501,
    idProgress = 3502,
    idCount = 3503,
    idStop = 3504,
    idTimer = 3505,
};

} // namespace add_rest

// The pages of the session wizard.
namespace session_wizard {

constexpr char form[] = "IDD_KDL0401_SESSION";

enum : int {
    idFile = 4103,
    idBrowse = 4104,
    idName = 4105,
    idNameNeeded = 4106,
    idFileNeeded = 4107,

    idStages = 4201,
    idAdd = 4202,
    idEdit = 4203,
    idDelete = 4204,
    idUp = 4206,
    idDown = 4207,
    idTotal = 4208,

    idSongs = 4301,
    idAssign = 4302,
    idRefusedMark = 4303,

    idOutcome = 4401,
    idFolderName = 4402,
    idFileName = 4403,
};

} // namespace session_wizard

// Settings of a stage.
namespace part_detail {

constexpr char form[] = "IDD_KDL0405_PARTDETAIL";

enum : int {
    idNameCaption = 4501,
    idName = 4502,
    idQuestNumCaption = 4503,
    idQuestNum = 4504,
    idRange = 4505,
    idInterval = 4506,
    idSpeed = 4507,
    idScore = 4508,
    idDeducts = 4509,
    idDeduction = 4510,
    idFalseStarts = 4511,
    idHandsType1 = 4512, // the first of three radio buttons
    idHands1 = 4515,     // the first of their three edits
    idSteals = 4518,
    idSteal = 4519,
    idHandsRules = 4520, // what 4511 switches
    idDeductionCaption = 4521,
    idOk = 4522,
    idCancel = 4523,
    idMulti = 4524,
    idMultiCaption = 4525,
    idStealCaption = 4526,
    idRulesGroup = 4527,
    idStealGroup = 4528,
    idRemark = 4531,
};

} // namespace part_detail

// Songs of a stage.
namespace resource_detail {

constexpr char form[] = "IDD_KDL0406_RESOURCEDETAIL";

enum : int {
    idTarget = 4602,
    idSource = 4603,
    idOk = 4604,
    idCancel = 4605,
    idSet = 4606,
    idShowAll = 4608,
    idFill = 4609,
    idSearch = 4610,
    idClearAll = 4611,
    idClear = 4612,
    idShuffle = 4613,
    idUp = 4614,
    idDown = 4615,
    idRemove = 4616,
    idRemoveAll = 4617,
    idEdit = 4620,
    idElsewhereMark = 4621,
    idInStageMark = 4622,
    idUnfitMark = 4623,
};

} // namespace resource_detail
