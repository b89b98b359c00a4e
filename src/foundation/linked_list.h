#pragma once

#include <cstdint>

namespace zelkova {

// The list of opaque items that window code hangs on a control. It owns its nodes, never what an item points
// at. Positions count from 0; nothing works before initialise().
class LinkedList {
public:
    LinkedList() = default;
    ~LinkedList() { destroy(); }
    LinkedList(const LinkedList&) = delete;
    LinkedList& operator=(const LinkedList&) = delete;

    // 1, or 0 when it was done before, -1 when memory runs out.
    std::int32_t initialise();
    // 0, -1 when the position lies behind the end (or before the front), -2 when memory runs out.
    std::int32_t insert(void* item, std::int32_t position);
    std::int32_t append(void* item) { return insert(item, count_); }
    // These answer 0, or -1 when there is no such node.
    std::int32_t remove(std::int32_t position);
    std::int32_t removeAll();
    std::int32_t swap(std::int32_t first, std::int32_t second);
    // Null when there is no such node.
    void* get(std::int32_t position) const;
    std::int32_t size() const { return count_; }
    void destroy();

private:
    struct Node {
        Node* prev = nullptr;
        Node* next = nullptr;
        void* item = nullptr;
    };

    Node* at(std::int32_t position) const;

    std::int32_t initialised_ = 0;
    std::int32_t count_ = 0;
    Node* head_ = nullptr;
    Node* tail_ = nullptr;
};

} // namespace zelkova
