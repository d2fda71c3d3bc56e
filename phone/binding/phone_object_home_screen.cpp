#include <string>
#include <vector>

#include "phone/binding/bridge.h"
#include "phone/binding/phone_object.h"
#include "phone/objc/message.h"
#include "phone/objc/selector.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;

// An initialiser consumes the reference to its receiver and answers an owned
// object (usually the receiver). The allocated object's host reference keeps
// its own reference, so the initialiser is handed one of its own.
template <typename... Args>
objc::Strong initialise(id allocated, SEL initialiser, Args... args) {
  return objc::Strong::adopt(objc::send<id>(objc::Strong::retain(allocated).release(), initialiser, args...));
}

}  // namespace

host::Ref<host::View> PhoneObject::keyWindow() const {
  return referenceTo<host::View>(objc::send<id>(object_.get(), "keyWindow"_sel));
}

void PhoneObject::launchApplicationWithIdentifierSuspended(const host::String& bundleIdentifier, bool suspended) {
  objc::send(object_.get(), "launchApplicationWithIdentifier:suspended:"_sel, makeString(bundleIdentifier).get(),
             static_cast<BOOL>(suspended));
}

bool PhoneObject::load() { return objc::send<BOOL>(object_.get(), "load"_sel); }

host::String PhoneObject::bundleIdentifier() const {
  return stringOf(objc::send<id>(object_.get(), "bundleIdentifier"_sel));
}

host::Ref<host::Application> PhoneObject::applicationWithBundleIdentifier(const host::String& bundleIdentifier) {
  return referenceTo<host::Application>(
      objc::send<id>(object_.get(), "applicationWithBundleIdentifier:"_sel, makeString(bundleIdentifier).get()));
}

std::vector<host::Ref<host::Application>> PhoneObject::applicationsWithBundleIdentifier(
    const host::String& bundleIdentifier) {
  return arrayOf<host::Application>(
      objc::send<id>(object_.get(), "applicationsWithBundleIdentifier:"_sel, makeString(bundleIdentifier).get()));
}

host::Ref<host::Application> PhoneObject::application() const {
  return referenceTo<host::Application>(objc::send<id>(object_.get(), "application"_sel));
}

host::Ref<host::Icon> PhoneObject::initWithApplication(const host::Ref<host::Application>& application) {
  return referenceTo<host::Icon>(initialise(object_.get(), "initWithApplication:"_sel, objectOf(application)));
}

std::vector<host::Ref<host::Icon>> PhoneObject::visibleIcons() const {
  return arrayOf<host::Icon>(objc::send<id>(object_.get(), "visibleIcons"_sel));
}

void PhoneObject::setIconsNeedLayout() { objc::send(object_.get(), "setIconsNeedLayout"_sel); }

void PhoneObject::layoutIconsIfNeededDomino(double duration, bool domino) {
  objc::send(object_.get(), "layoutIconsIfNeeded:domino:"_sel, duration, static_cast<BOOL>(domino));
}

std::vector<host::Ref<host::Icon>> PhoneObject::allIcons() const {
  return arrayOf<host::Icon>(objc::send<id>(object_.get(), "allIcons"_sel));
}

host::IndexPath PhoneObject::indexPathForIcon(const host::Ref<host::Icon>& icon) const {
  return indexPathOf(objc::send<id>(object_.get(), "indexPathForIcon:"_sel, objectOf(icon)));
}

host::Ref<host::Icon> PhoneObject::expectedIconForDisplayIdentifier(const host::String& bundleIdentifier) const {
  return referenceTo<host::Icon>(
      objc::send<id>(object_.get(), "expectedIconForDisplayIdentifier:"_sel, makeString(bundleIdentifier).get()));
}

host::Ref<host::IconView> PhoneObject::mappedIconViewForIcon(const host::Ref<host::Icon>& icon) const {
  return referenceTo<host::IconView>(objc::send<id>(object_.get(), "mappedIconViewForIcon:"_sel, objectOf(icon)));
}

host::Ref<host::IconModel> PhoneObject::model() const {
  return referenceTo<host::IconModel>(objc::send<id>(object_.get(), "model"_sel));
}

std::vector<host::Ref<host::Application>> PhoneObject::allApplications() const {
  return arrayOf<host::Application>(objc::send<id>(object_.get(), "allApplications"_sel));
}

bool PhoneObject::isEditing() const { return objc::send<BOOL>(object_.get(), "isEditing"_sel); }

host::Ref<host::IconListView> PhoneObject::currentRootIconList() const {
  return referenceTo<host::IconListView>(objc::send<id>(object_.get(), "currentRootIconList"_sel));
}

host::Ref<host::IconListView> PhoneObject::currentFolderIconList() const {
  return referenceTo<host::IconListView>(objc::send<id>(object_.get(), "currentFolderIconList"_sel));
}

host::Ref<host::Object> PhoneObject::valueForKeyPath(std::string_view keyPath) const {
  return referenceTo(objc::send<id>(object_.get(), "valueForKeyPath:"_sel, makeString(std::string(keyPath)).get()));
}

// The list view comes back through the first out-pointer, not retained; no
// folder and no relative path are asked for.
host::Ref<host::IconListView> PhoneObject::getListViewFolderRelativePathForIndexPathCreateIfNecessary(
    const host::IndexPath& path, bool create) {
  id listView = nullptr;
  objc::send(object_.get(), "getListView:folder:relativePath:forIndexPath:createIfNecessary:"_sel, &listView,
             static_cast<id*>(nullptr), static_cast<id*>(nullptr), makeIndexPath(path).get(),
             static_cast<BOOL>(create));
  return referenceTo<host::IconListView>(listView);
}

host::Ref<host::Icon> PhoneObject::icon() const {
  return referenceTo<host::Icon>(objc::send<id>(object_.get(), "icon"_sel));
}

bool PhoneObject::isInDock() const { return objc::send<BOOL>(object_.get(), "isInDock"_sel); }

host::Ref<host::IconView> PhoneObject::initWithDefaultSize() {
  return referenceTo<host::IconView>(initialise(object_.get(), "initWithDefaultSize"_sel));
}

void PhoneObject::_setIconAnimated(const host::Ref<host::Icon>& icon, bool animated) {
  objc::send(object_.get(), "_setIcon:animated:"_sel, objectOf(icon), static_cast<BOOL>(animated));
}

void PhoneObject::setIconLabelAlpha(double alpha) { objc::send(object_.get(), "setIconLabelAlpha:"_sel, alpha); }

}  // namespace tessel::phone
