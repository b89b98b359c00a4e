#pragma once
// The display texts of every enumeration that sessions, settings and the catalogue store by number. The index
// of a text is the stored value.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

class Labels {
public:
    // `outside` answers for a number that has no text.
    constexpr Labels(std::span<const char* const> texts, const char* outside)
        : texts_(texts), outside_(outside) {}

    constexpr int size() const { return static_cast<int>(texts_.size()); }
    std::string text(int index) const;
    // -1 when no text is equal.
    int indexOf(std::string_view text) const;
    auto begin() const { return texts_.begin(); }
    auto end() const { return texts_.end(); }

private:
    std::span<const char* const> texts_;
    const char* outside_;
};

enum PlayRange : int { rangeIntro, rangeSabi, rangeRandom, rangeMelody, rangeStart, rangeEnd, rangeAnswer };
enum FileType : int {
    fileTypeMp3,
    fileTypeWma,
    fileTypeWav,
    fileTypeNwav,
    fileTypeUnknown,
    fileTypeMid,
    fileTypeNone
};
enum PlayTime : int {
    playTimeQuarterSecond,
    playTimeOneSecond,
    playTimeThreeSeconds,
    playTimeFiveSeconds,
    playTimeTenSeconds,
    playTimeFifteenSeconds,
    playTimeWholeRange,
    playTimeEndless
};
// The last is three quarters of the normal speed, whatever its text says.
enum PlaySpeed : int { speedNormal, speedDouble, speedHalfUp, speedHalf, speedThreeQuarters };
enum HandsType : int { handsNone = -1, handsInStage, handsInQuest, handsRest };
enum Steal : int { stealNone = -1, stealByName };
enum UserStatus : int { userUnset, userTakesPart, userFalseStart, userOut };

extern const Labels playRangeLabels;
extern const Labels playTimeLabels;
extern const Labels playSpeedLabels;
extern const Labels fileTypeLabels;
extern const Labels songTypeLabels;
extern const Labels userStatusLabels;
// The kinds of penalty as one list: the kind of steal, then the three kinds of false-start rule. A stage
// stores an index into one of the two parts below.
extern const Labels penaltyLabels;
extern const Labels handsTypeLabels;
extern const Labels stealLabels;

// Genres in the order of the editors' boxes, each with its code in an ID3v1 tag.
struct Genre {
    int code;
    const char* name;
};
extern const std::span<const Genre> genres;
// "" when no row has the code.
std::string genreFromId3(int code);

// The index of the first file type of that name, -1 when there is none.
int fileTypeFromName(std::string_view name);
// Milliseconds in one unit of a song's stored positions; 0 for a type that cannot be played.
int positionFactor(int fileType);
// A stored position in milliseconds; one that does not fit gives the nearest that does.
int toMilliseconds(std::int64_t units, int fileType);
