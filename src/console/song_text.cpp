#include "console/song_text.h"

#include "foundation/text.h"
#include "host/state/host_state.h"
#include "host/state/quest.h"
#include "platform/controls.h"

namespace {

constexpr int titlePixels = 20; // of the one answer that is judged

} // namespace

std::string songText(const DataResource& song) {
    if (song.getTitle().empty() && song.getArtist().empty()) return {};
    return song.getTitle() + "(" + song.getArtist() + ")";
}

void showAnswerLines(platform::WindowHandle dialog, int firstLine, const DataSession& stage,
                     const std::vector<DataResource>& songs) {
    if (songs.empty()) return;
    if (songCount(stage) == 1) {
        platform::setText({dialog, firstLine + 1}, songs[0].getArtist());
        platform::setText({dialog, firstLine + 3}, songs[0].getTitle());
        platform::setFontSize({dialog, firstLine + 3}, titlePixels);
        return;
    }
    for (int i = 0; i < static_cast<int>(songs.size()) && i < maxSongs; ++i)
        platform::setText({dialog, firstLine + i}, songText(songs[static_cast<std::size_t>(i)]));
}

std::string userName(int index) {
    const std::vector<DataUserInfo>& users = host().userList;
    return index >= 0 && index < static_cast<int>(users.size())
               ? users[static_cast<std::size_t>(index)].getName()
               : std::string();
}

std::string userLabel(int index) {
    if (index < 0 || index >= static_cast<int>(host().userList.size())) return {};
    return "[" + zelkova::numberToText(index + 1) + "]" + userName(index);
}
