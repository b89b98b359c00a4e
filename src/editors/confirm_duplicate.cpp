#include "editors/confirm_duplicate.h"

#include "editors/dialog_ids.h"
#include "foundation/dialog.h"
#include "platform/controls.h"

using namespace confirm_duplicate;

namespace {

constexpr char question[] =
    "選択したファイルは、既に登録されています。\r\n[編集]ボタンを押すと、既存のデータを編集します。"
    "[新規]ボタンを押すと、新しく登録します。";

class ConfirmDuplicate : public zelkova::Dialog {
public:
    ConfirmDuplicate(const DataResource& known, BatchPlace place)
        : Dialog(form), known_(known), place_(place) {}

private:
    void open() override {
        platform::setIcon(control(idIcon), platform::SystemIcon::Warning);
        platform::setText(control(idQuestion), question);
        platform::setText(control(idDetails),
                          "タイトル：" + known_.getTitle() + "\r\n\r\nファイル名：" + known_.getFileName());
        platform::show(control(idStopBatch), place_.files > 1);
        platform::messageBeep(platform::SystemIcon::Warning);
    }

    bool onCommand(int id) override {
        switch (id) {
        case idEdit:
            return endWith(DuplicateAnswer::Edit);
        case idNew:
            return endWith(DuplicateAnswer::New);
        case idStopBatch:
            return endWith(DuplicateAnswer::StopBatch);
        case idCancel:
        case platform::IDCANCEL:
            return endWith(DuplicateAnswer::Cancel);
        default:
            return false;
        }
    }

    bool endWith(DuplicateAnswer answer) {
        end(static_cast<int>(answer));
        return true;
    }

    const DataResource& known_;
    const BatchPlace place_;
};

} // namespace

DuplicateAnswer dlgConfirmDuplicate(platform::WindowHandle owner, const DataResource& known,
                                    BatchPlace place) {
    const int result = ConfirmDuplicate(known, place).run(owner);
    return result < 0 ? DuplicateAnswer::Cancel : static_cast<DuplicateAnswer>(result);
}
