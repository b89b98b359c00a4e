#pragma once
// What a terminal knows: everything that the host has told it so far.

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "data/data_user_info.h"
#include "protocol/vr_message.h"

namespace terminal {

struct User {
    std::string name;
    int score = 0;
    int right = 0; // 0 not taking part, 1 taking part, 2 false start, 3 sitting out
    int rank = 0;  // 0 before the host has told one
    int hands = 0, rest = 0;
    int type = 0;   // UserType
    int action = 0; // UserAction
};

// How the terminal stands with the host's last verdict.
enum class Verdict { None, Right, Wrong };

class Model {
public:
    Model();

    void setNames(const std::vector<std::string>& names); // up to four
    std::vector<std::string> names() const;               // of those who take part

    // Takes in a message of the host. Numbers and lists that make no sense change nothing.
    void apply(const VRMessage& message);
    // The host has accepted this user's buzz.
    void setAnswering(int user);
    // Forgets the quiz, keeps the names.
    void startOver();

    // A buzz of that user has a chance now.
    bool mayBuzz(int user) const;

    const std::string& status() const { return status_; } // "" before the first STATUSNOTIFY
    int quest() const { return quest_; }
    int maxQuest() const { return maxQuest_; }
    const std::string& stage() const { return stage_; }
    int points() const { return points_; }
    int songsAtOnce() const { return songs_; }
    bool steals() const { return steal_ != -1; }
    const std::array<User, maxUsers>& users() const { return users_; }
    const std::vector<std::pair<std::string, std::string>>& answers() const {
        return answers_;
    } // title, artist
    int answering() const { return answering_; }
    Verdict verdict() const { return verdict_; }
    bool ended() const; // the end result was told
    std::vector<int> winners() const;

private:
    void applyStatus(const VRMessage& message);
    void applyVerdict(const VRMessage& message);
    void applyRevision(const VRMessage& message);

    std::array<User, maxUsers> users_;
    std::string status_, stage_;
    int quest_ = 0, maxQuest_ = 0, points_ = 0, songs_ = 0, steal_ = -1;
    std::vector<std::pair<std::string, std::string>> answers_;
    int answering_ = -1;
    Verdict verdict_ = Verdict::None;
};

} // namespace terminal
