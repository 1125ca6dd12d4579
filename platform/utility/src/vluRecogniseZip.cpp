// Archives, recognised by the names of their entries.

#include <algorithm>
#include <string_view>

#include "vluRecognisers.h"

namespace {

std::size_t number_at(std::string_view bytes, std::size_t place) {
  return static_cast<unsigned char>(bytes[place]) |
         static_cast<std::size_t>(static_cast<unsigned char>(bytes[place + 1])) << 8;
}

struct HeaderForm {
  std::string_view signature;
  std::size_t length_at;
  std::size_t name_at;
};
constexpr HeaderForm local_header{{"PK\3\4", 4}, 26, 30};
constexpr HeaderForm directory_header{{"PK\1\2", 4}, 28, 46};

// Calls `use` with the name in every header of one form within `bytes`.
template <typename Use>
void for_each_name(std::string_view bytes, const HeaderForm& form, Use use) {
  for (std::size_t at = bytes.find(form.signature); at != bytes.npos; at = bytes.find(form.signature, at + 4)) {
    if (at + form.name_at > bytes.size()) return;
    use(bytes.substr(at + form.name_at, number_at(bytes, at + form.length_at)));
  }
}

bool same_but_case(char a, char b) {
  return (a >= 'A' && a <= 'Z' ? a + 32 : a) == b;
}

// Compares with the start of `name`, ignoring case; `front` is in lower case.
bool begins_with(std::string_view name, std::string_view front) {
  return name.size() >= front.size() && std::equal(front.begin(), front.end(), name.begin(),
                                                   [](char lower, char any) { return same_but_case(any, lower); });
}

}  // namespace

vluSureness vlu_sure_of_3mf(const vluFileSample& sample) {
  if (!sample.head().starts_with(local_header.signature)) return vluNO_MARK;
  bool package = false;
  bool model = false;
  bool document = false;
  auto look = [&](std::string_view name) {
    if (name.starts_with('/')) name.remove_prefix(1);
    package |= begins_with(name, "[content_types].xml");
    model |= begins_with(name, "3d/");
    document |= begins_with(name, "word/") || begins_with(name, "xl/") || begins_with(name, "ppt/");
  };
  for_each_name(sample.head(), local_header, look);
  for_each_name(sample.tail(), directory_header, look);
  if (document) return vluNO_MARK;
  if (model) return vluUNMISTAKABLE;
  return package ? vluRESEMBLES : vluNO_MARK;
}
