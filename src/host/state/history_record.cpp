#include "host/state/history_record.h"

#include <array>
#include <cstdlib>

#include "data/labels.h"
#include "foundation/datetime.h"
#include "foundation/text.h"
#include "host/state/host_state.h"
#include "host/state/quest.h"

namespace {

void noteScores() {
    const std::vector<DataUserInfo>& users = host().userList;
    DataHistory& record = host().dataHistory;
    record.setScore1(users[0].getScore());
    record.setScore2(users[1].getScore());
    record.setScore3(users[2].getScore());
    record.setScore4(users[3].getScore());
}

// Of a number that is not below 0.
std::string fullWidth(std::int64_t number) {
    static constexpr std::array<const char*, 10> digits{"０", "１", "２", "３", "４",
                                                        "５", "６", "７", "８", "９"};
    std::string text;
    for (const char digit : std::to_string(number))
        text += digits[static_cast<std::size_t>(digit - '0')];
    return text;
}

// "N日N時間N分N秒" without the units that are 0.
std::string runningTime(const zelkova::DateTime& start, const zelkova::DateTime& end) {
    const std::int64_t all = zelkova::secondsBetween(start, end);
    const std::array<std::pair<std::int64_t, const char*>, 4> units{
        {{all / 86400, "日"}, {all / 3600 % 24, "時間"}, {all / 60 % 60, "分"}, {all % 60, "秒"}}};
    std::string text;
    for (const auto& [count, unit] : units)
        if (count > 0) text += fullWidth(count) + unit;
    return text;
}

// A record of a quest that was never played has the number 0.
void keepQuestRecord() {
    HostState& state = host();
    if (state.dataHistory.getQuest() != 0) state.historyList.push_back(state.dataHistory);
}

void keepPartRecord() {
    HostState& state = host();
    state.dataPartHistory.setDataHistoryList(state.historyList);
    state.historyList.clear();
    state.partHistoryList.push_back(state.dataPartHistory);
}

void openPartRecord() {
    HostState& state = host();
    state.dataPartHistory.setFromSession(state.dataSession);
    state.questsLeftInPart = state.dataPartHistory.getQuestNumber();
}

} // namespace

void resetHistory() {
    HostState& state = host();
    state.dataHistory.clear();
    state.dataPartHistory.clear();
    state.dataSessionHistory.clear();
    state.historyList.clear();
    state.partHistoryList.clear();
    state.dataSessionHistory.setSessionName(state.sessionName);
    openPartRecord();
}

void openQuestRecord() {
    HostState& state = host();
    if (state.curQuestNumber != 1) {
        keepQuestRecord();
        if (state.questsLeftInPart <= 0) {
            keepPartRecord();
            openPartRecord();
        }
    }
    state.dataHistory.clear();
    state.dataHistory.setQuest(state.curQuestNumber);
    noteScores();
}

void completeQuestRecord() {
    HostState& state = host();
    using Setter = void (DataHistory::*)(const std::string&);
    static constexpr std::array<std::pair<Setter, Setter>, maxSongs> songFields{{
        {&DataHistory::setArtist1, &DataHistory::setTitle1},
        {&DataHistory::setArtist2, &DataHistory::setTitle2},
        {&DataHistory::setArtist3, &DataHistory::setTitle3},
        {&DataHistory::setArtist4, &DataHistory::setTitle4},
        {&DataHistory::setArtist5, &DataHistory::setTitle5},
    }};
    for (std::size_t i = 0; i < state.dataResourceList.size() && i < songFields.size(); ++i) {
        (state.dataHistory.*songFields[i].first)(state.dataResourceList[i].getArtist());
        (state.dataHistory.*songFields[i].second)(state.dataResourceList[i].getTitle());
    }
    if (state.requestUserId == -1) {
        state.dataHistory.setUser("正解者なし");
        state.dataHistory.setResult(2);
    } else {
        const auto index = static_cast<std::size_t>(state.requestUserId);
        state.dataHistory.setUser(fullWidth(state.requestUserId + 1) + "：" +
                                  state.userList[index].getName());
        state.dataHistory.setResult(1);
    }
    noteScores();
}

void closeSessionRecord() {
    HostState& state = host();
    DataSessionHistory& record = state.dataSessionHistory;
    record.setStartDateTime(state.sessionStartTime);
    record.setEndDateTime(state.sessionEndTime);
    record.setExhibition(
        runningTime(zelkova::DateTime(state.sessionStartTime), zelkova::DateTime(state.sessionEndTime)));
    record.setTotalQuestNumber(state.totalQuestNumber);
    record.setMaxPart(state.maxPart);

    struct UserFields {
        void (DataSessionHistory::*name)(const std::string&);
        void (DataSessionHistory::*order)(int);
    };
    static constexpr std::array<UserFields, maxUsers> userFields{{
        {&DataSessionHistory::setFirstUser, &DataSessionHistory::setFirstUserOrder},
        {&DataSessionHistory::setSecondUser, &DataSessionHistory::setSecondUserOrder},
        {&DataSessionHistory::setThirdUser, &DataSessionHistory::setThirdUserOrder},
        {&DataSessionHistory::setFourthUser, &DataSessionHistory::setFourthUserOrder},
    }};
    for (std::size_t i = 0; i < userFields.size(); ++i) {
        const DataUserInfo& user = state.userList[i];
        if (user.getAnswerRight() == userUnset) continue;
        (record.*userFields[i].name)(user.getName());
        (record.*userFields[i].order)(user.getOrder());
    }

    state.historyList.push_back(state.dataHistory);
    keepPartRecord();
    record.setDataPartHistoryList(state.partHistoryList);
}

bool historyHasContent() {
    for (const DataPartHistory& part : host().partHistoryList) {
        const std::vector<DataHistory> quests = part.getDataHistoryList();
        if (quests.size() > 1) return true;
        if (quests.size() == 1 && quests[0].getQuest() != 0) return true;
    }
    return false;
}
