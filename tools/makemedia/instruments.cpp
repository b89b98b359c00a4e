#include "makemedia/instruments.h"

#include <algorithm>

namespace makemedia {
namespace {

// clang-format off
constexpr auto instruments = std::to_array<Instrument>({
    {.name = "piano", .program = 0,
     .stroke = {1, .7F, .45F, .35F, .22F, .15F, .1F, .06F},
     .body = {1, .35F, .12F, .06F, .02F},
     .attack = .003F, .fade = .25F, .decay = 1.1F, .release = .18F, .spread = 2, .gain = .9F, .pan = -.1F},
    {.name = "musicbox", .program = 10,
     .stroke = {1, .1F, .5F, .05F, .3F, .02F, .1F},
     .body = {1, .04F, .08F},
     .attack = .002F, .fade = .1F, .decay = .8F, .release = .5F, .gain = .9F, .pan = .1F},
    {.name = "bells", .program = 14,
     .stroke = {1, .6F, .2F, .5F, .1F, .3F},
     .body = {1, .3F, .05F, .1F},
     .attack = .002F, .fade = .4F, .decay = 1.6F, .release = .6F, .spread = 3, .gain = .7F, .pan = .2F},
    {.name = "xylophone", .program = 13,
     .stroke = {1, .1F, .6F, .1F, .2F},
     .body = {1, .02F, .1F},
     .attack = .002F, .fade = .04F, .decay = .25F, .release = .1F, .pan = .15F},
    {.name = "organ", .program = 19,
     .stroke = {1, .8F, .5F, .5F, .1F, .3F, 0, .25F},
     .body = {1, .8F, .5F, .5F, .1F, .3F, 0, .25F},
     .attack = .03F, .fade = 1, .release = .12F, .spread = 4, .gain = .55F},
    {.name = "accordion", .program = 21,
     .stroke = {1, .6F, .6F, .3F, .3F, .15F, .15F, .1F},
     .body = {1, .6F, .6F, .3F, .3F, .15F, .15F, .1F},
     .attack = .03F, .fade = 1, .release = .08F, .spread = 12, .gain = .55F, .pan = -.15F},
    {.name = "guitar", .program = 24,
     .stroke = {1, .8F, .55F, .4F, .25F, .2F, .1F, .1F},
     .body = {1, .3F, .1F, .03F},
     .attack = .002F, .fade = .12F, .decay = .6F, .release = .1F, .gain = .9F, .pan = .25F},
    {.name = "bass", .program = 32,
     .stroke = {1, .6F, .3F, .15F, .08F},
     .body = {1, .4F, .1F},
     .attack = .004F, .fade = .15F, .decay = .7F, .release = .06F, .gain = 1.1F},
    {.name = "violin", .program = 40,
     .stroke = {1, .7F, .6F, .45F, .35F, .3F, .2F, .15F},
     .body = {1, .75F, .55F, .5F, .3F, .25F, .2F, .12F},
     .attack = .05F, .fade = .3F, .release = .15F, .vibrato = 9, .gain = .6F, .pan = -.2F},
    {.name = "strings", .program = 48,
     .stroke = {1, .6F, .45F, .3F, .2F, .15F, .1F, .06F},
     .body = {1, .65F, .45F, .3F, .2F, .12F, .1F, .06F},
     .attack = .12F, .fade = .5F, .release = .35F, .vibrato = 5, .spread = 14, .gain = .5F},
    {.name = "pizzicato", .program = 45,
     .stroke = {1, .7F, .4F, .25F, .15F, .08F},
     .body = {1, .25F, .06F},
     .attack = .002F, .fade = .06F, .decay = .22F, .release = .08F, .spread = 5, .pan = -.15F},
    {.name = "harp", .program = 46,
     .stroke = {1, .5F, .3F, .15F, .08F, .04F},
     .body = {1, .15F, .04F},
     .attack = .003F, .fade = .2F, .decay = 1.2F, .release = .5F, .gain = .9F, .pan = .3F},
    {.name = "trumpet", .program = 56,
     .stroke = {.7F, .9F, 1, .8F, .6F, .45F, .3F, .2F},
     .body = {.9F, 1, .8F, .55F, .4F, .25F, .15F, .1F},
     .attack = .025F, .fade = .1F, .release = .08F, .vibrato = 4, .gain = .5F, .pan = .1F},
    {.name = "horn", .program = 60,
     .stroke = {1, .7F, .45F, .25F, .12F, .06F},
     .body = {1, .6F, .3F, .12F, .05F},
     .attack = .05F, .fade = .2F, .release = .12F, .vibrato = 2, .spread = 6, .gain = .65F, .pan = -.25F},
    {.name = "clarinet", .program = 71,
     .stroke = {1, .05F, .6F, .06F, .3F, .05F, .15F},
     .body = {1, .04F, .5F, .05F, .2F, .03F, .08F},
     .attack = .03F, .fade = .2F, .release = .08F, .vibrato = 3, .gain = .7F, .pan = .15F},
    {.name = "bassoon", .program = 70,
     .stroke = {.8F, 1, .7F, .5F, .3F, .2F, .1F},
     .body = {.8F, 1, .55F, .35F, .2F, .1F},
     .attack = .03F, .fade = .2F, .release = .08F, .vibrato = 2, .gain = .6F, .pan = -.1F},
    {.name = "flute", .program = 73,
     .stroke = {1, .4F, .15F, .08F, .03F},
     .body = {1, .25F, .08F, .03F},
     .attack = .04F, .fade = .2F, .release = .1F, .vibrato = 7, .gain = .8F, .pan = .1F},
    {.name = "harmonica", .program = 22,
     .stroke = {1, .5F, .7F, .4F, .35F, .2F, .15F},
     .body = {1, .45F, .6F, .3F, .3F, .15F, .1F},
     .attack = .03F, .fade = .3F, .release = .08F, .vibrato = 8, .gain = .55F, .pan = -.1F},
    {.name = "koto", .program = 107,
     .stroke = {1, .9F, .7F, .55F, .4F, .3F, .2F, .15F},
     .body = {1, .4F, .2F, .06F},
     .attack = .002F, .fade = .1F, .decay = .9F, .release = .2F, .gain = .9F, .pan = -.1F},
    {.name = "shakuhachi", .program = 77,
     .stroke = {1, .6F, .12F, .1F},
     .body = {1, .3F, .06F},
     .attack = .07F, .fade = .15F, .release = .15F, .vibrato = 14, .gain = .75F, .pan = .15F},
    {.name = "square", .program = 80,
     .stroke = {1, 0, .33F, 0, .2F, 0, .14F},
     .body = {1, 0, .33F, 0, .2F, 0, .14F},
     .attack = .003F, .fade = 1, .release = .04F, .gain = .5F},
});
// clang-format on

} // namespace

const Instrument drumKit{.name = "drums", .gain = 1};

const Instrument* findInstrument(std::string_view name) {
    const auto found = std::ranges::find(instruments, name, &Instrument::name);
    return found == instruments.end() ? nullptr : &*found;
}

} // namespace makemedia
