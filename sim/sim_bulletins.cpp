#include "sim/sim_bulletins.h"

namespace tessel::sim {

host::Ref<host::BulletinSectionController> SimBulletinViewController::sectionAtIndex(std::int64_t index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= list_->controllers.size()) return {};
  return host::Ref<host::BulletinSectionController>(list_->controllers[static_cast<std::size_t>(index)]);
}

host::Ref<host::LegacyBulletinSection> SimBulletinListController::_sectionAtIndex(std::int64_t index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= list_->sections.size()) return {};
  return host::Ref<host::LegacyBulletinSection>(list_->sections[static_cast<std::size_t>(index)]);
}

}  // namespace tessel::sim
