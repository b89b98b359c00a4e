#pragma once
// A stage's rules in the words that the host reads.

#include <string>

#include "data/data_session.h"

// The three lines at most of the console's penalty label, "なし" without any rule.
std::string penaltyText(const DataSession& stage);

// The false-start rule in a sentence; empty when there is none.
std::string falseStartText(const DataSession& stage);

// What a verdict about the user of that name will do.
std::string rightAnswerEffect(const DataSession& stage, const std::string& name, int points);
std::string wrongAnswerEffect(const DataSession& stage, const std::string& name);

// What the choice of a victim will do.
std::string stealEffect(const std::string& victim, const std::string& winner, int points);
