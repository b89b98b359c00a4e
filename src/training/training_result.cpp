#include "training/training_result.h"

#include "foundation/dialog.h"
#include "foundation/views/view_training_mode_history.h"
#include "platform/window.h"
#include "training/training_ids.h"
#include "training/training_rank.h"

using namespace training_result;

namespace {

constexpr int rankPixels = 24;
constexpr platform::Color rankColor{0x41, 0x64, 0xE6};
constexpr platform::Color white{0xFF, 0xFF, 0xFF}, black{0, 0, 0};

class TrainingResult : public zelkova::Dialog {
public:
    TrainingResult(const std::vector<DataTrainingModeHistory>& history, int range)
        : Dialog(form), history_(history), rank_(trainingRank(trainingScore(history, range))) {}

private:
    void open() override {
        ViewTrainingModeHistory view(platform::getItem(window(), idHistory));
        view.makeColumns();
        for (const DataTrainingModeHistory& record : history_)
            view.addRow(record);
        platform::listSetRowColors(control(idHistory), [this](int row) { return colorsOf(row); });
        for (const int id : {idRankCaption, idRank}) {
            platform::setFontSize(control(id), rankPixels);
            platform::setTextColor(control(id), rankColor);
        }
        platform::setText(control(idRank), rank_.text);
        platform::setToolTip(control(idRank), rank_.sentence);
        platform::setFocus(control(idOk));
    }

    platform::RowColors colorsOf(int row) const {
        const auto index = static_cast<std::size_t>(row);
        const Outcome* outcome = index < history_.size() ? findOutcome(history_[index].getStatus()) : nullptr;
        return {black, outcome ? outcome->background : white};
    }

    bool onCommand(int id) override {
        if (id != idOk && id != platform::IDCANCEL) return false;
        end(0);
        return true;
    }

    const std::vector<DataTrainingModeHistory>& history_;
    const TrainingRank& rank_;
};

} // namespace

void dlgTrainingResult(platform::WindowHandle owner, const std::vector<DataTrainingModeHistory>& history,
                       int range) {
    TrainingResult(history, range).run(owner);
}
