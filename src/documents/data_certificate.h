#pragma once
// What a certificate says, ready for its frames.

#include "data/record.h"

class DataCertificate {
    KDL_FIELD(std::string, Order);
    KDL_FIELD(std::string, UserName);
    KDL_FIELD(std::string, Sentence);
    KDL_FIELD(std::string, Date);
    KDL_FIELD(std::string, Sponsor);
    KDL_FIELD(std::string, Post);
    KDL_FIELD(std::string, Publisher);
};
