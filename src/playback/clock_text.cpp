#include "playback/clock_text.h"

#include <array>
#include <cstdio>

#include "foundation/media.h"

std::string clockText(int position, int end) {
    const int at = zelkova::Media::toSeconds(position), of = zelkova::Media::toSeconds(end);
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%02d:%02d:%02d/%02d:%02d:%02d", at / 3600, at % 3600 / 60,
                  at % 60, of / 3600, of % 3600 / 60, of % 60);
    return text.data();
}
