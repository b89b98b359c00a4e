#include "foundation/linked_list.h"

#include <new>
#include <utility>

namespace zelkova {

std::int32_t LinkedList::initialise() {
    if (initialised_ != 0) return 0;
    head_ = new (std::nothrow) Node;
    tail_ = new (std::nothrow) Node;
    if (!head_ || !tail_) {
        delete std::exchange(head_, nullptr);
        delete std::exchange(tail_, nullptr);
        return -1;
    }
    head_->next = tail_;
    tail_->prev = head_;
    initialised_ = 1;
    return 1;
}

LinkedList::Node* LinkedList::at(std::int32_t position) const {
    if (position < 0 || position >= count_) return nullptr;
    Node* node = head_->next;
    while (position-- > 0)
        node = node->next;
    return node;
}

std::int32_t LinkedList::insert(void* item, std::int32_t position) {
    if (initialised_ == 0 || position < 0 || position > count_) return -1;
    Node* before = position == 0 ? head_ : at(position - 1);
    Node* node = new (std::nothrow) Node{before, before->next, item};
    if (!node) return -2;
    before->next->prev = node;
    before->next = node;
    ++count_;
    return 0;
}

std::int32_t LinkedList::remove(std::int32_t position) {
    Node* node = at(position);
    if (!node) return -1;
    node->prev->next = node->next;
    node->next->prev = node->prev;
    delete node;
    --count_;
    return 0;
}

std::int32_t LinkedList::removeAll() {
    while (count_ > 0)
        if (remove(0) != 0) return -1;
    return 0;
}

std::int32_t LinkedList::swap(std::int32_t first, std::int32_t second) {
    Node* a = at(first);
    Node* b = at(second);
    if (!a || !b) return -1;
    std::swap(a->item, b->item);
    return 0;
}

void* LinkedList::get(std::int32_t position) const {
    const Node* node = at(position);
    return node ? node->item : nullptr;
}

void LinkedList::destroy() {
    for (Node* node = tail_; node;)
        delete std::exchange(node, node->prev);
    head_ = tail_ = nullptr;
    count_ = initialised_ = 0;
}

} // namespace zelkova
