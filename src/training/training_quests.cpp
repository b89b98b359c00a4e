#include "training/training_quests.h"

#include <algorithm>

#include "foundation/random.h"
#include "foundation/text.h"
#include "host/state/quest.h"

namespace {

// Takes one of the numbers out at random. There is at least one.
int drawn(std::vector<int>& numbers) {
    const auto place = numbers.begin() + zelkova::randomBetween(0, static_cast<int>(numbers.size()) - 1);
    const int number = *place;
    numbers.erase(place);
    return number;
}

} // namespace

std::vector<int> fittingSongs(const AccesserResource& catalogue, const DataSession& session) {
    std::vector<int> numbers;
    for (const DataResource& song : catalogue.all())
        if (resourceFitsSession(song, session)) numbers.push_back(song.getNo());
    return numbers;
}

bool makeQuests(std::vector<int> fitting, DataSession& session) {
    if (session.getQuestNum() <= 0) return false;
    std::string numbers;
    for (int left = session.getQuestNum() * songCount(session); left > 0; --left) {
        if (fitting.empty()) return false;
        if (!numbers.empty()) numbers += ", ";
        numbers += zelkova::numberToText(drawn(fitting));
    }
    session.setResourceId(numbers);
    return true;
}

std::vector<int> questSongs(const DataSession& session, int quest) {
    const std::vector<int>& all = session.getResources();
    const auto count = static_cast<std::size_t>(songCount(session));
    const auto end = static_cast<std::size_t>(std::max(quest, 0)) * count;
    if (end < count || end > all.size()) return {};
    const auto first = all.begin() + static_cast<std::ptrdiff_t>(end - count);
    return {first, first + static_cast<std::ptrdiff_t>(count)};
}

std::vector<int> makeChoices(std::vector<int> fitting, const std::vector<int>& correct, int wrongCount) {
    std::erase_if(fitting, [&](int number) { return std::ranges::find(correct, number) != correct.end(); });
    std::vector<int> answers;
    for (; wrongCount > 0 && !fitting.empty(); --wrongCount)
        answers.push_back(drawn(fitting));
    answers.insert(answers.end(), correct.begin(), correct.end());

    std::vector<int> shuffled;
    while (!answers.empty())
        shuffled.push_back(drawn(answers));
    return shuffled;
}

bool isRightAnswer(std::vector<int> correct, std::vector<int> given) {
    std::ranges::sort(correct);
    std::ranges::sort(given);
    return correct == given;
}
