#include "data/data_history.h"

namespace {

template <typename Record>
std::string dumpAll(const std::vector<Record>& records, const std::string& separator) {
    std::string out;
    for (const Record& one : records)
        out += (out.empty() ? "" : separator) + one.toString(separator);
    return out;
}

} // namespace

std::span<const record::Field<DataHistory>> DataHistory::fields() {
    static const record::Field<DataHistory> table[] = {
        {"quest", "@quest", &DataHistory::mQuest},
        {"result", "result", &DataHistory::mResult, "title5"},
        {"user", "user", &DataHistory::mUser, "result"},
        {"artist1", "artist1", &DataHistory::mArtist1},
        {"artist2", "artist2", &DataHistory::mArtist2},
        {"artist3", "artist3", &DataHistory::mArtist3},
        {"artist4", "artist4", &DataHistory::mArtist4},
        {"artist5", "artist5", &DataHistory::mArtist5},
        {"title1", "title1", &DataHistory::mTitle1},
        {"title2", "title2", &DataHistory::mTitle2},
        {"title3", "title3", &DataHistory::mTitle3},
        {"title4", "title4", &DataHistory::mTitle4},
        {"title5", "title5", &DataHistory::mTitle5},
        {"score1", "score[1]", &DataHistory::mScore1},
        {"score2", "score[2]", &DataHistory::mScore2},
        {"score3", "score[3]", &DataHistory::mScore3},
        {"score4", "score[4]", &DataHistory::mScore4},
        {"status1", "status[1]", &DataHistory::mStatus1},
        {"status2", "status[2]", &DataHistory::mStatus2},
        {"status3", "status[3]", &DataHistory::mStatus3},
        {"status4", "status[4]", &DataHistory::mStatus4},
    };
    return table;
}

std::string DataHistory::toString(const std::string& separator) const {
    return record::dump(*this, fields(), separator);
}

std::span<const record::Field<DataPartHistory>> DataPartHistory::fields() {
    static const record::Field<DataPartHistory> table[] = {
        {"partName", "@name", &DataPartHistory::mPartName},
        {"questNumber", "questNumber", &DataPartHistory::mQuestNumber},
        {"range", "range", &DataPartHistory::mRange},
        {"interval", "interval", &DataPartHistory::mInterval},
        {"speed", "speed", &DataPartHistory::mSpeed},
        {"multi", "multi", &DataPartHistory::mMulti},
        {"score", "score", &DataPartHistory::mScore},
        {"deduction", "deductionPenalty", &DataPartHistory::mDeduction},
        {"handsType", "handsType", &DataPartHistory::mHandsType},
        {"hands", "handsPenalty", &DataPartHistory::mHands},
        {"steal", "stealPenalty", &DataPartHistory::mSteal},
        {"limit", "limit", &DataPartHistory::mLimit},
    };
    return table;
}

std::string DataPartHistory::toString(const std::string& separator) const {
    zelkova::DataPairsList pairs;
    record::addPairs(pairs, *this, fields());
    pairs.add("dataHistoryList", dumpAll(mDataHistoryList, separator));
    return pairs.toString(separator);
}

void DataPartHistory::setFromSession(const DataSession& session) {
    mPartName = session.getName();
    mQuestNumber = session.getQuestNum();
    mRange = session.getRange();
    mInterval = session.getInterval();
    mSpeed = session.getSpeed();
    mMulti = session.getMulti();
    mScore = session.getScore();
    mDeduction = session.getDeduction();
    mHandsType = session.getHandsType();
    mHands = session.getHands();
    mSteal = session.getSteal();
    mLimit = session.getLimit();
}

std::span<const record::Field<DataSessionHistory>> DataSessionHistory::fields() {
    static const record::Field<DataSessionHistory> table[] = {
        {"sessionName", "@name", &DataSessionHistory::mSessionName},
        {"", "startDateTime", &DataSessionHistory::mStartDateTime},
        {"", "endDateTime", &DataSessionHistory::mEndDateTime},
        {"exhibition", "exhibition", &DataSessionHistory::mExhibition},
        {"firstUser", "firstUser", &DataSessionHistory::mFirstUser},
        {"secondUser", "secondUser", &DataSessionHistory::mSecondUser},
        {"thirdUser", "thirdUser", &DataSessionHistory::mThirdUser},
        {"fourthUser", "fourthUser", &DataSessionHistory::mFourthUser},
        {"firstUserOrder", "firstUser/@order", &DataSessionHistory::mFirstUserOrder},
        {"secondUserOrder", "secondUser/@order", &DataSessionHistory::mSecondUserOrder},
        {"thirdUserOrder", "thirdUser/@order", &DataSessionHistory::mThirdUserOrder},
        {"fourthUserOrder", "fourthUser/@order", &DataSessionHistory::mFourthUserOrder},
        {"maxPart", "maxPart", &DataSessionHistory::mMaxPart},
        {"totalQuestNumber", "total", &DataSessionHistory::mTotalQuestNumber},
    };
    return table;
}

std::string DataSessionHistory::toString(const std::string& separator) const {
    zelkova::DataPairsList pairs;
    record::addPairs(pairs, *this, fields());
    pairs.add("dataPartHistoryList", dumpAll(mDataPartHistoryList, separator));
    return pairs.toString(separator);
}
