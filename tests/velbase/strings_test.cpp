#include <gtest/gtest.h>

#include "vlnOrderedStringPairs.h"
#include "vlnStringTable.h"

TEST(StringTable, IsFoundByItsName) {
  auto* table = new vlnStringTable("numbers");
  table->add_string(1, "one");
  table->add_string(4000000000u, "many");
  table->add_string(1, "uno");
  EXPECT_EQ(table->find_string(1), "uno");
  EXPECT_EQ(table->find_string(2), "");
  EXPECT_EQ(vlnStringTable::find_string("numbers", 4000000000u), "many");
  for (const char* name : {"Numbers", "", static_cast<const char*>(nullptr)}) {
    EXPECT_EQ(vlnStringTable::find_string(name, 1), "");
  }

  (new vlnStringTable("numbers"))->add_string(2, "two");
  EXPECT_EQ(vlnStringTable::find_string("numbers", 1), "");
  EXPECT_EQ(vlnStringTable::find_string("numbers", 2), "two");
}

TEST(StringPairs, TranslateBothWaysByTheLatestPair) {
  vlnOrderedStringPairs pairs;
  for (const auto& [one, two] : {std::pair("a", "x"), {"b", "x"}, {"a", "y"}}) pairs.add_pair(one, two);
  EXPECT_TRUE(pairs.string1("x") == "b" && pairs.string1("y") == "a");
  EXPECT_TRUE(pairs.string2("a") == "y" && pairs.string2("b") == "x" && pairs.string2("x") == "");
  EXPECT_EQ(&pairs.string1("none"), &pairs.string2("none"));

  // Answers stay where they are however many pairs follow.
  const utString& kept = pairs.string1("x");
  for (int i = 0; i < 1000; ++i) pairs.add_pair(std::to_string(i), "n" + std::to_string(i));
  EXPECT_EQ(&kept, &pairs.string1("x"));
  EXPECT_EQ(pairs.string2("999"), "n999");
  std::string walk;
  auto all = pairs.iterator();
  for (int i = 0; i < 4 && ++all; ++i) walk += all().string1().str() + all().string2().str() + " ";
  EXPECT_EQ(walk, "ax bx ay 0n0 ");
}
