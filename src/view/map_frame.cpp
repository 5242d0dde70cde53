#include "view/map_frame.h"

#include "view/field_pictures.h"

namespace trelvin {

MapFrame ChooseFrame(const WorldState& world, ViewMode mode, MapFields fields, int position, bool tookHeadquarters) {
    return {ChoosePictures(world, mode, fields.shown), MarkAction(world, position, tookHeadquarters, mode, fields.shown)};
}

}  // namespace trelvin
