#include "protocol/messages.h"

#include "foundation/text.h"

namespace {

// A stage's numbers as STATUSNOTIFY names them, in the order of their lines.
constexpr struct {
    std::string_view name;
    std::int32_t (DataSession::*value)() const;
} stageLines[] = {
    {"partQuest", &DataSession::getQuestNum}, {"multi", &DataSession::getMulti},
    {"score", &DataSession::getScore},        {"steal", &DataSession::getSteal},
    {"descore", &DataSession::getDeduction},  {"handType", &DataSession::getHandsType},
    {"handsPenalty", &DataSession::getHands},
};

std::string userRecord(const DataUserInfo& user) {
    const auto number = [](std::int32_t value) { return zelkova::numberToText(value); };
    const std::string fields[] = {number(user.getUserId()),      user.getName(),
                                  number(user.getType()),        number(user.getScore()),
                                  number(user.getAnswerRight()), number(user.getActionId()),
                                  number(user.getOrder()),       number(user.getHands()),
                                  number(user.getRest())};
    std::string record;
    for (const std::string& field : fields) {
        if (!record.empty()) record += ',';
        record += '"' + field + '"';
    }
    return record;
}

} // namespace

void VRMStatusNotify::setStatus(std::string_view stateName) {
    add("Status", stateName);
}
void VRMStatusNotify::setQuest(std::int32_t quest) {
    add("Quest", quest);
}
void VRMStatusNotify::setMaxQuest(std::int32_t quests) {
    add("MaxQuest", quests);
}

void VRMStatusNotify::setSessionInfo(const DataSession& stage) {
    add("session", "dummy");
    add("part", stage.getName());
    for (const auto& line : stageLines)
        add(line.name, (stage.*line.value)());
}

void VRMAnsRes::setUserNumber(std::int32_t user) {
    add("UserNumber", user);
}
void VRMAnsRes::setResult(bool correct) {
    add("Result", correct ? 1 : 0);
}
void VRMAnsRes::setScore(std::int32_t points) {
    add("Score", points);
}
void VRMAnsRes::setType(std::int32_t answerRight) {
    add("Type", answerRight);
}
void VRMAnsRes::setAssumption(std::int32_t steal) {
    add("Assumption", steal);
}

void VRMDspAns::setAnsSize(std::int32_t answers) {
    add("AnsSize", answers);
}

void VRMDspAns::setAnswer(const zelkova::DataPairsList& answers) {
    std::string text;
    for (std::int32_t i = 0; i < answers.size(); ++i) {
        const zelkova::DataPairs answer = answers.get(i);
        if (i > 0) text += ',';
        text += answer.getKey() + "(" + answer.getValue() + ")";
    }
    add("Answer", text);
}

void VRMRevision::setUserInfo(const std::vector<DataUserInfo>& users) {
    std::string text;
    for (const DataUserInfo& user : users) {
        if (!text.empty()) text += "<sep/>";
        text += userRecord(user);
    }
    add("UserInfo", text);
}

void VRMResponse::setReply(std::string_view method) {
    add("Reply", method);
}
void VRMResponse::setCode(std::int32_t code) {
    add("Code", code);
}
void VRMResponse::setMessage(std::string_view sentence) {
    add("Message", sentence);
}
std::string VRMResponse::getReply() const {
    return getText("Reply");
}
std::int32_t VRMResponse::getCode() const {
    return getNumber("Code");
}

std::int32_t VRMUserNotify::getMax() const {
    return message_.getNumber("Max");
}
std::vector<std::string> VRMUserNotify::getUser() const {
    return zelkova::split(message_.getText("User"), ",");
}

std::int32_t VRMAnsReq::getUserNumber() const {
    return message_.getNumber("UserNumber");
}
