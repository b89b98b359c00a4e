#pragma once
// What happened in a quiz: each quest, each stage with its quests, the whole session with its stages. Filled
// while the quiz runs and written once at its end.

#include <vector>

#include "data/data_session.h"
#include "data/record.h"

class DataHistory final {
public:
    virtual void clear() { *this = DataHistory(); }
    virtual std::string toString(const std::string& separator) const;
    static std::span<const record::Field<DataHistory>> fields();

    KDL_FIELD(std::int32_t, Quest, 0); // running number in the session
    // The songs played at once, "" where the quest has fewer.
    KDL_FIELD(std::string, Artist1);
    KDL_FIELD(std::string, Artist2);
    KDL_FIELD(std::string, Artist3);
    KDL_FIELD(std::string, Artist4);
    KDL_FIELD(std::string, Artist5);
    KDL_FIELD(std::string, Title1);
    KDL_FIELD(std::string, Title2);
    KDL_FIELD(std::string, Title3);
    KDL_FIELD(std::string, Title4);
    KDL_FIELD(std::string, Title5);
    KDL_FIELD(std::int32_t, Result, 0); // 1 a user answered rightly, 2 nobody did, 0 not closed
    KDL_FIELD(std::string, User);       // who answered, or "正解者なし"
    // The four users' scores after the quest.
    KDL_FIELD(std::int32_t, Score1, 0);
    KDL_FIELD(std::int32_t, Score2, 0);
    KDL_FIELD(std::int32_t, Score3, 0);
    KDL_FIELD(std::int32_t, Score4, 0);
    // Stay 0; the file has a place for them.
    KDL_FIELD(std::int32_t, Status1, 0);
    KDL_FIELD(std::int32_t, Status2, 0);
    KDL_FIELD(std::int32_t, Status3, 0);
    KDL_FIELD(std::int32_t, Status4, 0);
};

class DataPartHistory final {
public:
    virtual void clear() { *this = DataPartHistory(); }
    virtual std::string toString(const std::string& separator) const;
    static std::span<const record::Field<DataPartHistory>> fields();
    // The stage's settings; the list of quests stays.
    void setFromSession(const DataSession& session);

    KDL_FIELD(std::string, PartName);
    KDL_FIELD(std::int32_t, QuestNumber, 0);
    KDL_FIELD(std::int32_t, Range, 0);
    KDL_FIELD(std::int32_t, Interval, 0);
    KDL_FIELD(std::int32_t, Speed, 0);
    KDL_FIELD(std::int32_t, Multi, 0);
    KDL_FIELD(std::int32_t, Score, 0);
    KDL_FIELD(std::int32_t, Deduction, 0);
    KDL_FIELD(std::int32_t, HandsType, 0);
    KDL_FIELD(std::int32_t, Hands, 0);
    KDL_FIELD(std::int32_t, Steal, 0);
    KDL_FIELD(std::int32_t, Limit, 0);
    KDL_FIELD(std::vector<DataHistory>, DataHistoryList); // in playing order
};

class DataSessionHistory final {
public:
    virtual void clear() { *this = DataSessionHistory(); }
    virtual std::string toString(const std::string& separator) const;
    static std::span<const record::Field<DataSessionHistory>> fields();

    KDL_FIELD(std::string, SessionName);
    KDL_FIELD(record::Moment, StartDateTime);
    KDL_FIELD(record::Moment, EndDateTime);
    KDL_FIELD(std::string, Exhibition); // the running time as text
    KDL_FIELD(std::string, FirstUser);
    KDL_FIELD(std::string, SecondUser);
    KDL_FIELD(std::string, ThirdUser);
    KDL_FIELD(std::string, FourthUser);
    KDL_FIELD(std::int32_t, FirstUserOrder, 0);
    KDL_FIELD(std::int32_t, SecondUserOrder, 0);
    KDL_FIELD(std::int32_t, ThirdUserOrder, 0);
    KDL_FIELD(std::int32_t, FourthUserOrder, 0);
    KDL_FIELD(std::int32_t, MaxPart, 0);
    KDL_FIELD(std::int32_t, TotalQuestNumber, 0);
    KDL_FIELD(std::vector<DataPartHistory>, DataPartHistoryList); // in playing order
};
