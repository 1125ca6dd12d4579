#pragma once

#include "apExport.h"
#include "coResourceTable.h"

// The process's table: every resource that the suite knows, with its type and its default. Complete at its first use.
// What each key means stands in the resource files of the translators that honour it.
VELPLATFORM_API coResourceTable& vel_resource_table_inquire();
