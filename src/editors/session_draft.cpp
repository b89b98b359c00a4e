#include "editors/session_draft.h"

#include <utility>

#include "foundation/path.h"
#include "foundation/text.h"

std::string firstFreeSessionFile(const std::string& folder) {
    for (int number = 0;; ++number) {
        std::string path =
            zelkova::removeBackslash(folder) + "\\SessionFile_" + zelkova::numberToText(number) + ".xml";
        if (!zelkova::fileExists(path)) return path;
    }
}

bool SessionDraft::choose(const std::string& name, const std::string& path, AccesserSession& accesser) {
    const std::string wanted = zelkova::normalizePath(path);
    if (zelkova::fileExists(path) && wanted != loadedPath_) {
        auto plan = readPlan(accesser, path);
        if (!plan) return false;
        stages = std::move(plan->stages);
        sessionVoice_ = plan->sessionVoice;
        mcVoice_ = plan->mcVoice;
        loadedPath_ = wanted;
    }
    sessionName = name;
    filePath = path;
    return true;
}

bool SessionDraft::move(int stage, int by) {
    const int other = stage + by;
    if (stage < 0 || other < 0 || std::cmp_greater_equal(stage, stages.size()) ||
        std::cmp_greater_equal(other, stages.size()))
        return false;
    std::swap(stages[static_cast<std::size_t>(stage)], stages[static_cast<std::size_t>(other)]);
    return true;
}

bool SessionDraft::write(AccesserSession& accesser, const platform::SystemTime& day) {
    SessionPlan plan;
    plan.name = sessionName;
    plan.sessionVoice = sessionVoice_;
    plan.mcVoice = mcVoice_;
    plan.stages = stages;
    if (!writePlan(accesser, filePath, plan, day)) return false;
    *this = {};
    return true;
}

void forgetSongs(DataSession& stage) {
    stage.setResourceId("");
    stage.setErrcode(-1);
}
