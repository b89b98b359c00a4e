#pragma once
// Numbers of the controls in the box of a numbered message.

namespace message_box {

constexpr char form[] = "IDD_KDL0001_MESSAGE_BOX";

enum : int {
    idIcon = 101,
    idCode = 102,
    idMessage = 103,
    idDetailCaption = 104,
    idDetail = 105,
    idDetailButton = 106,
    idHelp = 107,
    idAnswer1 = 111, // to 113
};

} // namespace message_box
