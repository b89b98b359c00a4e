#pragma once
// One stage of a quiz: its rules and its songs.

#include <vector>

#include "data/data_resource.h"
#include "data/record.h"

// What the editors found when they last checked a stage's songs.
enum SongCheck : int {
    songsComplete = 0,
    songsMissing = 1,  // a place has no song
    songsRepeated = 2, // one stands in two places
    songsShared = 3,   // another stage has one of them too
    songsUnfit = 4,    // one cannot be played under the stage's settings
};

class DataSession final {
public:
    // Leaves the song numbers, as text and as array, as they are.
    virtual void clear();
    virtual std::string toString(const std::string& separator) const;
    static std::span<const record::Field<DataSession>> fields();
    friend bool operator==(const DataSession&, const DataSession&) = default;

    KDL_FIELD(std::string, Name);
    KDL_FIELD(std::string, PartVoice);
    KDL_FIELD(std::int32_t, QuestNum, -1);
    KDL_FIELD(std::int32_t, Range, -1);    // playRangeLabels
    KDL_FIELD(std::int32_t, Interval, -1); // playTimeLabels
    KDL_FIELD(std::int32_t, Speed, -1);    // playSpeedLabels
    KDL_FIELD(std::int32_t, Multi, -1);    // songs at once
    KDL_FIELD(std::int32_t, Score, -1);
    KDL_FIELD(std::int32_t, Deduction, 1);  // added for a wrong answer, 0 or below; above 0: none
    KDL_FIELD(std::int32_t, HandsType, -1); // handsTypeLabels
    KDL_FIELD(std::int32_t, Hands, -1);
    KDL_FIELD(std::int32_t, Steal, -1); // stealLabels; -1: none
    KDL_FIELD(std::int32_t, Limit, -1);
    KDL_FIELD(std::int32_t, Errcode, -1); // SongCheck; below 0: not checked

public:
    const std::string& getResourceId() const { return mResourceId; }
    // Catalogue numbers separated by ","; replaces the array too. An empty text is no number.
    void setResourceId(const std::string& text);
    const std::vector<std::int32_t>& getResources() const { return mResources; }
    // In playing order; leaves the text.
    void setResources(const std::vector<std::int32_t>& numbers) { mResources = numbers; }

private:
    std::string mResourceId;
    std::vector<std::int32_t> mResources;
};

// Whether a song can be played under a stage's settings: it has the spans that the range needs, its kind can
// be played at the speed, and the file is there.
bool resourceFitsSession(const DataResource& resource, const DataSession& session);
