#include "data/session_plan.h"

#include <algorithm>
#include <limits>

namespace {

std::vector<DataSession> playedStages(const AccesserSession& accesser) {
    std::vector<DataSession> stages;
    for (const std::int32_t number : accesser.partNumbers())
        if (number >= 1 && number <= accesser.getMaxPart()) accesser.getPart(number, stages.emplace_back());
    return stages;
}

} // namespace

std::optional<SessionPlan> readPlan(AccesserSession& accesser, const std::string& path, PlanStages stages) {
    if (accesser.open(path) == 0) return std::nullopt;
    SessionPlan plan;
    plan.name = accesser.getSessionName();
    plan.sessionVoice = accesser.getSessionVoice();
    plan.mcVoice = accesser.getMcVoice();
    plan.total = accesser.getTotal();
    plan.maxPart = accesser.getMaxPart();
    plan.stages = stages == PlanStages::All ? accesser.allParts() : playedStages(accesser);
    accesser.close();
    return plan;
}

bool writePlan(AccesserSession& accesser, const std::string& path, const SessionPlan& plan,
               const platform::SystemTime& day) {
    if (accesser.create(path) == 0) return false;
    for (const DataSession& stage : plan.stages)
        accesser.addPart(stage);
    accesser.setSessionName(plan.name);
    if (!plan.sessionVoice.empty()) accesser.setSessionVoice(plan.sessionVoice);
    if (!plan.mcVoice.empty()) accesser.setMcVoice(plan.mcVoice);
    accesser.setTotal(questCount(plan.stages));
    accesser.setDay(day);
    const bool written = accesser.save() == 1;
    accesser.close();
    return written;
}

std::int32_t questCount(const std::vector<DataSession>& stages) {
    std::int64_t count = 0;
    for (const DataSession& stage : stages)
        count += std::max(0, stage.getQuestNum());
    return static_cast<std::int32_t>(std::min<std::int64_t>(count, std::numeric_limits<std::int32_t>::max()));
}
