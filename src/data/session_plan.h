#pragma once
// A session as a whole, as its file holds it.

#include <optional>
#include <string>
#include <vector>

#include "data/accesser_session.h"

struct SessionPlan {
    std::string name, sessionVoice, mcVoice;
    std::int32_t total = 0, maxPart = 0; // quests and stages, as the file says
    std::vector<DataSession> stages;     // as asked for
};

enum class PlanStages {
    Played, // by number, from 1 to `maxPart`, the first of each: what a show plays
    All,    // every one in the order of the file: what an editor must not lose
};

// None when there is no usable session; the accesser's loadError() tells why. The file has to be there.
std::optional<SessionPlan> readPlan(AccesserSession& accesser, const std::string& path,
                                    PlanStages stages = PlanStages::Played);

// The file holds the plan afterwards and nothing else, counted anew and dated; or it is as it was, and the
// answer is false.
bool writePlan(AccesserSession& accesser, const std::string& path, const SessionPlan& plan,
               const platform::SystemTime& day);

// Quests of all stages.
std::int32_t questCount(const std::vector<DataSession>& stages);
