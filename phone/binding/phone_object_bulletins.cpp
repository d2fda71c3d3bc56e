#include <cstdint>

#include "phone/binding/bridge.h"
#include "phone/binding/phone_object.h"
#include "phone/objc/message.h"
#include "phone/objc/selector.h"

namespace tessel::phone {

using namespace objc::literals;

host::String PhoneObject::title() const { return stringOf(objc::send<id>(object_.get(), "title"_sel)); }

host::String PhoneObject::message() const { return stringOf(objc::send<id>(object_.get(), "message"_sel)); }

// Seconds since the platform's reference date, the clock that `now` reads too.
double PhoneObject::date() const {
  return objc::send<double>(objc::send<id>(object_.get(), "date"_sel), "timeIntervalSinceReferenceDate"_sel);
}

host::String PhoneObject::sectionID() const { return stringOf(objc::send<id>(object_.get(), "sectionID"_sel)); }

host::BulletinArray PhoneObject::bulletins() const {
  return arrayOf<host::Bulletin>(objc::send<id>(object_.get(), "bulletins"_sel));
}

host::Ref<host::BulletinListSection> PhoneObject::representedListSection() const {
  return referenceTo<host::BulletinListSection>(objc::send<id>(object_.get(), "representedListSection"_sel));
}

host::Ref<host::BulletinSectionController> PhoneObject::sectionAtIndex(std::int64_t index) const {
  return referenceTo<host::BulletinSectionController>(
      objc::send<id>(object_.get(), "sectionAtIndex:"_sel, static_cast<NSInteger>(index)));
}

std::uint64_t PhoneObject::bulletinCount() const { return objc::send<NSUInteger>(object_.get(), "bulletinCount"_sel); }

host::Ref<host::Bulletin> PhoneObject::bulletinAtIndex(std::uint64_t index) const {
  return referenceTo<host::Bulletin>(
      objc::send<id>(object_.get(), "bulletinAtIndex:"_sel, static_cast<NSUInteger>(index)));
}

host::Ref<host::LegacyBulletinSection> PhoneObject::_sectionAtIndex(std::int64_t index) const {
  return referenceTo<host::LegacyBulletinSection>(
      objc::send<id>(object_.get(), "_sectionAtIndex:"_sel, static_cast<NSInteger>(index)));
}

}  // namespace tessel::phone
