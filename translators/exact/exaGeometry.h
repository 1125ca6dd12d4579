#pragma once

#include <Interface_InterfaceModel.hxx>
#include <Interface_Protocol.hxx>
#include <cstddef>
#include <functional>
#include <string>

// Checks how the geometry entities of a parsed file refer to each other, before the kernel makes curves and faces of
// them. The kernel never returns from a curve that contains itself, and makes a new copy for each reference.

constexpr std::size_t exa_most_entity_levels = 1'000;
// Files refer to a piece of geometry a few times. Small files may repeat it more often.
constexpr double exa_most_uses_of_entity = 20, exa_most_free_uses = 2'000'000;

// The error as the end of a sentence that begins with "it"; empty when all entities can be traversed. Only geometry
// entities and the references between them are checked. The time is linear in their number.
std::string exa_geometry_fault(const Handle(Interface_InterfaceModel) & model,
                               const Handle(Interface_Protocol) & protocol,
                               const std::function<bool(const Standard_Transient&)>& is_geometry);
