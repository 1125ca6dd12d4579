#include <cstdlib>
#include <string>
#include <string_view>

#include "apAssertionReporter.h"
#include "apEnvironmentVariables.h"
#include "apStringEncodingChooser.h"
#include "vln_exception_handler.h"
#include "vln_get_product_attribute.h"
#include "vln_putenv.h"

int vln_putenv(const char* assignment) {
  const std::string_view text = assignment ? assignment : "";
  const std::size_t equals = text.find('=');
  const std::string name(text.substr(0, equals));
  const std::string value(equals == text.npos ? std::string_view() : text.substr(equals + 1));
  if (name.empty()) return 0;
  setenv(name.c_str(), value.c_str(), 1);

  const apIStringEncoding* encoding = apStringEncodingChooser().ut_encoding();
  apStatus conversion;
  const apString wide_name = encoding->to_apString(name, conversion);
  const apString wide_value = encoding->to_apString(value, conversion);
  if (!conversion.ok()) return 0;
  return apEnvironmentVariables().put(wide_name, wide_value);
}

utString vln_get_product_attribute(const utString& attribute) {
  std::string text = attribute.str();
  std::erase(text, ' ');
  return text;
}

int vln_exception_handler(const velabsAppInfo& info) {
  const apString name = info.ut_encoding()->to_apString("MIRA_ASSERT");
  if (apEnvironmentVariables().get(name).invalid()) return 1;
  apAssertionReporter::report("vln_exception_handler", 66, "Exception handler has been executed",
                              "vln_exception_handler", "utFALSE");
  return 0;
}
