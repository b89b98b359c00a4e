#pragma once
// What a training run was worth.

#include <optional>
#include <string_view>
#include <vector>

#include "data/data_training_history.h"
#include "platform/types.h"

// How a song of the run ended.
struct Outcome {
    const char* word;         // as records keep and lists show it
    std::optional<int> bonus; // points beside those for the time; none: no points at all
    platform::Color background;
};
extern const Outcome perfectOutcome, rightOutcome, wrongOutcome, skippedOutcome;

// None for any other word.
const Outcome* findOutcome(std::string_view word);

// The points of all records, weighted by the range that was played (playRangeLabels).
int trainingScore(const std::vector<DataTrainingModeHistory>& history, int range);

struct TrainingRank {
    const char* text;
    const char* sentence;
    int highest; // score of this rank
};
// From the lowest to the highest.
const TrainingRank& trainingRank(int score);
