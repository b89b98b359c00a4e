#pragma once
// One entry of the music catalogue: a music file and the spans inside it that a quiz plays.

#include "data/record.h"

class DataResource final {
public:
    virtual void clear() { *this = DataResource(); }
    virtual std::string toString(const std::string& separator) const;
    static std::span<const record::Field<DataResource>> fields();
    friend bool operator==(const DataResource&, const DataResource&) = default;

    KDL_FIELD(std::int32_t, No, -1);
    KDL_FIELD(std::string, FileName);
    KDL_FIELD(std::int32_t, FileType, -1); // fileTypeLabels
    KDL_FIELD(std::string, Title);
    KDL_FIELD(std::int32_t, Type, -1); // songTypeLabels
    KDL_FIELD(platform::SystemTime, ReleaseDate);
    KDL_FIELD(std::string, Genre);
    KDL_FIELD(std::string, Artist);
    KDL_FIELD(std::string, ArtistKana);
    // Counts of the file's own position unit (positionFactor), as are the six ends of spans.
    KDL_FIELD(std::int32_t, Length, -1);
    KDL_FIELD(std::int32_t, IntroStart, -1);
    KDL_FIELD(std::int32_t, IntroEnd, -1);
    KDL_FIELD(std::int32_t, SabiStart, -1);
    KDL_FIELD(std::int32_t, SabiEnd, -1);
    KDL_FIELD(std::int32_t, AnsStart, -1);
    KDL_FIELD(std::int32_t, AnsEnd, -1);
    KDL_FIELD(std::int32_t, Deficalt, -1);
    KDL_FIELD(std::int32_t, Famous, -1);
    KDL_FIELD(std::string, TitleVoice);
    KDL_FIELD(std::string, ArtistVoice);
};

// Catalogue texts never hold the half-width "(", ")", "&", ",": each becomes its full-width form.
std::string toFullWidthSigns(std::string_view text);
