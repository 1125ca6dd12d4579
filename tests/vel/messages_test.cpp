#include "velMessages.h"

#include <gtest/gtest.h>

#include "vlnStringTable.h"

TEST(Messages, ValuesAreFilledInOnceAndAnotherTableOfTheirNameTakesOver) {
  EXPECT_EQ(vel_text(velMSG_CACHE_WRITTEN, {"%2", "100 %1"}), "%2: 100 %1 written.");
  EXPECT_EQ(vel_text(velMSG_CACHE_WRITTEN, {"only one"}), "only one: %2 written.");
  EXPECT_EQ(vel_counted(1, velMSG_VERTEX) + ", " + vel_counted(0, velMSG_VERTEX), "1 vertex, 0 vertices");
  auto* other = new vlnStringTable("vel_messages");
  other->add_string(velMSG_INPUT_MISSING, "%2 (%1) %");
  EXPECT_EQ(vel_text(velMSG_INPUT_MISSING, {"a", "b"}), "b (a) %");
  EXPECT_EQ(vel_text(velMSG_PART), "");
}
