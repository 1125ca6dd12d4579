#include "exaReadOptions.h"

#include "utBool.h"

exaReadOptions exa_read_options(const velTableInstance& resources) {
  exaReadOptions options;
  options.colours = resources.value<utBool>("READ_MATERIALS", utTRUE) == utTRUE;
  options.allow_gaps = resources.value<utBool>("ALLOW_GAPS", utFALSE) == utTRUE;
  options.types = resources.value<velTypeOption>("ENTITY_TYPES", velTYPE_ALL);
  return options;
}
