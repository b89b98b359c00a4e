#include "training/training_run.h"

#include "training/training_quests.h"

namespace {

constexpr unsigned beforeSongs = actionStart | actionSkip;
constexpr unsigned whileSongsPlay = actionGiveUp | actionStop | actionSkip | actionAnswer;
constexpr unsigned afterSongs = actionGiveUp | actionReplay | actionSkip | actionAnswer;

} // namespace

const PhaseTraits& traitsOf(TrainingPhase phase) {
    static constexpr PhaseTraits table[] = {
        {"開始"},                                           // Opened
        {"出題準備"},                                       // Unprepared
        {"出題準備", beforeSongs},                          // Prepared
        {"出題中", beforeSongs},                            // NextQuest
        {"出題中", 0, timerJingle},                         // Jingle
        {"出題中", 0, timerPlay},                           // Starting
        {"演奏中", whileSongsPlay, timerPlay | timerClock}, // Playing
        {"出題中", afterSongs, timerClock},                 // Halted
        {"解答中"},                                         // Answering
        {"出題中"},                                         // QuestOver
        {"終了"},                                           // Finished
    };
    return table[static_cast<std::size_t>(phase)];
}

bool TrainingRun::prepare() {
    currentQuest_ = 1;
    answerMs_ = elapsedMs_ = 0;
    choices_.clear();
    history_.clear();
    fitting_ = fittingSongs(catalogue_, session_);
    const bool made = makeQuests(fitting_, session_);
    phase_ = made ? TrainingPhase::Prepared : TrainingPhase::Unprepared;
    return made;
}

void TrainingRun::startQuest(int choiceCount) {
    const std::vector<int> correct = correctNumbers();
    choices_ = makeChoices(fitting_, correct, choiceCount - static_cast<int>(correct.size()));
    firstTry_ = true;
    phase_ = TrainingPhase::Jingle;
}

void TrainingRun::endJingle() {
    phase_ = TrainingPhase::Starting;
}

void TrainingRun::startSongs() {
    if (phase_ == TrainingPhase::Starting) answerMs_ = 0;
    elapsedMs_ = 0;
    phase_ = TrainingPhase::Playing;
}

void TrainingRun::passTime(int milliseconds) {
    if (traitsOf(phase_).timers & timerClock) answerMs_ += milliseconds;
    if (phase_ == TrainingPhase::Playing) elapsedMs_ += milliseconds;
}

void TrainingRun::waitForSound() {
    elapsedMs_ = 0;
}

void TrainingRun::halt() {
    elapsedMs_ = 0;
    phase_ = TrainingPhase::Halted;
}

void TrainingRun::requestAnswer() {
    elapsedMs_ = 0;
    phase_ = TrainingPhase::Answering;
}

void TrainingRun::answer(bool right) {
    if (right) {
        endQuest(firstTry_ ? perfectOutcome : rightOutcome, answerTenths());
        return;
    }
    firstTry_ = false;
    phase_ = TrainingPhase::Halted;
}

void TrainingRun::giveUp() {
    endQuest(wrongOutcome, answerTenths());
}

void TrainingRun::skip() {
    endQuest(skippedOutcome, 0);
}

void TrainingRun::endQuest(const Outcome& outcome, int answerTenths) {
    int sub = 0;
    for (const DataResource& song : songs()) {
        DataTrainingModeHistory record;
        record.setQuestion(currentQuest_);
        record.setQuestionSub(++sub);
        record.setTitle(song.getTitle());
        record.setArtist(song.getArtist());
        record.setStatus(outcome.word);
        record.setAnswerTime(answerTenths);
        history_.push_back(record);
    }
    answerMs_ = elapsedMs_ = 0;
    phase_ = TrainingPhase::QuestOver;
}

void TrainingRun::goOn() {
    if (currentQuest_ >= session_.getQuestNum()) {
        phase_ = TrainingPhase::Finished;
        return;
    }
    ++currentQuest_;
    phase_ = TrainingPhase::NextQuest;
}

std::vector<int> TrainingRun::correctNumbers() const {
    return questSongs(session_, currentQuest_);
}

std::vector<DataResource> TrainingRun::songs() const {
    std::vector<DataResource> songs;
    for (const int number : correctNumbers())
        catalogue_.get(number, songs.emplace_back());
    return songs;
}
