#include "foundation/views/song_files.h"

#include "foundation/path.h"

namespace {

// A new row's own number is 0.
enum : std::intptr_t { fileUnknown, filePresent, fileGone };

bool isGone(int song, const AccesserResource& catalogue) {
    DataResource record;
    return catalogue.get(song, record) && !zelkova::fileExists(record.getFileName());
}

} // namespace

bool fileIsGone(platform::WindowHandle list, int row, int song, const AccesserResource& catalogue) {
    if (platform::listRowData(list, row) == fileUnknown)
        platform::listSetRowData(list, row, isGone(song, catalogue) ? fileGone : filePresent);
    return platform::listRowData(list, row) == fileGone;
}

void forgetFile(platform::WindowHandle list, int row) {
    platform::listSetRowData(list, row, fileUnknown);
}
