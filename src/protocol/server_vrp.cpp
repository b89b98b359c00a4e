#include "protocol/server_vrp.h"

#include "protocol/messages.h"

void ServerVrp::sendStatusNotify(std::string_view status, int quest, int maxQuest, const DataSession& stage) {
    VRMStatusNotify message;
    prepare(message);
    message.setStatus(status);
    message.setQuest(quest);
    message.setMaxQuest(maxQuest);
    message.setSessionInfo(stage);
    send(message);
}

void ServerVrp::sendAnsRes(int user, bool correct, int score, int type, int assumption) {
    VRMAnsRes message;
    prepare(message);
    message.setUserNumber(user);
    message.setResult(correct);
    message.setScore(score);
    message.setType(type);
    message.setAssumption(assumption);
    send(message);
}

void ServerVrp::sendDspAns(const zelkova::DataPairsList& answers) {
    VRMDspAns message;
    prepare(message);
    message.setAnsSize(answers.size());
    message.setAnswer(answers);
    send(message);
}

void ServerVrp::sendRevision(const std::vector<DataUserInfo>& users) {
    VRMRevision message;
    prepare(message);
    message.setUserInfo(users);
    send(message);
}
