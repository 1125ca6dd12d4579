#include <gtest/gtest.h>

#include "vlnFileFactory.h"
#include "vlnHtmlRequest.h"
#include "vlnSchemaSubDirectory.h"
#include "vln_exception_handler.h"
#include "vln_get_product_attribute.h"
#include "vln_putenv.h"
#include "vln_shared_library_extension.h"
#include "vln_sprintf.h"

// Linked against the library as an application is: a name that is hidden by mistake does not link.
TEST(Exports, FreeFunctionsAndConstantsLink) {
  char text[8];
  EXPECT_EQ(vln::sprintf(text, "%d", 12), 2);
  EXPECT_EQ(vln_putenv(""), 0);
  EXPECT_EQ(vln_get_product_attribute("A B  C\t"), "ABC\t");
  EXPECT_EQ(vln_exception_handler(velabsAppInfo("", "", "", "", "")), 1);
  EXPECT_EQ(vln_shared_library_extension(), apString(L"dll"));
  EXPECT_EQ(vln_schema_name(vlnSchemaTranslators), "translators");
  EXPECT_EQ(vlnVLNFILEFACTORY, "vlnFile_factory");
  EXPECT_EQ(vlnINTERNET_UTEST_SECURITY_FAILURE, "INTERNET_UTEST_SECURITY_FAILURE");
  EXPECT_EQ(vlnINTERNET_UTEST_CONNECTION_FAILURE, "INTERNET_UTEST_CONNECTION_FAILURE");
}
