#include "console/answer_lines.h"

#include "host/state/host_state.h"
#include "host/state/quest.h"
#include "platform/controls.h"

namespace {

constexpr int titlePixels = 20; // of the one answer that is judged

} // namespace

void showAnswerLines(platform::WindowHandle dialog, int firstLine, const DataSession& stage,
                     const std::vector<DataResource>& songs) {
    if (songs.empty()) return;
    if (songCount(stage) == 1) {
        for (const int unused : {0, 2, 4}) // their room goes to the two
            platform::show({dialog, firstLine + unused}, false);
        platform::setText({dialog, firstLine + 1}, songs[0].getArtist());
        platform::setText({dialog, firstLine + 3}, songs[0].getTitle());
        platform::setFontSize({dialog, firstLine + 3}, titlePixels);
        return;
    }
    for (int i = 0; i < static_cast<int>(songs.size()) && i < maxSongs; ++i)
        platform::setText({dialog, firstLine + i}, songText(songs[static_cast<std::size_t>(i)]));
}
