#pragma once

#include <utility>

#include "phone/objc/instance_variable.h"
#include "phone/objc/methods.h"
#include "phone/objc/runtime.h"

namespace tessel::objc {

// Makes a new class at run time: name and superclass, then instance
// variables and methods, then registerClass(). A name that is already taken
// gives a builder that builds nothing.
class ClassBuilder {
 public:
  ClassBuilder(const char* name, Class superclass)
      : class_(objc_allocateClassPair(superclass, name, 0)), superclass_(superclass) {}
  ~ClassBuilder() {
    if (class_ != nullptr && !registered_) objc_disposeClassPair(class_);
  }
  ClassBuilder(const ClassBuilder&) = delete;
  ClassBuilder& operator=(const ClassBuilder&) = delete;

  explicit operator bool() const { return class_ != nullptr; }

  template <typename T>
  bool addInstanceVariable(const char* name) {
    return !registered_ && objc::addInstanceVariable<T>(class_, name);
  }

  template <typename F>
  bool addMethod(SEL selector, F body) {
    return class_ != nullptr && detail::InstallerFor<F>::add(class_, superclass_, selector, std::move(body));
  }

  template <typename F>
  bool addClassMethod(SEL selector, F body) {
    return class_ != nullptr &&
           detail::InstallerFor<F>::add(metaclassOf(class_), metaclassOf(superclass_), selector, std::move(body));
  }

  // The finished class, known to the runtime by its name; nil if the name was taken.
  Class registerClass() {
    if (class_ != nullptr && !registered_) {
      objc_registerClassPair(class_);
      registered_ = true;
    }
    return registered_ ? class_ : nullptr;
  }

 private:
  Class class_;
  Class superclass_;
  bool registered_ = false;
};

}  // namespace tessel::objc
