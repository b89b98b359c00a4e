#include "host/state/current_quest.h"

#include "foundation/text.h"
#include "host/state/console_ids.h"
#include "host/state/host_state.h"
#include "host/state/quest.h"
#include "host/state/scoring.h"
#include "platform/controls.h"

std::string answerText() {
    std::string text;
    int number = 1;
    for (const DataResource& song : host().dataResourceList) {
        if (number > 1) text += ' ';
        text += "<" + zelkova::numberToText(number) + ">:" + song.getTitle() + "(" + song.getArtist() + ")";
        ++number;
    }
    return text;
}

zelkova::DataPairsList questAnswers() {
    zelkova::DataPairsList answers;
    for (const DataResource& song : host().dataResourceList)
        answers.add(song.getTitle(), song.getArtist());
    return answers;
}

int currentPoints() {
    return zelkova::stringToInt(platform::getText({host().consolePane, ids::points}));
}

void endCurrentQuestPenalties() {
    HostState& state = host();
    const auto here = findQuest(state.sessionList, state.curQuestNumber);
    const auto next = findQuest(state.sessionList, state.curQuestNumber + 1);
    // Two neighbouring stages of one name count as one.
    const bool stageEnds =
        !here || !next ||
        state.sessionList[here->stage].getName() != state.sessionList[next->stage].getName();
    endQuestPenalties(state.dataSession, stageEnds, state.userList);
}

void addScorePairs(zelkova::DataPairsList& pairs) {
    int number = 1;
    for (const DataUserInfo& user : host().userList)
        pairs.add("SCORE" + zelkova::numberToText(number++), user.getScore());
}
