#include "data/data_training_history.h"

std::span<const record::Field<DataTrainingModeHistory>> DataTrainingModeHistory::fields() {
    static const record::Field<DataTrainingModeHistory> table[] = {
        {"question", "", &DataTrainingModeHistory::mQuestion},
        {"questionSub", "", &DataTrainingModeHistory::mQuestionSub},
        {"title", "", &DataTrainingModeHistory::mTitle},
        {"artist", "", &DataTrainingModeHistory::mArtist},
        {"status", "", &DataTrainingModeHistory::mStatus},
        {"answerTime", "", &DataTrainingModeHistory::mAnswerTime},
    };
    return table;
}

std::string DataTrainingModeHistory::toString(const std::string& separator) const {
    return record::dump(*this, fields(), separator);
}
