#include "data/data_session.h"

#include <utility>

#include "data/labels.h"
#include "foundation/path.h"
#include "foundation/text.h"

void DataSession::clear() {
    DataSession empty;
    empty.mResourceId.swap(mResourceId);
    empty.mResources.swap(mResources);
    *this = std::move(empty);
}

std::span<const record::Field<DataSession>> DataSession::fields() {
    static const record::Field<DataSession> table[] = {
        {"name", "name", &DataSession::mName},
        {"partVoice", "partVoice", &DataSession::mPartVoice},
        {"questNum", "questNum", &DataSession::mQuestNum},
        {"range", "range", &DataSession::mRange},
        {"interval", "interval", &DataSession::mInterval},
        {"speed", "speed", &DataSession::mSpeed},
        {"multi", "multi", &DataSession::mMulti},
        {"score", "score", &DataSession::mScore},
        {"deduction", "deductionPenalty", &DataSession::mDeduction},
        {"handsType", "handsType", &DataSession::mHandsType},
        {"hands", "handsPenalty", &DataSession::mHands},
        {"steal", "stealPenalty", &DataSession::mSteal},
        {"limit", "limit", &DataSession::mLimit},
        {"resourceId", "resourceId", &DataSession::mResourceId},
        {"errcode", "", &DataSession::mErrcode},
    };
    return table;
}

std::string DataSession::toString(const std::string& separator) const {
    return record::dump(*this, fields(), separator);
}

void DataSession::setResourceId(const std::string& text) {
    mResourceId = text;
    mResources = zelkova::splitNumbers(text);
}

bool resourceFitsSession(const DataResource& resource, const DataSession& session) {
    const bool intro = resource.getIntroEnd() > resource.getIntroStart();
    const bool sabi = resource.getSabiEnd() > resource.getSabiStart();
    switch (session.getRange()) {
    case rangeIntro:
        if (!intro) return false;
        break;
    case rangeSabi:
        if (!sabi) return false;
        break;
    case rangeRandom:
        // Random play uses neither span; a song without both is one that nobody has prepared yet.
        if (!intro || !sabi) return false;
        break;
    case rangeAnswer:
        if (resource.getAnsEnd() <= resource.getAnsStart()) return false;
        break;
    default:
        break;
    }
    const int fileType = resource.getFileType();
    if (session.getSpeed() != speedNormal && fileType != fileTypeMp3 && fileType != fileTypeNwav)
        return false;
    return zelkova::fileExists(resource.getFileName());
}
