#include "training/training_rank.h"

#include <algorithm>
#include <array>
#include <limits>

#include "data/labels.h"

constexpr Outcome perfectOutcome{"完全正解", 10, {0x64, 0xE1, 0x41}};
constexpr Outcome rightOutcome{"正解", 5, {0x64, 0xB4, 0xFF}};
constexpr Outcome wrongOutcome{"不正解", {}, {0xFF, 0x41, 0xA0}};
constexpr Outcome skippedOutcome{"スキップ", {}, {0xF0, 0xF0, 0x46}};

namespace {

using Limits = std::numeric_limits<int>;

constexpr int fullTime = 600; // tenths of a second; who needs longer loses points

constexpr std::array ranks{
    TrainingRank{"Ｄ － 初心者級", "良くない", 1000},
    TrainingRank{"Ｃ － 駆出し級", "良い", 2000},
    TrainingRank{"Ｂ － 熟練者級", "優秀", 3000},
    TrainingRank{"Ａ － 専門家級", "とても優れている", 4000},
    TrainingRank{"Ｓ － 極めし者", "あまりにも優れており、大変に優雅である", 5000},
    TrainingRank{"Ｇ － 神様級", "まさに神の所業のごとく、極め過ぎている", 6000},
    TrainingRank{"Ｏ － 全知全能神級", "全ての頂点に達しており、この世界の全てを統率している", 7000},
    TrainingRank{"Ｎ － 絶無", "神ですら考えが及ばぬ程究極であり、それは突き詰めると無である", Limits::max()},
};

int weightOf(int range) {
    switch (range) {
    case rangeIntro:
        return 3;
    case rangeRandom:
        return 2;
    default:
        return 1;
    }
}

} // namespace

const Outcome* findOutcome(std::string_view word) {
    for (const Outcome* outcome : {&perfectOutcome, &rightOutcome, &wrongOutcome, &skippedOutcome})
        if (outcome->word == word) return outcome;
    return nullptr;
}

int trainingScore(const std::vector<DataTrainingModeHistory>& history, int range) {
    std::int64_t total = 0;
    for (const DataTrainingModeHistory& record : history) {
        const Outcome* outcome = findOutcome(record.getStatus());
        if (outcome && outcome->bonus)
            total += (std::int64_t{fullTime} - record.getAnswerTime()) / 10 + *outcome->bonus;
    }
    return static_cast<int>(std::clamp<std::int64_t>(total * weightOf(range), Limits::min(), Limits::max()));
}

const TrainingRank& trainingRank(int score) {
    return *std::ranges::find_if(ranks, [&](const TrainingRank& rank) { return score <= rank.highest; });
}
