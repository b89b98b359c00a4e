#include "playback/play_order.h"

#include <algorithm>

#include "foundation/text.h"

namespace {

// More than an evening's songs. Rows without a length end at once, so a forgotten player would fill any
// memory.
constexpr std::size_t longestHistory = 500;

} // namespace

void PlayOrder::moveTo(std::size_t row) {
    previous_ = current_;
    current_ = row;
}

void PlayOrder::goTo(int row) {
    if (row >= 0 && row < rowCount()) moveTo(static_cast<std::size_t>(row));
}

void PlayOrder::afterEnd() {
    if (method_ == NextRow::Loop)
        moveTo(current_);
    else
        forward();
}

int PlayOrder::roundLength() const {
    switch (method_) {
    case NextRow::Loop:
        return 1;
    case NextRow::Random:
        return 2 * rowCount(); // what is left of one bag, and the next one
    case NextRow::InOrder:
        break;
    }
    return rowCount();
}

void PlayOrder::forward() {
    moveTo(method_ == NextRow::Random ? shuffleBag_.draw(numbers_, current_)
                                      : (current_ + 1) % numbers_.size());
}

void PlayOrder::back() {
    if (method_ == NextRow::Random && playedHistory_.size() > 1) {
        playedHistory_.pop_back();
        const auto before = std::ranges::find(numbers_, playedHistory_.back());
        moveTo(static_cast<std::size_t>(before - numbers_.begin()));
    } else {
        moveTo((current_ + numbers_.size() - 1) % numbers_.size());
    }
}

void PlayOrder::notePlayed() {
    if (!playedHistory_.empty() && playedHistory_.back() == number()) return;
    if (playedHistory_.size() == longestHistory) playedHistory_.erase(playedHistory_.begin());
    playedHistory_.push_back(number());
}

std::string PlayOrder::historyText() const {
    std::string text;
    for (const int each : playedHistory_) {
        if (!text.empty()) text += "←";
        text += zelkova::numberToText(each);
    }
    return text;
}
