#include "editors/resource_edit.h"

#include <algorithm>

#include "data/labels.h"
#include "editors/dialog_ids.h"
#include "editors/sample_player.h"
#include "editors/song_form.h"
#include "foundation/dialog.h"
#include "foundation/path.h"
#include "foundation/text.h"
#include "foundation/views/message_box.h"
#include "host/state/host_state.h"
#include "platform/dialog.h"
#include "platform/window.h"

using namespace resource_edit;

namespace {

enum : unsigned { msgUnreadable = platform::WM_USER + 1 };
enum : int { fileUnreadable = 4000008 };

struct Text {
    int id;
    std::string SongForm::*text;
};
constexpr Text texts[] = {
    {idTitle, &SongForm::title},   {idArtist, &SongForm::artist},     {idArtistKana, &SongForm::artistKana},
    {idFamous, &SongForm::famous}, {idDeficalt, &SongForm::deficalt},
};
constexpr int types = 3; // songTypeLabels from 1 on

bool isField(int id) {
    return id == idGenre || (id >= idType1 && id < idType1 + types) || SamplePlayer::isRangeEdit(id) ||
           std::ranges::any_of(texts, [&](const Text& field) { return field.id == id; });
}

class ResourceEdit : public zelkova::Dialog {
public:
    ResourceEdit(int no, std::string fileName, const DataResource& stored, BatchPlace place)
        : Dialog(form), no_(no), fileName_(std::move(fileName)), stored_(stored), place_(place) {}

private:
    void open() override {
        for (const Genre& genre : genres)
            platform::addItem(control(idGenre), genre.name);
        platform::show(control(idBatch), place_.files > 1);
        platform::setText(control(idBatchText), zelkova::numberToText(place_.file) + "／" +
                                                    zelkova::numberToText(place_.files) + "曲目");
        for (const int id : {idFamous, idDeficalt})
            platform::setDigitsOnly(control(id));
        player_.open(window());
        const bool isNew = no_ == newEntry;
        showNumber();
        load(isNew ? fileName_ : stored_.getFileName());
        show(isNew ? newForm(fileName_) : toForm(stored_));
        setChanged(isNew);
        platform::setFocus(control(idTitle));
    }

    bool onCommand(int id) override {
        switch (id) {
        case idBrowse:
            browse();
            return true;
        case idOk:
            close(resourceEditStored);
            return true;
        case idTakeRest:
            close(resourceEditTakeRest);
            return true;
        case idApply:
            store();
            return true;
        case idStopBatch:
            end(resourceEditStopBatch);
            return true;
        case idCancel:
        case platform::IDCANCEL:
            end(resourceEditClosed);
            return true;
        default:
            if (isField(id)) setChanged(true);
            return player_.onCommand(id);
        }
    }

    bool onMessage(const platform::Message& message) override {
        switch (message.id) {
        case msgUnreadable:
            reportUnreadable();
            return true;
        case SamplePlayer::msgMeasured:
            onMeasured();
            return true;
        case platform::WM_NOTIFY:
            if (message.wParam != idReleaseDate) return false;
            datePicked_ = true;
            setChanged(true);
            return true;
        case platform::WM_DESTROY:
            player_.close();
            return true;
        default:
            return player_.onMessage(message);
        }
    }

    void browse() {
        platform::FileDialog options = songFileDialog();
        options.startPath = player_.file().name;
        const std::vector<std::string> chosen = platform::openFileDialog(window(), options);
        if (chosen.empty()) return;
        load(chosen.front());
        setChanged(true);
    }

    void load(const std::string& fileName) {
        player_.load(fileName);
        const SongFile& file = player_.file();
        platform::setText(control(idFileName), fileName);
        platform::setToolTip(control(idFileName), fileName);
        showFile();
        // Told when the editor can be seen.
        if (!file.measuring && !file.isPlayable()) platform::postMessage(window(), msgUnreadable);
    }

    // The disk took its time; what was typed meanwhile stays.
    void onMeasured() {
        const bool changed = changed_;
        player_.showFile();
        showFile();
        setChanged(changed); // a range that is clipped to the song is no change of the host's
        if (!player_.file().isPlayable()) reportUnreadable();
    }

    void showFile() {
        const SongFile& file = player_.file();
        platform::setText(control(idFileType), fileTypeLabels.text(file.type));
        // Without its length a song could be stored, but not played in a quest.
        platform::enable(control(idOk), !file.measuring);
        platform::enable(control(idTakeRest), !file.measuring);
    }

    void reportUnreadable() {
        zelkova::DataPairsList pairs;
        pairs.add("FILE", player_.file().name);
        zelkova::reportMessage(window(), fileUnreadable, pairs);
    }

    void showNumber() {
        platform::setText(control(idNumber), no_ == newEntry ? "[新規登録]" : zelkova::numberToText(no_));
    }

    void show(const SongForm& form) {
        showTexts(form);
        selectGenre(form.genre);
        for (int type = 1; type <= types; ++type)
            platform::setChecked(control(idType1 + type - 1), type == form.type);
        // What the picker cannot show leaves it at today.
        platform::setDateTime(control(idReleaseDate), platform::getLocalTime());
        platform::setDateTime(control(idReleaseDate), form.releaseDate);
        datePicked_ = no_ == newEntry;
    }

    void showTexts(const SongForm& form) {
        for (const Text& field : texts)
            platform::setText(control(field.id), form.*field.text);
        player_.show(form.ranges);
    }

    // A genre from elsewhere gets an entry of its own.
    void selectGenre(const std::string& genre) {
        const auto row =
            std::ranges::find_if(genres, [&](const Genre& known) { return genre == known.name; });
        auto entry = static_cast<int>(row - genres.begin());
        if (row == genres.end()) entry = genre.empty() ? -1 : platform::addItem(control(idGenre), genre);
        platform::setSelection(control(idGenre), entry);
    }

    SongForm read() const {
        SongForm form;
        for (const Text& field : texts)
            form.*field.text = platform::getText(control(field.id));
        form.genre = platform::getText(control(idGenre));
        for (int type = 1; type <= types; ++type)
            if (platform::isChecked(control(idType1 + type - 1))) form.type = type;
        // Not every stored date can be shown; until another one is picked it stays as it is.
        form.releaseDate = stored_.getReleaseDate();
        if (datePicked_)
            form.releaseDate = platform::getDateTime(control(idReleaseDate)).value_or(form.releaseDate);
        form.ranges = player_.ranges();
        return form;
    }

    // What differs from the catalogue: the only thing that there is to store.
    void setChanged(bool changed) {
        changed_ = changed;
        platform::enable(control(idApply), changed && !player_.file().measuring);
    }

    bool store() {
        if (!zelkova::fileExists(player_.file().name)) {
            reportUnreadable();
            return false;
        }
        const DataResource song = toSong(read(), player_.file(), stored_);
        const int number = storeSong(host().accesserResource, no_, song);
        if (number == 0) {
            zelkova::showMessage(window(), storingFailed);
            return false;
        }
        no_ = number;
        host().accesserResource.get(no_, stored_);
        showNumber();
        showTexts(toForm(stored_)); // signs are of full width now, numbers without zeros before them
        setChanged(false);
        return true;
    }

    void close(ResourceEditResult result) {
        if (!changed_ || store()) end(result);
    }

    int no_;
    const std::string fileName_;
    DataResource stored_; // the entry as the catalogue has it
    const BatchPlace place_;
    SamplePlayer player_;
    bool changed_ = false;
    bool datePicked_ = false; // the date to store is the picker's
};

} // namespace

int dlgResourceEdit(platform::WindowHandle owner, int no, const std::string& fileName, BatchPlace place) {
    DataResource stored;
    if (no != newEntry && !host().accesserResource.get(no, stored)) return resourceEditClosed;
    return ResourceEdit(no, fileName, stored, place).run(owner);
}
