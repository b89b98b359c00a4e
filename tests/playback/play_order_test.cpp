#include "playback/play_order.h"

#include <map>
#include <set>

#include <gtest/gtest.h>

#include "foundation/random.h"

namespace {

// Catalogue numbers with gaps, as deleted entries leave them.
std::vector<int> numbersOf(int rows) {
    std::vector<int> numbers(static_cast<std::size_t>(rows));
    for (int row = 0; row < rows; ++row)
        numbers[static_cast<std::size_t>(row)] = row * 3 + 7;
    return numbers;
}

TEST(ShuffleBag, EveryRowComesOnceInARound) {
    for (unsigned seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE(seed);
        zelkova::randomBetween(0, 1); // seeds itself at the first call
        std::srand(seed);
        const int rows = zelkova::randomBetween(2, 40);
        const std::vector<int> numbers = numbersOf(rows);
        ShuffleBag bag;
        std::size_t current = static_cast<std::size_t>(zelkova::randomBetween(0, rows - 1));
        for (int round = 0; round < 3; ++round) {
            // The row in hand at the refill has had its turn.
            std::set<std::size_t> due;
            for (std::size_t row = 0; row < numbers.size(); ++row)
                if (row != current) due.insert(row);
            while (!due.empty()) {
                const std::size_t row = bag.draw(numbers, current);
                ASSERT_NE(row, current);
                ASSERT_EQ(due.erase(row), 1u) << "row " << row << " came again";
                current = row;
            }
        }
    }
}

TEST(ShuffleBag, EveryRowCanComeFirst) {
    zelkova::randomBetween(0, 1);
    std::srand(1);
    const std::vector<int> numbers = numbersOf(4);
    std::map<std::size_t, int> first;
    for (int i = 0; i < 300; ++i)
        ++first[ShuffleBag().draw(numbers, 2)];
    EXPECT_EQ(first.size(), 3u);
    for (const auto& [row, times] : first)
        EXPECT_GT(times, 60) << row;
}

TEST(ShuffleBag, ASingleRowComesAgainAndAgain) {
    const std::vector<int> numbers{5};
    ShuffleBag bag;
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(bag.draw(numbers, 0), 0u);
}

TEST(PlayOrder, InOrderWrapsBothWays) {
    PlayOrder order(numbersOf(3));
    std::vector<int> rows;
    for (int i = 0; i < 4; ++i) {
        rows.push_back(order.currentRow());
        order.afterEnd();
    }
    EXPECT_EQ(rows, (std::vector{0, 1, 2, 0}));
    EXPECT_EQ(order.currentRow(), 1);
    EXPECT_EQ(order.previousRow(), 0);
    rows.clear();
    for (int i = 0; i < 4; ++i) {
        order.back();
        rows.push_back(order.currentRow());
    }
    EXPECT_EQ(rows, (std::vector{0, 2, 1, 0}));
    order.goTo(3);
    order.goTo(-1);
    EXPECT_EQ(order.currentRow(), 0);
}

TEST(PlayOrder, ALoopHoldsTheEndButNotTheUser) {
    PlayOrder order(numbersOf(3));
    order.choose(NextRow::Loop);
    order.afterEnd();
    EXPECT_EQ(order.currentRow(), 0);
    order.forward();
    EXPECT_EQ(order.currentRow(), 1);
    order.back();
    order.back();
    EXPECT_EQ(order.currentRow(), 2);
}

TEST(PlayOrder, RandomGoesBackTheWayItCame) {
    PlayOrder order(numbersOf(20));
    order.choose(NextRow::Random);
    std::vector<int> way;
    for (int i = 0; i < 8; ++i) {
        way.push_back(order.currentRow());
        order.notePlayed();
        order.forward();
    }
    order.goTo(way.back());
    for (auto row = way.rbegin() + 1; row != way.rend(); ++row) {
        order.back();
        EXPECT_EQ(order.currentRow(), *row);
        order.notePlayed();
    }
    EXPECT_EQ(order.historyText(), "7");
    order.back(); // no way left: the row above the first
    EXPECT_EQ(order.currentRow(), 19);
}

TEST(PlayOrder, TheHistoryTellsWhatWasPlayed) {
    PlayOrder order(numbersOf(3));
    EXPECT_EQ(order.historyText(), "");
    for (const int row : {0, 2, 2, 1, 2}) {
        order.goTo(row);
        order.notePlayed();
    }
    EXPECT_EQ(order.historyText(), "7←13←10←13");
    for (int i = 0; i < 2000; ++i) {
        order.forward();
        order.notePlayed();
    }
    EXPECT_LT(order.historyText().size(), 3000u);
    EXPECT_TRUE(order.historyText().ends_with("←" + std::to_string(order.number())));
}

} // namespace
