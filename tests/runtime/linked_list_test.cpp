// Tests of the linked list: order, tail, hand-over of items, release.
#include "runtime/linked_list.h"

#include <gtest/gtest.h>

#include <vector>

namespace sondera {
namespace {

/// Counts the existing items.
struct Item {
  explicit Item(int v) : value(v) { ++living; }
  ~Item() { --living; }
  Item(const Item&) = delete;
  Item& operator=(const Item&) = delete;
  int value;
  static int living;
};
int Item::living = 0;

std::unique_ptr<Item> Make(int v) {
  return std::make_unique<Item>(v);
}

std::vector<int> ValuesOf(const LList<Item>& list) {
  std::vector<int> values;
  for (auto* node = list.head; node != nullptr; node = node->next) values.push_back(node->item->value);
  return values;
}

TEST(LListAlloc, MakesAnEmptyList) {
  const auto list = LListAlloc<Item>();
  EXPECT_EQ(list->head, nullptr);
  EXPECT_EQ(list->tail, nullptr);
}

TEST(PtrEnlist, AppendsAndMovesTheTail) {
  LList<Item> list;
  for (int v : {7, 3, 5}) EXPECT_EQ(PtrEnlist(list, Make(v)), list.tail);
  EXPECT_EQ(ValuesOf(list), (std::vector<int>{7, 3, 5}));
  EXPECT_EQ(list.tail->item->value, 5);
  EXPECT_EQ(list.tail->next, nullptr);
}

TEST(PtrDelist, HandsOverTheFirstItemUntilNoneIsLeft) {
  LList<Item> list;
  for (int v : {7, 3}) PtrEnlist(list, Make(v));
  EXPECT_EQ(PtrDelist(list)->value, 7);
  EXPECT_EQ(PtrDelist(list)->value, 3);
  EXPECT_EQ(list.tail, nullptr);
  EXPECT_EQ(PtrDelist(list), nullptr);
  PtrEnlist(list, Make(11));  // an emptied list works like a new one
  EXPECT_EQ(ValuesOf(list), (std::vector<int>{11}));
}

TEST(PtrInsertlist, PutsAnItemAtTheHeadWithoutANode) {
  LList<Item> list;
  EXPECT_EQ(PtrInsertlist(list, Make(2), nullptr), list.tail);  // first of all: head and tail
  PtrInsertlist(list, Make(1), nullptr);
  EXPECT_EQ(ValuesOf(list), (std::vector<int>{1, 2}));
  EXPECT_EQ(list.tail->item->value, 2);
}

TEST(PtrInsertlist, PutsAnItemBehindANodeInTheMiddle) {
  LList<Item> list;
  auto* first = PtrEnlist(list, Make(1));
  PtrEnlist(list, Make(3));
  PtrInsertlist(list, Make(2), first);
  EXPECT_EQ(ValuesOf(list), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(list.tail->item->value, 3);
}

TEST(PtrInsertlist, MovesTheTailWhenItWasTheNode) {
  LList<Item> list;
  PtrEnlist(list, Make(1));
  PtrInsertlist(list, Make(2), list.tail);
  EXPECT_EQ(list.tail->item->value, 2);
  PtrEnlist(list, Make(3));
  EXPECT_EQ(ValuesOf(list), (std::vector<int>{1, 2, 3}));
}

TEST(LListFree, FreesEveryItemOfALongList) {
  auto list = LListAlloc<Item>();
  for (int v = 0; v < 500000; ++v) PtrEnlist(*list, Make(v));
  EXPECT_EQ(Item::living, 500000);
  LListFree(list);
  EXPECT_EQ(Item::living, 0);
  EXPECT_EQ(list, nullptr);
  LListFree(list);  // a second call is harmless
}

TEST(LList, WalksItsItemsAndKnowsWhetherThereAreAny) {
  LList<Item> list;
  EXPECT_TRUE(list.empty());
  for (int v : {7, 3}) PtrEnlist(list, Make(v));
  EXPECT_FALSE(list.empty());
  EXPECT_EQ(list.front().value, 7);
  std::vector<int> values;
  for (const Item& item : list) values.push_back(item.value);
  EXPECT_EQ(values, (std::vector<int>{7, 3}));
}

TEST(LList, MoveTakesTheItemsAlong) {
  {
    LList<Item> list;
    for (int v : {7, 3}) PtrEnlist(list, Make(v));
    LList<Item> other = std::move(list);
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(ValuesOf(other), (std::vector<int>{7, 3}));
    EXPECT_EQ(other.tail->item->value, 3);
    other = LList<Item>();
    EXPECT_TRUE(other.empty());
  }
  EXPECT_EQ(Item::living, 0);
}

}  // namespace
}  // namespace sondera
