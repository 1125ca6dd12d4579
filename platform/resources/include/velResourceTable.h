#pragma once

#include "apExport.h"
#include "coResourceTable.h"

// The process's table: every resource that the suite knows, with its type and its default. Complete at its first use.
// The meaning of each key is described in the resource files of the translators that use it.
VELPLATFORM_API coResourceTable& vel_resource_table_inquire();
