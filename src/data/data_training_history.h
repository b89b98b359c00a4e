#pragma once
// One answer in training mode, kept in memory only.

#include "data/record.h"
#include "foundation/object.h"

class DataTrainingModeHistory : public zelkova::DataObject {
public:
    void clear() override { *this = DataTrainingModeHistory(); }
    using DataObject::toString;
    std::string toString(const std::string& separator) const override;
    static std::span<const record::Field<DataTrainingModeHistory>> fields();

    KDL_FIELD(std::int32_t, Question, 0);
    KDL_FIELD(std::int32_t, QuestionSub, 0); // the song's number in a question of several songs
    KDL_FIELD(std::string, Title);
    KDL_FIELD(std::string, Artist);
    KDL_FIELD(std::string, Status);         // the outcome as shown
    KDL_FIELD(std::int32_t, AnswerTime, 0); // tenths of a second
};
