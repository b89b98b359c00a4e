#include "data/data_user_info.h"

std::span<const record::Field<DataUserInfo>> DataUserInfo::fields() {
    static const record::Field<DataUserInfo> table[] = {
        {"userId", "", &DataUserInfo::mUserId},
        {"name", "", &DataUserInfo::mName},
        {"type", "", &DataUserInfo::mType},
        {"score", "", &DataUserInfo::mScore},
        {"answerRight", "", &DataUserInfo::mAnswerRight},
        {"actionId", "", &DataUserInfo::mActionId},
        {"order", "", &DataUserInfo::mOrder},
        {"hands", "", &DataUserInfo::mHands},
        {"rest", "", &DataUserInfo::mRest},
    };
    return table;
}

std::string DataUserInfo::toString(const std::string& separator) const {
    return record::dump(*this, fields(), separator);
}
