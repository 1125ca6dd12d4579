#include "exaGeometry.h"

#include <Interface_EntityIterator.hxx>
#include <Interface_GeneralLib.hxx>
#include <Interface_GeneralModule.hxx>
#include <TCollection_HAsciiString.hxx>
#include <algorithm>
#include <vector>

namespace {

// Entities have the numbers of the model, from 1.
class Graph {
 public:
  Graph(const Handle(Interface_InterfaceModel) & model, const Handle(Interface_Protocol) & protocol,
        const std::function<bool(const Standard_Transient&)>& is_geometry)
      : model_(*model), counts_(static_cast<std::size_t>(model->NbEntities()) + 1) {
    std::vector<bool> wanted(counts_.size());
    for (std::size_t i = 1; i < counts_.size(); ++i) wanted[i] = is_geometry(*entity(i));
    Interface_GeneralLib library(protocol);
    first_.assign(2, 0);
    for (std::size_t i = 1; i < counts_.size(); ++i) {
      if (wanted[i]) add_references(library, i, wanted);
      first_.push_back(inner_.size());
    }
  }

  // Visits the entities from the outermost inwards, each after all entities that refer to it.
  std::string fault() {
    std::vector<std::size_t> ready;
    for (std::size_t i = 1; i < counts_.size(); ++i) {
      if (counts_[i].outer == 0) ready.push_back(i);
    }
    double uses = 0;
    std::size_t done = 0;
    for (; !ready.empty(); ++done) {
      const std::size_t at = ready.back();
      ready.pop_back();
      const Counts outer = counts_[at];
      if (outer.levels > exa_most_entity_levels) {
        return "makes its geometry of each other, more than " + std::to_string(exa_most_entity_levels) +
               " deep down to " + label(at);
      }
      if (first_[at] != first_[at + 1]) uses += outer.uses;
      for (std::size_t i = first_[at]; i < first_[at + 1]; ++i) {
        Counts& inner = counts_[inner_[i]];
        inner.uses += outer.uses;
        inner.levels = std::max(inner.levels, outer.levels + 1);
        if (--inner.outer == 0) ready.push_back(inner_[i]);
      }
    }
    if (done + 1 < counts_.size()) return "holds " + label(in_circle()) + ", which stands in itself";
    const double most = exa_most_free_uses + exa_most_uses_of_entity * static_cast<double>(done);
    return uses > most ? "repeats the same curves and faces too often to be made" : "";
  }

 private:
  struct Counts {
    std::size_t outer = 0;  // references to it that are not followed yet
    std::size_t levels = 1;
    double uses = 1;
  };

  const Handle(Standard_Transient) & entity(std::size_t number) const { return model_.Value(static_cast<int>(number)); }
  std::string label(std::size_t number) const { return model_.StringLabel(entity(number))->ToCString(); }

  void add_references(Interface_GeneralLib& library, std::size_t number, const std::vector<bool>& wanted) {
    Handle(Interface_GeneralModule) module;
    int kind = 0;
    if (!library.Select(entity(number), module, kind)) return;
    Interface_EntityIterator references;
    module->FillSharedCase(kind, entity(number), references);
    for (references.Start(); references.More(); references.Next()) {
      const auto inner = static_cast<std::size_t>(model_.Number(references.Value()));
      if (!wanted[inner]) continue;
      inner_.push_back(inner);
      ++counts_[inner].outer;
    }
  }

  // All remaining entities are in a cycle or below one, so following the references outwards leads into a cycle.
  std::size_t in_circle() const {
    std::vector<std::size_t> outer(counts_.size());
    std::size_t at = 0;
    for (std::size_t i = 1; i < counts_.size(); ++i) {
      if (counts_[i].outer == 0) continue;
      at = i;
      for (std::size_t k = first_[i]; k < first_[i + 1]; ++k) outer[inner_[k]] = i;
    }
    for (std::size_t i = 0; i < counts_.size(); ++i) at = outer[at];
    return at;
  }

  const Interface_InterfaceModel& model_;
  std::vector<Counts> counts_;
  std::vector<std::size_t> first_, inner_;  // entity i refers to inner_[first_[i]] to inner_[first_[i + 1] - 1]
};

}  // namespace

std::string exa_geometry_fault(const Handle(Interface_InterfaceModel) & model,
                               const Handle(Interface_Protocol) & protocol,
                               const std::function<bool(const Standard_Transient&)>& is_geometry) {
  return Graph(model, protocol, is_geometry).fault();
}
