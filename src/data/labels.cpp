#include "data/labels.h"

#include <algorithm>
#include <limits>

namespace {

constexpr const char* playRanges[] = {"イントロ", "サビ",   "ランダム", "メロディ",
                                      "スタート", "エンド", "解答"};
constexpr const char* playTimes[] = {"激難(250m)",  "超難(1sec)",    "難(3sec)",   "やや難(5sec)",
                                     "普通(10sec)", "易しい(15sec)", "レンジフル", "∞"};
constexpr const char* playSpeeds[] = {"普通", "UP(×2)", "HALFUP(×1.5)", "DOWN(1/2)", "HALFDOWN(1/4)"};
constexpr const char* penalties[] = {"指名", "ステージ中", "問中", "休み"};
constexpr const char* fileTypes[] = {"MP3", "WMA", "WAV", "NWAV", "UNKOWN", "MID", ""};
constexpr const char* songTypes[] = {"N/A", "Single", "Album", "不明"};
constexpr const char* userStatuses[] = {"未設定", "参加", "お手つき", "不参加"};

constexpr Genre genreRows[] = {
    {146, "JPop"},   {250, "JRock"},    {13, "Pop"},    {17, "Rock"},   {14, "R&B"}, {240, "Rap"},
    {15, "Hip-Hop"}, {16, "Classic"},   {114, "Samba"}, {145, "Anime"}, {248, "CM"}, {249, "Theme"},
    {36, "Game"},    {79, "Hard Rock"}, {23, "Tango"},  {12, "Other"},
};

constexpr std::span<const char* const> penaltySpan = penalties;

} // namespace

// A stage from elsewhere with a number outside its table is played, and so shown, as the table's first entry.
constexpr Labels playRangeLabels(playRanges, playRanges[0]);
constexpr Labels playTimeLabels(playTimes, playTimes[0]);
constexpr Labels playSpeedLabels(playSpeeds, playSpeeds[0]);
constexpr Labels penaltyLabels(penalties, "");
constexpr Labels stealLabels(penaltySpan.first(1), "");
constexpr Labels handsTypeLabels(penaltySpan.subspan(1), "");
constexpr Labels fileTypeLabels(fileTypes, "N/A");
constexpr Labels songTypeLabels(songTypes, "N/A");
constexpr Labels userStatusLabels(userStatuses, "");
constexpr std::span<const Genre> genres = genreRows;

std::string Labels::text(int index) const {
    return index >= 0 && index < size() ? texts_[static_cast<std::size_t>(index)] : outside_;
}

int Labels::indexOf(std::string_view text) const {
    const auto found = std::find(texts_.begin(), texts_.end(), text);
    return found == texts_.end() ? -1 : static_cast<int>(found - texts_.begin());
}

std::string genreFromId3(int code) {
    const auto row =
        std::find_if(genres.begin(), genres.end(), [&](const Genre& genre) { return genre.code == code; });
    return row == genres.end() ? "" : row->name;
}

int fileTypeFromName(std::string_view name) {
    return fileTypeLabels.indexOf(name);
}

int positionFactor(int fileType) {
    switch (fileType) {
    case fileTypeMp3:
    case fileTypeWma:
    case fileTypeWav:
    case fileTypeMid:
        return 100;
    case fileTypeNwav:
        return 1000;
    default:
        return 0;
    }
}

int toMilliseconds(std::int64_t units, int fileType) {
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(
        std::clamp<std::int64_t>(units * positionFactor(fileType), Limits::min(), Limits::max()));
}
