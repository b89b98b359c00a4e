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

std::string typedSessionFile(const std::string& typed, const std::string& folder) {
    std::string path = zelkova::trim(typed);
    if (path.empty()) return {};
    if (!path.starts_with('/') && !path.starts_with('\\')) path = folder + "/" + path;
    // A name may have a point in it, and a file that is there may be called otherwise.
    const bool named = zelkova::toLowerSjis(zelkova::getExtension(path)) == "xml" || platform::isFile(path);
    if (!zelkova::getFileName(path).empty() && !named) path += ".xml";
    return zelkova::normalizePath(path);
}

bool SessionDraft::choose(const std::string& name, const std::string& path, AccesserSession& accesser) {
    // Before the reading: a change that comes in between is found at writing.
    const auto stamp = platform::fileStamp(path);
    if (stamp && !isLoaded(path)) {
        auto plan = readPlan(accesser, path, PlanStages::All);
        if (!plan) return false;
        loadedStages_ = plan->stages;
        stages = std::move(plan->stages);
        sessionVoice_ = plan->sessionVoice;
        mcVoice_ = plan->mcVoice;
        loadedPath_ = zelkova::normalizePath(path);
        loadedStamp_ = stamp;
    }
    expectedStamp_ = stamp ? loadedStamp_ : std::nullopt;
    sessionName = name;
    filePath = path;
    return true;
}

bool SessionDraft::isLoaded(const std::string& path) const {
    if (loadedPath_.empty()) return false;
    if (zelkova::normalizePath(path) == loadedPath_) return true;
    const auto stamp = platform::fileStamp(path);
    return stamp && stamp->isSameFile(*loadedStamp_);
}

bool SessionDraft::wouldLoseStages(const std::string& path) const {
    return !stages.empty() && zelkova::fileExists(path) && !isLoaded(path) && stages != loadedStages_;
}

bool SessionDraft::isChangedOnDisk() const {
    const auto now = platform::fileStamp(filePath);
    return now && now != expectedStamp_;
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
