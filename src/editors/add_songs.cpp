#include "editors/add_songs.h"

#include "editors/add_rest_dialog.h"
#include "editors/confirm_duplicate.h"
#include "editors/file_index.h"
#include "editors/resource_edit.h"
#include "editors/song_form.h"
#include "host/state/host_state.h"

namespace {

// One choice of files; the index is made for all of them.
class AddSongs {
public:
    AddSongs(platform::WindowHandle owner, const std::vector<std::string>& files)
        : owner_(owner), files_(files) {}

    void run() {
        for (std::size_t i = 0; i < files_.size(); ++i) {
            const BatchPlace place{static_cast<int>(i) + 1, static_cast<int>(files_.size())};
            const int result = add(files_[i], place);
            if (result == resourceEditStopBatch) return;
            if (result != resourceEditTakeRest) continue;
            const auto rest = files_.begin() + static_cast<std::ptrdiff_t>(i) + 1;
            if (rest != files_.end()) dlgAddRest(owner_, index_, {rest, files_.end()});
            return;
        }
    }

private:
    int add(const std::string& file, BatchPlace place) {
        DataResource known;
        if (!host().accesserResource.get(index_.find(file), known)) return edit(newEntry, file, place);
        switch (dlgConfirmDuplicate(owner_, known, place)) {
        case DuplicateAnswer::Edit:
            return edit(known.getNo(), {}, place);
        case DuplicateAnswer::New:
            return edit(newEntry, file, place);
        case DuplicateAnswer::StopBatch:
            return resourceEditStopBatch;
        default:
            return resourceEditClosed;
        }
    }

    int edit(int number, const std::string& file, BatchPlace place) {
        const int before = host().accesserResource.getMaxId();
        const int result = dlgResourceEdit(owner_, number, file, place);
        // Whatever way it was closed, 適応 may have stored something before.
        for (int added = before + 1; added <= host().accesserResource.getMaxId(); ++added)
            index_.note(added);
        if (number != newEntry) index_.note(number);
        return result;
    }

    const platform::WindowHandle owner_;
    const std::vector<std::string>& files_;
    FileIndex index_{host().accesserResource};
};

} // namespace

void addSongs(platform::WindowHandle owner, const std::vector<std::string>& files) {
    AddSongs(owner, files).run();
}
