#include "foundation/views/message_box.h"

#include <algorithm>
#include <span>
#include <utility>

#include "data/app_logger.h"
#include "foundation/component.h"
#include "foundation/text.h"
#include "foundation/views/message_box_ids.h"
#include "foundation/views/open_with_desktop.h"
#include "platform/controls.h"

namespace zelkova {

using namespace message_box;

namespace {

using platform::Answer;

constexpr char codePlaceholder[] = "%__SERCH_MESSAGE_CODE__%";

struct StartTexts {
    std::string catalogPath, titleHead, productName;
    std::function<std::string()> helpUrl;
};

StartTexts& startTexts() {
    static StartTexts texts;
    return texts;
}

struct Button {
    Answer answer;
    const char* label;
};

constexpr Button okButton{Answer::Ok, "OK"}, cancelButton{Answer::Cancel, "ｷｬﾝｾﾙ"};
constexpr Button yesButton{Answer::Yes, "はい(&Y)"}, noButton{Answer::No, "いいえ(&N)"};
constexpr Button okSet[] = {okButton};
constexpr Button okCancelSet[] = {okButton, cancelButton};
constexpr Button yesNoSet[] = {yesButton, noButton};
constexpr Button yesNoCancelSet[] = {yesButton, noButton, cancelButton};
constexpr int mostButtons = 3;

std::span<const Button> buttonSet(MessageButtons buttons) {
    switch (buttons) {
    case MessageButtons::OkCancel:
        return okCancelSet;
    case MessageButtons::YesNo:
        return yesNoSet;
    case MessageButtons::YesNoCancel:
        return yesNoCancelSet;
    default:
        return okSet;
    }
}

platform::SystemIcon iconOf(int level) {
    constexpr int warn = 3;
    if (level < warn) return platform::SystemIcon::Information;
    return level == warn ? platform::SystemIcon::Warning : platform::SystemIcon::Error;
}

// The class of all boxes, registered at the first use.
const std::string& registeredClass() {
    static const std::string name = [] {
        platform::WindowClass windowClass;
        windowClass.name = "ZelkovaMessageBoxExtendExtended";
        Component::registerClass(windowClass);
        return windowClass.name;
    }();
    return name;
}

DataLogMessage expanded(int code, const DataPairsList& pairs) {
    DataLogMessage message = AppLogger::getMessage(code);
    message.setContents(formatWithPairs(message.getContents(), pairs, "%", false));
    message.setRestore(formatWithPairs(message.getRestore(), pairs, "%", false));
    return message;
}

// Lives for one opening.
class InternalMessageBoxExtend : public Component {
public:
    InternalMessageBoxExtend(int code, DataLogMessage message, std::span<const Button> buttons,
                             int defaultButton)
        : code_(code), message_(std::move(message)), buttons_(buttons),
          defaultButton_(std::clamp(defaultButton, 0, static_cast<int>(buttons.size()) - 1)) {
        className = registeredClass();
    }

    int run(platform::WindowHandle owner) {
        return platform::runDialog(
            owner, form, [this](platform::WindowHandle dialog, const platform::Message& message) {
                return componentWndProc(dialog, message.id, message.wParam, message.lParam) != 0;
            });
    }

    platform::LResult componentWndProc(platform::WindowHandle dialog, unsigned message,
                                       platform::WParam wParam, platform::LParam) override {
        if (message == platform::WM_INITDIALOG) {
            setHwnd(dialog);
            fill();
            return 1;
        }
        return message == platform::WM_COMMAND && onCommand(static_cast<int>(platform::lowWord(wParam)));
    }

private:
    void fill() {
        const StartTexts& texts = startTexts();
        platform::setText(hwnd, texts.titleHead + texts.productName);
        platform::setIcon({hwnd, idIcon}, iconOf(message_.getLogging()));
        platform::setText({hwnd, idCode}, AppLogger::formatCode(code_));
        platform::setToolTip({hwnd, idCode}, texts.catalogPath);
        platform::setText({hwnd, idMessage}, message_.getContents());
        platform::setText({hwnd, idDetail}, message_.getRestore());
        showDetail(false);
        for (int i = 0; i < mostButtons; ++i) {
            const bool used = i < static_cast<int>(buttons_.size());
            platform::show({hwnd, idAnswer1 + i}, used);
            if (used) platform::setText({hwnd, idAnswer1 + i}, buttons_[static_cast<std::size_t>(i)].label);
        }
        platform::setFocus({hwnd, idAnswer1 + defaultButton_});
    }

    bool onCommand(int id) {
        if (id == platform::IDCANCEL) {
            close(escapeAnswer());
        } else if (id == idDetailButton) {
            showDetail(!detailShown_);
        } else if (id == idHelp) {
            openHelp();
        } else if (id >= idAnswer1 && id < idAnswer1 + static_cast<int>(buttons_.size())) {
            close(buttons_[static_cast<std::size_t>(id - idAnswer1)].answer);
        } else {
            return false;
        }
        return true;
    }

    void openHelp() const {
        const std::function<std::string()>& url = startTexts().helpUrl;
        openWithDesktop(hwnd, url ? replaceAll(url(), codePlaceholder, numberToText(code_)) : std::string());
    }

    void showDetail(bool shown) {
        detailShown_ = shown;
        platform::show({hwnd, idDetailCaption}, shown);
        platform::show({hwnd, idDetail}, shown);
        platform::setText({hwnd, idDetailButton}, shown ? "詳細非表示(&D)" : "詳細表示(&D)");
    }

    // The last button of every set is the one that changes nothing.
    Answer escapeAnswer() const { return buttons_.back().answer; }
    void close(Answer answer) { platform::endDialog(hwnd, static_cast<int>(answer)); }

    const int code_;
    const DataLogMessage message_;
    const std::span<const Button> buttons_;
    const int defaultButton_;
    bool detailShown_ = false;
};

int show(platform::WindowHandle owner, int code, const DataLogMessage& message, MessageButtons buttons,
         int defaultButton) {
    return InternalMessageBoxExtend(code, message, buttonSet(buttons), defaultButton).run(owner);
}

} // namespace

void setCatalogPath(const std::string& path) {
    startTexts().catalogPath = path;
}

void setTitleParts(const std::string& first, const std::string& productName) {
    startTexts().titleHead = first;
    startTexts().productName = productName;
}

void setHelpUrl(std::function<std::string()> url) {
    startTexts().helpUrl = std::move(url);
}

int showMessage(platform::WindowHandle owner, int code, MessageButtons buttons, int defaultButton) {
    return show(owner, code, AppLogger::getMessage(code), buttons, defaultButton);
}

int showMessage_pairs(platform::WindowHandle owner, int code, MessageButtons buttons, int defaultButton,
                      const DataPairsList& pairs) {
    return show(owner, code, expanded(code, pairs), buttons, defaultButton);
}

void reportMessage(platform::WindowHandle owner, int code, const DataPairsList& pairs,
                   const std::source_location& place) {
    AppLogger::log(code, pairs, place);
    showMessage_pairs(owner, code, MessageButtons::Ok, 0, pairs);
}

platform::Answer plainMessage(platform::WindowHandle owner, int code, const DataPairsList& pairs,
                              platform::Buttons buttons, platform::SystemIcon icon) {
    return platform::messageBox(owner, expanded(code, pairs).getContents(), startTexts().productName, buttons,
                                icon);
}

void setDialogTitle(platform::WindowHandle dialog, const std::string& subject) {
    platform::setText(dialog, startTexts().productName + " -" + subject + "-");
}

} // namespace zelkova
