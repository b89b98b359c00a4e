#pragma once
// What a training run asks and offers, drawn from the catalogue.

#include <vector>

#include "data/accesser_resource.h"
#include "data/data_session.h"

// The numbers of all songs that can be played under the session's settings, ascending.
std::vector<int> fittingSongs(const AccesserResource& catalogue, const DataSession& session);

// Draws the songs of all quests from those that fit, none of them twice, into the session's song numbers.
// False, with the session as it was, when they are too few or there is no quest.
bool makeQuests(std::vector<int> fitting, DataSession& session);

// The numbers of one quest's songs; quests count from 1. None for a quest that was not drawn.
std::vector<int> questSongs(const DataSession& session, int quest);

// The right answers among wrong ones, in random order. Any song that could have been asked under the same
// settings, that is any that fits, may be a wrong answer; where there are too few, fewer are offered. None
// for a `wrongCount` below 1.
std::vector<int> makeChoices(std::vector<int> fitting, const std::vector<int>& correct, int wrongCount);

// Whether the same songs were named, in any order.
bool isRightAnswer(std::vector<int> correct, std::vector<int> given);
