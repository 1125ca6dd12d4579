#include <gtest/gtest.h>

#include <cstdlib>

#include "apAssertionReporter.h"
#include "apEnvironmentVariables.h"
#include "vlnFileFactory.h"
#include "vlnHtmlRequest.h"
#include "vlnSchemaSubDirectory.h"
#include "vln_exception_handler.h"
#include "vln_get_product_attribute.h"
#include "vln_putenv.h"
#include "vln_shared_library_extension.h"
#include "vln_sprintf.h"

TEST(Process, PutenvSetsBothViewsOfTheEnvironment) {
  std::string assignment = "VEL_TEST_VARIABLE=one=two";
  EXPECT_NE(vln_putenv(assignment.c_str()), 0);
  // The text belongs to the caller again.
  assignment.assign(assignment.size(), 'x');
  EXPECT_STREQ(std::getenv("VEL_TEST_VARIABLE"), "one=two");
  EXPECT_EQ(apEnvironmentVariables().get(L"VEL_TEST_VARIABLE"), apString(L"one=two"));

  struct Case {
    const char* assignment;
    int good;
    const char* value;
  } cases[] = {{"VEL_TEST_VARIABLE=", 1, ""},
               {"VEL_TEST_VARIABLE=b\xff", 1, "b\xff"},
               {"VEL_TEST_VARIABLE", 1, ""},
               {"=VEL_TEST_VARIABLE", 0, ""},
               {"", 0, ""},
               {nullptr, 0, ""}};
  for (const auto& c : cases) {
    EXPECT_EQ(vln_putenv(c.assignment) != 0, c.good != 0) << (c.assignment ? c.assignment : "null");
    EXPECT_STREQ(std::getenv("VEL_TEST_VARIABLE"), c.value);
  }
  unsetenv("VEL_TEST_VARIABLE");
}

TEST(Process, TheExceptionHandlerReportsOnlyToDevelopers) {
  const velabsAppInfo info("test", "1", "test", "nobody", "UTF-8");
  std::vector<std::string> reports;
  const auto before = apAssertionReporter::set_sink([&](const apAssertion& assertion) {
    reports.push_back(std::string(assertion.source) + " " + std::to_string(assertion.line) + " " + assertion.message +
                      " " + assertion.function + " " + assertion.condition);
  });
  unsetenv("MIRA_ASSERT");
  EXPECT_EQ(vln_exception_handler(info), 1);
  EXPECT_TRUE(reports.empty());
  for (const char* value : {"", "0"}) {
    setenv("MIRA_ASSERT", value, 1);
    EXPECT_EQ(vln_exception_handler(info), 0);
  }
  unsetenv("MIRA_ASSERT");
  apAssertionReporter::set_sink(before);
  ASSERT_EQ(reports.size(), 2u);
  EXPECT_EQ(reports[0], "vln_exception_handler 66 Exception handler has been executed vln_exception_handler utFALSE");
}

TEST(Process, SmallHelpersAndNamesAreExported) {
  char text[8];
  EXPECT_EQ(vln::sprintf(text, "%d", 12), 2);
  EXPECT_EQ(vln_get_product_attribute("A B  C\t"), "ABC\t");
  EXPECT_EQ(vln_shared_library_extension(), apString(L"dll"));
  EXPECT_EQ(vln_schema_name(vlnSchemaTranslators), "translators");
  EXPECT_EQ(vlnVLNFILEFACTORY, "vlnFile_factory");
  EXPECT_EQ(vlnINTERNET_UTEST_SECURITY_FAILURE, "INTERNET_UTEST_SECURITY_FAILURE");
  EXPECT_EQ(vlnINTERNET_UTEST_CONNECTION_FAILURE, "INTERNET_UTEST_CONNECTION_FAILURE");
}
