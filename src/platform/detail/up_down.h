#pragma once
// The two arrows inside the right end of an edit, and what may be typed into an edit.

#include <QLineEdit>
#include <QToolButton>
#include <QValidator>

namespace platform::detail {

// Limits by bytes of Shift-JIS and, for numbers, by kind of character. One for each edit that has a limit.
class EditRule : public QValidator {
public:
    static EditRule* of(QLineEdit* edit); // made when there is none

    int maxBytes = -1; // -1: no limit
    bool digitsOnly = false;
    bool minusAllowed = false;

    State validate(QString& text, int& position) const override;

private:
    using QValidator::QValidator;
};

class UpDown : public QObject {
public:
    static UpDown* of(QLineEdit* edit); // made when there is none
    static UpDown* find(const QLineEdit* edit);

    void setRange(int low, int high, int step);
    QToolButton* arrow(bool up) const { return up ? up_ : down_; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    explicit UpDown(QLineEdit* edit);
    QToolButton* makeArrow(bool up);
    void move(int steps);
    void layOut();

    QLineEdit* edit_;
    QToolButton *up_, *down_;
    int low_ = 0, high_ = 100, step_ = 1;
};

} // namespace platform::detail
