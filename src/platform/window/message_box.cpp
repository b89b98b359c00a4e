#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <map>

#include "platform/detail/answers.h"
#include "platform/detail/message_buttons.h"
#include "platform/detail/modal_stack.h"
#include "platform/detail/qt_text.h"
#include "platform/dialog.h"

namespace platform {

namespace {

using namespace detail;

struct Choice {
    std::vector<Answer> answers;  // the first is the default
    std::optional<Answer> escape; // what Esc and the close box answer; none: they do nothing
};

const Choice& choiceFor(Buttons buttons) {
    static const std::map<Buttons, Choice> choices = {
        {Buttons::Ok, {{Answer::Ok}, Answer::Ok}},
        {Buttons::OkCancel, {{Answer::Ok, Answer::Cancel}, Answer::Cancel}},
        {Buttons::YesNo, {{Answer::Yes, Answer::No}, std::nullopt}},
        {Buttons::YesNoCancel, {{Answer::Yes, Answer::No, Answer::Cancel}, Answer::Cancel}}};
    return choices.at(buttons);
}

QMessageBox::Icon toIcon(SystemIcon icon) {
    switch (icon) {
    case SystemIcon::Error:
        return QMessageBox::Critical;
    case SystemIcon::Question:
        return QMessageBox::Question;
    case SystemIcon::Warning:
        return QMessageBox::Warning;
    case SystemIcon::Information:
        return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

class PlainBox : public QMessageBox {
public:
    PlainBox(QWidget* owner, const Choice& choice) : QMessageBox(owner), choice_(choice) {
        setTextFormat(Qt::PlainText);
        for (const Answer answer : choice.answers)
            addButton(toButton(answer));
        setDefaultButton(toButton(choice.answers.front()));
        if (choice.escape)
            setEscapeButton(toButton(*choice.escape));
        else
            setWindowFlag(Qt::WindowCloseButtonHint, false);
    }

    std::optional<Answer> answer() const {
        for (const Answer possible : choice_.answers)
            if (clickedButton() && clickedButton() == button(toButton(possible))) return possible;
        return answered_;
    }

    void reject() override {
        if (!choice_.escape) return;
        answered_ = choice_.escape;
        QMessageBox::reject();
    }

protected:
    // The toolkit takes "No" for the way out of a Yes/No box; here there is none.
    void closeEvent(QCloseEvent* event) override {
        event->ignore();
        reject();
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape)
            reject();
        else
            QMessageBox::keyPressEvent(event);
    }

private:
    const Choice& choice_;
    std::optional<Answer> answered_;
};

} // namespace

const std::vector<Answer>& detail::answersOf(Buttons buttons) {
    return choiceFor(buttons).answers;
}

void messageBeep(SystemIcon icon) {
    // The desktop knows one sound.
    if (answers())
        answers()->beep(icon);
    else
        QApplication::beep();
}

Answer messageBox(WindowHandle owner, std::string_view text, std::string_view title, Buttons buttons,
                  SystemIcon icon) {
    const Choice& choice = choiceFor(buttons);
    auto* box = new PlainBox(ownerWidget(owner), choice);
    box->setIcon(toIcon(icon));
    box->setWindowTitle(toQt(title));
    box->setText(toQt(text));
    Modal modal("message box", owner, box, {}, std::string(text));
    modal.show();
    if (answers()) return answers()->messageBox(std::string(text), buttons);
    const QPointer<PlainBox> open = box;
    modal.waitUntil([&] { return open && open->answer(); });
    if (const auto answer = open ? open->answer() : std::nullopt) return *answer;
    // Taken away unanswered (the program ends): the answer that changes least.
    return choice.escape.value_or(choice.answers.back());
}

} // namespace platform
