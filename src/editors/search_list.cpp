#include "editors/search_list.h"

#include <algorithm>

#include "data/labels.h"
#include "editors/dialog_ids.h"
#include "editors/resource_edit.h"
#include "editors/song_form.h"
#include "foundation/dialog.h"
#include "foundation/text.h"
#include "foundation/views/column_sort.h"
#include "foundation/views/message_box.h"
#include "foundation/views/song_files.h"
#include "foundation/views/view_resource.h"
#include "host/state/host_state.h"
#include "platform/window.h"

using namespace search_list;

namespace {

enum : int { askRemove = 2000013, notSorted = 4000009 };

constexpr int firstNumber = 1, lastNumber = 9999; // that can be searched for
constexpr int yearsBack = 5;

// Lives for one opening.
class SearchList : public zelkova::Dialog {
public:
    SearchList(SearchListMode mode, std::string& numbers) : Dialog(form), mode_(mode), numbers_(numbers) {}

private:
    void open() override {
        ViewResource view = list();
        view.makeColumns();
        platform::listSetMultiSelect(view.getHwnd(), true);
        platform::listSetRowColors(view.getHwnd(), [this](int row) { return rowColors(row); });
        platform::setTextColor(control(idLegendMark), missingFileRed);
        if (mode_ == SearchListMode::All) {
            platform::show(control(idFilters), false);
            fill(catalogue().all());
        } else {
            openFilters();
        }
        followSelection();
    }

    bool onCommand(int id) override {
        switch (id) {
        case idByNumber:
        case idByDate:
            followSwitches();
            return true;
        case idSearch:
            search();
            return true;
        case idClear:
            clearFilters();
            return true;
        case idEdit:
            editSelected();
            return true;
        case idRemove:
            removeSelected();
            return true;
        case idOk:
            if (mode_ == SearchListMode::Pick) numbers_ = shownNumbers();
            end(1);
            return true;
        case platform::IDCANCEL:
            end(0);
            return true;
        default:
            return false;
        }
    }

    bool onMessage(const platform::Message& message) override {
        if (message.id != platform::WM_NOTIFY || message.wParam != idList) return false;
        switch (message.lParam) {
        case platform::NM_DBLCLK:
            editSelected();
            return true;
        case platform::LVN_ITEMCHANGED:
            followSelection();
            return true;
        case platform::LVN_COLUMNCLICK:
            if (!sort_.click(list(), platform::listClickedColumn(control(idList))))
                zelkova::reportMessage(window(), notSorted, {});
            return true;
        default:
            return false;
        }
    }

    void openFilters() {
        for (const int id : {idNoFrom, idNoTo}) {
            platform::setSpinRange(control(id), firstNumber, lastNumber);
            platform::setText(control(id), zelkova::numberToText(firstNumber));
        }
        for (const Genre& genre : genres)
            platform::addItem(control(idGenre), genre.name);
        platform::addItem(control(idFormat), "");
        for (const char* format : fileTypeLabels)
            if (*format) platform::addItem(control(idFormat), format);
        const platform::SystemTime today = platform::getLocalTime();
        platform::SystemTime from = today;
        from.year = static_cast<std::uint16_t>(today.year - yearsBack);
        from.month = from.day = 1;
        platform::setDateTime(control(idDateFrom), from);
        platform::setDateTime(control(idDateTo), today);
        clearFilters();
        platform::setFocus(control(idTitle));
    }

    void clearFilters() {
        platform::setChecked(control(idByNumber), false);
        platform::setChecked(control(idByDate), false);
        for (const int id : {idTitle, idArtist, idKana, idGenre})
            platform::setText(control(id), "");
        platform::setSelection(control(idFormat), 0);
        platform::setChecked(control(idAnyType), true);
        followSwitches();
    }

    void followSwitches() {
        for (const int id : {idNoFrom, idNoTo})
            platform::enable(control(id), platform::isChecked(control(idByNumber)));
        for (const int id : {idDateFrom, idDateTo})
            platform::enable(control(id), platform::isChecked(control(idByDate)));
    }

    void followSelection() {
        const bool any = list().getSelectedItem() >= 0;
        platform::enable(control(idEdit), any);
        platform::enable(control(idRemove), any);
    }

    void search() {
        const auto text = [this](int id) { return platform::getText(control(id)); };
        const platform::SystemTime anyDate;
        const bool byNumber = platform::isChecked(control(idByNumber));
        const bool byDate = platform::isChecked(control(idByDate));
        const auto number = [&](int id) { return byNumber ? numberIn(id) : 0; };
        const auto date = [&](int id) {
            return byDate ? platform::getDateTime(control(id)).value_or(anyDate) : anyDate;
        };
        const int format = platform::getSelection(control(idFormat)) - 1; // behind the empty entry
        fill(catalogue().search(number(idNoFrom), number(idNoTo), text(idTitle), type(), date(idDateFrom),
                                date(idDateTo), text(idGenre), text(idArtist), text(idKana), format));
    }

    // Clipped to the numbers there are, in its field too.
    int numberIn(int id) const {
        const int number =
            std::clamp(zelkova::stringToInt(platform::getText(control(id))), firstNumber, lastNumber);
        platform::setText(control(id), zelkova::numberToText(number));
        return number;
    }

    // -1 for any.
    int type() const {
        for (int type = 1; type < songTypeLabels.size(); ++type)
            if (platform::isChecked(control(idAnyType + type))) return type;
        return -1;
    }

    void fill(const std::vector<DataResource>& songs) {
        ViewResource view = list();
        platform::listHoldRedraw(view.getHwnd(), true);
        view.deleteAllItems();
        for (const DataResource& song : songs)
            view.addRow(song);
        platform::listHoldRedraw(view.getHwnd(), false);
        sort_.forget(view);
        followSelection();
    }

    void editSelected() {
        ViewResource view = list();
        const int row = view.getSelectedItem();
        if (row < 0) return;
        const int number = view.getNumber(row, ViewResource::number);
        dlgResourceEdit(window(), number);
        // Stored or not, its file may be another, or there again.
        DataResource song;
        if (catalogue().get(number, song)) view.updateRow(row, song);
        forgetFile(view.getHwnd(), row);
    }

    // The rows whose songs could be removed leave the list, those behind the first that could not stay. When
    // the file cannot be written, catalogue and list are as before.
    void removeSelected() {
        ViewResource view = list();
        std::vector<int> rows = platform::listSelectedRows(view.getHwnd());
        if (rows.empty() || !confirmed()) return;
        const auto refused = std::ranges::find_if(
            rows, [&](int row) { return !catalogue().remove(view.getNumber(row, ViewResource::number)); });
        rows.erase(refused, rows.end());
        if (rows.empty()) return;
        if (!catalogue().commit()) {
            catalogue().rollback();
            zelkova::reportMessage(window(), storingFailed, {});
            return;
        }
        view.deleteItems(rows);
        followSelection();
    }

    bool confirmed() const {
        return zelkova::showMessage(window(), askRemove, zelkova::MessageButtons::YesNo, 1) ==
               static_cast<int>(platform::Answer::Yes);
    }

    std::string shownNumbers() const {
        const ViewResource view = list();
        std::vector<int> numbers;
        for (int row = 0; row < view.getItemCount(); ++row)
            numbers.push_back(view.getNumber(row, ViewResource::number));
        return zelkova::joinNumbers(numbers);
    }

    platform::RowColors rowColors(int row) const {
        const ViewResource view = list();
        if (!fileIsGone(view.getHwnd(), row, view.getNumber(row, ViewResource::number), catalogue()))
            return {};
        return {std::nullopt, missingFileRed};
    }

    ViewResource list() const { return ViewResource(platform::getItem(window(), idList)); }
    static AccesserResource& catalogue() { return host().accesserResource; }

    const SearchListMode mode_;
    std::string& numbers_;
    zelkova::ColumnSort sort_{ViewResource({}).columns()};
};

} // namespace

int dlgSearchList(platform::WindowHandle owner, SearchListMode mode, std::string& numbers) {
    return SearchList(mode, numbers).run(owner);
}
