#include "editors/dialogcontrollist.h"

#include "editors/add_songs.h"
#include "editors/dialog_ids.h"
#include "editors/search_list.h"
#include "editors/song_file.h"
#include "foundation/dialog.h"
#include "foundation/path.h"
#include "host/state/host_state.h"
#include "platform/dialog.h"

using namespace control_list;

namespace {

class ControlList : public zelkova::Dialog {
public:
    ControlList() : Dialog(form) {}

private:
    void open() override {}

    bool onCommand(int id) override {
        std::string numbers; // wanted by nobody here
        switch (id) {
        case idAdd:
            add();
            return true;
        case idSearch:
            dlgSearchList(window(), SearchListMode::Search, numbers);
            return true;
        case idList:
            dlgSearchList(window(), SearchListMode::All, numbers);
            return true;
        case idOk:
        case platform::IDCANCEL:
            end(0);
            return true;
        default:
            return false;
        }
    }

    void add() {
        platform::FileDialog options = songFileDialog();
        options.multiple = true;
        options.startPath = folderOfNewestSong(host().accesserResource);
        addSongs(window(), platform::openFileDialog(window(), options));
    }
};

} // namespace

void dialogControlList(platform::WindowHandle owner) {
    ControlList().run(owner);
}

std::string folderOfNewestSong(const AccesserResource& catalogue) {
    const std::vector<DataResource> songs = catalogue.all();
    const std::string folder = songs.empty() ? "" : zelkova::getFolder(songs.back().getFileName());
    return folder.empty() ? "" : folder + "/";
}
