#include "makemedia/sessions.h"

#include "data/accesser_session.h"
#include "data/labels.h"
#include "platform/files.h"

#include <algorithm>
#include <array>
#include <span>

namespace makemedia {
namespace {

constexpr int noDeduction = 1;

struct Stage {
    const char* name;
    PlayRange range;
    PlayTime interval;
    PlaySpeed speed;
    int multi;
    int score;
    int deduction;
    HandsType handsType;
    int hands;
    Steal steal;
    std::string_view songs; // names of scores in playing order, `multi` for each quest
};

// clang-format off
constexpr auto demonstration = std::to_array<Stage>({
    //name                                 range        time                    speed        multi score deduction    hands            steal
    {"第１ステージ　まずはイントロ",       rangeIntro,  playTimeTenSeconds,     speedNormal, 1,    10,   noDeduction, handsNone,    0, stealNone,
     "kirakira jingle susanna"},
    {"第２ステージ　サビの３秒",           rangeSabi,   playTimeThreeSeconds,   speedNormal, 1,    20,   -5,          handsInQuest, 1, stealNone,
     "sakura hotaru tengoku"},
    {"第３ステージ　三曲いっせい",         rangeIntro,  playTimeFifteenSeconds, speedNormal, 3,    30,   -5,          handsInStage, 2, stealNone,
     "alps yorokobi seija  choucho menuet greensleeves"},
    {"第４ステージ　二倍の速さでランダム", rangeRandom, playTimeFiveSeconds,    speedDouble, 1,    30,   -5,          handsRest,    1, stealNone,
     "koujou amazing"},
    {"最終ステージ　横取り勝負",           rangeSabi,   playTimeTenSeconds,     speedNormal, 1,    50,   -10,         handsRest,    1, stealByName,
     "ieji canon"},
});

constexpr auto shortQuiz = std::to_array<Stage>({
    {"前半　やさしいイントロ",             rangeIntro,  playTimeWholeRange,     speedNormal, 1,    10,   noDeduction, handsNone,    0, stealNone,
     "oshougatsu kiyoshi elise"},
    {"後半　サビの１秒",                   rangeSabi,   playTimeOneSecond,      speedNormal, 1,    20,   -5,          handsInQuest, 1, stealByName,
     "turkish donau"},
});
// clang-format on

// The catalogue number of each named song; -1 for one that is not there.
std::vector<std::int32_t> numbersOf(std::string_view names, const std::vector<Song>& songs) {
    std::vector<std::int32_t> numbers;
    while (!names.empty()) {
        const auto end = std::min(names.find(' '), names.size());
        if (const auto name = names.substr(0, end); !name.empty()) {
            const auto song =
                std::ranges::find(songs, name, [](const Song& s) { return std::string_view(s.score.name); });
            numbers.push_back(song == songs.end() ? -1 : song->score.number);
        }
        names.remove_prefix(std::min(end + 1, names.size()));
    }
    return numbers;
}

bool plan(const char* name, std::span<const Stage> stages, const std::vector<Song>& songs,
          std::vector<Quiz>& quizzes) {
    Quiz quiz{name, {}};
    for (const auto& stage : stages) {
        const auto numbers = numbersOf(stage.songs, songs);
        if (std::ranges::count(numbers, -1) > 0) return false;
        std::string text;
        for (const auto number : numbers)
            text += (text.empty() ? "" : ",") + std::to_string(number);
        DataSession session;
        session.setName(stage.name);
        session.setQuestNum(static_cast<std::int32_t>(numbers.size()) / stage.multi);
        session.setRange(stage.range);
        session.setInterval(stage.interval);
        session.setSpeed(stage.speed);
        session.setMulti(stage.multi);
        session.setScore(stage.score);
        session.setDeduction(stage.deduction);
        session.setHandsType(stage.handsType);
        session.setHands(stage.hands);
        session.setSteal(stage.steal);
        session.setLimit(0);
        session.setResourceId(text);
        session.setResources(numbers);
        quiz.stages.push_back(session);
    }
    quizzes.push_back(std::move(quiz));
    return true;
}

} // namespace

std::vector<Quiz> planQuizzes(const std::vector<Song>& songs, std::string& error) {
    std::vector<Quiz> quizzes;
    if (plan("デモ大会", demonstration, songs, quizzes) && plan("短い大会", shortQuiz, songs, quizzes))
        return quizzes;
    error = "a quiz asks for a song that has no score";
    return {};
}

bool writeSessions(const std::vector<Quiz>& quizzes, const std::filesystem::path& folder,
                   std::string& error) {
    AccesserSession::setStylesheet("SessionPrint.xsl");
    for (std::size_t i = 0; i < quizzes.size(); ++i) {
        const auto file = folder / ("SessionFile_" + std::to_string(i) + ".xml");
        const auto path = platform::programPath(file);
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
        AccesserSession session;
        bool written = path && session.open(*path) != 0;
        std::int32_t total = 0;
        for (const auto& stage : quizzes[i].stages) {
            written = written && session.addPart(stage) != 0;
            total += stage.getQuestNum();
        }
        session.setSessionName(quizzes[i].name);
        session.setDay({.year = 2026, .month = 12, .day = 1});
        session.setTotal(total);
        if (!written || session.save() == 0) {
            error = "cannot write " + file.string();
            return false;
        }
    }
    return true;
}

} // namespace makemedia
