#include <cstdio>

#include "apStringEncodingChooser.h"
#include "velabsLibInput.h"
#include "vlnSearchPath.h"

// Prints the interface that it was built for and a path that went through both libraries.
int main() {
  const vlnSearchPath path(apString(L"/a;/b"));
  std::printf("%d %s\n", velabs_interface, path.ut_path_string(apStringEncodingChooser().ut_encoding()).c_str());
}
