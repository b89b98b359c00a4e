#include "data/data_resource.h"

#include "foundation/text.h"

std::span<const record::Field<DataResource>> DataResource::fields() {
    static const record::Field<DataResource> table[] = {
        {"no", "no", &DataResource::mNo},
        {"fileName", "fileName", &DataResource::mFileName},
        {"fileType", "fileType", &DataResource::mFileType},
        {"title", "title", &DataResource::mTitle},
        {"type", "type", &DataResource::mType},
        {"releaseDate", "releaseDate", &DataResource::mReleaseDate},
        {"genre", "genre", &DataResource::mGenre},
        {"artist", "artist", &DataResource::mArtist},
        {"artistKana", "artistKana", &DataResource::mArtistKana},
        {"length", "length", &DataResource::mLength},
        {"introStart", "introStart", &DataResource::mIntroStart},
        {"introEnd", "introEnd", &DataResource::mIntroEnd},
        {"sabiStart", "sabiStart", &DataResource::mSabiStart},
        {"sabiEnd", "sabiEnd", &DataResource::mSabiEnd},
        {"ansStart", "ansStart", &DataResource::mAnsStart},
        {"ansEnd", "ansEnd", &DataResource::mAnsEnd},
        {"deficalt", "deficalt", &DataResource::mDeficalt},
        {"famous", "famous", &DataResource::mFamous},
        {"titleVoice", "titleVoice", &DataResource::mTitleVoice},
        {"artistVoice", "artistVoice", &DataResource::mArtistVoice},
    };
    return table;
}

std::string DataResource::toString(const std::string& separator) const {
    return record::dump(*this, fields(), separator);
}

std::string toFullWidthSigns(std::string_view text) {
    constexpr const char* signs[][2] = {{"(", "（"}, {")", "）"}, {"&", "＆"}, {",", "，"}};
    std::string out(text);
    for (const auto& [half, full] : signs)
        out = zelkova::replaceAll(out, half, full);
    return out;
}
