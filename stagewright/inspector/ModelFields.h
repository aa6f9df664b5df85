// The field of a selection model that a row shows. A control writes its field
// at once and then names the field to the scene, so the models always hold
// what the inspector displays; these two functions are that binding, for
// every row of every pane.
#pragma once

#include "PropertyValue.h"

#include <stagewright/state/SelectionModels.h>

namespace stagewright {

class ProjectTab;

/// The value `element` shows in the model of `model`; nothing where that
/// model has no such field. Enumerations come as their case names.
PropertyValue modelValue(const ProjectTab& tab, ModelType model, PublishedElementList element);

/// Writes `value` into that field; a value of another type writes nothing.
void setModelValue(ProjectTab& tab, ModelType model, PublishedElementList element, const PropertyValue& value);

} // namespace stagewright
