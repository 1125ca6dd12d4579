#pragma once

#include <memory>

#include "coTable.h"
#include "utString.h"
#include "vlnExport.h"

// Numbered strings in a named table that any component can look up. Tables are created with `new` and then owned by the
// process's registry, until the process ends or a table of the same name replaces them.
//
//   auto* messages = new vlnStringTable("messages");
//   messages->add_string(1, "no such file");
//   vlnStringTable::find_string("messages", 1);
class VLN_API vlnStringTable {
 public:
  // Destroys an earlier table of that name.
  explicit vlnStringTable(const char* name);

  // Replaces an earlier string with that number.
  void add_string(unsigned int id, const char* text);

  // Returns "" if the number or the table does not exist.
  utString find_string(unsigned int id) const;
  static utString find_string(const char* table_name, unsigned int id);

 private:
  coTable<unsigned int, utString> strings_{50};
  static coTable<utString, std::unique_ptr<vlnStringTable>> s_tables;
};
