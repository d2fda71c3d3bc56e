#include "phone/binding/bridge.h"
#include "phone/binding/phone_object.h"
#include "phone/objc/geometry.h"
#include "phone/objc/message.h"
#include "phone/objc/owned_object.h"
#include "phone/objc/selector.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;

// The elements given to a path or to a shape layer, kept by that runtime
// object: a graphics path cannot be read back without walking it, and every
// reference to the object reads the same elements.
struct PathElements {
  host::Path path;
};

host::Path& elementsOf(id owner) {
  if (auto* elements = objc::findOwned<PathElements>(owner)) return elements->path;
  return objc::attachOwned<PathElements>(owner)->path;
}

host::Path elementsIfAny(id owner) {
  const auto* elements = objc::findOwned<PathElements>(owner);
  return elements == nullptr ? host::Path() : elements->path;
}

void addElement(id bezierPath, const host::Path::Element& element) {
  switch (element.op) {
    case host::Path::Op::moveTo:
      objc::send(bezierPath, "moveToPoint:"_sel, toRuntime(element.point));
      break;
    case host::Path::Op::lineTo:
      objc::send(bezierPath, "addLineToPoint:"_sel, toRuntime(element.point));
      break;
    case host::Path::Op::close:
      objc::send(bezierPath, "closePath"_sel);
      break;
  }
  elementsOf(bezierPath).elements.push_back(element);
}

}  // namespace

void PhoneObject::setMask(const host::Ref<host::Layer>& mask) {
  objc::send(object_.get(), "setMask:"_sel, objectOf(mask));
}

host::Ref<host::Layer> PhoneObject::mask() const {
  return referenceTo<host::Layer>(objc::send<id>(object_.get(), "mask"_sel));
}

void PhoneObject::renderInContext(const host::Ref<host::ImageContext>& context) {
  const auto* imageContext = dynamic_cast<const PhoneImageContext*>(context.get());
  CGContextRef graphicsContext = imageContext == nullptr ? nullptr : imageContext->graphicsContext();
  // Nothing open to draw into.
  if (graphicsContext == nullptr) return;
  objc::send(object_.get(), "renderInContext:"_sel, graphicsContext);
}

// The layer takes the graphics path of a path built from the elements.
void PhoneObject::setPath(const host::Path& path) {
  id allocated = objc::sendToClass<id>(objc_getClass("UIBezierPath"), "alloc"_sel);
  objc::Strong bezierPath = objc::Strong::adopt(objc::send<id>(allocated, "init"_sel));
  for (const auto& element : path.elements) addElement(bezierPath.get(), element);
  objc::send(object_.get(), "setPath:"_sel, objc::send<CGPathRef>(bezierPath.get(), "CGPath"_sel));
  elementsOf(object_.get()) = path;
}

host::Path PhoneObject::path() const { return elementsIfAny(object_.get()); }

void PhoneObject::moveToPoint(const host::Point& p) { addElement(object_.get(), {host::Path::Op::moveTo, p}); }

void PhoneObject::addLineToPoint(const host::Point& p) { addElement(object_.get(), {host::Path::Op::lineTo, p}); }

void PhoneObject::closePath() { addElement(object_.get(), {host::Path::Op::close, {}}); }

host::Path PhoneObject::CGPath() const { return elementsIfAny(object_.get()); }

}  // namespace tessel::phone
