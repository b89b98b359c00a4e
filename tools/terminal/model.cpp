#include "terminal/model.h"

#include <algorithm>
#include <utility>

#include "foundation/text.h"
#include "protocol/define_vrp.h"

namespace terminal {

namespace {

// "First Song(Some Band),Second Song(Other Band)". The host keeps these signs out of titles and artists.
std::vector<std::pair<std::string, std::string>> readAnswers(const std::string& text) {
    std::vector<std::pair<std::string, std::string>> answers;
    if (text.empty()) return answers;
    for (std::string entry : zelkova::split(text, "),")) {
        if (entry.ends_with(')')) entry.pop_back();
        const auto open = zelkova::findText(entry, "(");
        if (open == zelkova::npos)
            answers.emplace_back(entry, "");
        else
            answers.emplace_back(entry.substr(0, open), entry.substr(open + 1));
    }
    return answers;
}

// "0","Aoki","0","30","1","0","0","0","0"; empty when it is not like that.
std::vector<std::string> readUser(const std::string& record) {
    constexpr std::size_t fieldCount = 9;
    if (record.size() < 2 || !record.starts_with('"') || !record.ends_with('"')) return {};
    auto fields = zelkova::split(record.substr(1, record.size() - 2), "\",\"");
    if (fields.size() != fieldCount) fields.clear();
    return fields;
}

bool isUser(int number) {
    return number >= 0 && number < maxUsers;
}

} // namespace

Model::Model() {
    setNames({"あおい", "けんじ", "さくら", "はると"});
}

void Model::setNames(const std::vector<std::string>& names) {
    for (std::size_t i = 0; i < users_.size(); ++i) {
        users_[i] = User();
        if (i >= names.size()) continue;
        users_[i].name = names[i];
        users_[i].right = 1;
    }
}

std::vector<std::string> Model::names() const {
    std::vector<std::string> names;
    for (const User& user : users_) {
        if (user.right != 0) names.push_back(user.name);
    }
    return names;
}

void Model::startOver() {
    const auto taken = names();
    *this = Model();
    setNames(taken);
}

void Model::apply(const VRMessage& message) {
    const std::string method = message.getMethod();
    if (method == DefineVrp::MDS_STATUSNOTIFY) applyStatus(message);
    if (method == DefineVrp::MDS_ANSRES) applyVerdict(message);
    if (method == DefineVrp::MDS_DSPANS) answers_ = readAnswers(message.getText("Answer"));
    if (method == DefineVrp::MDS_REVISION) applyRevision(message);
}

void Model::setAnswering(int user) {
    answering_ = user;
    status_ = "CONFIRM";
}

void Model::applyStatus(const VRMessage& message) {
    status_ = message.getText("Status");
    quest_ = message.getNumber("Quest");
    maxQuest_ = message.getNumber("MaxQuest");
    stage_ = message.getText("part");
    songs_ = message.getNumber("multi");
    points_ = message.getNumber("score");
    steal_ = message.getNumber("steal");
    answering_ = -1;
    if (status_ != "READY") return;
    answers_.clear();
    verdict_ = Verdict::None;
}

void Model::applyVerdict(const VRMessage& message) {
    const int user = message.getNumber("UserNumber");
    verdict_ = message.getNumber("Result") == 1 ? Verdict::Right : Verdict::Wrong;
    answering_ = verdict_ == Verdict::Right && isUser(user) ? user : -1;
    // The host tells the rest of what changed by REVISION.
    if (!isUser(user)) return;
    users_[static_cast<std::size_t>(user)].score += message.getNumber("Score");
    users_[static_cast<std::size_t>(user)].right = message.getNumber("Type");
    // The host does not tell the state that follows from a verdict.
    status_ = verdict_ == Verdict::Right ? "DSP" : "WAIT";
}

void Model::applyRevision(const VRMessage& message) {
    for (const std::string& record : zelkova::split(message.getText("UserInfo"), "<sep/>")) {
        const auto fields = readUser(record);
        const int id = fields.empty() ? -1 : zelkova::stringToInt(fields[0]);
        if (!isUser(id)) continue;
        const auto number = [&](std::size_t field) { return zelkova::stringToInt(fields[field]); };
        users_[static_cast<std::size_t>(id)] = {fields[1], number(3), number(4), number(6),
                                                number(7), number(8), number(2), number(5)};
    }
    if (ended())
        status_ = "END";
    else if (status_ == "DSP")
        status_ = "ENABLE"; // the quest is over; the host tells no more until the next one is ready
    else
        return;
    answering_ = -1;
}

bool Model::mayBuzz(int user) const {
    if (!isUser(user) || users_[static_cast<std::size_t>(user)].right != 1) return false;
    return status_ == "PLAY" || status_ == "WAIT";
}

bool Model::ended() const {
    return std::ranges::any_of(users_, [](const User& user) { return user.type == typeEndResult; });
}

std::vector<int> Model::winners() const {
    std::vector<int> all;
    for (int i = 0; i < maxUsers; ++i) {
        const User& user = users_[static_cast<std::size_t>(i)];
        if (user.type == typeEndResult && user.action == actionWinner && user.right != 0) all.push_back(i);
    }
    return all;
}

} // namespace terminal
