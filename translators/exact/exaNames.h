#pragma once

#include <TDF_Label.hxx>

#include "utString.h"

// Names in a document of the kernel, and which of them the kernel made.

// The name of a label; null when it has none.
utString exa_name_of(const TDF_Label& label);

// True for an empty name, and for that of a component without a name: the kernel names it after the label that it
// refers to.
bool exa_is_generated(const utString& name);

// True for the name of a shape without a product: the kernel names it after its type.
bool exa_is_shape_type(const utString& name);

// False for a missing name of an instance, and for its identifier, which the kernel uses then: writers often number
// instances there.
bool exa_names_instance(const utString& name);
