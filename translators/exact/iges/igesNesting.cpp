#include "igesNesting.h"

#include <IGESBasic_Group.hxx>
#include <IGESBasic_SingleParent.hxx>
#include <IGESBasic_SingularSubfigure.hxx>
#include <IGESBasic_SubfigureDef.hxx>
#include <IGESData_IGESEntity.hxx>
#include <IGESSolid_BooleanTree.hxx>
#include <IGESSolid_SolidAssembly.hxx>
#include <IGESSolid_SolidInstance.hxx>

namespace {

class Nesting {
 public:
  exaNesting of(const IGESData_IGESModel& model) {
    for (int i = 1; i <= model.NbEntities(); ++i) add(model.Entity(i));
    return std::move(nesting_);
  }

 private:
  void add(const Handle(IGESData_IGESEntity) & entity) {
    outer_ = entity.get();
    if (const auto group = dynamic_cast<const IGESBasic_Group*>(outer_)) {
      for (int i = 1; i <= group->NbEntities(); ++i) inner(group->Entity(i));
    } else if (const auto parent = dynamic_cast<const IGESBasic_SingleParent*>(outer_)) {
      inner(parent->SingleParent());
      for (int i = 1; i <= parent->NbChildren(); ++i) inner(parent->Child(i));
    } else if (const auto subfigure = dynamic_cast<const IGESBasic_SubfigureDef*>(outer_)) {
      for (int i = 1; i <= subfigure->NbEntities(); ++i) inner(subfigure->AssociatedEntity(i));
    } else if (const auto shown = dynamic_cast<const IGESBasic_SingularSubfigure*>(outer_)) {
      inner(shown->Subfigure());
    } else if (const auto assembly = dynamic_cast<const IGESSolid_SolidAssembly*>(outer_)) {
      for (int i = 1; i <= assembly->NbItems(); ++i) inner(assembly->Item(i));
    } else if (const auto instance = dynamic_cast<const IGESSolid_SolidInstance*>(outer_)) {
      inner(instance->Entity());
    } else if (const auto tree = dynamic_cast<const IGESSolid_BooleanTree*>(outer_)) {
      for (int i = 1; i <= tree->Length(); ++i) {
        if (tree->IsOperand(i)) inner(tree->Operand(i));
      }
    }
  }

  void inner(const Handle(Standard_Transient) & entity) {
    if (!entity.IsNull()) nesting_.add(outer_, entity.get());
  }

  exaNesting nesting_;
  const IGESData_IGESEntity* outer_ = nullptr;
};

}  // namespace

exaNesting iges_nesting(const Handle(IGESData_IGESModel) & model) {
  return Nesting().of(*model);
}
