// linked_list.h - a plain singly linked list with head and tail, which owns its items.
//
// Made for lists that grow at the end and are emptied from the front, such as the array curves of a run
// (Observations::obsCurves of run/system_state.h).
#pragma once

#include <memory>
#include <utility>

namespace sondera {

template <class T>
struct LList {
  struct Node {
    std::unique_ptr<T> item;
    Node* next = nullptr;
  };
  /// Walks the items for a range-based loop.
  struct Iterator {
    Node* node;
    T& operator*() const { return *node->item; }
    Iterator& operator++() {
      node = node->next;
      return *this;
    }
    bool operator!=(const Iterator& other) const { return node != other.node; }
  };

  Node* head = nullptr;
  Node* tail = nullptr;

  LList() = default;
  LList(LList&& other) noexcept
      : head(std::exchange(other.head, nullptr)), tail(std::exchange(other.tail, nullptr)) {}
  LList& operator=(LList&& other) noexcept {
    std::swap(head, other.head);
    std::swap(tail, other.tail);
    return *this;
  }
  ~LList() {  // node by node: a long list must not become a deep recursion
    while (head != nullptr) delete std::exchange(head, head->next);
  }

  bool empty() const { return head == nullptr; }
  T& front() const { return *head->item; }  ///< of a list that is not empty
  Iterator begin() const { return {head}; }
  Iterator end() const { return {nullptr}; }
};

/// An empty list.
template <class T>
std::unique_ptr<LList<T>> LListAlloc() {
  return std::make_unique<LList<T>>();
}

/// Frees every item, then the list. A null list stays null.
template <class T>
void LListFree(std::unique_ptr<LList<T>>& list) {
  list.reset();
}

/// Inserts an item after the node `after`, or at the head when `after` is null. The tail changes when `after`
/// was the tail, or the list was empty. @return the new node
template <class T>
typename LList<T>::Node* PtrInsertlist(LList<T>& list, std::unique_ptr<T> item,
                                       typename LList<T>::Node* after) {
  auto* node = new typename LList<T>::Node{std::move(item), after != nullptr ? after->next : list.head};
  (after != nullptr ? after->next : list.head) = node;
  if (list.tail == after) list.tail = node;  // both null in an empty list
  return node;
}

/// Appends an item. @return the new node
template <class T>
typename LList<T>::Node* PtrEnlist(LList<T>& list, std::unique_ptr<T> item) {
  return PtrInsertlist(list, std::move(item), list.tail);
}

/// Removes the first item and returns it; null from an empty list.
template <class T>
std::unique_ptr<T> PtrDelist(LList<T>& list) {
  if (list.head == nullptr) return nullptr;
  const std::unique_ptr<typename LList<T>::Node> first(std::exchange(list.head, list.head->next));
  if (list.head == nullptr) list.tail = nullptr;
  return std::move(first->item);
}

}  // namespace sondera
