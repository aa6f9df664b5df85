// The field of a selection model that a row shows. A control writes its field
// at once and then names the field to the scene, so the models always hold
// what the inspector displays; these two functions are that binding, for
// every row of every pane.
#pragma once

#include "PropertyValue.h"

#include <stagewright/state/SelectionModels.h>

namespace stagewright {

class projectTab;

/// The value `element` shows in the model of `model`; nothing where that
/// model has no such field. Enumerations come as their case names.
propertyValue modelValue(const projectTab& tab, modelType model, publishedElementList element);

/// Writes `value` into that field; a value of another type writes nothing.
void setModelValue(projectTab& tab, modelType model, publishedElementList element, const propertyValue& value);

} // namespace stagewright
