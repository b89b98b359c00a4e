#pragma once
// The sounds of the quiz that are not music: buzzers, bells, verdicts, applause, drum roll.

#include "makemedia/pcm.h"

#include <span>
#include <string_view>

namespace makemedia {

struct Effect {
    std::string_view name; // of the file, without its extension
    Pcm (*make)();
};

std::span<const Effect> effects();

} // namespace makemedia
