#pragma once
// The editor of one song, with a user's hands in it.

#include "editors/catalogue_desk.h"
#include "editors/dialog_ids.h"
#include "editors/resource_edit.h"
#include "editors/sample_controls.h"

namespace editors_tests {

using namespace resource_edit;
using namespace sample_controls;

enum : int { fileUnreadable = 4000008, notStored = 3000004 };

class SongEditor : public CatalogueDesk {
protected:
    // Opens the editor and does `act` in it, which closes it.
    int edit(int no, const std::function<void()>& act, const std::string& fileName = {},
             BatchPlace place = {}) {
        return answer(
            form, [&] { return dlgResourceEdit({}, no, fileName, place); }, act);
    }
    // On a new song that the file was made for, and gone again with Cancel.
    void tryOut(const std::string& path, const std::function<void()>& act) {
        const auto actAndCancel = [&] {
            act();
            dialog.click(idCancel);
        };
        edit(-1, actAndCancel, path);
    }

    std::string text(int id) const { return dialog.text(id); }
    std::string range(int row) const {
        return text(rangeId(row, startEdit)) + "-" + text(rangeId(row, endEdit));
    }
    // Of the buttons to play and to stop, those that can be pressed.
    std::vector<int> livePlayers() const {
        std::vector<int> all{idPlay, idStop};
        for (const int row : {rowIntro, rowSabi, rowAnswer})
            for (const RangePart part : {playButton, stopButton})
                all.push_back(rangeId(row, part));
        return dialog.liveOf(all);
    }

    const int introStart = rangeId(rowIntro, startEdit), introEnd = rangeId(rowIntro, endEdit),
              markIntroStart = rangeId(rowIntro, markStart), markIntroEnd = rangeId(rowIntro, markEnd),
              introSlider = rangeId(rowIntro, slider), playIntro = rangeId(rowIntro, playButton),
              stopIntro = rangeId(rowIntro, stopButton), introPlace = rangeId(rowIntro, positionLabel),
              sabiEnd = rangeId(rowSabi, endEdit), playSabi = rangeId(rowSabi, playButton),
              stopSabi = rangeId(rowSabi, stopButton), answerEnd = rangeId(rowAnswer, endEdit);
};

} // namespace editors_tests
