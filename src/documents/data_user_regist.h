#pragma once
// What an application form says about its event.

#include "data/record.h"

class DataUserRegist {
    KDL_FIELD(std::string, SessionName);
    KDL_FIELD(zelkova::DateTime, Date);
    KDL_FIELD(zelkova::DateTime, StartTime);
    KDL_FIELD(zelkova::DateTime, EndTime); // a cleared one: not known yet
    KDL_FIELD(std::string, Place);
    KDL_FIELD(zelkova::DataPairsList, ImageList); // the position from 0 and the picture's name
    KDL_FIELD(std::string, Organizer);
    KDL_FIELD(std::string, Delegate);
    KDL_FIELD(zelkova::DateTime, IssueDate);
};
