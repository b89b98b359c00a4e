#include "editors/resource_detail.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <unordered_set>

#include "editors/dialog_ids.h"
#include "editors/resource_edit.h"
#include "editors/search_list.h"
#include "editors/song_assignment.h"
#include "foundation/dialog.h"
#include "foundation/text.h"
#include "foundation/views/message_box.h"
#include "foundation/views/view_resource_detail.h"
#include "foundation/views/view_source_resource_detail.h"
#include "host/state/host_state.h"
#include "platform/menu.h"
#include "platform/window.h"

using namespace resource_detail;

namespace {

enum : int { askKeepSource = 2000010, tooFewSongs = 3000008 };

constexpr platform::Color usedElsewhere{240, 135, 235}, usedInStage{115, 160, 250}, unfit{250, 115, 115},
    unobjectionable{255, 255, 255};
constexpr platform::Color emptyRowInk{0x87, 0x87, 0x87};

class ResourceDetail : public zelkova::Dialog {
public:
    ResourceDetail(std::vector<DataSession>& stages, std::size_t index)
        : Dialog(form), stage_(stages[index]), songs_(stages, index, catalogue_) {}

private:
    struct Command {
        int id;
        void (ResourceDetail::*run)();
    };
    static std::span<const Command> commands();

    ViewResourceDetail target() const { return ViewResourceDetail(platform::getItem(window(), idTarget)); }
    ViewSourceResourceDetail source() const {
        return ViewSourceResourceDetail(platform::getItem(window(), idSource));
    }

    void open() override {
        platform::setTextColor(control(idElsewhereMark), usedElsewhere);
        platform::setTextColor(control(idInStageMark), usedInStage);
        platform::setTextColor(control(idUnfitMark), unfit);
        source().makeColumns();
        ViewResourceDetail list = target();
        list.makeColumns();
        for (int row = 0; std::cmp_less(row, songs_.songs().size()); ++row)
            list.addRow(row / songs_.songsPerQuest() + 1, row % songs_.songsPerQuest() + 1, {});
        showTarget();
        platform::listSetRowColors(control(idTarget), [this](int row) { return targetColors(row); });
        platform::listSetRowColors(control(idSource), [this](int row) { return sourceColors(row); });
        platform::listSetDrag(control(idSource), control(idTarget),
                              [this](int row, int toRow) { put(source().songAt(row), toRow); });
        platform::listSelectRow(control(idTarget), 0);
        enableCommands();
    }

    bool onCommand(int id) override {
        const auto command = std::ranges::find(commands(), id, &Command::id);
        if (command == commands().end()) return false;
        (this->*command->run)();
        enableCommands();
        return true;
    }

    bool onMessage(const platform::Message& message) override {
        if (message.id != platform::WM_NOTIFY) return false;
        const bool onSource = message.wParam == idSource;
        switch (message.lParam) {
        case platform::NM_DBLCLK:
            return onSource && onCommand(idSet);
        case platform::NM_RCLICK:
            platform::popupMenu(window(), onSource ? "IDM_KDL0408_SOURCEMENUE" : "IDM_KDL0407_TARGETMENUE");
            return true;
        case platform::LVN_KEYDOWN:
            return onCommand(onSource ? idRemove : idClear);
        case platform::LVN_ITEMCHANGED:
            enableCommands();
            return true;
        default:
            return false;
        }
    }

    // What works on a selected row is off without one.
    void enableCommands() {
        const bool inTarget = target().getSelectedItem() >= 0, inSource = source().getSelectedItem() >= 0;
        const std::pair<int, bool> commandsOnRows[] = {
            {idSet, inTarget && inSource}, {idClear, inTarget}, {idUp, inTarget}, {idDown, inTarget},
            {idRemove, inSource},          {idEdit, inSource}};
        for (const auto& [id, on] : commandsOnRows) {
            platform::enable(control(id), on);
            platform::enableMenuItem(window(), id, on);
        }
    }

    platform::RowColors targetColors(int row) const {
        const int song = songs_.songs()[static_cast<std::size_t>(row)];
        if (song == 0) return {emptyRowInk, unobjectionable};
        return {std::nullopt, colorOf(song, songs_.usedState(song))};
    }
    // A song to choose from has been used as soon as one row has it.
    platform::RowColors sourceColors(int row) const {
        const int song = source().songAt(row);
        return {std::nullopt, colorOf(song, songs_.usedState(song, 0))};
    }
    platform::Color colorOf(int song, SongUse use) const {
        if (!songs_.fits(song)) return unfit;
        if (use == SongUse::InStage) return usedInStage;
        return use == SongUse::Elsewhere ? usedElsewhere : unobjectionable;
    }

    // Each change of the target may change colours in both lists.
    void redrawLists() {
        target().redraw();
        source().redraw();
    }

    void showTarget() {
        ViewResourceDetail list = target();
        DataResource song;
        int row = 0;
        for (const int number : songs_.songs()) {
            catalogue_.get(number, song);
            list.setSong(row++, song);
        }
        redrawLists();
    }

    // Those of the songs that the catalogue has.
    std::vector<DataResource> recordsOf(const std::vector<int>& numbers) const {
        std::vector<DataResource> records;
        DataResource song;
        for (const int number : numbers)
            if (catalogue_.get(number, song)) records.push_back(song);
        return records;
    }

    void selectTarget(int row) {
        platform::listSelectRow(control(idTarget), row);
        target().ensureVisible(row);
    }

    void put(int song, int row) {
        DataResource record;
        if (!catalogue_.get(song, record) || !songs_.set(row, song)) return;
        ViewResourceDetail list = target();
        list.setSong(row, record);
        selectTarget(std::min(row + 1, list.getItemCount() - 1));
        redrawLists();
    }
    void set() { put(source().songAt(source().getSelectedItem()), target().getSelectedItem()); }

    void fill() {
        songs_.lookAgain(); // files may be gone, or there again
        const bool filled = songs_.fillAtRandom(source().songs());
        showTarget();
        if (!filled) zelkova::showMessage(window(), tooFewSongs);
    }

    void shuffle() {
        songs_.shuffle();
        showTarget();
    }

    void clear() {
        const int row = target().getSelectedItem();
        songs_.set(row, 0);
        target().clearSong(row);
        redrawLists();
    }

    void clearAll() {
        songs_.clear();
        showTarget();
    }

    void move(int rows) {
        const int row = target().getSelectedItem();
        if (!songs_.swap(row, row + rows)) return;
        target().moveSong(row, row + rows);
        target().ensureVisible(row + rows);
    }
    void moveUp() { move(-1); }
    void moveDown() { move(1); }

    void search() {
        std::string found;
        const bool finished = dlgSearchList(window(), SearchListMode::Pick, found) == 1;
        std::vector<int> songs = source().songs();
        if (finished) add(zelkova::splitNumbers(found), songs);
        // Songs may have been edited or deleted there, however it ended.
        lookAgain();
        source().showSongs(recordsOf(songs));
    }

    // Adds those that are not there yet; first asks what is to become of those that are.
    void add(const std::vector<int>& found, std::vector<int>& songs) {
        if (!songs.empty()) {
            const auto answer = zelkova::plainMessage(
                window(), askKeepSource, {}, platform::Buttons::YesNoCancel, platform::SystemIcon::Question);
            if (answer == platform::Answer::Cancel) return;
            if (answer == platform::Answer::No) songs.clear();
        }
        std::unordered_set<int> known(songs.begin(), songs.end());
        std::ranges::copy_if(found, std::back_inserter(songs),
                             [&known](int song) { return known.insert(song).second; });
    }

    void showAll() {
        lookAgain();
        source().showSongs(catalogue_.all());
    }

    void lookAgain() {
        songs_.lookAgain();
        showTarget();
    }

    void edit() {
        const int row = source().getSelectedItem(), song = source().songAt(row);
        dlgResourceEdit(window(), song);
        DataResource record;
        if (catalogue_.get(song, record)) source().updateRow(row, record);
        lookAgain();
    }

    // The next row is selected, so that one after the other can go.
    void remove() {
        ViewSourceResourceDetail list = source();
        const int row = list.getSelectedItem();
        if (list.deleteItem(row))
            platform::listSelectRow(list.getHwnd(), std::min(row, list.getItemCount() - 1));
    }
    void removeAll() { source().deleteAllItems(); }

    void store() {
        songs_.lookAgain();
        stage_.setResourceId(zelkova::joinNumbers(songs_.songs()));
        end(songs_.check());
    }
    void cancel() { end(-1); }

    DataSession& stage_;
    const AccesserResource& catalogue_ = host().accesserResource;
    SongAssignment songs_;
};

std::span<const ResourceDetail::Command> ResourceDetail::commands() {
    static constexpr Command table[] = {
        {idOk, &ResourceDetail::store},
        {idCancel, &ResourceDetail::cancel},
        {platform::IDCANCEL, &ResourceDetail::cancel},
        {idSet, &ResourceDetail::set},
        {idFill, &ResourceDetail::fill},
        {idShuffle, &ResourceDetail::shuffle},
        {idClear, &ResourceDetail::clear},
        {idClearAll, &ResourceDetail::clearAll},
        {idUp, &ResourceDetail::moveUp},
        {idDown, &ResourceDetail::moveDown},
        {idSearch, &ResourceDetail::search},
        {idShowAll, &ResourceDetail::showAll},
        {idRemove, &ResourceDetail::remove},
        {idRemoveAll, &ResourceDetail::removeAll},
        {idEdit, &ResourceDetail::edit},
    };
    return table;
}

} // namespace

int dlgResourceDetail(platform::WindowHandle owner, std::vector<DataSession>& stages, std::size_t index) {
    return ResourceDetail(stages, index).run(owner);
}
