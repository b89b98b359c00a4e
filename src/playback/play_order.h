#pragma once
// Which row of the player's list comes next, and what was played before it.

#include <cstddef>
#include <string>
#include <vector>

#include "playback/shuffle_bag.h"

enum class NextRow : int { InOrder, Random, Loop };

class PlayOrder {
public:
    // The catalogue number of each row. With none, only isEmpty() and goTo() may be called.
    explicit PlayOrder(std::vector<int> numbers) : numbers_(std::move(numbers)) {}

    bool isEmpty() const { return numbers_.empty(); }
    int rowCount() const { return static_cast<int>(numbers_.size()); }
    int currentRow() const { return static_cast<int>(current_); } // 0 at first
    int previousRow() const { return static_cast<int>(previous_); }
    int number() const { return numbers_[current_]; } // of the current row

    void choose(NextRow method) { method_ = method; }
    // When so many rows have ended by themselves, each that can come has come.
    int roundLength() const;
    void goTo(int row); // a row that is not there changes nothing

    // A row has ended by itself.
    void afterEnd();
    // On request: the next one also in a loop.
    void forward();
    // One row up, from the first to the last; in random order along the history, while that reaches.
    void back();

    // The current row is played now.
    void notePlayed();
    // The numbers that were played, the first at the left, as many as are kept.
    std::string historyText() const;

private:
    void moveTo(std::size_t row);

    std::vector<int> numbers_;
    NextRow method_ = NextRow::InOrder;
    std::size_t current_ = 0, previous_ = 0;
    ShuffleBag shuffleBag_;
    std::vector<int> playedHistory_; // catalogue numbers, no two alike side by side
};
