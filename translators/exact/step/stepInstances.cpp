#include "stepInstances.h"

#include <StepBasic_ProductDefinition.hxx>
#include <StepRepr_CharacterizedDefinition.hxx>
#include <StepRepr_NextAssemblyUsageOccurrence.hxx>
#include <StepRepr_PropertyDefinition.hxx>
#include <StepRepr_RepresentedDefinition.hxx>
#include <StepShape_ShapeDefinitionRepresentation.hxx>
#include <TCollection_HAsciiString.hxx>
#include <TDF_LabelSequence.hxx>
#include <TDataStd_Name.hxx>
#include <TransferBRep.hxx>
#include <TransferBRep_ShapeMapper.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <algorithm>
#include <list>
#include <unordered_map>

namespace {

using Instance = Handle(StepRepr_NextAssemblyUsageOccurrence);

class InstanceNames {
 public:
  InstanceNames(const Handle(Transfer_FinderProcess) & made, const Handle(StepData_StepModel) & model) : made_(made) {
    for (int i = 1; i <= model->NbEntities(); ++i) {
      const auto instance = Instance::DownCast(model->Value(i));
      if (!instance.IsNull()) instances_[instance->RelatingProductDefinition().get()].push_back(instance);
    }
  }

  // Components of a label and instances of its product are both in the order of the shapes in the assembly.
  void set(const TDF_Label& assembly) {
    auto& instances = instances_[product_of(assembly)];
    TDF_LabelSequence components;
    XCAFDoc_ShapeTool::GetComponents(assembly, components);
    for (const TDF_Label& component : components) {
      TDF_Label part;
      Handle(TDataStd_Name) name;
      if (!XCAFDoc_ShapeTool::GetReferredShape(component, part)) continue;
      const Standard_Transient* const product = product_of(part);
      const auto instance = std::find_if(instances.begin(), instances.end(), [&](const Instance& it) {
        return it->RelatedProductDefinition().get() == product;
      });
      if (instance == instances.end()) continue;
      const bool named = component.FindAttribute(TDataStd_Name::GetID(), name);
      (*instance)->SetName(new TCollection_HAsciiString(named ? TCollection_AsciiString(name->Get()) : ""));
      instances.erase(instance);
    }
  }

 private:
  const Standard_Transient* product_of(const TDF_Label& label) const {
    const TopoDS_Shape shape = XCAFDoc_ShapeTool::GetShape(label);
    Handle(StepShape_ShapeDefinitionRepresentation) representation;
    const bool found = !shape.IsNull() && made_->FindTypedTransient(
                                              TransferBRep::ShapeMapper(made_, shape),
                                              STANDARD_TYPE(StepShape_ShapeDefinitionRepresentation), representation);
    if (!found) return nullptr;
    const Handle(StepRepr_PropertyDefinition) property = representation->Definition().PropertyDefinition();
    return property.IsNull() ? nullptr : property->Definition().ProductDefinition().get();
  }

  const Handle(Transfer_FinderProcess) & made_;
  std::unordered_map<const Standard_Transient*, std::list<Instance>> instances_;  // keyed by the assembly's product
};

}  // namespace

void step_name_instances(const Handle(TDocStd_Document) & source, const Handle(Transfer_FinderProcess) & made,
                         const Handle(StepData_StepModel) & model) {
  InstanceNames names(made, model);
  TDF_LabelSequence labels;
  XCAFDoc_DocumentTool::ShapeTool(source->Main())->GetShapes(labels);
  for (const TDF_Label& label : labels) {
    if (XCAFDoc_ShapeTool::IsAssembly(label)) names.set(label);
  }
}
