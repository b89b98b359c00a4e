#pragma once
// One contestant during a quiz.

#include "data/record.h"

constexpr int maxUsers = 4;

// What a user's record tells the terminal to do.
enum UserType : int { typeShowScores = 0, typeHideScores = 1, typeEndResult = 5 };
enum UserAction : int { actionWinner = 9 };

class DataUserInfo final {
public:
    virtual void clear() { *this = DataUserInfo(); }
    virtual std::string toString(const std::string& separator) const;
    static std::span<const record::Field<DataUserInfo>> fields();

    KDL_FIELD(std::int32_t, UserId, 0); // 0 to maxUsers - 1
    KDL_FIELD(std::string, Name);
    KDL_FIELD(std::int32_t, Type, 0); // UserType
    KDL_FIELD(std::int32_t, Score, 0);
    KDL_FIELD(std::int32_t, AnswerRight, 0); // userStatusLabels
    KDL_FIELD(std::int32_t, ActionId, 0);    // what the terminal is to show; 9: winner
    KDL_FIELD(std::int32_t, Order, 0);
    KDL_FIELD(std::int32_t, Hands, 0); // false starts under the stage's rule
    KDL_FIELD(std::int32_t, Rest, 0);  // quests still to sit out
};
