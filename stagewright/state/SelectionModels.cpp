#include "SelectionModels.h"

namespace stagewright {

selectedObjectModel::selectedObjectModel() = default;
selectedObjectModel::selectedObjectModel(const selectedObjectModel&) = default;
selectedObjectModel::selectedObjectModel(selectedObjectModel&&) noexcept = default;
selectedObjectModel& selectedObjectModel::operator=(const selectedObjectModel&) = default;
selectedObjectModel& selectedObjectModel::operator=(selectedObjectModel&&) noexcept = default;
selectedObjectModel::~selectedObjectModel() = default;
bool selectedObjectModel::operator==(const selectedObjectModel&) const = default;

selectedAnimationModel::selectedAnimationModel() = default;
selectedAnimationModel::selectedAnimationModel(const selectedAnimationModel&) = default;
selectedAnimationModel::selectedAnimationModel(selectedAnimationModel&&) noexcept = default;
selectedAnimationModel& selectedAnimationModel::operator=(const selectedAnimationModel&) = default;
selectedAnimationModel& selectedAnimationModel::operator=(selectedAnimationModel&&) noexcept = default;
selectedAnimationModel::~selectedAnimationModel() = default;
bool selectedAnimationModel::operator==(const selectedAnimationModel&) const = default;

tessaro::GameSound selectedObjectModel::newSound()
{
    tessaro::GameSound sound;
    sound.id = tessaro::Uuid::create();
    return sound;
}

} // namespace stagewright
