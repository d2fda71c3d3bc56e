#pragma once

#include <string>
#include <string_view>

#include "host/ref.h"

namespace tessel::host {

class Class;

// Every host object answers the runtime's kind questions.
class Object {
 public:
  virtual ~Object() = default;
  Object() = default;
  Object(const Object&) = default;
  Object& operator=(const Object&) = default;

  // `class`: the object's exact class.
  virtual Ref<Class> objectClass() const { return {}; }
  virtual bool isKindOfClass(const Ref<Class>& /*cls*/) const { return false; }
  virtual bool respondsToSelector(std::string_view /*selector*/) const { return false; }
};

// A class found by name. Class operations are messages to the class itself.
class Class : public virtual Object {
 public:
  virtual std::string name() const { return {}; }
  virtual Ref<Class> superclass() const { return {}; }
  // True when this class is `cls` or inherits from it.
  virtual bool isSubclassOfClass(const Ref<Class>& /*cls*/) const { return false; }

  virtual Ref<Object> sharedInstance() { return {}; }
  virtual Ref<Object> sharedInstanceIfExists() { return {}; }
  virtual Ref<Object> homescreenMap() { return {}; }
  // `alloc`: an uninitialised instance, to be sent its initialiser.
  virtual Ref<Object> alloc() { return {}; }
};

}  // namespace tessel::host
