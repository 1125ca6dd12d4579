#include <gtest/gtest.h>

#include "vlnFileFactory.h"
#include "vlnHtmlRequest.h"
#include "vlnSchemaSubDirectory.h"
#include "vln_shared_library_extension.h"

// Linked against the library as an application is: a name that is hidden by mistake does not link. What the other
// tests of this program call is proven by them.
TEST(Exports, FreeFunctionsAndConstantsLink) {
  EXPECT_EQ(vln_shared_library_extension(), apString(L"dll"));
  EXPECT_EQ(vln_schema_name(vlnSchemaTranslators), "translators");
  EXPECT_EQ(vlnVLNFILEFACTORY, "vlnFile_factory");
  EXPECT_EQ(vlnINTERNET_UTEST_SECURITY_FAILURE, "INTERNET_UTEST_SECURITY_FAILURE");
  EXPECT_EQ(vlnINTERNET_UTEST_CONNECTION_FAILURE, "INTERNET_UTEST_CONNECTION_FAILURE");
}
