#pragma once

#include <Interface_InterfaceModel.hxx>
#include <Interface_Protocol.hxx>
#include <cstddef>
#include <functional>
#include <string>

// Looks at which entities of a parsed file are made of which others before the kernel makes curves and faces of them:
// it follows a curve that stands in itself until the process ends, and makes a piece anew each time that it is named.

constexpr std::size_t exa_most_entity_levels = 1'000;
// Files name a piece of geometry a few times; what a small one may repeat comes on top.
constexpr double exa_most_uses_of_entity = 20, exa_most_free_uses = 2'000'000;

// What is wrong as the end of a sentence that begins with "it"; nothing when all can be walked through. Only entities
// that are geometry are looked at, and references between them. The time grows with their number.
std::string exa_geometry_fault(const Handle(Interface_InterfaceModel) & model,
                               const Handle(Interface_Protocol) & protocol,
                               const std::function<bool(const Standard_Transient&)>& is_geometry);
