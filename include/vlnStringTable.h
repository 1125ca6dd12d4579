#pragma once

#include <memory>

#include "coTable.h"
#include "utString.h"
#include "vlnExport.h"

// Numbered strings under a name by which any component finds them. Tables are made with `new`; the process's registry
// owns them from then on, until the end or until a table of the same name takes their place.
//
//   auto* messages = new vlnStringTable("messages");
//   messages->add_string(1, "no such file");
//   vlnStringTable::find_string("messages", 1);
class VLN_API vlnStringTable {
 public:
  // Destroys an earlier table of that name.
  explicit vlnStringTable(const char* name);

  // Takes the place of an earlier string under that number.
  void add_string(unsigned int id, const char* text);

  // "" when there is no such number, or no such table.
  utString find_string(unsigned int id) const;
  static utString find_string(const char* table_name, unsigned int id);

 private:
  coTable<unsigned int, utString> strings_{50};
  static coTable<utString, std::unique_ptr<vlnStringTable>> s_tables;
};
