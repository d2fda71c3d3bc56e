#include <string>

#include "phone/binding/bridge.h"
#include "phone/binding/phone_object.h"
#include "phone/objc/message.h"
#include "phone/objc/selector.h"

namespace tessel::phone {

using namespace objc::literals;

host::Ref<host::Label> PhoneObject::textLabel() const {
  return referenceTo<host::Label>(objc::send<id>(object_.get(), "textLabel"_sel));
}

host::Ref<host::Label> PhoneObject::detailTextLabel() const {
  return referenceTo<host::Label>(objc::send<id>(object_.get(), "detailTextLabel"_sel));
}

host::Ref<host::View> PhoneObject::contentView() const {
  return referenceTo<host::View>(objc::send<id>(object_.get(), "contentView"_sel));
}

void PhoneObject::setBackgroundView(const host::Ref<host::View>& view) {
  objc::send(object_.get(), "setBackgroundView:"_sel, objectOf(view));
}

void PhoneObject::setRowHeight(double height) { objc::send(object_.get(), "setRowHeight:"_sel, height); }

// Neither the delegate nor the data source is retained by the table (nor an
// icon view's delegate by the icon view).
void PhoneObject::setDelegate(const host::Ref<host::Object>& delegate) {
  objc::send(object_.get(), "setDelegate:"_sel, objectOf(delegate));
}

void PhoneObject::setDataSource(const host::Ref<host::Object>& dataSource) {
  objc::send(object_.get(), "setDataSource:"_sel, objectOf(dataSource));
}

void PhoneObject::registerClassForCellReuseIdentifier(std::string_view className, const host::String& identifier) {
  objc::send(object_.get(), "registerClass:forCellReuseIdentifier:"_sel, objc_getClass(std::string(className).c_str()),
             makeString(identifier).get());
}

}  // namespace tessel::phone
