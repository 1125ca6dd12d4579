#include "vlnStringTable.h"

coTable<utString, std::unique_ptr<vlnStringTable>> vlnStringTable::s_tables;

vlnStringTable::vlnStringTable(const char* name) {
  s_tables.put(name, std::unique_ptr<vlnStringTable>(this));
}

void vlnStringTable::add_string(unsigned int id, const char* text) {
  strings_.put(id, text);
}

utString vlnStringTable::find_string(unsigned int id) const {
  const utString* text = strings_.find(id);
  return text ? *text : "";
}

utString vlnStringTable::find_string(const char* table_name, unsigned int id) {
  const std::unique_ptr<vlnStringTable>* table = s_tables.find(table_name);
  return table ? (*table)->find_string(id) : "";
}
