#include "editors/song_assignment.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

#include "foundation/random.h"
#include "host/state/quest.h"

namespace {

// Far beyond what can be typed as a stage's settings; a damaged file may say anything.
constexpr std::int64_t mostRows = 10'000;

std::size_t rowCount(const DataSession& stage, int songsPerQuest) {
    const std::int64_t quests = std::max(stage.getQuestNum(), 0);
    return static_cast<std::size_t>(std::min(quests * songsPerQuest, mostRows));
}

// A random one of the numbers, which leaves them; the last one takes its place.
int draw(std::vector<int>& numbers) {
    const int position = zelkova::randomBetween(0, static_cast<int>(numbers.size()) - 1);
    std::swap(numbers[static_cast<std::size_t>(position)], numbers.back());
    const int number = numbers.back();
    numbers.pop_back();
    return number;
}

} // namespace

SongAssignment::SongAssignment(const std::vector<DataSession>& stages, std::size_t index,
                               const AccesserResource& catalogue)
    : stage_(stages[index]), catalogue_(catalogue), songsPerQuest_(std::max(stage_.getMulti(), 1)),
      songs_(rowCount(stage_, songsPerQuest_)), rowsOf_{{0, static_cast<int>(songs_.size())}} {
    for (const DataSession& stage : stages) {
        if (&stage == &stage_) continue;
        const std::vector<int> used = songNumbers(stage);
        elsewhere_.insert(used.begin(), used.end());
    }
    int row = 0;
    for (const int song : stage_.getResources())
        if (!set(row++, song)) break;
    lookAgain();
}

bool SongAssignment::hasRow(int row) const {
    return row >= 0 && static_cast<std::size_t>(row) < songs_.size();
}

bool SongAssignment::set(int row, int song) {
    if (!hasRow(row)) return false;
    int& there = songs_[static_cast<std::size_t>(row)];
    --rowsOf_[there];
    ++rowsOf_[song];
    there = song;
    return true;
}

bool SongAssignment::swap(int row, int other) {
    if (!hasRow(row) || !hasRow(other)) return false;
    std::swap(songs_[static_cast<std::size_t>(row)], songs_[static_cast<std::size_t>(other)]);
    return true;
}

void SongAssignment::clear() {
    for (int row = 0; hasRow(row); ++row)
        set(row, 0);
}

void SongAssignment::shuffle() {
    std::vector<int> remaining = songs_;
    for (int& song : songs_)
        song = draw(remaining);
}

// A song that does not fit is passed over when it is drawn, which leaves the others as likely as before: so
// the disk is asked for a few files and not for those of a whole catalogue.
bool SongAssignment::fillAtRandom(const std::vector<int>& source) {
    std::vector<int> pool;
    std::ranges::copy_if(source, std::back_inserter(pool),
                         [this](int song) { return usedState(song, 0) == SongUse::Free; });
    std::vector<int> chosen;
    while (std::cmp_less(chosen.size(), rowsOf_[0])) {
        if (pool.empty()) return false;
        if (const int song = draw(pool); fits(song)) chosen.push_back(song);
    }
    auto next = chosen.begin();
    for (int row = 0; hasRow(row); ++row)
        if (songs_[static_cast<std::size_t>(row)] == 0) set(row, *next++);
    return true;
}

bool SongAssignment::fits(int song) const {
    const auto known = fits_.find(song);
    if (known != fits_.end()) return known->second;
    DataResource record;
    return fits_[song] = catalogue_.get(song, record) && resourceFitsSession(record, stage_);
}

SongUse SongAssignment::usedState(int song, int ownRows) const {
    const auto rows = rowsOf_.find(song);
    if (rows != rowsOf_.end() && rows->second > ownRows) return SongUse::InStage;
    return elsewhere_.contains(song) ? SongUse::Elsewhere : SongUse::Free;
}

SongCheck SongAssignment::check() const {
    SongCheck result = songsComplete;
    for (const int song : songs_) {
        if (song == 0) return songsMissing;
        if (!fits(song)) result = songsUnfit;
        if (result == songsUnfit) continue;
        const SongUse use = usedState(song);
        if (use != SongUse::Free) result = use == SongUse::InStage ? songsRepeated : songsShared;
    }
    return result;
}

void SongAssignment::lookAgain() {
    fits_.clear();
    DataResource record;
    for (int row = 0; hasRow(row); ++row)
        if (!catalogue_.get(songs_[static_cast<std::size_t>(row)], record)) set(row, 0);
}
