#pragma once

#include <any>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "host/method_hook.h"

namespace tessel::sim {

// A class of the simulated runtime: a name, a superclass, the selectors its
// instances answer and a method table of replaceable implementations, each
// a std::function of the method's signature held in a std::any.
class SimClass : public host::Class, public std::enable_shared_from_this<SimClass> {
 public:
  // Messages to the class itself; an empty slot answers nothing.
  struct Operations {
    std::function<host::Ref<host::Object>()> sharedInstance;
    std::function<host::Ref<host::Object>()> sharedInstanceIfExists;
    std::function<host::Ref<host::Object>()> homescreenMap;
    std::function<host::Ref<host::Object>()> alloc;
  };

  SimClass(std::string name, std::shared_ptr<SimClass> superclass);

  // |host::Class|
  std::string name() const override { return name_; }
  host::Ref<host::Class> superclass() const override { return host::Ref<host::Class>(superclass_); }
  bool isSubclassOfClass(const host::Ref<host::Class>& cls) const override;
  host::Ref<host::Object> sharedInstance() override { return call(operations_.sharedInstance); }
  host::Ref<host::Object> sharedInstanceIfExists() override { return call(operations_.sharedInstanceIfExists); }
  host::Ref<host::Object> homescreenMap() override { return call(operations_.homescreenMap); }
  host::Ref<host::Object> alloc() override { return call(operations_.alloc); }

  const std::shared_ptr<SimClass>& parent() const { return superclass_; }
  // True when this class is `other` or inherits from it.
  bool inheritsFrom(const SimClass* other) const;
  bool inheritsFrom(std::string_view otherName) const;

  void declareSelectors(std::initializer_list<std::string_view> selectors);
  bool instancesRespondTo(std::string_view selector) const;

  // The implementation found up the superclass chain, or nothing.
  const std::any* findMethod(std::string_view selector) const;
  void setMethod(std::string_view selector, std::any implementation);
  // Installs `implementation` in this class's own table and hands back the
  // one that instances used before (possibly inherited).
  std::any replaceMethod(std::string_view selector, std::any implementation);

  // The typed implementation for a selector, empty when there is none or its
  // slot holds another signature.
  template <class Signature>
  typename host::MethodHook<Signature>::Implementation method(const host::MethodHook<Signature>& hook) const {
    const std::any* found = findMethod(hook.selector);
    if (!found) return {};
    if (const auto* fn = std::any_cast<typename host::MethodHook<Signature>::Implementation>(found)) return *fn;
    return {};
  }

  Operations& operations() { return operations_; }

 private:
  static host::Ref<host::Object> call(const std::function<host::Ref<host::Object>()>& operation) {
    return operation ? operation() : host::Ref<host::Object>();
  }

  std::string name_;
  std::shared_ptr<SimClass> superclass_;
  std::set<std::string, std::less<>> selectors_;
  std::map<std::string, std::any, std::less<>> methods_;
  Operations operations_;
};

}  // namespace tessel::sim
