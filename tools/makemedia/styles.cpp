#include "makemedia/styles.h"

#include <array>

namespace makemedia {
namespace {

// clang-format off
constexpr auto styles = std::to_array<Style>({
    //name       meter  bass player and figure         chord player and figure      pad        drums
    {"ballad",   4, 4, "bass",      "R---F---",       "harp",      "12324232",     "strings", "",         "",         ""},
    {"ballad",   3, 4, "bass",      "R-----",         "harp",      "123432",       "strings", "",         "",         ""},
    {"hymn",     4, 4, "bass",      "R---R---",       "organ",     "c---c---",     "",        "",         "",         ""},
    {"pop",      4, 4, "bass",      "R-.RF-.F",       "guitar",    "..c-..c-",     "strings", "x...x...", "..x...x.", "xxxxxxxx"},
    {"march",    4, 4, "bass",      "R.F.",           "piano",     ".c.c",         "",        "x.x.",     ".x.x",     ""},
    {"parade",   4, 4, "bass",      "R-F-R-F-",       "horn",      "..c...c.",     "",        "x...x...", "x.xxx.xx", "..x...x."},
    {"swing",    4, 4, "bass",      "R--...F--...",   "guitar",    "...c.....c..", "",        "x.....x.....", "...x.....x..", "x..x.xx..x.x"},
    {"sleigh",   4, 4, "bass",      "R.F.",           "piano",     ".c.c",         "strings", "",         "",         "xxxxxxxx", sleighBell},
    {"koto",     4, 4, "koto",      "R-------",       "koto",      "..1.3.4.",     "",        "",         "",         ""},
    {"sneaking", 4, 4, "bassoon",   "R.F.R.F.",       "pizzicato", ".c.c.c.c",     "",        "",         "",         ""},
    {"storming", 4, 4, "bass",      "RROORROO",       "strings",   "c.c.c.c.",     "horn",    "x.x.x.x.", "..x...x.", "xxxxxxxx"},
    {"dance",    4, 4, "bass",      "R.O.F.O.",       "accordion", ".c.c.c.c",     "",        "x...x...", "..x...x.", ".x.x.x.x"},
    {"ground",   4, 4, "bass",      "R---R---",       "harp",      "1-3-1-3-",     "strings", "",         "",         ""},
    {"fanfare",  4, 4, "bass",      "R---R---",       "horn",      "c---c---",     "strings", "x...x...", "......xx", ""},
    {"tiptoe",   4, 4, "pizzicato", "R.F.",           "xylophone", ".3.2",         "",        "",         "",         "x.x."},
    {"polka",    2, 4, "bass",      "R.F.",           "piano",     ".c.c",         "",        "x.x.",     ".x.x",     ""},
    {"gallop",   2, 4, "bass",      "R.F.",           "strings",   ".c.c",         "",        "x.x.",     ".xxx",     "xxxx"},
    {"sonata",   2, 4, "piano",     "R.......",       "piano",     "..c.c.c.",     "",        "",         "",         ""},
    {"nocturne", 3, 8, "piano",     "RFO...",         "piano",     "......",       "",        "",         "",         ""},
    {"waltz",    3, 4, "bass",      "R-.",            "piano",     ".cc",          "strings", "",         "",         ""},
    {"minuet",   3, 4, "piano",     "R--",            "piano",     "..c",          "",        "",         "",         ""},
    {"lullaby",  3, 4, "musicbox",  "R-----",         "musicbox",  "..3.4.",       "",        "",         "",         ""},
    {"siciliana", 6, 8, "bass",     "R--F--",         "guitar",    "123432",       "strings", "",         "",         ""},
});
// clang-format on

} // namespace

const Style* findStyle(std::string_view name, int beats, int beatUnit) {
    for (const auto& style : styles)
        if (style.name == name && style.beats == beats && style.beatUnit == beatUnit) return &style;
    return nullptr;
}

} // namespace makemedia
