#include "foundation/linked_list.h"

#include <gtest/gtest.h>

namespace zelkova {
namespace {

TEST(LinkedList, KeepsItemsInPlace) {
    int items[4] = {};
    LinkedList list;
    EXPECT_EQ(list.insert(&items[0], 0), -1) << "not ready yet";
    EXPECT_EQ(list.get(0), nullptr);
    EXPECT_EQ(list.initialise(), 1);
    EXPECT_EQ(list.initialise(), 0);
    EXPECT_EQ(list.append(&items[1]), 0);
    EXPECT_EQ(list.insert(&items[0], 0), 0);
    EXPECT_EQ(list.append(&items[3]), 0);
    EXPECT_EQ(list.insert(&items[2], 2), 0);
    EXPECT_EQ(list.insert(&items[0], 5), -1);
    EXPECT_EQ(list.insert(&items[0], -1), -1);
    ASSERT_EQ(list.size(), 4);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(list.get(i), &items[i]) << i;

    EXPECT_EQ(list.swap(0, 3), 0);
    EXPECT_EQ(list.swap(0, 4), -1);
    EXPECT_EQ(list.get(0), &items[3]);
    EXPECT_EQ(list.remove(4), -1);
    EXPECT_EQ(list.remove(1), 0);
    EXPECT_EQ(list.get(1), &items[2]);
    EXPECT_EQ(list.removeAll(), 0);
    EXPECT_EQ(list.size(), 0);
    EXPECT_EQ(list.append(&items[0]), 0);
    list.destroy();
    EXPECT_EQ(list.append(&items[0]), -1);
    EXPECT_EQ(list.initialise(), 1);
}

} // namespace
} // namespace zelkova
