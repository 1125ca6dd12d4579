#include "igesNesting.h"

#include <IGESBasic_Group.hxx>
#include <IGESBasic_SingleParent.hxx>
#include <IGESBasic_SingularSubfigure.hxx>
#include <IGESBasic_SubfigureDef.hxx>
#include <IGESData_IGESEntity.hxx>
#include <IGESData_TransfEntity.hxx>
#include <IGESGeom_CompositeCurve.hxx>
#include <IGESGeom_CurveOnSurface.hxx>
#include <IGESGeom_OffsetCurve.hxx>
#include <IGESGeom_OffsetSurface.hxx>
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
    if (add_geometry(*outer_)) return;
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

  // Curves and surfaces that are made of others. Those of faces are no parts, and are not counted as such.
  bool add_geometry(const IGESData_IGESEntity& entity) {
    if (const auto curve = dynamic_cast<const IGESGeom_CompositeCurve*>(&entity)) {
      for (int i = 1; i <= curve->NbCurves(); ++i) inner(curve->Curve(i));
    } else if (const auto on_surface = dynamic_cast<const IGESGeom_CurveOnSurface*>(&entity)) {
      inner(on_surface->CurveUV());
      inner(on_surface->Curve3D());
    } else if (const auto offset = dynamic_cast<const IGESGeom_OffsetCurve*>(&entity)) {
      inner(offset->BaseCurve());
    } else if (const auto surface = dynamic_cast<const IGESGeom_OffsetSurface*>(&entity)) {
      inner(surface->Surface());
    } else if (dynamic_cast<const IGESData_TransfEntity*>(&entity)) {
      inner(entity.Transf());
    } else {
      return false;
    }
    return true;
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
