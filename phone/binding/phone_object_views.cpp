#include <cstdint>
#include <string>
#include <vector>

#include "phone/binding/bridge.h"
#include "phone/binding/phone_object.h"
#include "phone/objc/geometry.h"
#include "phone/objc/message.h"
#include "phone/objc/selector.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;

// `UIColor` and `UIFont` answer autoreleased objects; the receiver keeps
// what it needs of them.
id colorObject(const host::Color& color) {
  return objc::sendToClass<id>(objc_getClass("UIColor"), "colorWithRed:green:blue:alpha:"_sel, color.red, color.green,
                               color.blue, color.alpha);
}

id fontObject(const host::Font& font) {
  return objc::sendToClass<id>(objc_getClass("UIFont"), "systemFontOfSize:"_sel, font.pointSize);
}

BOOL flag(bool value) { return static_cast<BOOL>(value); }

}  // namespace

host::Rect PhoneObject::frame() const { return toHost(objc::send<objc::Rect>(object_.get(), "frame"_sel)); }

void PhoneObject::setFrame(const host::Rect& frame) { objc::send(object_.get(), "setFrame:"_sel, toRuntime(frame)); }

host::Rect PhoneObject::bounds() const { return toHost(objc::send<objc::Rect>(object_.get(), "bounds"_sel)); }

host::Point PhoneObject::center() const { return toHost(objc::send<objc::Point>(object_.get(), "center"_sel)); }

void PhoneObject::setCenter(const host::Point& center) {
  objc::send(object_.get(), "setCenter:"_sel, toRuntime(center));
}

double PhoneObject::alpha() const { return objc::send<double>(object_.get(), "alpha"_sel); }

void PhoneObject::setAlpha(double alpha) { objc::send(object_.get(), "setAlpha:"_sel, alpha); }

std::int64_t PhoneObject::tag() const { return objc::send<NSInteger>(object_.get(), "tag"_sel); }

void PhoneObject::setTag(std::int64_t tag) { objc::send(object_.get(), "setTag:"_sel, static_cast<NSInteger>(tag)); }

host::Ref<host::View> PhoneObject::superview() const {
  return referenceTo<host::View>(objc::send<id>(object_.get(), "superview"_sel));
}

std::vector<host::Ref<host::View>> PhoneObject::subviews() const {
  return arrayOf<host::View>(objc::send<id>(object_.get(), "subviews"_sel));
}

void PhoneObject::addSubview(const host::Ref<host::View>& view) {
  objc::send(object_.get(), "addSubview:"_sel, objectOf(view));
}

void PhoneObject::insertSubviewAtIndex(const host::Ref<host::View>& view, std::int64_t index) {
  objc::send(object_.get(), "insertSubview:atIndex:"_sel, objectOf(view), static_cast<NSInteger>(index));
}

void PhoneObject::insertSubviewBelowSubview(const host::Ref<host::View>& view, const host::Ref<host::View>& sibling) {
  objc::send(object_.get(), "insertSubview:belowSubview:"_sel, objectOf(view), objectOf(sibling));
}

void PhoneObject::removeFromSuperview() { objc::send(object_.get(), "removeFromSuperview"_sel); }

host::Rect PhoneObject::convertRectFromView(const host::Rect& rect, const host::Ref<host::View>& view) const {
  return toHost(objc::send<objc::Rect>(object_.get(), "convertRect:fromView:"_sel, toRuntime(rect), objectOf(view)));
}

host::Rect PhoneObject::convertRectToView(const host::Rect& rect, const host::Ref<host::View>& view) const {
  return toHost(objc::send<objc::Rect>(object_.get(), "convertRect:toView:"_sel, toRuntime(rect), objectOf(view)));
}

void PhoneObject::setBackgroundColor(const host::Color& color) {
  objc::send(object_.get(), "setBackgroundColor:"_sel, colorObject(color));
}

void PhoneObject::setClipsToBounds(bool clips) { objc::send(object_.get(), "setClipsToBounds:"_sel, flag(clips)); }

void PhoneObject::setUserInteractionEnabled(bool enabled) {
  objc::send(object_.get(), "setUserInteractionEnabled:"_sel, flag(enabled));
}

bool PhoneObject::isOpaque() const { return objc::send<BOOL>(object_.get(), "isOpaque"_sel); }

host::Ref<host::Layer> PhoneObject::layer() const {
  return referenceTo<host::Layer>(objc::send<id>(object_.get(), "layer"_sel));
}

void PhoneObject::addGestureRecognizer(const host::Ref<host::GestureRecognizer>& recognizer) {
  objc::send(object_.get(), "addGestureRecognizer:"_sel, objectOf(recognizer));
}

host::Ref<host::Image> PhoneObject::image() const {
  return referenceTo<host::Image>(objc::send<id>(object_.get(), "image"_sel));
}

void PhoneObject::addTargetActionForControlEvents(const host::Ref<host::Object>& target,
                                                  const host::ControllerAction& action, std::uint64_t events) {
  objc::send(object_.get(), "addTarget:action:forControlEvents:"_sel, objectOf(target),
             sel_registerName(std::string(action.selector).c_str()), static_cast<NSUInteger>(events));
}

void PhoneObject::setText(const host::String& text) {
  objc::send(object_.get(), "setText:"_sel, makeString(text).get());
}

host::String PhoneObject::text() const { return stringOf(objc::send<id>(object_.get(), "text"_sel)); }

void PhoneObject::setTextColor(const host::Color& color) {
  objc::send(object_.get(), "setTextColor:"_sel, colorObject(color));
}

void PhoneObject::setFont(const host::Font& font) { objc::send(object_.get(), "setFont:"_sel, fontObject(font)); }

void PhoneObject::setEnabled(bool enabled) { objc::send(object_.get(), "setEnabled:"_sel, flag(enabled)); }

void PhoneObject::setNumberOfLines(std::int64_t lines) {
  objc::send(object_.get(), "setNumberOfLines:"_sel, static_cast<NSInteger>(lines));
}

void PhoneObject::setAdjustsFontSizeToFitWidth(bool adjusts) {
  objc::send(object_.get(), "setAdjustsFontSizeToFitWidth:"_sel, flag(adjusts));
}

void PhoneObject::setShowsHorizontalScrollIndicator(bool shows) {
  objc::send(object_.get(), "setShowsHorizontalScrollIndicator:"_sel, flag(shows));
}

void PhoneObject::setShowsVerticalScrollIndicator(bool shows) {
  objc::send(object_.get(), "setShowsVerticalScrollIndicator:"_sel, flag(shows));
}

void PhoneObject::setContentSize(const host::Size& size) {
  objc::send(object_.get(), "setContentSize:"_sel, toRuntime(size));
}

void PhoneObject::setScrollEnabled(bool enabled) { objc::send(object_.get(), "setScrollEnabled:"_sel, flag(enabled)); }

void PhoneObject::setBounces(bool bounces) { objc::send(object_.get(), "setBounces:"_sel, flag(bounces)); }

std::int64_t PhoneObject::style() const { return objc::send<NSInteger>(object_.get(), "style"_sel); }

void PhoneObject::setBlurQuality(const host::String& quality) {
  objc::send(object_.get(), "setBlurQuality:"_sel, makeString(quality).get());
}

host::Ref<host::View> PhoneObject::view() const {
  return referenceTo<host::View>(objc::send<id>(object_.get(), "view"_sel));
}

void PhoneObject::setDirection(std::uint64_t direction) {
  objc::send(object_.get(), "setDirection:"_sel, static_cast<NSUInteger>(direction));
}

void PhoneObject::setNumberOfTapsRequired(std::uint64_t taps) {
  objc::send(object_.get(), "setNumberOfTapsRequired:"_sel, static_cast<NSUInteger>(taps));
}

void PhoneObject::setNumberOfTouchesRequired(std::uint64_t touches) {
  objc::send(object_.get(), "setNumberOfTouchesRequired:"_sel, static_cast<NSUInteger>(touches));
}

void PhoneObject::show() { objc::send(object_.get(), "show"_sel); }

}  // namespace tessel::phone
